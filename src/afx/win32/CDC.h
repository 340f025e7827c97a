// CDC.h - device contexts: CDC over an HDC, and CClientDC, which borrows
// a window's client-area context for the length of a scope.
//
// A CDC doesn't own its handle; CClientDC gives its handle back when it dies.
// Methods are one GDI call each; the context keeps all state.  Besides the
// output context m_hDC a CDC names the context that answers questions about
// the device (m_hAttribDC); both are the same handle unless a caller sets
// them apart, as a printer job on a metafile would.
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
  // Holds hDC as both contexts without owning it; Detach lets go and gives it.
  BOOL Attach(HDC hDC);
  HDC Detach();

  // Printing.
  int StartDoc(const DOCINFOW* info);
  int StartPage();
  int EndPage();
  int EndDoc();
  int AbortDoc();
  int SetAbortProc(ABORTPROC proc);

  // Coordinates and clipping.
  int SetMapMode(int mode);
  CPoint SetViewportOrg(int x, int y);
  CSize GetWindowExt() const;
  CSize SetWindowExt(int cx, int cy);
  // Multiplies the window extent by xNum / xDenom and yNum / yDenom.
  CSize ScaleWindowExt(int xNum, int xDenom, int yNum, int yDenom);
  BOOL DPtoLP(LPPOINT points, int count = 1) const;
  int SaveDC();
  BOOL RestoreDC(int saved);
  int IntersectClipRect(int left, int top, int right, int bottom);

  // Selects the object and gives the handle it replaced, to be selected back.
  HGDIOBJ SelectObject(CGdiObject* object);
  HGDIOBJ SelectObject(HGDIOBJ object);
  int GetDeviceCaps(int index) const;
  BOOL GetTextMetrics(LPTEXTMETRICW metrics) const;
  CSize GetTextExtent(LPCWSTR text, int count) const;
  // The packed answer of GetTabbedTextExtentW, as a CSize of signed halves.
  CSize GetTabbedTextExtent(LPCWSTR text, int count, int tabPositions, LPINT tabStops) const;

  HDC m_hDC = nullptr;
  HDC m_hAttribDC = nullptr;
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
