// MouseSupport.h - a drag with the left button, as the mouse sends it.
//
// A control that starts a drag watches the moves that follow the button's
// press inside its own loop (a tree view) or in its move handler (a list
// view).  BeginDrag posts the first move, beyond the drag threshold, before
// it sends the press, so either kind finds it; later moves and the release
// are sent straight to the control, which holds the capture by then.
#ifndef VN_TESTS_TOOLKIT_WIN32_MOUSESUPPORT_H
#define VN_TESTS_TOOLKIT_WIN32_MOUSESUPPORT_H

#include <windows.h>

namespace vn {
namespace test {

// Handles this thread's messages (timers included) for ms milliseconds.
inline void PumpFor(DWORD ms) {
  DWORD start = ::GetTickCount();
  do {
    MSG msg;
    while (::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
      ::TranslateMessage(&msg);
      ::DispatchMessageW(&msg);
    }
    ::Sleep(10);
  } while (::GetTickCount() - start < ms);
}

inline LPARAM Point(POINT p) { return MAKELPARAM(p.x, p.y); }

// Press at from, first move at from moved by 20 pixels down and right.
inline void BeginDrag(HWND control, POINT from) {
  POINT away = {from.x + 20, from.y + 20};
  ::PostMessageW(control, WM_MOUSEMOVE, MK_LBUTTON, Point(away));
  ::SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, Point(from));
  PumpFor(50);
}

inline void DragTo(HWND control, POINT to) { ::SendMessageW(control, WM_MOUSEMOVE, MK_LBUTTON, Point(to)); }

inline void Release(HWND control, POINT at) { ::SendMessageW(control, WM_LBUTTONUP, 0, Point(at)); }

// The cursor where no test window lies.
inline void ParkCursor() { ::SetCursorPos(1270, 1010); }

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_TOOLKIT_WIN32_MOUSESUPPORT_H
