// VnSettingsHelper.cpp - a second process for the settings and process tests.
//
// The tests start it to show what only another process can: that RunApp
// starts a real program, waits for it and gets its exit code.  Every answer
// is the exit code, so no pipes are needed.
//
//   exit N                         ends with N
//   sleep MS N                     sleeps MS milliseconds, ends with N
//   window MS N                    runs a window's message loop for MS ms
//   paint HWND MS N                invalidates the caller's window HWND,
//                                  sleeps MS ms, ends with N
#include <windows.h>

#include <cwchar>
#include <cwctype>
#include <string>

static unsigned long Number(const wchar_t* text) { return wcstoul(text, nullptr, 0); }

static int Usage() { return 250; }

static int RunWindow(DWORD ms, int code) {
  HWND wnd = CreateWindowExW(0, L"STATIC", L"vn helper", WS_OVERLAPPED, 0, 0, 50, 50, nullptr, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
  if (!wnd)
    return 251;
  SetTimer(wnd, 1, ms, nullptr);
  MSG msg;
  while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
    if (msg.message == WM_TIMER)
      break;
    DispatchMessageW(&msg);
  }
  DestroyWindow(wnd);
  return code;
}

int wmain(int argc, wchar_t** argv) {
  if (argc < 2)
    return Usage();
  const std::wstring verb = argv[1];
  if (verb == L"exit" && argc == 3)
    return static_cast<int>(Number(argv[2]));
  if (verb == L"sleep" && argc == 4) {
    Sleep(Number(argv[2]));
    return static_cast<int>(Number(argv[3]));
  }
  if (verb == L"window" && argc == 4)
    return RunWindow(Number(argv[2]), static_cast<int>(Number(argv[3])));
  if (verb == L"paint" && argc == 5) {
    HWND target = reinterpret_cast<HWND>(static_cast<INT_PTR>(wcstoll(argv[2], nullptr, 0)));
    InvalidateRect(target, nullptr, TRUE);
    Sleep(Number(argv[3]));
    return static_cast<int>(Number(argv[4]));
  }
  return Usage();
}
