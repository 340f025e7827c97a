// VnProcessWin32.cpp - process start, shell execute, system identity and
// help by module over Win32.
//
// RunApp has two ways of waiting.  A windowed program is waited for with
// MsgWaitForMultipleObjects, handling this thread's messages through the
// application's PumpMessage between waits, because the caller's windows must
// keep painting while an editor or viewer runs.  Any other program is waited
// for with WaitForSingleObject, which blocks the thread outright.  The wait
// cursor shows for the whole call.
#include "foundation/VnProcess.h"

#include "afx/win32/CWinApp.h"
#include "afx/win32/CWnd.h"
#include "foundation/VnException.h"

#include <shellapi.h>

#include <cassert>
#include <vector>

namespace {

const DWORD kIdleLimitMs = 1800000;  // 30 minutes
const DWORD kWakeMask = 0x20;        // QS_PAINT
const UINT kShellDdeFail = 29;       // SE_ERR_DDEFAIL

// The wait cursor for the length of one call; without an application object
// there is nobody to show it.
class WaitCursor {
public:
  WaitCursor() : m_app(AfxGetApp()) {
    if (m_app)
      m_app->BeginWaitCursor();
  }
  ~WaitCursor() {
    if (m_app)
      m_app->EndWaitCursor();
  }
  void Restore() {
    if (m_app)
      m_app->RestoreWaitCursor();
  }

private:
  CWinApp* m_app;
};

// The two handles of a started process, closed when the call ends.
struct ProcessHandles {
  PROCESS_INFORMATION info = {};
  ~ProcessHandles() {
    if (info.hThread)
      CloseHandle(info.hThread);
    if (info.hProcess)
      CloseHandle(info.hProcess);
  }
};

}  // namespace

//===-- RunApp -------------------------------------------------------------===//

// One round of message handling: everything waiting is dispatched.  When the
// application says it is ending, the quit is posted again for the outer loop
// and this round stops.
static void HandleWaitingMessages() {
  CWinApp* app = AfxGetApp();
  MSG msg;
  while (PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE)) {
    BOOL goOn;
    if (app) {
      goOn = app->PumpMessage();
    } else {
      goOn = GetMessageW(&msg, nullptr, 0, 0) > 0;
      if (goOn) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
      }
    }
    if (!goOn) {
      PostQuitMessage(0);
      break;
    }
  }
}

// Waits for the process while keeping this thread's windows alive.  A failed
// wait (which a valid process handle never gives) falls back to a plain wait
// rather than spinning.
static void WaitPumping(HANDLE process) {
  for (;;) {
    HandleWaitingMessages();
    const DWORD result = MsgWaitForMultipleObjects(1, &process, FALSE, INFINITE, kWakeMask);
    if (result == WAIT_OBJECT_0)
      return;
    if (result == WAIT_FAILED) {
      WaitForSingleObject(process, INFINITE);
      return;
    }
  }
}

long RunApp(const CString& cmdLine, int showWindow, int wait, int windowed, int waitUntilIdle) {
  WaitCursor cursor;

  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = static_cast<WORD>(showWindow ? SW_SHOWNORMAL : SW_HIDE);
  // CreateProcessW may write into the command line, so it gets a copy.
  std::vector<WCHAR> line(cmdLine.GetString(), cmdLine.GetString() + cmdLine.GetLength() + 1);
  ProcessHandles process;
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_DEFAULT_ERROR_MODE, nullptr,
                      nullptr, &startup, &process.info))
    AfxThrowOSException(GetLastError());

  DWORD exitCode = 0;
  if (windowed) {
    if (waitUntilIdle && WaitForInputIdle(process.info.hProcess, kIdleLimitMs) != 0)
      AfxThrowOSException(GetLastError());
    cursor.Restore();
    if (wait) {
      WaitPumping(process.info.hProcess);
      GetExitCodeProcess(process.info.hProcess, &exitCode);
    }
  } else {
    if (wait)
      WaitForSingleObject(process.info.hProcess, INFINITE);
    GetExitCodeProcess(process.info.hProcess, &exitCode);
  }
  return static_cast<long>(exitCode);
}

//===-- Shell execute ------------------------------------------------------===//

static DWORD ShellResult(const SHELLEXECUTEINFOW& info) {
  return static_cast<DWORD>(reinterpret_cast<INT_PTR>(info.hInstApp));
}

void OpenFileAssociation(LPCWSTR file) {
  SHELLEXECUTEINFOW info = {};
  info.cbSize = sizeof info;
  info.lpFile = file;
  info.nShow = SW_RESTORE;
  if (!ShellExecuteExW(&info))
    AfxThrowShellException(ShellResult(info));
}

void PrintFileAssociation(const CString& file, const CString& fileClass) {
  SHELLEXECUTEINFOW info = {};
  info.cbSize = sizeof info;
  info.lpVerb = _T("print");
  info.lpFile = file;
  info.nShow = SW_SHOWNA;
  if (!fileClass.IsEmpty()) {
    info.fMask = SEE_MASK_CLASSNAME;
    info.lpClass = fileClass;
  }
  if (!ShellExecuteExW(&info) && ShellResult(info) != kShellDdeFail)
    AfxThrowShellException(ShellResult(info));
}

//===-- System identity ----------------------------------------------------===//

// The version record: the extended one first, then the plain one.  False
// when the system answers neither.
static bool GetVersionRecord(OSVERSIONINFOEXW& version) {
  version = {};
  version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOEXW);
  if (GetVersionExW(reinterpret_cast<OSVERSIONINFOW*>(&version)))
    return true;
  version = {};
  version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOW);
  return GetVersionExW(reinterpret_cast<OSVERSIONINFOW*>(&version)) != FALSE;
}

int IsWinNT() {
  OSVERSIONINFOEXW v;
  return GetVersionRecord(v) && v.dwPlatformId == VER_PLATFORM_WIN32_NT;
}

int IsWin95() {
  OSVERSIONINFOEXW v;
  return GetVersionRecord(v) && v.dwPlatformId == VER_PLATFORM_WIN32_WINDOWS;
}

int IsWin2K() {
  OSVERSIONINFOEXW v;
  return GetVersionRecord(v) && VnIsWin2KVersion(v.dwPlatformId, v.dwMajorVersion);
}

const CString ResolveOSDescription() {
  OSVERSIONINFOEXW v;
  if (!GetVersionRecord(v))
    return CString(_T("Windows"));
  return VnDescribeOS(v.dwPlatformId, v.dwMajorVersion, v.dwMinorVersion);
}

CString GetThisComputerName() {
  WCHAR name[16] = {0};  // MAX_COMPUTERNAME_LENGTH + 1
  DWORD size = 16;
  if (!GetComputerNameW(name, &size))
    return CString();
  name[15] = 0;
  return CString(name);
}

CString GetThisUserName() {
  WCHAR name[255] = {0};
  DWORD size = 255;
  if (!GetUserNameW(name, &size))
    return CString();
  name[254] = 0;
  return CString(name);
}

//===-- Help ---------------------------------------------------------------===//

// Points the application's help path elsewhere for one call and puts it back
// even if WinHelp throws.
namespace {
class HelpPathSwap {
public:
  HelpPathSwap(CWinApp* app, LPCWSTR path) : m_app(app), m_saved(app->m_pszHelpFilePath) {
    m_app->m_pszHelpFilePath = path;
  }
  ~HelpPathSwap() { m_app->m_pszHelpFilePath = m_saved; }

private:
  CWinApp* m_app;
  LPCWSTR m_saved;
};
}  // namespace

void LocalContextHelp(HINSTANCE module, unsigned long helpId, UINT command) {
  if (helpId == 0)
    return;
  WCHAR name[MAX_PATH] = {0};
  const DWORD length = GetModuleFileNameW(module, name, MAX_PATH);
  if (length == 0 || length >= MAX_PATH)
    return;
  CWinApp* app = AfxGetApp();
  if (!app)
    return;
  const CString helpFile = VnHelpFileFor(CString(name, static_cast<int>(length)));
  HelpPathSwap swap(app, helpFile);
  app->WinHelp(helpId, command);
}

void LocalContextHelp(CWnd* wnd, HINSTANCE module, CPoint& point, UINT command) {
  HWND hit = WindowFromPoint(point);
  if (!hit)
    return;
  DWORD helpId = GetWindowContextHelpId(hit);
  if (helpId == 0 && wnd && wnd->GetSafeHwnd()) {
    ScreenToClient(wnd->GetSafeHwnd(), &point);
    HWND child = ChildWindowFromPointEx(wnd->GetSafeHwnd(), point, CWP_ALL);
    if (child)
      helpId = GetWindowContextHelpId(child);
  }
  LocalContextHelp(module, helpId, command);
}
