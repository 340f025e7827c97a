// CFrameWnd.cpp - layout, command routing and life of a top-level frame.
#include "afx/win32/CFrameWnd.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CWinApp.h"

#include <commctrl.h>

#include <cassert>
#include <cwchar>

IMPLEMENT_DYNAMIC(CFrameWnd, CWnd)

const RECT CFrameWnd::rectDefault = {static_cast<LONG>(CW_USEDEFAULT), static_cast<LONG>(CW_USEDEFAULT), 0, 0};

CFrameWnd::~CFrameWnd() {
  if (m_hWnd)
    DestroyWindow();
}

//===-- Creation -----------------------------------------------------------===//

// CW_USEDEFAULT in the left edge asks the system for position and size.
BOOL CFrameWnd::Create(LPCWSTR className, LPCWSTR title, DWORD style, const RECT& rect, CWnd* parent,
                       LPCWSTR menuName, DWORD exStyle) {
  HMENU menu = menuName ? ::LoadMenuW(::GetModuleHandleW(nullptr), menuName) : nullptr;
  RECT place = rect;
  if (rect.left == static_cast<LONG>(CW_USEDEFAULT))
    place = {static_cast<LONG>(CW_USEDEFAULT), static_cast<LONG>(CW_USEDEFAULT), 0, 0};
  if (!CreateEx(exStyle, className, title, style, place, parent, 0)) {
    if (menu)
      ::DestroyMenu(menu);
    return FALSE;
  }
  if (rect.left == static_cast<LONG>(CW_USEDEFAULT))
    ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER);
  if (menu)
    ::SetMenu(m_hWnd, menu);  // the window destroys it with itself
  return TRUE;
}

BOOL CFrameWnd::LoadFrame(UINT resourceId, DWORD style, CWnd* parent) {
  HINSTANCE module = ::GetModuleHandleW(nullptr);
  WCHAR title[256] = {};
  ::LoadStringW(module, resourceId, title, 256);
  LPCWSTR name = MAKEINTRESOURCEW(resourceId);
  HMENU probe = ::LoadMenuW(module, name);
  if (probe)
    ::DestroyMenu(probe);
  if (!Create(nullptr, title, style, rectDefault, parent, probe ? name : nullptr))
    return FALSE;
  if (HICON icon = ::LoadIconW(module, name)) {
    ::SendMessageW(m_hWnd, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    ::SendMessageW(m_hWnd, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
  }
  LoadAccelTable(name);
  return TRUE;
}

BOOL CFrameWnd::LoadAccelTable(LPCWSTR resourceName) {
  assert(!m_hAccelTable && "one accelerator table per frame");
  m_hAccelTable = ::LoadAcceleratorsW(::GetModuleHandleW(nullptr), resourceName);
  return m_hAccelTable != nullptr;
}

//===-- Layout -------------------------------------------------------------===//

void CFrameWnd::RecalcLayout(BOOL) {
  if (m_hWnd)
    RepositionBars(AFX_IDW_CONTROLBAR_FIRST, AFX_IDW_CONTROLBAR_LAST, AFX_IDW_PANE_FIRST);
}

void CFrameWnd::ShowControlBar(CWnd* bar, BOOL show, BOOL) {
  assert(bar && bar->m_hWnd && "a bar with a window");
  bar->ShowWindow(show ? SW_SHOWNOACTIVATE : SW_HIDE);
  RecalcLayout();
}

void CFrameWnd::DockControlBar(CWnd* bar, UINT, LPCRECT) {
  assert(bar && bar->m_hWnd && "a bar with a window");
  RecalcLayout();
}

//===-- Commands -----------------------------------------------------------===//

// The frame's own map first, then the application's; the View menu's bar
// toggles have a default when no map binds them.
BOOL CFrameWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo) {
  if (CWnd::OnCmdMsg(id, code, extra, handlerInfo))
    return TRUE;
  CWinApp* app = AfxGetApp();
  if (app && app->OnCmdMsg(id, code, extra, handlerInfo))
    return TRUE;
  if ((id != ID_VIEW_TOOLBAR && id != ID_VIEW_STATUS_BAR) || !::GetDlgItem(m_hWnd, id))
    return FALSE;
  if (handlerInfo)
    return TRUE;
  if (code == CN_UPDATE_COMMAND_UI)
    OnUpdateControlBarMenu(static_cast<CCmdUI*>(extra));
  else if (code == CN_COMMAND)
    OnBarCheck(id);
  return code == CN_UPDATE_COMMAND_UI || code == CN_COMMAND;
}

BOOL CFrameWnd::PreTranslateMessage(MSG* msg) {
  if (msg->message < WM_KEYFIRST || msg->message > WM_KEYLAST || !m_hAccelTable)
    return FALSE;
  return ::TranslateAcceleratorW(m_hWnd, m_hAccelTable, msg) != 0;
}

BOOL CFrameWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (CWnd::OnNotify(wParam, lParam, result))
    return TRUE;
  auto* tip = reinterpret_cast<NMTTDISPINFOW*>(lParam);
  if (tip->hdr.code != TTN_GETDISPINFOW)
    return FALSE;
  static WCHAR text[80];
  text[0] = 0;
  UINT id = static_cast<UINT>(tip->hdr.idFrom);
  if (::LoadStringW(::GetModuleHandleW(nullptr), id, text, 80) > 0) {
    if (WCHAR* newline = std::wcschr(text, L'\n'))
      std::wmemmove(text, newline + 1, std::wcslen(newline + 1) + 1);
  }
  tip->lpszText = text;
  tip->hinst = nullptr;
  *result = 0;
  return TRUE;
}

// Items without a command (separators, submenus) keep their state.
void CFrameWnd::UpdateMenuItems(HMENU menu) {
  CMenu lent;
  lent.Attach(menu);
  CCmdUI state;
  state.m_pMenu = &lent;
  state.m_nIndexMax = ::GetMenuItemCount(menu);
  for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
    state.m_nID = ::GetMenuItemID(menu, state.m_nIndex);
    if (state.m_nID != 0 && state.m_nID != static_cast<UINT>(-1))
      state.DoUpdate(this, TRUE);
  }
  lent.Detach();
}

BOOL CFrameWnd::OnBarCheck(UINT id) {
  HWND bar = ::GetDlgItem(m_hWnd, id);
  if (!bar)
    return FALSE;
  CWnd lent;
  lent.m_hWnd = bar;
  ShowControlBar(&lent, !::IsWindowVisible(bar), FALSE);
  lent.m_hWnd = nullptr;
  return TRUE;
}

void CFrameWnd::OnUpdateControlBarMenu(CCmdUI* cmdUI) {
  HWND bar = ::GetDlgItem(m_hWnd, cmdUI->m_nID);
  cmdUI->Enable(bar != nullptr);
  cmdUI->SetCheck(bar && ::IsWindowVisible(bar));
}

//===-- Help ---------------------------------------------------------------===//

void CFrameWnd::OnHelp() {
  if (CWinApp* app = AfxGetApp())
    app->WinHelp(0, HELP_CONTENTS);
}

void CFrameWnd::OnHelpFinder() {
  if (CWinApp* app = AfxGetApp())
    app->WinHelp(0, HELP_FINDER);
}

void CFrameWnd::OnContextHelp() {
  if (CWinApp* app = AfxGetApp())
    app->WinHelp(0, HELP_CONTEXT);
}

//===-- Messages the frame answers itself ----------------------------------===//

void CFrameWnd::OnClose() { DestroyWindow(); }

// The frame answers these before its map sees them so that a derived map
// need not repeat them: layout on resizing, menu updates before a menu shows,
// focus to the client pane, and the end of the loop with the main window.
LRESULT CFrameWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
  case WM_INITMENUPOPUP:
    if (!HIWORD(lParam))
      UpdateMenuItems(reinterpret_cast<HMENU>(wParam));
    break;
  case WM_SIZE:
    if (wParam != SIZE_MINIMIZED)
      RecalcLayout();
    break;
  case WM_NCDESTROY: {
    CWinApp* app = AfxGetApp();
    if (app && app->m_pMainWnd == this) {
      app->m_pMainWnd = nullptr;
      ::PostQuitMessage(0);
    }
    break;
  }
  default:
    break;
  }
  return CWnd::WindowProc(message, wParam, lParam);
}

void CFrameWnd::PostNcDestroy() {
  if (m_bAutoDelete)
    delete this;
}
