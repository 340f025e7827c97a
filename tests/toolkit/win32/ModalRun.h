// ModalRun.h - what the toolkit's window tests read of their dialogs, and a
// modal call run while a driver thread acts on its dialog as a user would.
#ifndef VN_TESTS_TOOLKIT_WIN32_MODALRUN_H
#define VN_TESTS_TOOLKIT_WIN32_MODALRUN_H

#include "DialogDriver.h"

#include <windows.h>

#include <functional>
#include <string>

namespace vn {
namespace test {

// Runs call, which shows the dialog of that title modal, while act drives
// the dialog; act has finished when the call's result comes back.
template <class Call>
auto RunModal(HWND owner, const wchar_t* title, const std::function<void(HWND)>& act, Call call) -> decltype(call()) {
  DialogDriver driver(owner, act, title);
  return call();
}

// The control that has the focus in the window's thread.
inline HWND FocusOf(HWND window) {
  GUITHREADINFO info = {sizeof(info), 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, {}};
  ::GetGUIThreadInfo(::GetWindowThreadProcessId(window, nullptr), &info);
  return info.hwndFocus;
}

inline std::wstring WindowText(HWND window) {
  wchar_t text[256] = {};
  ::GetWindowTextW(window, text, 256);
  return text;
}

// The child's rectangle in the parent's client coordinates.
inline RECT RectIn(HWND parent, HWND child) {
  RECT rect = {};
  if (child) {
    ::GetWindowRect(child, &rect);
    ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
  }
  return rect;
}

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_TOOLKIT_WIN32_MODALRUN_H
