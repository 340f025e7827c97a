// CPropertySheet.cpp - property sheets and their pages.
//
// The sheet window is made by PropertySheetW with PSH_MODELESS.  Two
// moments of its creation are ours: PSCB_PRECREATE, where the template's
// style may be replaced, and the creation of the window itself, caught by a
// CBT hook that lives only during the call, where the object subclasses it.
// Pages join at their WM_INITDIALOG through PageProc, whose parameter is
// the page's record with the object in lParam.
#include "afx/win32/CPropertySheet.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/AfxResource.h"

#include <cassert>

#undef SubclassWindow  // windowsx.h's macro hides the member

IMPLEMENT_DYNAMIC(CPropertyPage, CDialog)
IMPLEMENT_DYNAMIC(CPropertySheet, CWnd)

//===-- Pages --------------------------------------------------------------===//

CPropertyPage::CPropertyPage() : m_psp() {
  m_psp.dwSize = sizeof(m_psp);
  m_psp.pfnDlgProc = &CPropertyPage::PageProc;
  m_psp.lParam = reinterpret_cast<LPARAM>(this);
}

CPropertyPage::CPropertyPage(UINT templateId, UINT captionId) : CPropertyPage() {
  Construct(templateId, captionId);
}

CPropertyPage::CPropertyPage(LPCWSTR templateName, UINT captionId) : CPropertyPage() {
  Construct(templateName, captionId);
}

void CPropertyPage::Construct(UINT templateId, UINT captionId) {
  Construct(MAKEINTRESOURCEW(LOWORD(templateId)), captionId);
  m_nIDHelp = templateId;
}

void CPropertyPage::Construct(LPCWSTR templateName, UINT captionId) {
  m_lpszTemplateName = templateName;
  m_psp.pszTemplate = templateName;
  m_psp.hInstance = AfxFindResourceHandle(templateName, RT_DIALOG);
  if (captionId == 0)
    return;
  WCHAR text[256] = {};
  ::LoadStringW(AfxGetResourceHandle(), captionId, text, 256);
  m_strCaption = text;
  m_psp.pszTitle = m_strCaption;
  m_psp.dwFlags |= PSP_USETITLE;
}

INT_PTR CALLBACK CPropertyPage::PageProc(HWND page, UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_INITDIALOG)
    return FALSE;
  CPropertyPage* self = reinterpret_cast<CPropertyPage*>(reinterpret_cast<PROPSHEETPAGEW*>(lParam)->lParam);
  if (!self->SubclassWindow(page))
    return TRUE;
  return self->OnInitDialog();
}

// The sheet reads the answer of its notifications from the message's
// result, which is also the dialog's DWLP_MSGRESULT.
BOOL CPropertyPage::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
  const NMHDR* header = reinterpret_cast<const NMHDR*>(lParam);
  switch (header->code) {
  case PSN_SETACTIVE:
    *result = OnSetActive() ? 0 : -1;
    break;
  case PSN_KILLACTIVE:
    *result = OnKillActive() ? FALSE : TRUE;
    break;
  case PSN_APPLY:
    *result = OnApply() ? PSNRET_NOERROR : PSNRET_INVALID_NOCHANGEPAGE;
    break;
  case PSN_RESET:
    OnCancel();
    *result = 0;
    break;
  default:
    return CDialog::OnNotify(wParam, lParam, result);
  }
  ::SetWindowLongPtrW(m_hWnd, DWLP_MSGRESULT, *result);
  return TRUE;
}

//===-- The sheet ----------------------------------------------------------===//

BEGIN_MESSAGE_MAP(CPropertySheet, CWnd)
  ON_MESSAGE(WM_INITDIALOG, HandleInitDialog)
  ON_COMMAND(IDOK, OnOK)
  ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

CPropertySheet::CPropertySheet() : m_psh() {
  m_psh.dwSize = sizeof(m_psh);
  m_psh.dwFlags = PSH_PROPSHEETPAGE;
}

CPropertySheet::CPropertySheet(LPCWSTR caption, CWnd* parent, UINT selectPage) : CPropertySheet() {
  m_strCaption = caption ? caption : L"";
  m_psh.pszCaption = m_strCaption;
  m_psh.nStartPage = selectPage;
  m_pParentWnd = parent;
}

CPropertySheet::~CPropertySheet() {
  if (m_hWnd)
    DestroyWindow();
  delete[] m_pageRecords;
}

void CPropertySheet::AddPage(CPropertyPage* page) {
  assert(page && "a page to add");
  m_pages.Add(page);
  if (m_hWnd)
    ::SendMessageW(m_hWnd, PSM_ADDPAGE, 0, reinterpret_cast<LPARAM>(::CreatePropertySheetPageW(&page->m_psp)));
}

int CPropertySheet::GetPageCount() const {
  if (m_hWnd)
    return TabCtrl_GetItemCount(GetTabControl());
  return static_cast<int>(m_pages.GetSize());
}

CPropertyPage* CPropertySheet::GetPage(int index) const {
  if (index < 0 || index >= m_pages.GetSize())
    AfxThrowInvalidArgException();
  return static_cast<CPropertyPage*>(m_pages[index]);
}

int CPropertySheet::GetPageIndex(CPropertyPage* page) const {
  for (INT_PTR i = 0; i < m_pages.GetSize(); ++i)
    if (m_pages[i] == page)
      return static_cast<int>(i);
  return -1;
}

CPropertyPage* CPropertySheet::GetActivePage() const {
  if (!m_hWnd)
    return m_pages.GetSize() ? GetPage(static_cast<int>(m_psh.nStartPage)) : nullptr;
  HWND page = reinterpret_cast<HWND>(::SendMessageW(m_hWnd, PSM_GETCURRENTPAGEHWND, 0, 0));
  return static_cast<CPropertyPage*>(FromHandlePermanent(page));
}

int CPropertySheet::GetActiveIndex() const {
  if (!m_hWnd)
    return static_cast<int>(m_psh.nStartPage);
  return TabCtrl_GetCurSel(GetTabControl());
}

BOOL CPropertySheet::SetActivePage(int index) {
  if (!m_hWnd) {
    m_psh.nStartPage = index;
    return TRUE;
  }
  return static_cast<BOOL>(::SendMessageW(m_hWnd, PSM_SETCURSEL, index, 0));
}

BOOL CPropertySheet::SetActivePage(CPropertyPage* page) {
  int index = GetPageIndex(page);
  return index >= 0 && SetActivePage(index);
}

HWND CPropertySheet::GetTabControl() const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return reinterpret_cast<HWND>(::SendMessageW(m_hWnd, PSM_GETTABCONTROL, 0, 0));
}

void CPropertySheet::SetTitle(LPCWSTR text, UINT style) {
  m_strCaption = text ? text : L"";
  m_psh.pszCaption = m_strCaption;
  m_psh.dwFlags = (m_psh.dwFlags & ~PSH_PROPTITLE) | (style & PSH_PROPTITLE);
  if (m_hWnd)
    ::SendMessageW(m_hWnd, PSM_SETTITLEW, style, reinterpret_cast<LPARAM>(static_cast<LPCWSTR>(m_strCaption)));
}

void CPropertySheet::BuildPropPageArray() {
  delete[] m_pageRecords;
  m_pageRecords = new PROPSHEETPAGEW[m_pages.GetSize() ? m_pages.GetSize() : 1];
  for (INT_PTR i = 0; i < m_pages.GetSize(); ++i)
    m_pageRecords[i] = GetPage(static_cast<int>(i))->m_psp;
  m_psh.ppsp = m_pageRecords;
  m_psh.nPages = static_cast<UINT>(m_pages.GetSize());
}

//===-- Creation -----------------------------------------------------------===//

namespace {
// The sheet being made on this thread, and the hook that catches its window.
thread_local CPropertySheet* t_creating = nullptr;
thread_local HHOOK t_hook = nullptr;

// The sheet template is a DLGTEMPLATEEX (signature 0xFFFF) or a DLGTEMPLATE.
struct DialogTemplateEx {
  WORD dlgVer, signature;
  DWORD helpID, exStyle, style;
};
}  // namespace

// The first window made during PropertySheetW is the sheet.
LRESULT CALLBACK CPropertySheet::CreateHook(int code, WPARAM wParam, LPARAM lParam) {
  if (code == HCBT_CREATEWND && t_creating) {
    CPropertySheet* sheet = t_creating;
    t_creating = nullptr;
    sheet->SubclassWindow(reinterpret_cast<HWND>(wParam));
  }
  return ::CallNextHookEx(t_hook, code, wParam, lParam);
}

int CALLBACK CPropertySheet::SheetCallback(HWND, UINT message, LPARAM lParam) {
  CPropertySheet* sheet = t_creating;
  if (message != PSCB_PRECREATE || !sheet)
    return 0;
  auto* ex = reinterpret_cast<DialogTemplateEx*>(lParam);
  DWORD* style = ex->signature == 0xFFFF ? &ex->style : &reinterpret_cast<DLGTEMPLATE*>(lParam)->style;
  DWORD* exStyle = ex->signature == 0xFFFF ? &ex->exStyle : &reinterpret_cast<DLGTEMPLATE*>(lParam)->dwExtendedStyle;
  // The template's font fields are read only when DS_SETFONT says so.
  if (sheet->m_dwStyle != static_cast<DWORD>(-1))
    *style = sheet->m_dwStyle | (*style & (DS_SETFONT | DS_SHELLFONT));
  if (sheet->m_dwExStyle != static_cast<DWORD>(-1))
    *exStyle = sheet->m_dwExStyle;
  return 0;
}

BOOL CPropertySheet::Create(CWnd* parent, DWORD style, DWORD exStyle) {
  assert(!m_hWnd && "one window per sheet object");
  m_dwStyle = style;
  m_dwExStyle = exStyle;
  BuildPropPageArray();
  m_psh.dwFlags |= PSH_MODELESS | PSH_USECALLBACK;
  m_psh.pfnCallback = &CPropertySheet::SheetCallback;
  m_psh.hwndParent = parent ? parent->m_hWnd : m_psh.hwndParent;
  t_creating = this;
  t_hook = ::SetWindowsHookExW(WH_CBT, &CPropertySheet::CreateHook, nullptr, ::GetCurrentThreadId());
  HWND hWnd = reinterpret_cast<HWND>(::PropertySheetW(&m_psh));
  ::UnhookWindowsHookEx(t_hook);
  t_hook = nullptr;
  t_creating = nullptr;
  if (!hWnd || hWnd == reinterpret_cast<HWND>(-1))
    return FALSE;
  return m_hWnd == hWnd;
}

// The system builds the sheet first; our initialisation follows.
LRESULT CPropertySheet::HandleInitDialog(WPARAM, LPARAM) {
  LRESULT result = Default();
  OnInitDialog();
  return result;
}

// The steps of CDialog::DoModal, on a sheet.
INT_PTR CPropertySheet::DoModal() {
  HWND owner = CDialog::GetSafeOwnerHwnd(m_pParentWnd);
  m_psh.hwndParent = owner;
  bool enableOwner = owner && ::IsWindowEnabled(owner);
  if (enableOwner)
    ::EnableWindow(owner, FALSE);
  m_nModalResult = IDCANCEL;
  if (Create(nullptr, m_dwStyle, m_dwExStyle))
    RunModalLoop(MLF_SHOWONIDLE);
  if (m_hWnd)
    ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                   SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
  if (enableOwner)
    ::EnableWindow(owner, TRUE);
  if (owner && ::GetActiveWindow() == m_hWnd)
    ::SetActiveWindow(owner);
  DestroyWindow();
  return m_nModalResult;
}

// After OK or Cancel a modeless sheet has no current page.
BOOL CPropertySheet::ContinueModal() {
  if (!CWnd::ContinueModal())
    return FALSE;
  return ::SendMessageW(m_hWnd, PSM_GETCURRENTPAGEHWND, 0, 0) != 0;
}

// The modal loop sees the end only when it next takes a message from the
// queue; a press sent from another thread leaves the queue empty, so it is
// woken here.
void CPropertySheet::OnOK() {
  m_nModalResult = IDOK;
  Default();
  ::PostMessageW(m_hWnd, WM_NULL, 0, 0);
}

void CPropertySheet::OnCancel() {
  m_nModalResult = IDCANCEL;
  Default();
  ::PostMessageW(m_hWnd, WM_NULL, 0, 0);
}

BOOL CPropertySheet::PreTranslateMessage(MSG* msg) {
  if (msg->hwnd != m_hWnd && !::IsChild(m_hWnd, msg->hwnd))
    return FALSE;
  return static_cast<BOOL>(::SendMessageW(m_hWnd, PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(msg)));
}
