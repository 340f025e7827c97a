// VnFindReplaceDialogWin32.cpp - the Find dialog that names its pane.
#include "window/VnFindReplaceDialog.h"

#include "afx/win32/AfxMsgMap.h"
#include "window/VnTextPane.h"

IMPLEMENT_DYNAMIC(CVnFindReplaceDialog, CFindReplaceDialog)

BEGIN_MESSAGE_MAP(CVnFindReplaceDialog, CFindReplaceDialog)
  ON_WM_DESTROY()
END_MESSAGE_MAP()

// The title gains the owner pane's caption: with a pane per file, the user
// sees which file the search runs in.
BOOL CVnFindReplaceDialog::OnInitDialog() {
  CFindReplaceDialog::OnInitDialog();
  CWnd* owner = CWnd::FromHandlePermanent(m_fr.hwndOwner);
  if (owner && owner->IsKindOf(RUNTIME_CLASS(CVnTextPane))) {
    CString title;
    GetWindowText(title);
    SetWindowText(title + L" (" + static_cast<CVnTextPane*>(owner)->GetCaption() + L")");
  }
  return TRUE;
}

void CVnFindReplaceDialog::OnDestroy() {
  CFindReplaceDialog::OnDestroy();
  if (::IsWindow(m_fr.hwndOwner))
    ::SendMessageW(m_fr.hwndOwner, WM_FINDDIALOG_DESTROYED, 0, 0);
}
