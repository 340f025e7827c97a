// VnReconcileAppWin32Test.cpp - the application base class: the system
// flag, the life cycle results, run-time class information and the parser
// over the application's own command line.
#include "options/VnReconcileApp.h"

#include "foundation/VnProcess.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class HostApp : public CVnReconcileApp {
public:
  using CVnReconcileApp::ParseCmdLine;
};

TEST(VnReconcileAppTest, RecordsTheSystemFamilyAtConstruction) {
  CVnReconcileApp::m_bWin2K = 5;
  HostApp app;
  EXPECT_EQ(IsWin2K(), CVnReconcileApp::m_bWin2K);
  EXPECT_EQ(0, app.m_nHostData);
  EXPECT_EQ(nullptr, app.m_pszAppName);
  EXPECT_EQ(&app, AfxGetApp());
}

TEST(VnReconcileAppTest, InitAndExitInstanceGiveTheBaseResults) {
  HostApp app;
  EXPECT_EQ(1, app.InitInstance());
  EXPECT_EQ(0, app.ExitInstance());
  // Once a message loop has seen WM_QUIT, ExitInstance passes its code on.
  PostQuitMessage(17);
  EXPECT_EQ(17, app.Run());
}

TEST(VnReconcileAppTest, HasRunTimeClassAndDynamicCreation) {
  const CRuntimeClass* cls = RUNTIME_CLASS(CVnReconcileApp);
  EXPECT_STREQ("CVnReconcileApp", cls->m_lpszClassName);
  EXPECT_TRUE(cls->IsDerivedFrom(RUNTIME_CLASS(CWinApp)));
  CObject* made = cls->CreateObject();
  ASSERT_NE(nullptr, made);
  EXPECT_TRUE(made->IsKindOf(RUNTIME_CLASS(CVnReconcileApp)));
  EXPECT_EQ(made, AfxGetApp());
  delete made;
  EXPECT_EQ(nullptr, AfxGetApp());
}

TEST(VnReconcileAppTest, ParsesItsOwnCommandLine) {
  HostApp app;
  struct Row {
    LPCWSTR line;
    int capacity;
    int result;
    std::vector<std::string> args;
  } rows[] = {
      {_T("\"C:\\a b\\left.txt\" right.txt"), 2, 2, {"C:\\a b\\left.txt", "right.txt"}},
      {_T("one two three"), 2, 3, {"one", "two"}},
      {_T("\"open"), 2, -1, {}},
      {_T(""), 2, 0, {}},
  };
  for (const Row& r : rows) {
    app.SetCommandLine(r.line);
    CString args[3];
    EXPECT_EQ(r.result, app.ParseCmdLine(args, r.capacity)) << VnToUtf8(r.line);
    std::vector<std::string> got;
    for (int i = 0; i < static_cast<int>(r.args.size()); ++i)
      got.push_back(VnToUtf8(args[i]));
    EXPECT_EQ(r.args, got) << VnToUtf8(r.line);
    EXPECT_TRUE(args[2].IsEmpty()) << "never beyond the capacity";
  }
}

TEST(VnReconcileAppTest, WinMainRunsInitInstanceWithTheCommandLine) {
  struct Host : HostApp {
    BOOL InitInstance() override {
      CString args[2];
      m_nParsed = ParseCmdLine(args, 2);
      m_strFirst = args[0];
      return FALSE;  // no message loop
    }
    int m_nParsed = -5;
    CString m_strFirst;
  } app;
  WCHAR line[] = L"\"x y\" z";
  EXPECT_EQ(0, AfxWinMain(GetModuleHandleW(nullptr), nullptr, line, SW_SHOWNORMAL));
  EXPECT_EQ(2, app.m_nParsed);
  EXPECT_EQ("x y", VnToUtf8(app.m_strFirst));
  EXPECT_NE(std::string::npos, VnToUtf8(app.m_pszHelpFilePath).find("options_tests.hlp"));
}

}  // namespace
