// CResizeCtrlWin32.cpp - the proportional resizer: records, subclassing,
// the size pass, the frame drag and the grip.
//
// The object sits in front of the window's own procedure.  Of each message
// it takes what resizing needs (WM_SIZE, WM_GETMINMAXINFO, the grip's hit
// test and paint, and for a frame it added itself the drag) and passes the
// rest on.  One size pass:
//   1. the change since the last pass, per axis;
//   2. each child's present rectangle in the parent's client coordinates;
//   3. left, width, top, height each advanced by its share (ResizeShare.h);
//   4. every child that had a share on a changed axis moves, all in one
//      deferred batch, without redrawing while the parent is hidden.
#include "toolkit/CResizeCtrl.h"

#include "toolkit/ResizeShare.h"

#include <cassert>

typedef CArray<CResizeItem, const CResizeItem&> CResizeItemArray;

static const WCHAR kProperty[] = L"___CResizeCtrl___Class___";

static UINT ResizeCtrlMessage() {
  static const UINT message = ::RegisterWindowMessageW(L"WM_GETRESIZECTRL");
  return message;
}

// Registered when the library loads, so every window knows the number.
static const UINT g_registeredAtLoad = ResizeCtrlMessage();

CResizeCtrl::CResizeCtrl() = default;

CResizeCtrl::CResizeCtrl(HWND hWnd, BOOL enable, int maxPart, BOOL hasResizingBorder) {
  Create(hWnd, enable, maxPart, hasResizingBorder);
}

CResizeCtrl::CResizeCtrl(CWnd* wnd, BOOL enable, int maxPart) { Create(wnd, enable, maxPart); }

CResizeCtrl::~CResizeCtrl() {
  if (items) {
    SetEnabled(FALSE);
    delete items;
  }
  delete wizardMargins;
}

BOOL CResizeCtrl::Create(HWND hWnd, BOOL enable, int maxPart_, BOOL hasResizingBorder_) {
  if (items)
    return FALSE;
  assert(maxPart_ > 0 && "the scale of the shares is positive");
  items = new CResizeItemArray;
  maxPart = maxPart_;
  hWndParent = hWnd;
  minTrackingSize = maxTrackingSize = CSize(-1, -1);
  inResize = FALSE;
  oldWndProc = nullptr;
  enabled = FALSE;
  hasResizingBorder = hasResizingBorder_ ? TRUE
                                         : (::GetWindowLongW(hWnd, GWL_STYLE) & WS_THICKFRAME) == WS_THICKFRAME;
  if (!enable) {
    ::GetWindowRect(hWndParent, &windowRect);
    return TRUE;
  }
  SetEnabled(TRUE);
  return TRUE;
}

//===-- Records ------------------------------------------------------------===//

BOOL CResizeCtrl::Add(HWND hWnd, int xPart, int yPart, int cxPart, int cyPart) {
  if (!items)
    return FALSE;
  for (int part : {xPart, yPart, cxPart, cyPart})
    if (part < 0 || part > maxPart)
      return FALSE;
  if (xPart + cxPart > maxPart || yPart + cyPart > maxPart || !::IsWindow(hWnd))
    return FALSE;
  items->Add(CResizeItem{hWnd, 0, 0, 0, 0, xPart, yPart, cxPart, cyPart});
  return TRUE;
}

BOOL CResizeCtrl::Add(int controlId, int xPart, int yPart, int cxPart, int cyPart) {
  return Add(::GetDlgItem(hWndParent, controlId), xPart, yPart, cxPart, cyPart);
}

BOOL CResizeCtrl::Add(CWnd* wnd, int xPart, int yPart, int cxPart, int cyPart) {
  return wnd ? Add(wnd->m_hWnd, xPart, yPart, cxPart, cyPart) : FALSE;
}

BOOL CResizeCtrl::Add(const CResizeInfo* table) {
  for (; table && table->controlId > 0; ++table)
    if (!Add(table->controlId, table->xPart, table->yPart, table->cxPart, table->cyPart))
      return FALSE;
  return TRUE;
}

BOOL CResizeCtrl::Remove(HWND hWnd) {
  if (!items || !::IsWindow(hWnd))
    return FALSE;
  for (INT_PTR i = 0; i < items->GetSize(); ++i)
    if ((*items)[i].hWnd == hWnd) {
      items->RemoveAt(i);
      return TRUE;
    }
  return FALSE;
}

BOOL CResizeCtrl::Remove(int controlId) { return Remove(::GetDlgItem(hWndParent, controlId)); }

BOOL CResizeCtrl::Remove(CWnd* wnd) { return wnd ? Remove(wnd->m_hWnd) : FALSE; }

//===-- The size pass ------------------------------------------------------===//

BOOL CResizeCtrl::CalcValue(int delta, int part, int& rest, int& value, BOOL clamp) {
  return VnResizeCalcValue(delta, part, maxPart, rest, value, clamp != FALSE);
}

// Gives the child's rectangle in the parent's client coordinates.
static RECT ChildRect(HWND parent, HWND child) {
  RECT rect;
  ::GetWindowRect(child, &rect);
  ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

void CResizeCtrl::Resize(int cx, int cy) {
  if (inResize || !items || items->GetSize() == 0)
    return;
  int deltaX = cx - lastClientSize[0], deltaY = cy - lastClientSize[1];
  if (deltaX == 0 && deltaY == 0)
    return;
  inResize = TRUE;
  UINT flags = ::IsWindowVisible(hWndParent) ? SWP_NOZORDER : SWP_NOZORDER | SWP_NOREDRAW | SWP_NOACTIVATE;
  HDWP batch = ::BeginDeferWindowPos(0);
  for (INT_PTR i = 0; i < items->GetSize(); ++i) {
    CResizeItem& item = (*items)[i];
    RECT rect = ChildRect(hWndParent, item.hWnd);
    int left = rect.left, top = rect.top, width = rect.right - rect.left, height = rect.bottom - rect.top;
    BOOL moved = CalcValue(deltaX, item.xPart, item.xRest, left, FALSE);
    moved |= CalcValue(deltaX, item.cxPart, item.cxRest, width, TRUE);
    moved |= CalcValue(deltaY, item.yPart, item.yRest, top, FALSE);
    moved |= CalcValue(deltaY, item.cyPart, item.cyRest, height, TRUE);
    if (moved && batch)
      batch = ::DeferWindowPos(batch, item.hWnd, nullptr, left, top, width, height, flags);
  }
  if (batch)
    ::EndDeferWindowPos(batch);
  lastClientSize[0] = cx;
  lastClientSize[1] = cy;
  inResize = FALSE;
}

//===-- Switches -----------------------------------------------------------===//

BOOL CResizeCtrl::SetEnabled(BOOL enable) {
  if (!items || enable == enabled)
    return FALSE;
  ::GetWindowRect(hWndParent, &windowRect);
  if (enable) {
    hitCode = 0;
    trackDelta[0] = trackDelta[1] = 0;
    inMouseMove = inResize = FALSE;
    if (!hasResizingBorder)
      ChangeStyle(enable);
    RECT client;
    ::GetClientRect(hWndParent, &client);
    lastClientSize[0] = client.right;
    lastClientSize[1] = client.bottom;
    ::SetPropW(hWndParent, kProperty, this);
    oldWndProc = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(hWndParent, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CResizeCtrl::WndProc)));
  } else {
    ::SetWindowLongPtrW(hWndParent, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(oldWndProc));
    oldWndProc = nullptr;
    ::RemovePropW(hWndParent, kProperty);
    if (!hasResizingBorder)
      ChangeStyle(FALSE);
  }
  enabled = enable;
  if (gripEnabled)
    GetGripRect(gripRect, TRUE);
  return TRUE;
}

BOOL CResizeCtrl::SetGripEnabled(BOOL showGrip) {
  if (showGrip == gripEnabled)
    return FALSE;
  gripEnabled = showGrip;
  if (enabled)
    GetGripRect(gripRect, TRUE);
  return FALSE;
}

BOOL CResizeCtrl::GetWindowRect(RECT* rect) {
  if (!rect)
    return FALSE;
  *rect = windowRect;
  return TRUE;
}

BOOL CResizeCtrl::SetMinimumTrackingSize(const CSize& size) {
  minTrackingSize = size;
  return TRUE;
}

BOOL CResizeCtrl::SetMinimumTrackingSize() {
  RECT rect;
  if (!::GetWindowRect(hWndParent, &rect))
    return FALSE;
  return SetMinimumTrackingSize(CSize(rect.right - rect.left, rect.bottom - rect.top));
}

BOOL CResizeCtrl::SetMaximumTrackingSize(const CSize& size) {
  maxTrackingSize = size;
  return TRUE;
}

CResizeCtrl* CResizeCtrl::GetResizeCtrl(HWND hWnd) {
  if (!::IsWindow(hWnd))
    return nullptr;
  return reinterpret_cast<CResizeCtrl*>(::SendMessageW(hWnd, ResizeCtrlMessage(), 0, 0));
}

CResizeCtrl* CResizeCtrl::GetResizeCtrl(CWnd* wnd) { return wnd ? GetResizeCtrl(wnd->m_hWnd) : nullptr; }

//===-- Frame and grip -----------------------------------------------------===//

// Adds or removes the sizing frame; the window grows or shrinks around its
// client area, which stays where it is on the screen.
void CResizeCtrl::ChangeStyle(BOOL enable) {
  BOOL hasMenu = ::GetMenu(hWndParent) != nullptr;
  DWORD style = ::GetWindowLongW(hWndParent, GWL_STYLE);
  DWORD newStyle = enable ? style | WS_THICKFRAME : style & ~WS_THICKFRAME;
  RECT window, before, after;
  ::GetWindowRect(hWndParent, &window);
  ::GetClientRect(hWndParent, &before);
  after = before;
  ::AdjustWindowRect(&before, style, hasMenu);
  ::AdjustWindowRect(&after, newStyle, hasMenu);
  window.left += after.left - before.left;
  window.top += after.top - before.top;
  window.right += after.right - before.right;
  window.bottom += after.bottom - before.bottom;
  ::SetWindowLongW(hWndParent, GWL_STYLE, newStyle);
  ::SetWindowPos(hWndParent, nullptr, window.left, window.top, window.right - window.left,
                 window.bottom - window.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void CResizeCtrl::GetGripRect(RECT& rect, BOOL invalidate) {
  ::GetClientRect(hWndParent, &rect);
  rect.left = rect.right - ::GetSystemMetrics(SM_CXVSCROLL);
  rect.top = rect.bottom - ::GetSystemMetrics(SM_CYHSCROLL);
  if (invalidate)
    ::InvalidateRect(hWndParent, &rect, TRUE);
}

namespace {
// Which window edges a frame hit-test code drags, per axis: -1 left or
// top, 1 right or bottom, 0 none.
struct DragEdges {
  int code, x, y;
};
const DragEdges kDragEdges[] = {
    {HTLEFT, -1, 0},     {HTRIGHT, 1, 0},      {HTTOP, 0, -1},     {HTTOPLEFT, -1, -1},
    {HTTOPRIGHT, 1, -1}, {HTBOTTOM, 0, 1},     {HTBOTTOMLEFT, -1, 1}, {HTBOTTOMRIGHT, 1, 1},
};

const DragEdges* FindEdges(int code) {
  for (const DragEdges& edges : kDragEdges)
    if (edges.code == code)
      return &edges;
  return nullptr;
}

LONG& Edge(RECT& rect, int side, bool horizontal) {
  if (horizontal)
    return side < 0 ? rect.left : rect.right;
  return side < 0 ? rect.top : rect.bottom;
}
}  // namespace

void CResizeCtrl::StartDrag(WPARAM hitTest) {
  POINT cursor;
  RECT window;
  ::GetCursorPos(&cursor);
  ::GetWindowRect(hWndParent, &window);
  hitCode = static_cast<int>(hitTest);
  trackDelta[0] = trackDelta[1] = 0;
  const DragEdges* edges = FindEdges(hitCode);
  if (!edges) {
    hitCode = 0;
    return;
  }
  if (edges->x)
    trackDelta[0] = Edge(window, edges->x, true) - cursor.x;
  if (edges->y)
    trackDelta[1] = Edge(window, edges->y, false) - cursor.y;
  ::SetCapture(hWndParent);
}

void CResizeCtrl::DragStep() {
  inMouseMove = TRUE;
  POINT cursor;
  ::GetCursorPos(&cursor);
  RECT window, before;
  ::GetWindowRect(hWndParent, &window);
  before = window;
  const DragEdges* edges = FindEdges(hitCode);
  if (edges && edges->x)
    Edge(window, edges->x, true) = cursor.x + trackDelta[0];
  if (edges && edges->y)
    Edge(window, edges->y, false) = cursor.y + trackDelta[1];
  if (!::EqualRect(&window, &before))
    ::SetWindowPos(hWndParent, nullptr, window.left, window.top, window.right - window.left,
                   window.bottom - window.top, SWP_NOZORDER | SWP_NOACTIVATE);
  inMouseMove = FALSE;
}

//===-- The window procedure -----------------------------------------------===//

// Gives 1 with result set when the message was dealt with here.
BOOL CResizeCtrl::ProcessMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
  if (message == ResizeCtrlMessage()) {
    result = reinterpret_cast<LRESULT>(this);
    return TRUE;
  }
  switch (message) {
  case WM_NCHITTEST:
    if (gripEnabled) {
      POINT point = {static_cast<int>(LOWORD(lParam)), static_cast<int>(HIWORD(lParam))};
      ::ScreenToClient(hWndParent, &point);
      if (!::PtInRect(&gripRect, point))
        return FALSE;
      result = HTBOTTOMRIGHT;
      return TRUE;
    }
    break;
  case WM_PAINT:
    if (gripEnabled) {
      result = ::CallWindowProcW(oldWndProc, hWndParent, message, wParam, lParam);
      HDC dc = ::GetDC(hWndParent);
      ::DrawFrameControl(dc, &gripRect, DFC_SCROLL, DFCS_SCROLLSIZEGRIP);
      ::ReleaseDC(hWndParent, dc);
      return TRUE;
    }
    break;
  case WM_DESTROY:
    SetEnabled(FALSE);
    return FALSE;
  case WM_SIZE:
    result = ::CallWindowProcW(oldWndProc, hWndParent, message, wParam, lParam);
    Resize(LOWORD(lParam), HIWORD(lParam));
    if (gripEnabled) {
      ::InvalidateRect(hWndParent, &gripRect, TRUE);
      GetGripRect(gripRect, TRUE);
    }
    return TRUE;
  case WM_GETMINMAXINFO: {
    result = ::CallWindowProcW(oldWndProc, hWndParent, message, wParam, lParam);
    MINMAXINFO* info = reinterpret_cast<MINMAXINFO*>(lParam);
    if (minTrackingSize.cx == -1) minTrackingSize.cx = info->ptMinTrackSize.x;
    if (minTrackingSize.cy == -1) minTrackingSize.cy = info->ptMinTrackSize.y;
    if (maxTrackingSize.cx == -1) maxTrackingSize.cx = info->ptMaxTrackSize.x;
    if (maxTrackingSize.cy == -1) maxTrackingSize.cy = info->ptMaxTrackSize.y;
    info->ptMinTrackSize = {minTrackingSize.cx, minTrackingSize.cy};
    info->ptMaxTrackSize = {maxTrackingSize.cx, maxTrackingSize.cy};
    return TRUE;
  }
  default:
    break;
  }
  if (hasResizingBorder)
    return FALSE;
  if (message == WM_MOUSEMOVE && hitCode && !inMouseMove)
    DragStep();
  else if (message == WM_NCLBUTTONDOWN)
    StartDrag(wParam);
  else if (message == WM_LBUTTONUP && hitCode) {
    ::ReleaseCapture();
    hitCode = 0;
  }
  return FALSE;
}

// WM_DESTROY disables the object, which clears oldWndProc: it is noted first.
LRESULT CALLBACK CResizeCtrl::WndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam) {
  CResizeCtrl* self = static_cast<CResizeCtrl*>(::GetPropW(hWnd, kProperty));
  if (!self)
    return 0;
  WNDPROC old = self->oldWndProc;
  LRESULT result = 0;
  if (self->ProcessMessage(message, wParam, lParam, result))
    return result;
  return ::CallWindowProcW(old, hWnd, message, wParam, lParam);
}
