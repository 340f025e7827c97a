// DialogDriver.h - acts on dialogs as a user would, with real messages.
//
// A modeless dialog (Find) is found with WaitForDialog, which pumps the test
// thread's messages while it looks.  A modal dialog (a message box, a common
// dialog, a property sheet) holds the test thread in its own loop, so a
// DialogDriver acts on it from a second thread: it waits for the dialog to
// show, runs the action, whose messages the modal loop delivers, and is
// joined when it goes out of scope.  A dialog is a visible top-level window
// of class "#32770" owned by the given window (any owner when null).
#ifndef VN_TESTS_DIALOGDRIVER_H
#define VN_TESTS_DIALOGDRIVER_H

#include <windows.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>

namespace vn {
namespace test {

// How long a driver waits for a dialog to show.  A busy machine can take
// seconds to make the first sheet of a process; a wait ends as soon as the
// dialog shows, and a driver that gives up leaves a modal loop nobody ends.
const DWORD kDialogWaitMs = 30000;

struct DialogQuery {
  HWND owner;
  const wchar_t* title;  // part of the caption, or null for any
  HWND found;
};

inline BOOL CALLBACK MatchDialog(HWND hWnd, LPARAM lParam) {
  auto* q = reinterpret_cast<DialogQuery*>(lParam);
  wchar_t cls[16] = {};
  ::GetClassNameW(hWnd, cls, 16);
  if (std::wstring(cls) != L"#32770" || !::IsWindowVisible(hWnd))
    return TRUE;
  if (q->owner && ::GetWindow(hWnd, GW_OWNER) != q->owner)
    return TRUE;
  wchar_t caption[256] = {};
  ::GetWindowTextW(hWnd, caption, 256);
  if (q->title && !std::wcsstr(caption, q->title))
    return TRUE;
  q->found = hWnd;
  return FALSE;
}

inline HWND FindDialog(HWND owner, const wchar_t* title = nullptr) {
  DialogQuery q = {owner, title, nullptr};
  ::EnumWindows(&MatchDialog, reinterpret_cast<LPARAM>(&q));
  return q.found;
}

// Pumps this thread's messages until the dialog shows; null after timeout.
inline HWND WaitForDialog(HWND owner, const wchar_t* title = nullptr, DWORD timeoutMs = kDialogWaitMs) {
  DWORD start = ::GetTickCount();
  for (;;) {
    if (HWND found = FindDialog(owner, title))
      return found;
    if (::GetTickCount() - start > timeoutMs)
      return nullptr;
    MSG msg;
    while (::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
      ::TranslateMessage(&msg);
      ::DispatchMessageW(&msg);
    }
    ::Sleep(5);
  }
}

// Pumps this thread's messages until the window is gone; false on timeout.
inline bool WaitUntilGone(HWND hWnd, DWORD timeoutMs = kDialogWaitMs) {
  DWORD start = ::GetTickCount();
  while (::IsWindow(hWnd) && ::IsWindowVisible(hWnd)) {
    if (::GetTickCount() - start > timeoutMs)
      return false;
    MSG msg;
    while (::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
      ::TranslateMessage(&msg);
      ::DispatchMessageW(&msg);
    }
    ::Sleep(5);
  }
  return true;
}

// For an action that meets several dialogs in turn, on the driver's
// thread: waits, without pumping, for a dialog other than previous (which
// may be gone already); null after timeout.
inline HWND WaitForNextDialog(HWND owner, const wchar_t* title, HWND previous, DWORD timeoutMs = kDialogWaitMs) {
  DWORD start = ::GetTickCount();
  for (;;) {
    HWND found = FindDialog(owner, title);
    if (found && found != previous)
      return found;
    if (::GetTickCount() - start > timeoutMs)
      return nullptr;
    ::Sleep(5);
  }
}

inline void SetItemText(HWND dialog, int id, const wchar_t* text) {
  ::SendMessageW(::GetDlgItem(dialog, id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
}

inline std::wstring GetItemText(HWND dialog, int id) {
  wchar_t text[1024] = {};
  ::SendMessageW(::GetDlgItem(dialog, id), WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text));
  return text;
}

inline void SetItemCheck(HWND dialog, int id, bool checked) {
  ::SendMessageW(::GetDlgItem(dialog, id), BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

// Clicks the button as the mouse would: the button tells its dialog.
inline void PressButton(HWND dialog, int id) { ::SendMessageW(::GetDlgItem(dialog, id), BM_CLICK, 0, 0); }

class DialogDriver {
public:
  DialogDriver(HWND owner, std::function<void(HWND)> action, const wchar_t* title = nullptr,
               DWORD timeoutMs = kDialogWaitMs)
      : m_thread([this, owner, action, title, timeoutMs] {
          DWORD start = ::GetTickCount();
          HWND dialog = nullptr;
          while (!(dialog = FindDialog(owner, title)) && ::GetTickCount() - start < timeoutMs)
            ::Sleep(5);
          if (!dialog)
            return;
          action(dialog);
          m_bActed = true;
        }) {}
  ~DialogDriver() {
    if (m_thread.joinable())
      m_thread.join();
  }
  DialogDriver(const DialogDriver&) = delete;
  DialogDriver& operator=(const DialogDriver&) = delete;

  // Whether the dialog showed and the action ran.  Read after the modal
  // call returned: it waits for the action to finish, since the dialog may
  // close before the action's last step does.
  bool Acted() {
    if (m_thread.joinable())
      m_thread.join();
    return m_bActed;
  }

private:
  std::atomic<bool> m_bActed{false};
  std::thread m_thread;
};

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_DIALOGDRIVER_H
