// CGdiObject.h - owners of GDI handles: CGdiObject and CBitmap.
//
// An object owns the handle it holds and deletes it when it dies; Detach
// hands ownership back.  Attach takes a handle only into an empty object.
#ifndef VN_AFX_WIN32_CGDIOBJECT_H
#define VN_AFX_WIN32_CGDIOBJECT_H

#include "afx/afx.h"

class VN_API CGdiObject : public CObject {
  DECLARE_DYNAMIC(CGdiObject)
public:
  CGdiObject() = default;
  ~CGdiObject() override;
  CGdiObject(const CGdiObject&) = delete;
  CGdiObject& operator=(const CGdiObject&) = delete;

  HGDIOBJ GetSafeHandle() const { return m_hObject; }
  // Gives FALSE for a null handle or when a handle is held already.
  BOOL Attach(HGDIOBJ handle);
  HGDIOBJ Detach();
  BOOL DeleteObject();

  HGDIOBJ m_hObject = nullptr;
};

class VN_API CBitmap : public CGdiObject {
  DECLARE_DYNAMIC(CBitmap)
public:
  operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
  int GetBitmap(BITMAP* info) const;
};

#endif  // VN_AFX_WIN32_CGDIOBJECT_H
