// CStatic.h - the static control: a label, a frame or a picture.
#ifndef VN_AFX_WIN32_CSTATIC_H
#define VN_AFX_WIN32_CSTATIC_H

#include "afx/win32/CWnd.h"

class VN_API CStatic : public CWnd {
  DECLARE_DYNAMIC(CStatic)
public:
  // style: SS_ styles with the window styles.
  BOOL Create(LPCWSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id);
  // An SS_BITMAP control shows bitmap, which stays the caller's.  Gives the
  // bitmap shown before.
  HBITMAP SetBitmap(HBITMAP bitmap);
  HBITMAP GetBitmap() const;
};

#endif  // VN_AFX_WIN32_CSTATIC_H
