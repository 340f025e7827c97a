// CControlBar.cpp - a bar's share of its parent's layout and its idle updates.
#include "afx/win32/CControlBar.h"

#include "afx/win32/CFrameWnd.h"

IMPLEMENT_DYNAMIC(CControlBar, CWnd)

CSize CControlBar::CalcFixedLayout(BOOL, BOOL) {
  CRect rect;
  GetWindowRect(&rect);
  return CSize(rect.Width(), rect.Height());
}

// A hidden bar takes nothing.  A bar on the top or bottom edge spans the
// whole width that is left, one on a side the whole height.
void CControlBar::TakeEdge(AFX_SIZEPARENTPARAMS* layout) {
  if (!(::GetWindowLongW(m_hWnd, GWL_STYLE) & WS_VISIBLE))
    return;
  RECT& left = layout->rect;
  BOOL horizontal = (m_dwStyle & (CBRS_ALIGN_TOP | CBRS_ALIGN_BOTTOM)) != 0;
  CSize size = CalcFixedLayout(layout->bStretch, horizontal);
  RECT place = left;
  if (m_dwStyle & CBRS_ALIGN_BOTTOM) {
    place.top = left.bottom - size.cy;
    left.bottom = place.top;
  } else if (m_dwStyle & CBRS_ALIGN_LEFT) {
    place.right = left.left + size.cx;
    left.left = place.right;
  } else if (m_dwStyle & CBRS_ALIGN_RIGHT) {
    place.left = left.right - size.cx;
    left.right = place.left;
  } else {
    place.bottom = left.top + size.cy;
    left.top = place.bottom;
  }
  if (horizontal)
    layout->sizeTotal.cy += size.cy;
  else
    layout->sizeTotal.cx += size.cx;
  if (layout->hDWP)
    layout->hDWP = ::DeferWindowPos(layout->hDWP, m_hWnd, nullptr, place.left, place.top, place.right - place.left,
                                    place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT CControlBar::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SIZEPARENT) {
    TakeEdge(reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam));
    return 0;
  }
  if (message == WM_IDLEUPDATECMDUI) {
    CWnd* parent = GetParent();
    if (IsWindowVisible() && parent && parent->IsKindOf(RUNTIME_CLASS(CFrameWnd)))
      OnUpdateCmdUI(static_cast<CFrameWnd*>(parent), static_cast<BOOL>(wParam));
    return 0;
  }
  return CWnd::WindowProc(message, wParam, lParam);
}
