// CWinAppPrint.cpp - the application's printer: the device the user chose
// last, offered to the next Print dialog and used by direct printing.
//
// The device mode and device names are global memory handles of the
// system's; the application holds them between dialogs, the dialog record
// borrows them for the time of one PrintDlgW, which may free them and hand
// back new ones.
#include "afx/win32/CWinApp.h"

#include "afx/win32/CPrintDialog.h"
#include "afx/win32/CWnd.h"

#include <cassert>

INT_PTR CWinApp::DoPrintDialog(CPrintDialog* dialog) {
  assert(dialog && "a dialog to run");
  dialog->m_pd.hDevMode = m_hDevMode;
  dialog->m_pd.hDevNames = m_hDevNames;
  if (!dialog->m_pd.hwndOwner && m_pMainWnd)
    dialog->m_pd.hwndOwner = m_pMainWnd->GetSafeHwnd();
  INT_PTR result = dialog->DoModal();
  m_hDevMode = dialog->m_pd.hDevMode;
  m_hDevNames = dialog->m_pd.hDevNames;
  return result;
}

BOOL CWinApp::GetPrinterDeviceDefaults(PRINTDLGW* pd) {
  assert(pd && "a record to fill");
  if (!m_hDevNames) {
    CPrintDialog query(FALSE);
    if (query.GetDefaults()) {
      m_hDevMode = query.m_pd.hDevMode;
      m_hDevNames = query.m_pd.hDevNames;
    }
  }
  pd->hDevMode = m_hDevMode;
  pd->hDevNames = m_hDevNames;
  return m_hDevNames != nullptr;
}
