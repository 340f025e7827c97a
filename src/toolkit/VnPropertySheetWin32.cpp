// VnPropertySheetWin32.cpp - the sheet base: read-only mode, the modal
// routine of a resizable sheet, layout on resize, help by module.
#include "toolkit/VnPropertySheet.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/AfxRes.h"
#include "afx/win32/AfxResource.h"
#include "afx/win32/CWinApp.h"
#include "foundation/LocalResources.h"
#include "foundation/VnException.h"
#include "foundation/VnProcess.h"

#undef SubclassWindow

enum : UINT { kReadOnlyText = 101, kCloseText = 168, kMustVisitText = 2897 };
enum : UINT { kApply = 12321, kBack = 12323, kNext = 12324, kFinish = 12325 };

// WS_POPUP, WS_VISIBLE, WS_CAPTION, WS_SYSMENU, WS_THICKFRAME,
// DS_CONTEXTHELP, DS_MODALFRAME; and WS_EX_DLGMODALFRAME.
static const DWORD kResizableStyle = 0x90CC2080;
static const DWORD kResizableExStyle = WS_EX_DLGMODALFRAME;

IMPLEMENT_DYNAMIC(CVnPropertySheet, CPropertySheet)
IMPLEMENT_DYNAMIC(CVnLocalPropertySheet, CVnPropertySheet)

BEGIN_MESSAGE_MAP(CVnPropertySheet, CPropertySheet)
  ON_WM_CREATE()
  ON_WM_CONTEXTMENU()
  ON_WM_HELPINFO()
  ON_WM_SIZE()
  ON_WM_GETMINMAXINFO()
  ON_MESSAGE(WM_KICKIDLE, OnKickIdle)
  ON_COMMAND(IDOK, OnOK)
END_MESSAGE_MAP()

CVnPropertySheet::CVnPropertySheet(BOOL canResize) : m_bCanResize(canResize) {
  m_psh.dwFlags = (m_psh.dwFlags & ~PSH_HASHELP) | PSH_NOAPPLYNOW;
}

CVnPropertySheet::CVnPropertySheet(LPCWSTR caption, CWnd* parent, UINT selectPage, BOOL canResize)
    : CPropertySheet(caption, parent, selectPage), m_bCanResize(canResize) {
  m_psh.dwFlags = (m_psh.dwFlags & ~PSH_HASHELP) | PSH_NOAPPLYNOW;
}

INT_PTR CVnPropertySheet::DoModal() {
  if (m_bReadOnly)
    m_psh.dwFlags |= PSH_NOAPPLYNOW;
  INT_PTR result = m_bCanResize ? CustomModalDlg() : CPropertySheet::DoModal();
  return m_bReadOnly ? IDCANCEL : result;
}

// The modal routine of CPropertySheet, with the sheet made modeless in a
// sizing frame.  A failed creation skips the loop and gives the stored
// result.
int CVnPropertySheet::CustomModalDlg() {
  BuildPropPageArray();
  HWND owner = CDialog::GetSafeOwnerHwnd(m_pParentWnd);
  m_psh.hwndParent = owner;
  bool enableOwner = owner && ::IsWindowEnabled(owner);
  if (enableOwner)
    ::EnableWindow(owner, FALSE);
  if (HWND capture = ::GetCapture())
    ::SendMessageW(capture, WM_CANCELMODE, 0, 0);
  int result = m_nModalResult;
  if (Create(m_pParentWnd, kResizableStyle, kResizableExStyle))
    result = RunModalLoop((kResizableStyle & DS_NOIDLEMSG) ? MLF_SHOWONIDLE | MLF_NOIDLEMSG : MLF_SHOWONIDLE);
  if (m_hWnd)
    ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
  if (enableOwner)
    ::EnableWindow(owner, TRUE);
  if (owner && ::GetActiveWindow() == m_hWnd)
    ::SetActiveWindow(owner);
  DestroyWindow();
  return result;
}

int CVnPropertySheet::OnCreate(LPCREATESTRUCTW create) {
  if (CPropertySheet::OnCreate(create) == -1)
    return -1;
  ::SetWindowLongW(m_hWnd, GWL_EXSTYLE, ::GetWindowLongW(m_hWnd, GWL_EXSTYLE) | WS_EX_CONTEXTHELP);
  return 0;
}

// Steps: a wizard never resizes; the tab control grows, the buttons follow
// the corner with their help IDs; read-only hides OK; the size is cached.
BOOL CVnPropertySheet::OnInitDialog() {
  CPropertySheet::OnInitDialog();
  if (m_psh.dwFlags & PSH_WIZARD)
    m_bCanResize = FALSE;
  m_resizeControls.OnInitDialog(this, m_bCanResize, m_bCanResize);
  m_resizeControls.RegisterControl(VN_RESIZE_GROW, ::GetDlgCtrlID(GetTabControl()));
  const UINT buttons[][2] = {{IDCANCEL, 20}, {8, 8}, {IDOK, 1}, {kApply, kApply}};
  for (const auto& button : buttons)
    if (HWND item = ::GetDlgItem(m_hWnd, button[0])) {
      ::SetWindowContextHelpId(item, button[1]);
      m_resizeControls.RegisterControl(VN_RESIZE_CORNER, button[0]);
    }
  for (UINT id : {kNext, kFinish, kBack})
    if (HWND item = ::GetDlgItem(m_hWnd, id))
      ::SetWindowContextHelpId(item, id);
  if (m_bReadOnly) {
    CString title;
    GetWindowText(title);
    SetTitle(title, 0);
    if (HWND ok = ::GetDlgItem(m_hWnd, IDOK)) {
      ::EnableWindow(ok, FALSE);
      ::ShowWindow(ok, SW_HIDE);
    }
    if (HWND cancel = ::GetDlgItem(m_hWnd, IDCANCEL))
      ::SetWindowTextW(cancel, LoadLocalString(GetResourceModule(), kCloseText));
  }
  if (m_bCanResize)
    CacheClientSize();
  m_bInitialised = TRUE;
  return TRUE;
}

// Only the active page grows with the sheet; the others keep their size
// until they are shown.
void CVnPropertySheet::OnSize(UINT type, int cx, int cy) {
  Default();
  CPropertyPage* page = m_bInitialised && GetPageCount() > 0 ? GetActivePage() : nullptr;
  if (page && page->m_hWnd) {
    RECT rect;
    ::GetWindowRect(page->m_hWnd, &rect);
    rect.right += cx - m_nClientWidth;
    rect.bottom += cy - m_nClientHeight;
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&rect), 2);
    ::MoveWindow(page->m_hWnd, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, TRUE);
  }
  CacheClientSize();
  m_resizeControls.OnSize(this, type, cx, cy);
}

void CVnPropertySheet::OnGetMinMaxInfo(MINMAXINFO* info) { m_resizeControls.OnGetMinMaxInfo(info); }

// The active page saves and checks its data first; a failure keeps the
// sheet open on it.
void CVnPropertySheet::OnOK() {
  CPropertyPage* page = GetActivePage();
  if (page && !page->UpdateData(TRUE))
    return;
  CPropertySheet::OnOK();
}

BOOL CVnPropertySheet::OnMustVisitAllPages() {
  AfxLocalMessageBox(GetResourceModule(), kMustVisitText, 0, static_cast<UINT>(-1));
  return TRUE;
}

void CVnPropertySheet::SetTitle(LPCWSTR text, UINT style) {
  CPropertySheet::SetTitle(text, style);
  if (!m_bReadOnly || !m_hWnd)
    return;
  CString title;
  GetWindowText(title);
  SetWindowText(title + L" " + LoadLocalString(GetResourceModule(), kReadOnlyText));
}

void CVnPropertySheet::EnableButton(UINT id, BOOL enable) { ::EnableWindow(::GetDlgItem(m_hWnd, id), enable); }

void CVnPropertySheet::GetClientSize(CPoint& size) {
  CacheClientSize();
  size = CPoint(m_nClientWidth, m_nClientHeight);
}

void CVnPropertySheet::CacheClientSize() {
  RECT rect;
  ::GetClientRect(m_hWnd, &rect);
  m_nClientWidth = rect.right;
  m_nClientHeight = rect.bottom;
}

LONG_PTR CVnPropertySheet::GetPageID(int index) {
  return reinterpret_cast<LONG_PTR>(GetPage(index)->m_psp.pszTemplate);
}

void CVnPropertySheet::DeleteAllPages() {
  for (int i = 0; i < GetPageCount(); ++i)
    delete GetPage(i);
}

HINSTANCE CVnPropertySheet::GetSheetResourceModule() { return AfxGetResourceHandle(); }

// A sheet never passes help on.
BOOL CVnPropertySheet::OnHelpInfo(HELPINFO* info) {
  if (info->iContextType == HELPINFO_WINDOW && info->dwContextId != 0)
    LocalContextHelp(GetSheetResourceModule(), static_cast<unsigned long>(info->dwContextId), HELP_CONTEXTPOPUP);
  return TRUE;
}

void CVnPropertySheet::OnContextMenu(CWnd* wnd, CPoint point) {
  LocalContextHelp(wnd, GetSheetResourceModule(), point, HELP_CONTEXTPOPUP);
}

LRESULT CVnPropertySheet::OnKickIdle(WPARAM wParam, LPARAM count) {
  if (count == 0)
    SendMessageToDescendants(WM_KICKIDLE, wParam, 0, TRUE);
  return count < 0;
}

void CVnLocalPropertySheet::AddPage(CPropertyPage* page) {
  if (page->IsKindOf(RUNTIME_CLASS(CVnLocalPropertyPage)))
    static_cast<CVnLocalPropertyPage*>(page)->LocalizePage();
  CVnPropertySheet::AddPage(page);
}
