// VnPrintingDialogWin32.cpp - the dialog that shows while a comparison prints.
#include "window/VnPrintingDialog.h"

#include "afx/win32/CWinApp.h"

IMPLEMENT_DYNAMIC(CVnPrintingDialog, CDialog)

int CVnPrintingDialog::m_bUserAbort = 0;

CVnPrintingDialog::CVnPrintingDialog(CWnd* parent) : CDialog(IDD, parent) {
  Create(IDD, parent);
  m_bUserAbort = 0;
}

// Over the middle of the window that owns it.
static void CenterOnOwner(HWND dialog) {
  RECT area, mine;
  HWND owner = ::GetWindow(dialog, GW_OWNER);
  if (!owner || !::GetWindowRect(owner, &area))
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  ::GetWindowRect(dialog, &mine);
  int width = mine.right - mine.left, height = mine.bottom - mine.top;
  ::SetWindowPos(dialog, nullptr, (area.left + area.right - width) / 2, (area.top + area.bottom - height) / 2, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CVnPrintingDialog::OnInitDialog() {
  CWinApp* app = AfxGetApp();
  if (app && app->m_pszAppName)
    SetWindowText(app->m_pszAppName);
  CenterOnOwner(m_hWnd);
  return CDialog::OnInitDialog();
}

void CVnPrintingDialog::OnCancel() { m_bUserAbort = 1; }
