// HostProcess.h - a host program started as a user starts it, and the
// window it shows: its visible top-level window that no other window owns
// and that is no dialog box (a question asked before the frame shows is not
// the frame).  A program still running when the object goes is ended.
#ifndef VN_TESTS_HOSTPROCESS_H
#define VN_TESTS_HOSTPROCESS_H

#include "afx/win32/AfxRes.h"

#include <windows.h>

#include <commctrl.h>
#include <richedit.h>

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

inline const wchar_t* Chars(const wchar_t* s) { return s; }
inline const wchar_t* Chars(const std::wstring& s) { return s.c_str(); }

// Paths as the words of a command line, each in quotes.
template <class... Paths>
std::wstring Quoted(const Paths&... paths) {
  std::wstring line;
  for (const wchar_t* path : {Chars(paths)...})
    line += (line.empty() ? L"\"" : L" \"") + std::wstring(path) + L"\"";
  return line;
}

// A message whose lParam points to a T, sent to a window of another
// process: the T travels through memory of that process.
template <class T>
bool SendRemote(HWND window, UINT message, WPARAM wParam, T& data) {
  DWORD pid = 0;
  ::GetWindowThreadProcessId(window, &pid);
  HANDLE process = ::OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, pid);
  if (!process)
    return false;
  void* remote = ::VirtualAllocEx(process, nullptr, sizeof(T), MEM_COMMIT, PAGE_READWRITE);
  bool done = remote && ::WriteProcessMemory(process, remote, &data, sizeof(T), nullptr);
  if (done) {
    ::SendMessageW(window, message, wParam, reinterpret_cast<LPARAM>(remote));
    done = ::ReadProcessMemory(process, remote, &data, sizeof(T), nullptr) != 0;
  }
  if (remote)
    ::VirtualFreeEx(process, remote, 0, MEM_RELEASE);
  ::CloseHandle(process);
  return done;
}

// The background of the character at `column` of a row of a rich edit
// control of any process; CLR_DEFAULT when it has none of its own.
inline COLORREF CharBackground(HWND pane, long row, long column) {
  LRESULT start = ::SendMessageW(pane, EM_LINEINDEX, row, 0) + column;
  ::SendMessageW(pane, EM_SETSEL, start, start + 1);
  CHARFORMAT2W format = {};
  format.cbSize = sizeof(format);
  if (!SendRemote(pane, EM_GETCHARFORMAT, SCF_SELECTION, format))
    return 0xFFFFFFFF;
  return (format.dwEffects & CFE_AUTOBACKCOLOR) || !(format.dwMask & CFM_BACKCOLOR) ? CLR_DEFAULT : format.crBackColor;
}

// A part of a status bar of any process.
inline std::wstring StatusText(HWND bar, int part) {
  struct {
    wchar_t text[512];
  } buffer = {};
  return SendRemote(bar, SB_GETTEXTW, part, buffer) ? std::wstring(buffer.text) : L"?";
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

  // Closes the window as its close box does; the exit status.
  DWORD Close() {
    ::PostMessageW(frame, WM_CLOSE, 0, 0);
    return Wait();
  }

  // The text pane of a column of a two-file tool: splitter, pane, then its
  // child of the same identifier.
  HWND ColumnPane(int column) const {
    HWND pane = ::GetDlgItem(::GetDlgItem(frame, AFX_IDW_PANE_FIRST), AFX_IDW_PANE_FIRST + column);
    return ::GetDlgItem(pane, AFX_IDW_PANE_FIRST + column);
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
