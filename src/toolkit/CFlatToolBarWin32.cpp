// CFlatToolBarWin32.cpp - flat toolbar: load, repaint on moves, button updates.
#include "toolkit/CFlatToolBar.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CFrameWnd.h"

IMPLEMENT_DYNAMIC(CFlatToolBar, CToolBar)

BEGIN_MESSAGE_MAP(CFlatToolBar, CToolBar)
  VN_WM_ENTRY(WM_WINDOWPOSCHANGING, self->OnWindowPosChanging(reinterpret_cast<WINDOWPOS*>(lParam)); return 0;)
  VN_WM_ENTRY(WM_WINDOWPOSCHANGED, self->OnWindowPosChanged(reinterpret_cast<WINDOWPOS*>(lParam)); return 0;)
END_MESSAGE_MAP()

BOOL CFlatToolBar::LoadToolBar(LPCWSTR resourceName) {
  if (!CToolBar::LoadToolBar(resourceName))
    return FALSE;
  ::SetWindowLongW(m_hWnd, GWL_STYLE, ::GetWindowLongW(m_hWnd, GWL_STYLE) | TBSTYLE_FLAT);
  return TRUE;
}

// What the bar covered before the move is erased on the parent, and the
// border is drawn again after the control has painted its buttons.
void CFlatToolBar::OnWindowPosChanging(WINDOWPOS* position) {
  Default();
  if (position->flags & SWP_NOMOVE)
    return;
  RECT rect;
  GetWindowRect(&rect);
  HWND parent = ::GetParent(m_hWnd);
  ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
  ::InvalidateRect(parent, &rect, TRUE);
  PostMessage(WM_NCPAINT, 0, 0);
}

void CFlatToolBar::OnWindowPosChanged(WINDOWPOS* position) {
  Default();
  if (!(position->flags & SWP_NOMOVE))
    SendMessage(WM_NCPAINT, 0, 0);
}

void CFlatToolBar::OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) {
  CFlatToolBarCmdUI state;
  UpdateButtons(state, target, disableIfNoHandler);
}

//===-- Button updates -----------------------------------------------------===//

// A checked command shows as a pressed button.  Only a real change is
// written, and an enabled button is redrawn at once.
void CFlatToolBarCmdUI::SetCheck(int check) {
  if (check < 0 || check > 2)
    return;
  UINT old = Bar()->GetButtonStyle(m_nIndex);
  UINT style = old & ~(TBBS_PRESSED | TBBS_INDETERMINATE);
  if (check == 1)
    style |= TBBS_PRESSED;
  else if (check == 2)
    style |= TBBS_INDETERMINATE;
  if (style == old)
    return;
  Bar()->SetButtonStyle(m_nIndex, style);
  if (!(style & TBBS_DISABLED))
    Bar()->Invalidate(TRUE);
}
