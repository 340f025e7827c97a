// HostProcess.h - a host program started as a user starts it, and the
// window it shows: its visible top-level window that no other window owns
// and that is no dialog box (a question asked before the frame shows is not
// the frame).  A program still running when the object goes is ended.
#ifndef VN_TESTS_HOSTPROCESS_H
#define VN_TESTS_HOSTPROCESS_H

#include <windows.h>

#include <cwchar>

#include <string>
#include <vector>

namespace vn {
namespace test {

// The text of a window of any process, as WM_GETTEXT gives it.
inline std::wstring WindowText(HWND window) {
  int length = static_cast<int>(::SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
  std::wstring text(length + 1, L'\0');
  ::SendMessageW(window, WM_GETTEXT, length + 1, reinterpret_cast<LPARAM>(&text[0]));
  text.resize(wcslen(text.c_str()));
  return text;
}

// The rows of an edit control of any process, split at CR LF, CR or LF.
inline std::vector<std::wstring> ControlRows(HWND edit) {
  const std::wstring text = WindowText(edit);
  std::vector<std::wstring> rows(1);
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'\r' || text[i] == L'\n') {
      if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n')
        ++i;
      rows.emplace_back();
    } else {
      rows.back() += text[i];
    }
  }
  return rows;
}

class HostProcess {
public:
  // Starts path with arguments and waits up to 30 s for its window; frame
  // stays null for a program that ends first.
  HostProcess(const std::wstring& path, const std::wstring& arguments) {
    std::wstring line = L"\"" + path + L"\" " + arguments;
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    if (!::CreateProcessW(nullptr, &line[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
      return;
    for (int tries = 0; tries < 600 && !frame; ++tries) {
      if (::WaitForSingleObject(process.hProcess, 50) == WAIT_OBJECT_0)
        break;
      ::EnumWindows(&Match, reinterpret_cast<LPARAM>(this));
    }
    if (frame)
      ::WaitForInputIdle(process.hProcess, 20000);
  }
  ~HostProcess() {
    if (process.hProcess && ::WaitForSingleObject(process.hProcess, 0) == WAIT_TIMEOUT)
      ::TerminateProcess(process.hProcess, 99);
    ::CloseHandle(process.hProcess);
    ::CloseHandle(process.hThread);
  }
  HostProcess(const HostProcess&) = delete;
  HostProcess& operator=(const HostProcess&) = delete;

  // The exit status; 99 for a program that did not end within 30 s.
  DWORD Wait() {
    DWORD code = 99;
    if (::WaitForSingleObject(process.hProcess, 30000) == WAIT_OBJECT_0)
      ::GetExitCodeProcess(process.hProcess, &code);
    return code;
  }

  // A program beside the running test program.
  static std::wstring Beside(const wchar_t* name) {
    wchar_t module[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, module, MAX_PATH);
    std::wstring path = module;
    return path.substr(0, path.find_last_of(L"\\/") + 1) + name;
  }

  PROCESS_INFORMATION process = {};
  HWND frame = nullptr;

private:
  static BOOL CALLBACK Match(HWND hWnd, LPARAM lParam) {
    auto* self = reinterpret_cast<HostProcess*>(lParam);
    DWORD pid = 0;
    ::GetWindowThreadProcessId(hWnd, &pid);
    wchar_t cls[16] = {};
    ::GetClassNameW(hWnd, cls, 16);
    if (pid != self->process.dwProcessId || !::IsWindowVisible(hWnd) || ::GetWindow(hWnd, GW_OWNER) ||
        std::wstring(cls) == L"#32770")
      return TRUE;
    self->frame = hWnd;
    return FALSE;
  }
};

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_HOSTPROCESS_H
