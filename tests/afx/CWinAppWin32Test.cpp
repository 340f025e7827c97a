// CWinAppWin32Test.cpp - the application object: registration, the wait
// cursor's nesting, settings strings and the start sequence, run until the
// quit and ended with its code.
#include "afx/win32/CWinApp.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(CWinAppTest, RegistersItselfForItsLifetime) {
  EXPECT_EQ(nullptr, AfxGetApp());
  {
    CWinApp app(_T("Named"));
    EXPECT_EQ(&app, AfxGetApp());
  }
  EXPECT_EQ(nullptr, AfxGetApp());
}

TEST(CWinAppTest, WaitCursorNestsAndRestoresTheCursorBefore) {
  CWinApp app;
  HCURSOR arrow = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  HCURSOR wait = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_WAIT));
  SetCursor(arrow);
  app.BeginWaitCursor();
  app.BeginWaitCursor();
  EXPECT_EQ(2, app.GetWaitCursorCount());
  EXPECT_EQ(wait, GetCursor());
  SetCursor(arrow);  // something else changed it meanwhile
  app.RestoreWaitCursor();
  EXPECT_EQ(wait, GetCursor());
  app.EndWaitCursor();
  EXPECT_EQ(wait, GetCursor()) << "still inside the outer Begin";
  app.EndWaitCursor();
  EXPECT_EQ(arrow, GetCursor());
  app.EndWaitCursor();
  EXPECT_EQ(0, app.GetWaitCursorCount()) << "an unmatched End is ignored";
  app.RestoreWaitCursor();
  EXPECT_EQ(arrow, GetCursor()) << "Restore without a Begin changes nothing";
}

TEST(CWinAppTest, KeepsItsOwnCopiesOfSettingStrings) {
  CWinApp app;
  {
    CString key(_T("Vendor"));
    app.SetRegistryKey(key);
    CString line(_T("a \"b c\""));
    app.SetCommandLine(line);
    app.SetHelpFilePath(_T("C:\\x\\y.hlp"));
  }
  EXPECT_EQ("Vendor", VnToUtf8(app.m_pszRegistryKey));
  EXPECT_EQ("a \"b c\"", VnToUtf8(app.m_lpCmdLine));
  EXPECT_EQ("C:\\x\\y.hlp", VnToUtf8(app.m_pszHelpFilePath));
  app.SetRegistryKey(_T(""));
  EXPECT_EQ(nullptr, app.m_pszRegistryKey);
  app.SetCommandLine(nullptr);
  EXPECT_EQ("", VnToUtf8(app.m_lpCmdLine));
  app.SetHelpFilePath(nullptr);
  EXPECT_EQ(nullptr, app.m_pszHelpFilePath);
}

struct StartingApp : CWinApp {
  BOOL InitInstance() override {
    m_nInits++;
    if (m_bRun)
      PostQuitMessage(31);
    return m_bRun;
  }
  int ExitInstance() override { return CWinApp::ExitInstance() + 100; }
  BOOL m_bRun = FALSE;
  int m_nInits = 0;
};

TEST(CWinAppTest, WinMainInitialisesThenRunsOrExits) {
  WCHAR line[] = L"left.txt right.txt";
  HINSTANCE self = GetModuleHandleW(nullptr);
  {
    StartingApp app;
    EXPECT_EQ(100, AfxWinMain(self, nullptr, line, SW_SHOWMINIMIZED)) << "InitInstance FALSE: ExitInstance";
    EXPECT_EQ(1, app.m_nInits);
    EXPECT_EQ(self, app.m_hInstance);
    EXPECT_EQ(SW_SHOWMINIMIZED, app.m_nCmdShow);
    EXPECT_EQ("left.txt right.txt", VnToUtf8(app.m_lpCmdLine));
    std::string help = VnToUtf8(app.m_pszHelpFilePath);
    EXPECT_EQ("afx_tests.hlp", help.substr(help.rfind('\\') + 1));
  }
  {
    StartingApp app;
    app.m_bRun = TRUE;
    EXPECT_EQ(131, AfxWinMain(self, nullptr, line, SW_SHOWNORMAL)) << "Run until WM_QUIT, then ExitInstance";
  }
  EXPECT_EQ(-1, AfxWinMain(self, nullptr, line, SW_SHOWNORMAL)) << "no application object";
}

}  // namespace
