// VnPrintingDialogWin32.cpp - the dialog that shows while a comparison prints.
#include "window/VnPrintingDialog.h"

#include "afx/win32/CWinApp.h"

IMPLEMENT_DYNAMIC(CVnPrintingDialog, CDialog)

int CVnPrintingDialog::m_bUserAbort = 0;

CVnPrintingDialog::CVnPrintingDialog(CWnd* parent) : CDialog(IDD, parent) {
  Create(IDD, parent);
  m_bUserAbort = 0;
}

BOOL CVnPrintingDialog::OnInitDialog() {
  CWinApp* app = AfxGetApp();
  if (app && app->m_pszAppName)
    SetWindowText(app->m_pszAppName);
  CenterWindow();
  return CDialog::OnInitDialog();
}

void CVnPrintingDialog::OnCancel() { m_bUserAbort = 1; }
