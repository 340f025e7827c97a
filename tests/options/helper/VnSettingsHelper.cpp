// VnSettingsHelper.cpp - a second process for the settings and process tests.
//
// The tests start it to show what only another process can: that registry
// values outlive the process that wrote them, and that RunApp starts a real
// program, waits for it and gets its exit code.  Every answer is the exit
// code, so no pipes are needed.
//
//   exit N                         ends with N
//   sleep MS N                     sleeps MS milliseconds, ends with N
//   window MS N                    runs a window's message loop for MS ms
//   paint HWND MS N                invalidates the caller's window HWND,
//                                  sleeps MS ms, ends with N
//   regput-int PATH SEC NAME V     writes V under HKCU\PATH\SEC; 0 on success
//   regput-str PATH SEC NAME TEXT  writes TEXT likewise
//   regget-int PATH SEC NAME DEF   ends with the value read (DEF if none)
//   regget-str PATH SEC NAME TEXT  ends with 0 when the text read equals TEXT
#include "foundation/VnRegistry.h"

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

static int Registry(int argc, wchar_t** argv) {
  const std::wstring verb = argv[1];
  if (argc != 6)
    return Usage();
  CVnRegistry reg(HKEY_CURRENT_USER, argv[2], argv[3]);
  if (verb == L"regput-int")
    return reg.PutInt(argv[4], Number(argv[5])) ? 0 : 1;
  if (verb == L"regput-str")
    return reg.PutString(argv[4], argv[5]) ? 0 : 1;
  if (verb == L"regget-int")
    return static_cast<int>(reg.GetInt(argv[4], Number(argv[5])));
  if (verb == L"regget-str")
    return reg.GetString(argv[4], L"<none>") == argv[5] ? 0 : 1;
  return Usage();
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
  if (verb.compare(0, 3, L"reg") == 0)
    return Registry(argc, argv);
  return Usage();
}
