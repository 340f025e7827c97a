// CPrintDialog.cpp - the Print dialog and the state of a print job.
#include "afx/win32/CPrintDialog.h"

#include "afx/win32/CWnd.h"

IMPLEMENT_DYNAMIC(CPrintDialog, CObject)

CPrintDialog::CPrintDialog(BOOL printSetupOnly, DWORD flags, CWnd* parent) : m_pd() {
  m_pd.lStructSize = sizeof(m_pd);
  m_pd.hwndOwner = parent ? parent->GetSafeHwnd() : nullptr;
  m_pd.Flags = flags | (printSetupOnly ? PD_PRINTSETUP : PD_RETURNDC);
  m_pd.nCopies = 1;
}

INT_PTR CPrintDialog::DoModal() { return ::PrintDlgW(&m_pd) ? IDOK : IDCANCEL; }

// The dialog isn't shown; the record gets the default device's handles
// (which the caller then owns) and no context.
BOOL CPrintDialog::GetDefaults() {
  PRINTDLGW query = m_pd;
  query.Flags = PD_RETURNDEFAULT;
  query.hDevMode = nullptr;
  query.hDevNames = nullptr;
  if (!::PrintDlgW(&query))
    return FALSE;
  m_pd.hDevMode = query.hDevMode;
  m_pd.hDevNames = query.hDevNames;
  return TRUE;
}

CString CPrintDialog::DevNamesString(WORD DEVNAMES::*offset) const {
  if (!m_pd.hDevNames)
    return CString();
  auto* names = static_cast<DEVNAMES*>(::GlobalLock(m_pd.hDevNames));
  CString text = names ? CString(reinterpret_cast<LPCWSTR>(names) + names->*offset) : CString();
  ::GlobalUnlock(m_pd.hDevNames);
  return text;
}

CString CPrintDialog::GetDeviceName() const { return DevNamesString(&DEVNAMES::wDeviceOffset); }
CString CPrintDialog::GetDriverName() const { return DevNamesString(&DEVNAMES::wDriverOffset); }
CString CPrintDialog::GetPortName() const { return DevNamesString(&DEVNAMES::wOutputOffset); }

HDC CPrintDialog::CreatePrinterDC() {
  if (!m_pd.hDevNames)
    return nullptr;
  auto* mode = m_pd.hDevMode ? static_cast<DEVMODEW*>(::GlobalLock(m_pd.hDevMode)) : nullptr;
  HDC dc = ::CreateDCW(GetDriverName(), GetDeviceName(), nullptr, mode);
  if (m_pd.hDevMode)
    ::GlobalUnlock(m_pd.hDevMode);
  if (dc) {
    if (m_pd.hDC)
      ::DeleteDC(m_pd.hDC);
    m_pd.hDC = dc;
  }
  return dc;
}

//===-- CPrintInfo ----------------------------------------------------------===//

CPrintInfo::CPrintInfo()
    : m_pPD(new CPrintDialog(FALSE, PD_ALLPAGES | PD_USEDEVMODECOPIES | PD_NOSELECTION)), m_bDirect(FALSE),
      m_bPreview(FALSE), m_bContinuePrinting(TRUE), m_nCurPage(1) {
  SetMinPage(1);
  SetMaxPage(0xFFFF);
  m_pPD->m_pd.nFromPage = 1;
  m_pPD->m_pd.nToPage = 0xFFFF;
}

CPrintInfo::~CPrintInfo() {
  if (m_pPD->m_pd.hDC)
    ::DeleteDC(m_pPD->m_pd.hDC);
  delete m_pPD;
}

UINT CPrintInfo::GetFromPage() const { return m_pPD->PrintRange() ? m_pPD->GetFromPage() : GetMinPage(); }

UINT CPrintInfo::GetToPage() const { return m_pPD->PrintRange() ? m_pPD->GetToPage() : GetMaxPage(); }
