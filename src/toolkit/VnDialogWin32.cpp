// VnDialogWin32.cpp - the dialog base: read-only mode, icon, resizing,
// help by module, item helpers and command updates.
#include "toolkit/VnDialog.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/AfxRes.h"
#include "afx/win32/AfxResource.h"
#include "afx/win32/CControlBar.h"
#include "foundation/LocalResources.h"
#include "foundation/VnProcess.h"

enum : UINT { kReadOnlyText = 101, kCloseText = 168 };

IMPLEMENT_DYNAMIC(CVnDialog, CDialog)

HICON CVnDialog::m_hAppIcon = nullptr;

BEGIN_MESSAGE_MAP(CVnDialog, CDialog)
  ON_WM_CONTEXTMENU()
  ON_WM_HELPINFO()
  ON_MESSAGE(WM_KICKIDLE, OnKickIdle)
  VN_WM_ENTRY(WM_INITMENUPOPUP, self->OnInitDlgMenuPopup(reinterpret_cast<HMENU>(wParam), lParam); return 0;)
  ON_WM_SIZE()
  ON_WM_GETMINMAXINFO()
END_MESSAGE_MAP()

CVnDialog::CVnDialog() = default;
CVnDialog::CVnDialog(LPCWSTR templateName, CWnd* parent) : CDialog(templateName, parent) {}
CVnDialog::CVnDialog(UINT templateId, CWnd* parent) : CDialog(templateId, parent) {}

INT_PTR CVnDialog::DoModal() {
  INT_PTR result = CDialog::DoModal();
  return m_bReadOnly ? IDCANCEL : result;
}

// A read-only dialog says so in its title and can only be closed.  A
// resizable one shows the application's icon, or none at all.
BOOL CVnDialog::OnInitDialog() {
  CDialog::OnInitDialog();
  if (m_bReadOnly) {
    CString title;
    GetWindowText(title);
    SetWindowText(title + L" " + LoadLocalString(GetResourceModule(), kReadOnlyText));
    if (HWND ok = ::GetDlgItem(m_hWnd, IDOK)) {
      ::EnableWindow(ok, FALSE);
      ::ShowWindow(ok, SW_HIDE);
    }
    if (HWND cancel = ::GetDlgItem(m_hWnd, IDCANCEL))
      ::SetWindowTextW(cancel, LoadLocalString(GetResourceModule(), kCloseText));
  }
  DWORD style = ::GetWindowLongW(m_hWnd, GWL_STYLE);
  if ((style & WS_SYSMENU) && (style & WS_THICKFRAME) && !(style & WS_CHILD)) {
    if (m_hAppIcon)
      SendMessage(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(m_hAppIcon));
    else
      ::SetWindowLongW(m_hWnd, GWL_EXSTYLE, ::GetWindowLongW(m_hWnd, GWL_EXSTYLE) | WS_EX_DLGMODALFRAME);
  }
  return TRUE;
}

HINSTANCE CVnDialog::GetDialogResourceModule() { return AfxGetResourceHandle(); }

//===-- Item helpers -------------------------------------------------------===//

void CVnDialog::ReadOnlyDlgItem(UINT id, BOOL readOnly) {
  ::SendMessageW(::GetDlgItem(m_hWnd, id), EM_SETREADONLY, readOnly, 0);
}

BOOL CVnDialog::EnableDlgItem(UINT id, BOOL enable) { return ::EnableWindow(::GetDlgItem(m_hWnd, id), enable); }

void CVnDialog::ShowDlgItem(UINT id, BOOL show) { ::ShowWindow(::GetDlgItem(m_hWnd, id), show ? SW_SHOW : SW_HIDE); }

void CVnDialog::SetDlgItemFocus(UINT id) {
  SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(::GetDlgItem(m_hWnd, id)), 1);
}

void CVnDialog::ExileDlgItem(UINT id) {
  HWND item = ::GetDlgItem(m_hWnd, id);
  ::ShowWindow(item, SW_HIDE);
  ::EnableWindow(item, FALSE);
  OffsetControl(item, -2048, -2048);
}

void CVnDialog::OffsetControl(CWnd* control, int dx, int dy) {
  if (control)
    OffsetControl(control->m_hWnd, dx, dy);
}

void CVnDialog::OffsetControl(HWND control, int dx, int dy) {
  if (!control || !::IsWindow(control))
    return;
  RECT rect;
  ::GetWindowRect(control, &rect);
  ::MapWindowPoints(nullptr, ::GetParent(control), reinterpret_cast<POINT*>(&rect), 2);
  ::SetWindowPos(control, nullptr, rect.left + dx, rect.top + dy, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CVnDialog::SetListboxHorizontalExtent(HWND listbox) {
  if (!listbox)
    return;
  HDC dc = ::GetDC(listbox);
  HGDIOBJ old = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(::SendMessageW(listbox, WM_GETFONT, 0, 0)));
  int widest = 0, count = static_cast<int>(::SendMessageW(listbox, LB_GETCOUNT, 0, 0));
  for (int i = 0; i < count; ++i) {
    CString text;
    int length = static_cast<int>(::SendMessageW(listbox, LB_GETTEXTLEN, i, 0));
    ::SendMessageW(listbox, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text.GetBufferSetLength(length)));
    text.ReleaseBuffer();
    SIZE size = {0, 0};
    ::GetTextExtentPoint32W(dc, text, text.GetLength(), &size);
    widest = size.cx > widest ? size.cx : widest;
  }
  ::SelectObject(dc, old);
  ::ReleaseDC(listbox, dc);
  ::SendMessageW(listbox, LB_SETHORIZONTALEXTENT, widest + 4, 0);
}

//===-- Resizing and help --------------------------------------------------===//

void CVnDialog::OnSize(UINT type, int cx, int cy) {
  CDialog::OnSize(type, cx, cy);
  m_resizeControls.OnSize(this, type, cx, cy);
}

void CVnDialog::OnGetMinMaxInfo(MINMAXINFO* info) { m_resizeControls.OnGetMinMaxInfo(info); }

BOOL CVnDialog::OnHelpInfo(HELPINFO* info) {
  if (info->iContextType != HELPINFO_WINDOW || info->dwContextId == 0)
    return CDialog::OnHelpInfo(info);
  LocalContextHelp(GetDialogResourceModule(), static_cast<unsigned long>(info->dwContextId), HELP_CONTEXTPOPUP);
  return TRUE;
}

void CVnDialog::OnContextMenu(CWnd* wnd, CPoint point) {
  LocalContextHelp(wnd, GetDialogResourceModule(), point, HELP_CONTEXTPOPUP);
}

//===-- Command updates ----------------------------------------------------===//

// The bars of a dialog update as a frame's do, then every descendant hears
// of the idle time.
LRESULT CVnDialog::OnKickIdle(WPARAM wParam, LPARAM count) {
  if (count == 0) {
    for (UINT id : {AFX_IDW_TOOLBAR, AFX_IDW_STATUS_BAR}) {
      CWnd* bar = GetDlgItem(id);
      if (bar && bar->IsKindOf(RUNTIME_CLASS(CControlBar)) && bar->IsWindowVisible())
        // The bars route updates through the target as a command target only.
        static_cast<CControlBar*>(bar)->OnUpdateCmdUI(reinterpret_cast<CFrameWnd*>(this), TRUE);
    }
    SendMessageToDescendants(WM_KICKIDLE, wParam, 0, TRUE);
  }
  return count < 0;
}

// Each item of the dropping menu is offered to this dialog's update
// handlers; an item with no handler below the system range is disabled.
void CVnDialog::OnInitDlgMenuPopup(HMENU menu, LPARAM lParam) {
  if (HIWORD(lParam))
    return;
  CMenu lent;
  lent.Attach(menu);
  CCmdUI state;
  state.m_pMenu = &lent;
  state.m_nIndexMax = static_cast<UINT>(::GetMenuItemCount(menu));
  for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
    state.m_nID = ::GetMenuItemID(menu, static_cast<int>(state.m_nIndex));
    if (state.m_nID == 0)
      continue;
    if (state.m_nID == static_cast<UINT>(-1)) {
      HMENU sub = ::GetSubMenu(menu, static_cast<int>(state.m_nIndex));
      UINT first = sub ? ::GetMenuItemID(sub, 0) : 0;
      if (!sub || first == 0 || first == static_cast<UINT>(-1))
        continue;
      state.m_nID = first;
      state.DoUpdate(this, FALSE);
    } else {
      state.DoUpdate(this, state.m_nID < 0xF000);
    }
    UINT count = static_cast<UINT>(::GetMenuItemCount(menu));
    if (count < state.m_nIndexMax) {
      state.m_nIndex -= state.m_nIndexMax - count;
      while (state.m_nIndex < count && ::GetMenuItemID(menu, static_cast<int>(state.m_nIndex)) == state.m_nID)
        ++state.m_nIndex;
    }
    state.m_nIndexMax = count;
  }
  lent.Detach();
}
