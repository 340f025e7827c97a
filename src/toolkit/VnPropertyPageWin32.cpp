// VnPropertyPageWin32.cpp - the page base: resizing with its sheet, help by
// module, and validators that bring the page forward before they focus.
#include "toolkit/VnPropertySheet.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/AfxRes.h"
#include "afx/win32/AfxResource.h"
#include "foundation/LocalResources.h"
#include "foundation/VnException.h"
#include "foundation/VnProcess.h"

#include <cwchar>

enum : UINT { kBlankPath = 2899, kBadNumber = 2904, kEmptyText = 32799 };
static const UINT kDefault = static_cast<UINT>(-1);

IMPLEMENT_DYNAMIC(CVnPropertyPage, CPropertyPage)
IMPLEMENT_DYNAMIC(CVnLocalPropertyPage, CVnPropertyPage)

BEGIN_MESSAGE_MAP(CVnPropertyPage, CPropertyPage)
  ON_WM_HELPINFO()
  ON_WM_CONTEXTMENU()
  ON_WM_SIZE()
  ON_MESSAGE(WM_KICKIDLE, OnKickIdle)
END_MESSAGE_MAP()

CVnPropertyPage::CVnPropertyPage() { m_psp.dwFlags &= ~PSP_HASHELP; }

CVnPropertyPage::CVnPropertyPage(UINT templateId, UINT captionId) : CPropertyPage(templateId, captionId) {
  m_psp.dwFlags &= ~PSP_HASHELP;
}

CVnPropertyPage::CVnPropertyPage(LPCWSTR templateName, UINT captionId) : CPropertyPage(templateName, captionId) {
  m_psp.dwFlags &= ~PSP_HASHELP;
}

CVnPropertySheet* CVnPropertyPage::GetSheet() {
  return static_cast<CVnPropertySheet*>(CWnd::FromHandlePermanent(::GetParent(m_hWnd)));
}

// A page resizes as its sheet may, and keeps no minimum of its own.
BOOL CVnPropertyPage::OnInitDialog() {
  CDialog::OnInitDialog();
  CVnPropertySheet* sheet = GetSheet();
  BOOL canResize = sheet ? sheet->CanResize() : FALSE;
  m_resizeControls.OnInitDialog(this, canResize, canResize);
  return TRUE;
}

HINSTANCE CVnPropertyPage::GetPageResourceModule() { return AfxGetResourceHandle(); }

void CVnPropertyPage::OnSize(UINT type, int cx, int cy) {
  Default();
  m_resizeControls.OnSize(this, type, cx, cy);
}

//===-- Item helpers and validation ----------------------------------------===//

void CVnPropertyPage::ReadOnlyDlgItem(UINT id, BOOL readOnly) {
  ::SendMessageW(::GetDlgItem(m_hWnd, id), EM_SETREADONLY, readOnly, 0);
}

BOOL CVnPropertyPage::EnableDlgItem(UINT id, BOOL enable) { return ::EnableWindow(::GetDlgItem(m_hWnd, id), enable); }

void CVnPropertyPage::ShowDlgItem(UINT id, BOOL show) {
  ::ShowWindow(::GetDlgItem(m_hWnd, id), show ? SW_SHOW : SW_HIDE);
}

void CVnPropertyPage::OffsetControl(HWND control, int dx, int dy) {
  if (!control || !::IsWindow(control))
    return;
  RECT rect;
  ::GetWindowRect(control, &rect);
  ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&rect), 2);
  ::SetWindowPos(control, nullptr, rect.left + dx, rect.top + dy, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CVnPropertyPage::SetDlgItemFocus(UINT id) {
  CVnPropertySheet* sheet = GetSheet();
  if (sheet && sheet->GetActivePage() != this)
    sheet->SetActivePage(this);
  ::SetFocus(::GetDlgItem(m_hWnd, id));
}

void CVnPropertyPage::ShowErrorMessageBox(UINT messageId, UINT defaultId) {
  if (messageId == kDefault)
    AfxLocalMessageBox(GetResourceModule(), defaultId, 0, kDefault);
  else
    AfxLocalMessageBox(GetPageResourceModule(), messageId, 0, kDefault);
}

int CVnPropertyPage::Fail(UINT id, UINT messageId) {
  AfxLocalMessageBox(GetPageResourceModule(), messageId, 0, kDefault);
  SetDlgItemFocus(id);
  return 0;
}

BOOL CVnPropertyPage::ValidateNonEmptyPath(UINT id, CString& path, UINT blankMessage) {
  path.Trim();
  if (!path.IsEmpty())
    return TRUE;
  ShowErrorMessageBox(blankMessage, kBlankPath);
  SetDlgItemFocus(id);
  return FALSE;
}

BOOL CVnPropertyPage::ValidateDouble(UINT id, CString& text, UINT messageId) {
  const wchar_t* start = reinterpret_cast<const wchar_t*>(static_cast<LPCWSTR>(text));
  while (*start == L' ' || *start == L'\t')
    ++start;
  wchar_t first = *start;
  if (std::wcstod(start, nullptr) != 0 || first == L'0')
    return TRUE;
  ShowErrorMessageBox(messageId, kBadNumber);
  SetDlgItemFocus(id);
  return FALSE;
}

BOOL CVnPropertyPage::ValidateEmptyString(UINT id, UINT messageId) {
  if (::GetWindowTextLengthW(::GetDlgItem(m_hWnd, id)) > 0)
    return TRUE;
  ShowErrorMessageBox(messageId, kEmptyText);
  SetDlgItemFocus(id);
  return FALSE;
}

//===-- Help and idle ------------------------------------------------------===//

BOOL CVnPropertyPage::OnHelpInfo(HELPINFO* info) {
  if (info->iContextType == HELPINFO_WINDOW && info->dwContextId != 0)
    LocalContextHelp(GetPageResourceModule(), static_cast<unsigned long>(info->dwContextId), HELP_CONTEXTPOPUP);
  return TRUE;
}

void CVnPropertyPage::OnContextMenu(CWnd* wnd, CPoint point) {
  LocalContextHelp(wnd, GetPageResourceModule(), point, HELP_CONTEXTPOPUP);
}

LRESULT CVnPropertyPage::OnKickIdle(WPARAM wParam, LPARAM count) {
  if (count == 0)
    SendMessageToDescendants(WM_KICKIDLE, wParam, 0, TRUE);
  return count < 0;
}

//===-- The local page -----------------------------------------------------===//

CVnLocalPropertyPage::CVnLocalPropertyPage(UINT templateId, UINT captionId) { Construct(templateId, captionId); }

CVnLocalPropertyPage::CVnLocalPropertyPage(LPCWSTR templateName, UINT captionId) {
  Construct(templateName, captionId);
}

void CVnLocalPropertyPage::Construct(UINT templateId, UINT captionId) {
  m_nCaptionId = captionId;
  CPropertyPage::Construct(templateId, captionId);
}

void CVnLocalPropertyPage::Construct(LPCWSTR templateName, UINT captionId) {
  m_nCaptionId = captionId;
  CPropertyPage::Construct(templateName, captionId);
}

void CVnLocalPropertyPage::LocalizePage() {
  HINSTANCE module = GetPageResourceModule();
  if (!module)
    return;
  if (!(m_psp.dwFlags & PSP_DLGINDIRECT))
    m_psp.hInstance = module;
  if (m_nCaptionId == 0)
    return;
  m_strCaption.Empty();
  LoadLocalString(module, m_nCaptionId, m_strCaption);
  m_psp.pszTitle = m_strCaption;
  m_psp.dwFlags |= PSP_USETITLE;
}
