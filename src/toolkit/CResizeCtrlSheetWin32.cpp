// CResizeCtrlSheetWin32.cpp - the resizer on property sheets and wizards.
//
// A sheet's pages exist only once shown, so a sheet is prepared first
// (every page activated once); then the buttons, the tab control and the
// pages join as ordinary children.  A wizard's active page is not a child
// that keeps its shares: its margins to the sheet are measured once and the
// page is put back inside them after a size change.
#include "toolkit/CResizeCtrl.h"

#include "afx/win32/CPropertySheet.h"

enum : UINT {
  kApply = 12321,
  kBack = 12323,
  kNext = 12324,
  kFinish = 12325,
  kEtchedBar = 12326,
  kHeaderLine = 12327,
};

BOOL CResizeCtrl::Create(CWnd* wnd, BOOL enable, int maxPart_) {
  if (!wnd)
    return FALSE;
  return Create(wnd->m_hWnd, enable, maxPart_, wnd->IsKindOf(RUNTIME_CLASS(CPropertyPage)));
}

static bool IsWizard(const CPropertySheet* sheet) { return (sheet->m_psh.dwFlags & (PSH_WIZARD | PSH_WIZARD97)) != 0; }

BOOL CResizeCtrl::PropertySheetPrepare(CPropertySheet* sheet) {
  if (enabled || !sheet)
    return FALSE;
  int count = sheet->GetPageCount(), active = sheet->GetActiveIndex();
  for (int i = 0; i < count; ++i)
    if (i != active)
      sheet->SetActivePage(i);
  sheet->SetActivePage(active);
  return count > 0;
}

BOOL CResizeCtrl::PropertySheetAddButtons(CPropertySheet* sheet, int xPart, int yPart, int cxPart, int cyPart) {
  if (!sheet)
    return FALSE;
  static const UINT kWizard[] = {kBack, kNext, kFinish, IDOK, IDCANCEL, IDHELP};
  static const UINT kSheet[] = {kApply, IDOK, IDCANCEL, IDHELP};
  bool wizard = IsWizard(sheet);
  const UINT* ids = wizard ? kWizard : kSheet;
  size_t count = wizard ? 6 : 4;
  BOOL all = TRUE;
  for (size_t i = 0; i < count; ++i)
    all &= Add(::GetDlgItem(sheet->m_hWnd, ids[i]), xPart, yPart, cxPart, cyPart);
  return all;
}

BOOL CResizeCtrl::PropertySheetAddPages(CPropertySheet* sheet, int xPart, int yPart, int cxPart, int cyPart) {
  if (!sheet)
    return FALSE;
  HWND tab = reinterpret_cast<HWND>(::SendMessageW(sheet->m_hWnd, PSM_GETTABCONTROL, 0, 0));
  BOOL all = tab ? Add(tab, xPart, yPart, cxPart, cyPart) : FALSE;
  for (int i = 0; i < sheet->GetPageCount(); ++i) {
    CPropertyPage* page = sheet->GetPage(i);
    all &= page && page->m_hWnd ? Add(page->m_hWnd, xPart, yPart, cxPart, cyPart) : FALSE;
  }
  return all;
}

BOOL CResizeCtrl::WizardAddEtchedBar(CPropertySheet* sheet, int xPart, int yPart, int cxPart, int cyPart) {
  if (!sheet || !IsWizard(sheet))
    return FALSE;
  return Add(::GetDlgItem(sheet->m_hWnd, kEtchedBar), xPart, yPart, cxPart, cyPart);
}

BOOL CResizeCtrl::WizardSaveMargins(CPropertySheet* sheet) {
  CPropertyPage* page = sheet ? sheet->GetActivePage() : nullptr;
  if (!page || !page->m_hWnd)
    return FALSE;
  if (!wizardMargins)
    wizardMargins = new RECT;
  RECT s, p;
  ::GetWindowRect(sheet->m_hWnd, &s);
  ::GetWindowRect(page->m_hWnd, &p);
  *wizardMargins = {p.left - s.left, p.top - s.top, s.right - p.right, s.bottom - p.bottom};
  return TRUE;
}

BOOL CResizeCtrl::WizardAdjustPage(CPropertySheet* sheet) {
  CPropertyPage* page = sheet && wizardMargins ? sheet->GetActivePage() : nullptr;
  if (!page || !page->m_hWnd)
    return FALSE;
  RECT r;
  ::GetWindowRect(sheet->m_hWnd, &r);
  HWND header = ::GetDlgItem(sheet->m_hWnd, kHeaderLine);
  bool wizard97 = (sheet->m_psh.dwFlags & PSH_WIZARD97) && !(page->m_psp.dwFlags & PSP_HIDEHEADER);
  if (wizard97 && header) {
    RECT line;
    ::GetWindowRect(header, &line);
    r = {line.left, line.top, r.right - wizardMargins->right, r.bottom - wizardMargins->bottom};
  } else if (!wizard97) {
    r = {r.left + wizardMargins->left, r.top + wizardMargins->top, r.right - wizardMargins->right,
         r.bottom - wizardMargins->bottom};
  }
  ::MapWindowPoints(nullptr, sheet->m_hWnd, reinterpret_cast<POINT*>(&r), 2);
  ::MoveWindow(page->m_hWnd, r.left, r.top, r.right - r.left, r.bottom - r.top, TRUE);
  return TRUE;
}
