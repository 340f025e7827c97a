// VnReconcileStatusBarWin32.cpp - the frame's status bar.
#include "window/VnReconcileStatusBar.h"

#include "afx/win32/AfxMsgMap.h"

IMPLEMENT_DYNAMIC(CVnReconcileStatusBar, CStatusBar)

BEGIN_MESSAGE_MAP(CVnReconcileStatusBar, CStatusBar)
END_MESSAGE_MAP()

int CVnReconcileStatusBar::SetPaneText(int index, LPCWSTR text, int update) {
  return CStatusBar::SetPaneText(index, text, update);
}
