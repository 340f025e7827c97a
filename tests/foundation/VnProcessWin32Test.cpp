// VnProcessWin32Test.cpp - RunApp with a real second process, shell execute
// failures, the system's names, and help by module through the application
// object.
#include "foundation/VnProcess.h"

#include "afx/win32/CWinApp.h"
#include "afx/win32/CWnd.h"
#include "foundation/VnException.h"

#include "TestSupport.h"
#include "VnProcessHelperExe.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <string>
#include <vector>

namespace {

using vn::test::HelperCommand;
using vn::test::RaisedOsCode;

// An application object that records what is asked of it.
class RecordingApp : public CWinApp {
public:
  struct HelpCall { std::string path; DWORD_PTR data; UINT command; };
  void WinHelp(DWORD_PTR data, UINT command) override {
    m_calls.push_back({m_pszHelpFilePath ? VnToUtf8(m_pszHelpFilePath) : "<null>", data, command});
  }
  std::vector<HelpCall> m_calls;
};

TEST(VnProcessWin32Test, RunAppGivesTheExitCodeOfWhatItWaitedFor) {
  ASSERT_TRUE(vn::test::HelperExists());
  RecordingApp app;
  struct Row { const char* args; int show, wait, windowed, idle; long code; } rows[] = {
      {"exit 0", 0, 1, 0, 0, 0},       {"exit 7", 0, 1, 0, 0, 7},
      {"exit 7", 1, 1, 0, 0, 7},       {"sleep 300 42", 0, 1, 0, 0, 42}, {"exit 3000000", 0, 1, 0, 0, 3000000},
      {"sleep 300 3", 0, 1, 0, 1, 3},  // the idle flag alone waits for nothing more
      // Not waiting: the code is read at once, while the helper still sleeps;
      // for a windowed program it is never read.
      {"sleep 1500 5", 0, 0, 0, 0, static_cast<long>(STILL_ACTIVE)}, {"sleep 1500 5", 0, 0, 1, 0, 0},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(r.code, RunApp(HelperCommand() + _T(" ") + VnFromUtf8(r.args), r.show, r.wait, r.windowed, r.idle))
        << r.args;
    EXPECT_EQ(0, app.GetWaitCursorCount()) << r.args;
  }
}

TEST(VnProcessWin32Test, MissingProgramThrowsTheSystemsCodeAndRestoresTheCursor) {
  RecordingApp app;
  for (LPCWSTR line : {_T("\"C:\\no\\such\\program-vn.exe\" x"), _T("no-such-program-vn.exe")}) {
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RaisedOsCode([&] { RunApp(line, 0, 1, 0, 0); })) << VnToUtf8(line);
    EXPECT_EQ(0, app.GetWaitCursorCount());
  }
}

// A window of this thread that counts its paints.
struct PaintCounter {
  static LRESULT CALLBACK Proc(HWND wnd, UINT msg, WPARAM wp, LPARAM lp) {
    if (msg == WM_PAINT) {
      ++s_paints;
      PAINTSTRUCT ps;
      BeginPaint(wnd, &ps);
      EndPaint(wnd, &ps);
      return 0;
    }
    return DefWindowProcW(wnd, msg, wp, lp);
  }
  static int s_paints;
};
int PaintCounter::s_paints = 0;

TEST(VnProcessWin32Test, WindowedWaitKeepsThisThreadsWindowsPainting) {
  WNDCLASSW wc = {};
  wc.lpfnWndProc = PaintCounter::Proc;
  wc.hInstance = GetModuleHandleW(nullptr);
  wc.lpszClassName = L"VnPaintCounter";
  RegisterClassW(&wc);
  HWND wnd = CreateWindowExW(0, wc.lpszClassName, L"paints", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100,
                             nullptr, nullptr, wc.hInstance, nullptr);
  ASSERT_NE(nullptr, wnd);
  UpdateWindow(wnd);
  PaintCounter::s_paints = 0;

  RecordingApp app;
  // The helper invalidates this window from its own process, then lingers:
  // only a wait that handles messages paints it before the helper ends.
  CString args;
  args.Format(_T(" paint %I64d 800 9"), static_cast<long long>(reinterpret_cast<INT_PTR>(wnd)));
  EXPECT_EQ(9, RunApp(HelperCommand() + args, 0, 1, 1, 0));
  EXPECT_GE(PaintCounter::s_paints, 1);
  EXPECT_EQ(0, app.GetWaitCursorCount());
  DestroyWindow(wnd);
}

// A quit that arrives while waiting means the application is ending: the
// wait goes on for the program, and the quit is left for the outer loop.
TEST(VnProcessWin32Test, WindowedWaitPassesAQuitOnToTheOuterLoop) {
  RecordingApp app;
  PostQuitMessage(12);
  EXPECT_EQ(4, RunApp(HelperCommand() + _T(" sleep 300 4"), 0, 1, 1, 0));
  MSG msg;
  ASSERT_TRUE(PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(static_cast<UINT>(WM_QUIT), msg.message);
}

// A windowed program reaches its idle state; one without a message queue
// fails the idle wait.
TEST(VnProcessWin32Test, WaitUntilIdleNeedsAProgramWithAMessageQueue) {
  ASSERT_TRUE(vn::test::HelperExists(true));
  RecordingApp app;
  EXPECT_EQ(6, RunApp(HelperCommand(true) + _T(" window 500 6"), 0, 1, 1, 1));
  EXPECT_NE(-1, RaisedOsCode([] { RunApp(HelperCommand() + _T(" sleep 300 0"), 0, 1, 1, 1); }));
  EXPECT_EQ(0, app.GetWaitCursorCount());
}

// The shell tells the user about a failure in a box of its own (no flag asks
// it not to).  This closes such boxes of this process from another thread and
// counts them, so the calls return.
class ShellBoxCloser {
public:
  ShellBoxCloser() : m_thread(std::thread([this] { Run(); })) {}
  ~ShellBoxCloser() {
    m_stop = true;
    m_thread.join();
  }
  int Closed() const { return m_closed; }

private:
  static BOOL CALLBACK CloseBox(HWND wnd, LPARAM self) {
    DWORD pid = 0;
    GetWindowThreadProcessId(wnd, &pid);
    WCHAR cls[16] = {};
    GetClassNameW(wnd, cls, 16);
    if (pid == GetCurrentProcessId() && IsWindowVisible(wnd) && std::wstring(cls) == L"#32770") {
      PostMessageW(wnd, WM_COMMAND, IDOK, 0);
      ++reinterpret_cast<ShellBoxCloser*>(self)->m_closed;
    }
    return TRUE;
  }
  void Run() {
    while (!m_stop) {
      EnumWindows(CloseBox, reinterpret_cast<LPARAM>(this));
      Sleep(50);
    }
  }
  std::atomic<bool> m_stop{false};
  std::atomic<int> m_closed{0};
  std::thread m_thread;
};

TEST(VnProcessWin32Test, ShellExecuteOfAMissingFileThrowsFileNotFound) {
  ShellBoxCloser closer;
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, RaisedOsCode([] { OpenFileAssociation(_T("C:\\no\\such\\file-vn.txt")); }));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND,
            RaisedOsCode([] { PrintFileAssociation(_T("C:\\no\\such\\file-vn.txt"), CString()); }));
}

// The version tests are the plain functions of VnProcessTest over the
// system's record; what is left are the names, asked with buffers of fixed
// size.
TEST(VnProcessWin32Test, TheSystemsNamesComeBack) {
  EXPECT_FALSE(GetThisUserName().IsEmpty());
  EXPECT_FALSE(GetThisComputerName().IsEmpty());
  EXPECT_LE(GetThisComputerName().GetLength(), 15);
}

TEST(VnProcessWin32Test, LocalHelpAsksTheFileBesideTheModuleAndRestoresThePath) {
  RecordingApp app;
  app.SetHelpFilePath(_T("C:\\app\\own.hlp"));
  LPCWSTR own = app.m_pszHelpFilePath;

  LocalContextHelp(GetModuleHandleW(nullptr), 0, HELP_CONTEXT);
  EXPECT_TRUE(app.m_calls.empty()) << "help ID 0 asks nothing";

  LocalContextHelp(GetModuleHandleW(nullptr), 4711, HELP_CONTEXTPOPUP);
  ASSERT_EQ(1u, app.m_calls.size());
  WCHAR self[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, self, MAX_PATH);
  EXPECT_EQ(VnToUtf8(VnHelpFileFor(self)), app.m_calls[0].path);
  EXPECT_NE(std::string::npos, app.m_calls[0].path.find("foundation_tests.hlp"));
  EXPECT_EQ(4711u, app.m_calls[0].data);
  EXPECT_EQ(static_cast<UINT>(HELP_CONTEXTPOPUP), app.m_calls[0].command);
  EXPECT_EQ(own, app.m_pszHelpFilePath) << "the application's own help path is back";
}

// A disabled control is not found by WindowFromPoint, which gives its parent;
// the parent has no help ID, so the point is converted to the parent's client
// coordinates and the control is found there.
TEST(VnProcessWin32Test, LocalHelpAtAPointTakesTheControlsHelpId) {
  RecordingApp app;
  WNDCLASSW wc = {};
  wc.lpfnWndProc = DefWindowProcW;
  wc.hInstance = GetModuleHandleW(nullptr);
  wc.lpszClassName = L"VnHelpParent";
  RegisterClassW(&wc);
  HWND parent = CreateWindowExW(WS_EX_TOPMOST, wc.lpszClassName, L"parent", WS_POPUP | WS_VISIBLE, 100, 100, 300,
                                200, nullptr, nullptr, wc.hInstance, nullptr);
  ASSERT_NE(nullptr, parent);
  HWND enabled = CreateWindowExW(0, L"BUTTON", L"on", WS_CHILD | WS_VISIBLE, 10, 10, 100, 40, parent, nullptr,
                                 wc.hInstance, nullptr);
  HWND disabled = CreateWindowExW(0, L"BUTTON", L"off", WS_CHILD | WS_VISIBLE | WS_DISABLED, 10, 100, 100, 40,
                                  parent, nullptr, wc.hInstance, nullptr);
  ASSERT_TRUE(enabled && disabled);
  SetWindowContextHelpId(enabled, 321);
  SetWindowContextHelpId(disabled, 555);
  UpdateWindow(parent);
  CWnd* none = nullptr;

  struct Row { POINT client; bool withWindow; std::vector<DWORD_PTR> asked; } rows[] = {
      {{30, 30}, false, {321}},  // the control under the point has its own ID
      {{30, 120}, true, {555}},  // disabled: found through the parent
      {{30, 120}, false, {}},  // no window to convert against: ID 0
      {{250, 60}, true, {}},  // the parent's bare client area: ID 0
  };
  for (const Row& r : rows) {
    app.m_calls.clear();
    CPoint pt(r.client);
    ClientToScreen(parent, &pt);
    CWnd wrapper;
    wrapper.Attach(parent);
    LocalContextHelp(r.withWindow ? &wrapper : none, GetModuleHandleW(nullptr), pt, HELP_CONTEXTPOPUP);
    wrapper.Detach();
    std::vector<DWORD_PTR> asked;
    for (const RecordingApp::HelpCall& c : app.m_calls)
      asked.push_back(c.data);
    EXPECT_EQ(r.asked, asked) << r.client.x << "," << r.client.y;
    if (r.withWindow && r.client.y == 120) {
      EXPECT_EQ(r.client.x, pt.x) << "the caller's point is now in client coordinates";
      EXPECT_EQ(r.client.y, pt.y);
    }
  }
  DestroyWindow(parent);
}

}  // namespace
