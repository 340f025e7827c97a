// CDC.h - device contexts: CDC over an HDC, and CClientDC, which borrows
// a window's client-area context for the length of a scope.
//
// A CDC doesn't own its handle; CClientDC gives its handle back when it dies.
// Methods are one GDI call each; the context keeps all state.
#ifndef VN_AFX_WIN32_CDC_H
#define VN_AFX_WIN32_CDC_H

#include "afx/afx.h"
#include "afx/win32/CGeometry.h"

class CGdiObject;
class CWnd;

class VN_API CDC : public CObject {
  DECLARE_DYNAMIC(CDC)
public:
  CDC() = default;
  CDC(const CDC&) = delete;
  CDC& operator=(const CDC&) = delete;

  operator HDC() const { return m_hDC; }
  HDC GetSafeHdc() const { return m_hDC; }

  // Selects the object and gives the handle it replaced, to be selected back.
  HGDIOBJ SelectObject(CGdiObject* object);
  HGDIOBJ SelectObject(HGDIOBJ object);
  int GetDeviceCaps(int index) const;
  BOOL GetTextMetrics(LPTEXTMETRICW metrics) const;
  CSize GetTextExtent(LPCWSTR text, int count) const;
  // The packed answer of GetTabbedTextExtentW, as a CSize of signed halves.
  CSize GetTabbedTextExtent(LPCWSTR text, int count, int tabPositions, LPINT tabStops) const;

  HDC m_hDC = nullptr;
};

class VN_API CClientDC : public CDC {
  DECLARE_DYNAMIC(CClientDC)
public:
  // The window's client context; null handle if the window gave none.
  explicit CClientDC(CWnd* wnd);
  ~CClientDC() override;

  HWND m_hWnd;
};

#endif  // VN_AFX_WIN32_CDC_H
