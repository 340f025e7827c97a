// CControlBar.cpp - a bar's share of its parent's layout.
#include "afx/win32/CControlBar.h"

#include <cassert>

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
  return CWnd::WindowProc(message, wParam, lParam);
}

// The bars move together in one deferred batch, then the client child takes
// the rest; reposExtra shrinks the rest further by *rectParam's sides.
void CWnd::RepositionBars(UINT first, UINT last, UINT leftOver, UINT flag, LPRECT rectParam, LPCRECT clientRect,
                          BOOL stretch) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  AFX_SIZEPARENTPARAMS layout = {};
  layout.bStretch = stretch;
  if (clientRect)
    layout.rect = *clientRect;
  else
    ::GetClientRect(m_hWnd, &layout.rect);
  layout.hDWP = flag == reposQuery ? nullptr : ::BeginDeferWindowPos(8);
  HWND rest = nullptr;
  for (HWND child = ::GetTopWindow(m_hWnd); child; child = ::GetNextWindow(child, GW_HWNDNEXT)) {
    UINT id = static_cast<UINT>(::GetDlgCtrlID(child));
    if (id == leftOver)
      rest = child;
    else if (id >= first && id <= last)
      ::SendMessageW(child, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
  }
  if (flag == reposQuery) {
    if (rectParam)
      *rectParam = layout.rect;
    return;
  }
  if (flag == reposExtra && rectParam) {
    layout.rect.left += rectParam->left;
    layout.rect.top += rectParam->top;
    layout.rect.right -= rectParam->right;
    layout.rect.bottom -= rectParam->bottom;
  }
  if (rest && layout.hDWP)
    layout.hDWP = ::DeferWindowPos(layout.hDWP, rest, nullptr, layout.rect.left, layout.rect.top,
                                   layout.rect.right - layout.rect.left, layout.rect.bottom - layout.rect.top,
                                   SWP_NOZORDER | SWP_NOACTIVATE);
  if (layout.hDWP)
    ::EndDeferWindowPos(layout.hDWP);
}
