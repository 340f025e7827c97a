// CWnd.cpp - a window object over an HWND, and the one window procedure.
//
// Object and handle are tied by a window property holding the object's
// address, set at WM_NCCREATE (own classes) or by SubclassWindow (system
// classes), and removed at WM_NCDESTROY, after which the object holds no
// handle and PostNcDestroy runs.
#include "afx/win32/CWnd.h"

#include "afx/win32/CControlBar.h"
#include "afx/win32/CScrollBar.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

static const WCHAR kObjectProperty[] = L"VnReconcile.CWnd";

CWnd::~CWnd() {
  if (m_hWnd)
    DestroyWindow();
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd) {
  return hWnd ? static_cast<CWnd*>(::GetPropW(hWnd, kObjectProperty)) : nullptr;
}

//===-- The one window procedure -------------------------------------------===//

void CWnd::Tie(HWND hWnd) {
  m_hWnd = hWnd;
  ::SetPropW(hWnd, kObjectProperty, this);
}

void CWnd::Untie() {
  ::RemovePropW(m_hWnd, kObjectProperty);
  m_hWnd = nullptr;
}

namespace {
// The message being handled on this thread, for Default.
struct CurrentMessage {
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
};
thread_local CurrentMessage t_current = {0, 0, 0};
}  // namespace

// Until WM_NCCREATE ties the object, messages (WM_GETMINMAXINFO comes first)
// get the default treatment.  WM_NCDESTROY is the last message: the object
// lets go of the handle before its PostNcDestroy, which may delete it.
LRESULT CALLBACK CWnd::StaticWindowProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) {
  CWnd* wnd = FromHandlePermanent(hWnd);
  if (!wnd && message == WM_NCCREATE) {
    wnd = static_cast<CWnd*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    if (wnd)
      wnd->Tie(hWnd);
  }
  if (!wnd)
    return ::DefWindowProcW(hWnd, message, wParam, lParam);
  CurrentMessage saved = t_current;
  t_current = {message, wParam, lParam};
  LRESULT result = wnd->WindowProc(message, wParam, lParam);
  t_current = saved;
  if (message == WM_NCDESTROY) {
    WNDPROC super = wnd->m_pfnSuper;
    wnd->m_pfnSuper = nullptr;
    if (super)
      ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(super));
    wnd->Untie();
    wnd->PostNcDestroy();
  }
  return result;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  LRESULT result = 0;
  if (OnWndMsg(message, wParam, lParam, &result))
    return result;
  return DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (message == WM_COMMAND) {
    *result = 0;
    return OnCommand(wParam, lParam);
  }
  if (message == WM_NOTIFY)
    return OnNotify(wParam, lParam, result);
  if (const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(message)) {
    *result = entry->pfn(this, wParam, lParam);
    return TRUE;
  }
  switch (message) {
  case WM_CLOSE:
    OnClose();
    *result = 0;
    return TRUE;
  case WM_HSCROLL:
  case WM_VSCROLL:
    *result = DispatchScroll(message, wParam, lParam);
    return TRUE;
  default:
    return FALSE;
  }
}

//===-- Commands, notifications and their reflection ----------------------===//

BOOL CWnd::ReflectToChild(HWND child, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  CWnd* wnd = FromHandlePermanent(child);
  return wnd && wnd->OnChildNotify(message, wParam, lParam, result);
}

// Accelerators send code 1; they are commands like menu items.
BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
  UINT id = LOWORD(wParam);
  int code = HIWORD(wParam);
  HWND control = reinterpret_cast<HWND>(lParam);
  if (control) {
    LRESULT ignored = 0;
    if (ReflectToChild(control, WM_COMMAND, wParam, lParam, &ignored))
      return TRUE;
  } else if (code == 1) {
    code = CN_COMMAND;
  }
  return OnCmdMsg(id, code, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
  const NMHDR* header = reinterpret_cast<const NMHDR*>(lParam);
  *result = 0;
  if (ReflectToChild(header->hwndFrom, WM_NOTIFY, wParam, lParam, result))
    return TRUE;
  const AFX_MSGMAP_ENTRY* entry = FindCodeEntry(WM_NOTIFY, header->code, static_cast<UINT>(header->idFrom));
  if (!entry)
    return FALSE;
  entry->pfn(this, reinterpret_cast<WPARAM>(result), lParam);
  return TRUE;
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  UINT code = message == WM_NOTIFY ? reinterpret_cast<const NMHDR*>(lParam)->code : HIWORD(wParam);
  const AFX_MSGMAP_ENTRY* entry = FindCodeEntry(WM_REFLECT_BASE + message, code, 0);
  if (!entry)
    return FALSE;
  entry->pfn(this, reinterpret_cast<WPARAM>(result), lParam);
  return TRUE;
}

namespace {
// A bar that no object owns is lent to the handler for the call only.
struct LentScrollBar : CScrollBar {
  ~LentScrollBar() override { Detach(); }
};
}  // namespace

LRESULT CWnd::DispatchScroll(UINT message, WPARAM wParam, LPARAM lParam) {
  HWND barWnd = reinterpret_cast<HWND>(lParam);
  CWnd* owner = FromHandlePermanent(barWnd);
  LentScrollBar lent;
  CScrollBar* bar = nullptr;
  if (owner && owner->IsKindOf(RUNTIME_CLASS(CScrollBar)))
    bar = static_cast<CScrollBar*>(owner);
  else if (barWnd && lent.Attach(barWnd))
    bar = &lent;
  UINT code = LOWORD(wParam), pos = HIWORD(wParam);
  if (message == WM_HSCROLL)
    OnHScroll(code, pos, bar);
  else
    OnVScroll(code, pos, bar);
  return 0;
}

void CWnd::OnClose() { DefWindowProc(WM_CLOSE, 0, 0); }

const MSG* CWnd::GetCurrentMessage() {
  thread_local MSG current;
  current = MSG();
  current.message = t_current.message;
  current.wParam = t_current.wParam;
  current.lParam = t_current.lParam;
  return &current;
}

LRESULT CWnd::Default() { return DefWindowProc(t_current.message, t_current.wParam, t_current.lParam); }

int CWnd::OnCreate(LPCREATESTRUCTW) { return static_cast<int>(Default()); }
void CWnd::OnDestroy() { Default(); }
void CWnd::OnSize(UINT, int, int) { Default(); }
void CWnd::OnSizing(UINT, LPRECT) { Default(); }
void CWnd::OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
void CWnd::OnShowWindow(BOOL, UINT) { Default(); }
void CWnd::OnActivate(UINT, CWnd*, BOOL) { Default(); }
void CWnd::OnSetFocus(CWnd*) { Default(); }
void CWnd::OnKillFocus(CWnd*) { Default(); }
void CWnd::OnPaint() { Default(); }
BOOL CWnd::OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
void CWnd::OnSysColorChange() { Default(); }
void CWnd::OnTimer(UINT_PTR) { Default(); }
BOOL CWnd::OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
void CWnd::OnLButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnLButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnLButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnMouseMove(UINT, CPoint) { Default(); }
BOOL CWnd::OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
void CWnd::OnCaptureChanged(CWnd*) { Default(); }
void CWnd::OnCancelMode() { Default(); }
LRESULT CWnd::OnNcHitTest(CPoint) { return Default(); }
void CWnd::OnKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnContextMenu(CWnd*, CPoint) { Default(); }
BOOL CWnd::OnHelpInfo(HELPINFO*) { return static_cast<BOOL>(Default()); }
void CWnd::OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }

void CWnd::OnHScroll(UINT code, UINT pos, CScrollBar* bar) {
  DefWindowProc(WM_HSCROLL, MAKEWPARAM(code, pos), reinterpret_cast<LPARAM>(bar ? bar->m_hWnd : nullptr));
}

void CWnd::OnVScroll(UINT code, UINT pos, CScrollBar* bar) {
  DefWindowProc(WM_VSCROLL, MAKEWPARAM(code, pos), reinterpret_cast<LPARAM>(bar ? bar->m_hWnd : nullptr));
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (m_pfnSuper)
    return ::CallWindowProcW(m_pfnSuper, m_hWnd, message, wParam, lParam);
  return ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}

//===-- Creation and lifetime ----------------------------------------------===//

LPCWSTR CWnd::DefaultClassName() {
  static const WCHAR kName[] = L"VnReconcileWnd";
  static bool registered = false;
  if (!registered) {
    WNDCLASSEXW wc = {};
    wc.cbSize = sizeof(wc);
    wc.style = CS_DBLCLKS;
    wc.lpfnWndProc = &CWnd::StaticWindowProc;
    wc.hInstance = ::GetModuleHandleW(nullptr);
    wc.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // IDC_ARROW
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    wc.lpszClassName = kName;
    registered = ::RegisterClassExW(&wc) != 0 || ::GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
  }
  return kName;
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, const RECT& rect,
                    CWnd* parent, UINT id, LPVOID param) {
  assert(!m_hWnd && "the object holds no window yet");
  assert(!param && "the create parameter carries the object itself");
  bool ownClass = className == nullptr;
  if (ownClass)
    className = DefaultClassName();
  HMENU menuOrId = (style & WS_CHILD) ? reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)) : nullptr;
  HWND hWnd = ::CreateWindowExW(exStyle, className, windowName, style, rect.left, rect.top, rect.right - rect.left,
                                rect.bottom - rect.top, parent ? parent->m_hWnd : nullptr, menuOrId,
                                ::GetModuleHandleW(nullptr), ownClass ? this : nullptr);
  if (!hWnd)
    return FALSE;
  // A window of a system class never saw our procedure: the object only
  // holds it, as a control wrapper does.
  if (!m_hWnd)
    m_hWnd = hWnd;
  return TRUE;
}

BOOL CWnd::Create(LPCWSTR className, LPCWSTR windowName, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CreateEx(0, className, windowName, style, rect, parent, id);
}

// A tied window clears m_hWnd itself at WM_NCDESTROY; a merely held one is
// let go of here.
BOOL CWnd::DestroyWindow() {
  if (!m_hWnd)
    return FALSE;
  HWND hWnd = m_hWnd;
  bool tied = FromHandlePermanent(hWnd) == this;
  BOOL done = ::DestroyWindow(hWnd);
  if (!tied && m_hWnd == hWnd)
    m_hWnd = nullptr;
  return done;
}

BOOL CWnd::Attach(HWND hWnd) {
  if (!hWnd || m_hWnd)
    return FALSE;
  m_hWnd = hWnd;
  return TRUE;
}

HWND CWnd::Detach() {
  HWND hWnd = m_hWnd;
  if (hWnd && FromHandlePermanent(hWnd) == this)
    UnsubclassWindow();
  m_hWnd = nullptr;
  return hWnd;
}

BOOL CWnd::SubclassWindow(HWND hWnd) {
  if (!hWnd || m_hWnd || FromHandlePermanent(hWnd))
    return FALSE;
  Tie(hWnd);
  m_pfnSuper = reinterpret_cast<WNDPROC>(
      ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CWnd::StaticWindowProc)));
  return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
  assert(parent && ::IsWindow(parent->m_hWnd) && "the dialog exists");
  return SubclassWindow(::GetDlgItem(parent->m_hWnd, static_cast<int>(id)));
}

BOOL CWnd::SubclassCreated() {
  HWND hWnd = Detach();
  if (SubclassWindow(hWnd))
    return TRUE;
  ::DestroyWindow(hWnd);
  return FALSE;
}

HWND CWnd::UnsubclassWindow() {
  HWND hWnd = m_hWnd;
  if (!hWnd)
    return nullptr;
  if (m_pfnSuper)
    ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
  m_pfnSuper = nullptr;
  Untie();
  return hWnd;
}

//===-- Wrappers -----------------------------------------------------------===//

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return ::SendMessageW(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return ::PostMessageW(m_hWnd, message, wParam, lParam);
}

void CWnd::SetWindowText(LPCWSTR text) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  ::SetWindowTextW(m_hWnd, text);
}

void CWnd::GetWindowText(CString& text) const {
  int length = GetWindowTextLength();
  ::GetWindowTextW(m_hWnd, text.GetBufferSetLength(length), length + 1);
  text.ReleaseBuffer();
}

int CWnd::GetWindowTextLength() const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return ::GetWindowTextLengthW(m_hWnd);
}

BOOL CWnd::ShowWindow(int command) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return ::ShowWindow(m_hWnd, command);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::GetClientRect(RECT* rect) const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  ::GetClientRect(m_hWnd, rect);
}

void CWnd::GetWindowRect(RECT* rect) const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  ::GetWindowRect(m_hWnd, rect);
}

HWND CWnd::SetFocus() {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return ::SetFocus(m_hWnd);
}

BOOL CWnd::IsWindowVisible() const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return ::IsWindowVisible(m_hWnd);
}

BOOL CWnd::EnableWindow(BOOL enable) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return ::EnableWindow(m_hWnd, enable);
}

DWORD CWnd::GetStyle() const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_STYLE));
}

UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT elapse) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return ::SetTimer(m_hWnd, id, elapse, nullptr);
}

BOOL CWnd::KillTimer(UINT_PTR id) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return ::KillTimer(m_hWnd, id);
}

CWnd* CWnd::GetParent() const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return FromHandlePermanent(::GetParent(m_hWnd));
}

int CWnd::GetDlgCtrlID() const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return ::GetDlgCtrlID(m_hWnd);
}

void CWnd::Invalidate(BOOL erase) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  ::InvalidateRect(m_hWnd, nullptr, erase);
}

BOOL CWnd::UpdateWindow() {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return ::UpdateWindow(m_hWnd);
}

CPoint CWnd::GetCaretPos() {
  POINT point = {0, 0};
  ::GetCaretPos(&point);
  return CPoint(point);
}

void CWnd::ShowCaret() {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  ::ShowCaret(m_hWnd);
}

CWnd* CWnd::GetDlgItem(int id) const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return FromHandlePermanent(::GetDlgItem(m_hWnd, id));
}

//===-- Frames, placement and focus ----------------------------------------===//

BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT* placement) const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  placement->length = sizeof(WINDOWPLACEMENT);
  return ::GetWindowPlacement(m_hWnd, placement);
}

BOOL CWnd::SetWindowPlacement(const WINDOWPLACEMENT* placement) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  WINDOWPLACEMENT copy = *placement;
  copy.length = sizeof(WINDOWPLACEMENT);
  return ::SetWindowPlacement(m_hWnd, &copy);
}

void CWnd::CenterWindow() {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  ::GetMonitorInfoW(::MonitorFromWindow(m_hWnd, MONITOR_DEFAULTTONEAREST), &monitor);
  RECT area = monitor.rcWork, over = area, own;
  HWND owner = ::GetWindow(m_hWnd, GW_OWNER);
  if (owner && ::IsWindowVisible(owner) && !::IsIconic(owner))
    ::GetWindowRect(owner, &over);
  ::GetWindowRect(m_hWnd, &own);
  int width = own.right - own.left, height = own.bottom - own.top;
  int x = (over.left + over.right - width) / 2, y = (over.top + over.bottom - height) / 2;
  x = x + width > area.right ? area.right - width : x;
  y = y + height > area.bottom ? area.bottom - height : y;
  x = x < area.left ? area.left : x;
  y = y < area.top ? area.top : y;
  ::SetWindowPos(m_hWnd, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CWnd::IsChild(const CWnd* wnd) const {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  return wnd && ::IsChild(m_hWnd, wnd->m_hWnd);
}

CWnd* CWnd::GetFocus() { return FromHandlePermanent(::GetFocus()); }

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL deep) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  for (HWND child = ::GetTopWindow(m_hWnd); child; child = ::GetNextWindow(child, GW_HWNDNEXT)) {
    ::SendMessageW(child, message, wParam, lParam);
    if (deep && ::GetTopWindow(child)) {
      CWnd lent;
      lent.m_hWnd = child;
      lent.SendMessageToDescendants(message, wParam, lParam, TRUE);
      lent.m_hWnd = nullptr;
    }
  }
}

// The bars move together in one deferred batch, then the client child takes
// the rest; reposExtra shrinks the rest further by *rectParam's sides.
void CWnd::RepositionBars(UINT first, UINT last, UINT leftOver, UINT flag, LPRECT rectParam, LPCRECT clientRect,
                          BOOL stretch) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  AFX_SIZEPARENTPARAMS layout = {};
  layout.bStretch = stretch;
  if (clientRect)
    layout.rect = *clientRect;
  else
    ::GetClientRect(m_hWnd, &layout.rect);
  layout.hDWP = flag == reposQuery ? nullptr : ::BeginDeferWindowPos(8);
  HWND rest = nullptr;
  for (HWND child = ::GetTopWindow(m_hWnd); child; child = ::GetNextWindow(child, GW_HWNDNEXT)) {
    UINT id = static_cast<UINT>(::GetDlgCtrlID(child));
    if (id == leftOver)
      rest = child;
    else if (id >= first && id <= last)
      ::SendMessageW(child, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
  }
  if (flag == reposQuery) {
    if (rectParam)
      *rectParam = layout.rect;
    return;
  }
  if (flag == reposExtra && rectParam) {
    layout.rect.left += rectParam->left;
    layout.rect.top += rectParam->top;
    layout.rect.right -= rectParam->right;
    layout.rect.bottom -= rectParam->bottom;
  }
  if (rest && layout.hDWP)
    layout.hDWP = ::DeferWindowPos(layout.hDWP, rest, nullptr, layout.rect.left, layout.rect.top,
                                   layout.rect.right - layout.rect.left, layout.rect.bottom - layout.rect.top,
                                   SWP_NOZORDER | SWP_NOACTIVATE);
  if (layout.hDWP)
    ::EndDeferWindowPos(layout.hDWP);
}
