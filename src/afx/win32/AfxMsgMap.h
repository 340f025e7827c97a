// AfxMsgMap.h - the entries of a message map.
//
// Each entry macro records which message (and, for commands and
// notifications, which code and control id) it answers, with a captureless
// function that unpacks wParam and lParam and calls the handler on the
// object.  ThisClass is the class whose map is being built; the handler is
// looked up in it as in any member function, so it may be inherited, and a
// virtual handler dispatches as usual.  Use inside BEGIN_MESSAGE_MAP.
#ifndef VN_AFX_WIN32_AFXMSGMAP_H
#define VN_AFX_WIN32_AFXMSGMAP_H

#include "afx/win32/CCmdTarget.h"
#include "afx/win32/CCmdUI.h"
#include "afx/win32/CDC.h"
#include "afx/win32/CMenu.h"
#include "afx/win32/CWnd.h"

#include <windowsx.h>

#define VN_MSG_ENTRY(msg, code, id, lastId, registered, ...)                   \
  {msg, static_cast<UINT>(code), static_cast<UINT>(id),                        \
   static_cast<UINT>(lastId), registered,                                      \
   [](CCmdTarget* vnTarget, WPARAM wParam, LPARAM lParam) -> LRESULT {         \
     ThisClass* self = static_cast<ThisClass*>(vnTarget);                      \
     (void)self;                                                               \
     __VA_ARGS__                                                               \
   }},

#define VN_WM_ENTRY(msg, ...) VN_MSG_ENTRY(msg, 0, 0, 0, nullptr, __VA_ARGS__)
#define VN_WND(h) CWnd::FromHandlePermanent(reinterpret_cast<HWND>(h))
#define VN_POINT(lp) CPoint(GET_X_LPARAM(lp), GET_Y_LPARAM(lp))

//===-- Any message --------------------------------------------------------===//

// LRESULT fn(WPARAM, LPARAM)
#define ON_MESSAGE(message, fn) VN_WM_ENTRY(message, return self->fn(wParam, lParam);)
// The number lives in a UINT variable set by RegisterWindowMessageW.
#define ON_REGISTERED_MESSAGE(variable, fn)                                    \
  VN_MSG_ENTRY(0, 0, 0, 0, &(variable), return self->fn(wParam, lParam);)

//===-- Commands and control notifications ---------------------------------===//

// void fn()
#define ON_COMMAND(id, fn) VN_MSG_ENTRY(WM_COMMAND, CN_COMMAND, id, id, nullptr, self->fn(); return TRUE;)
// void fn(UINT id)
#define ON_COMMAND_RANGE(first, last, fn)                                      \
  VN_MSG_ENTRY(WM_COMMAND, CN_COMMAND, first, last, nullptr, self->fn(static_cast<UINT>(wParam)); return TRUE;)
// void fn(CCmdUI*)
#define ON_UPDATE_COMMAND_UI(id, fn)                                           \
  VN_MSG_ENTRY(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, id, nullptr,             \
               self->fn(reinterpret_cast<CCmdUI*>(lParam)); return TRUE;)
#define ON_UPDATE_COMMAND_UI_RANGE(first, last, fn)                            \
  VN_MSG_ENTRY(WM_COMMAND, CN_UPDATE_COMMAND_UI, first, last, nullptr,        \
               self->fn(reinterpret_cast<CCmdUI*>(lParam)); return TRUE;)
// void fn(): a control's notification code through WM_COMMAND
#define ON_CONTROL(code, id, fn) VN_MSG_ENTRY(WM_COMMAND, code, id, id, nullptr, self->fn(); return TRUE;)
#define ON_BN_CLICKED(id, fn) ON_CONTROL(BN_CLICKED, id, fn)
#define ON_EN_CHANGE(id, fn) ON_CONTROL(EN_CHANGE, id, fn)
#define ON_EN_KILLFOCUS(id, fn) ON_CONTROL(EN_KILLFOCUS, id, fn)
#define ON_CBN_SELCHANGE(id, fn) ON_CONTROL(CBN_SELCHANGE, id, fn)
#define ON_LBN_SELCHANGE(id, fn) ON_CONTROL(LBN_SELCHANGE, id, fn)
// void fn(NMHDR*, LRESULT*): a control's notification through WM_NOTIFY
#define ON_NOTIFY(code, id, fn)                                                \
  VN_MSG_ENTRY(WM_NOTIFY, code, id, id, nullptr,                               \
               self->fn(reinterpret_cast<NMHDR*>(lParam), reinterpret_cast<LRESULT*>(wParam)); return TRUE;)
#define ON_NOTIFY_RANGE(code, first, last, fn)                                 \
  VN_MSG_ENTRY(WM_NOTIFY, code, first, last, nullptr,                          \
               self->fn(reinterpret_cast<NMHDR*>(lParam), reinterpret_cast<LRESULT*>(wParam)); return TRUE;)

//===-- Notifications handled by the control that sent them ---------------===//

// void fn(NMHDR*, LRESULT*)
#define ON_NOTIFY_REFLECT(code, fn)                                            \
  VN_MSG_ENTRY(WM_REFLECT_BASE + WM_NOTIFY, code, 0, 0xFFFF, nullptr,          \
               self->fn(reinterpret_cast<NMHDR*>(lParam), reinterpret_cast<LRESULT*>(wParam)); return TRUE;)
// void fn()
#define ON_CONTROL_REFLECT(code, fn)                                           \
  VN_MSG_ENTRY(WM_REFLECT_BASE + WM_COMMAND, code, 0, 0xFFFF, nullptr, self->fn(); return TRUE;)

//===-- Window messages with unpacked parameters ---------------------------===//

#define ON_WM_CREATE() VN_WM_ENTRY(WM_CREATE, return self->OnCreate(reinterpret_cast<LPCREATESTRUCTW>(lParam));)
#define ON_WM_DESTROY() VN_WM_ENTRY(WM_DESTROY, self->OnDestroy(); return 0;)
#define ON_WM_CLOSE() VN_WM_ENTRY(WM_CLOSE, self->OnClose(); return 0;)
#define ON_WM_SIZE()                                                           \
  VN_WM_ENTRY(WM_SIZE, self->OnSize(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam)); return 0;)
#define ON_WM_SIZING()                                                         \
  VN_WM_ENTRY(WM_SIZING, self->OnSizing(static_cast<UINT>(wParam), reinterpret_cast<LPRECT>(lParam)); return TRUE;)
#define ON_WM_GETMINMAXINFO()                                                  \
  VN_WM_ENTRY(WM_GETMINMAXINFO, self->OnGetMinMaxInfo(reinterpret_cast<MINMAXINFO*>(lParam)); return 0;)
#define ON_WM_SHOWWINDOW()                                                     \
  VN_WM_ENTRY(WM_SHOWWINDOW, self->OnShowWindow(static_cast<BOOL>(wParam), static_cast<UINT>(lParam)); return 0;)
#define ON_WM_ACTIVATE()                                                       \
  VN_WM_ENTRY(WM_ACTIVATE,                                                     \
              self->OnActivate(LOWORD(wParam), VN_WND(lParam), HIWORD(wParam) != 0); return 0;)
#define ON_WM_SETFOCUS() VN_WM_ENTRY(WM_SETFOCUS, self->OnSetFocus(VN_WND(wParam)); return 0;)
#define ON_WM_KILLFOCUS() VN_WM_ENTRY(WM_KILLFOCUS, self->OnKillFocus(VN_WND(wParam)); return 0;)
#define ON_WM_PAINT() VN_WM_ENTRY(WM_PAINT, self->OnPaint(); return 0;)
#define ON_WM_ERASEBKGND()                                                     \
  VN_WM_ENTRY(WM_ERASEBKGND, CDC dc; dc.m_hDC = reinterpret_cast<HDC>(wParam); return self->OnEraseBkgnd(&dc);)
#define ON_WM_SYSCOLORCHANGE() VN_WM_ENTRY(WM_SYSCOLORCHANGE, self->OnSysColorChange(); return 0;)
#define ON_WM_TIMER() VN_WM_ENTRY(WM_TIMER, self->OnTimer(static_cast<UINT_PTR>(wParam)); return 0;)
#define ON_WM_HSCROLL() VN_WM_ENTRY(WM_HSCROLL, return self->DispatchScroll(WM_HSCROLL, wParam, lParam);)
#define ON_WM_VSCROLL() VN_WM_ENTRY(WM_VSCROLL, return self->DispatchScroll(WM_VSCROLL, wParam, lParam);)
#define ON_WM_MOUSEWHEEL()                                                     \
  VN_WM_ENTRY(WM_MOUSEWHEEL,                                                   \
              return self->OnMouseWheel(GET_KEYSTATE_WPARAM(wParam), GET_WHEEL_DELTA_WPARAM(wParam), VN_POINT(lParam));)
#define VN_MOUSE_ENTRY(msg, fn) VN_WM_ENTRY(msg, self->fn(static_cast<UINT>(wParam), VN_POINT(lParam)); return 0;)
#define ON_WM_LBUTTONDOWN() VN_MOUSE_ENTRY(WM_LBUTTONDOWN, OnLButtonDown)
#define ON_WM_LBUTTONUP() VN_MOUSE_ENTRY(WM_LBUTTONUP, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() VN_MOUSE_ENTRY(WM_LBUTTONDBLCLK, OnLButtonDblClk)
#define ON_WM_MOUSEMOVE() VN_MOUSE_ENTRY(WM_MOUSEMOVE, OnMouseMove)
#define ON_WM_SETCURSOR()                                                      \
  VN_WM_ENTRY(WM_SETCURSOR, return self->OnSetCursor(VN_WND(wParam), LOWORD(lParam), HIWORD(lParam));)
#define ON_WM_CAPTURECHANGED()                                                 \
  VN_WM_ENTRY(WM_CAPTURECHANGED, self->OnCaptureChanged(VN_WND(lParam)); return 0;)
#define ON_WM_CANCELMODE() VN_WM_ENTRY(WM_CANCELMODE, self->OnCancelMode(); return 0;)
#define ON_WM_NCHITTEST() VN_WM_ENTRY(WM_NCHITTEST, return self->OnNcHitTest(VN_POINT(lParam));)
#define ON_WM_KEYDOWN()                                                        \
  VN_WM_ENTRY(WM_KEYDOWN,                                                      \
              self->OnKeyDown(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam)); return 0;)
#define ON_WM_CHAR()                                                           \
  VN_WM_ENTRY(WM_CHAR, self->OnChar(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam)); return 0;)
#define ON_WM_CONTEXTMENU() VN_WM_ENTRY(WM_CONTEXTMENU, self->OnContextMenu(VN_WND(wParam), VN_POINT(lParam)); return 0;)
#define ON_WM_HELPINFO() VN_WM_ENTRY(WM_HELP, return self->OnHelpInfo(reinterpret_cast<HELPINFO*>(lParam));)
// The menu is lent to the handler for the call only.
#define ON_WM_INITMENUPOPUP()                                                  \
  VN_WM_ENTRY(WM_INITMENUPOPUP, CMenu menu; menu.Attach(reinterpret_cast<HMENU>(wParam));                  \
              self->OnInitMenuPopup(&menu, LOWORD(lParam), HIWORD(lParam) != 0); menu.Detach(); return 0;)

#endif  // VN_AFX_WIN32_AFXMSGMAP_H
