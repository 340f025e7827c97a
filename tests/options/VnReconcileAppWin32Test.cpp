// VnReconcileAppWin32Test.cpp - the application base class: the system
// flag, InitInstance's result, dynamic creation, and the command line
// reaching InitInstance through WinMain (the parser's cases are in
// VnCmdLineTest).
#include "options/VnReconcileApp.h"

#include "foundation/VnProcess.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class HostApp : public CVnReconcileApp {
public:
  using CVnReconcileApp::ParseCmdLine;
};

// The message loop and ExitInstance are the framework's (tests/afx).
TEST(VnReconcileAppTest, RecordsTheSystemFamilyAtConstructionAndInitInstanceGivesOne) {
  CVnReconcileApp::m_bWin2K = 5;
  HostApp app;
  EXPECT_EQ(IsWin2K(), CVnReconcileApp::m_bWin2K);
  EXPECT_EQ(&app, AfxGetApp());
  EXPECT_EQ(1, app.InitInstance());
}

TEST(VnReconcileAppTest, CanBeCreatedByItsRunTimeClass) {
  const CRuntimeClass* cls = RUNTIME_CLASS(CVnReconcileApp);
  EXPECT_TRUE(cls->IsDerivedFrom(RUNTIME_CLASS(CWinApp)));
  CObject* made = cls->CreateObject();
  ASSERT_NE(nullptr, made);
  EXPECT_TRUE(made->IsKindOf(RUNTIME_CLASS(CVnReconcileApp)));
  EXPECT_EQ(made, AfxGetApp());
  delete made;
  EXPECT_EQ(nullptr, AfxGetApp());
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
}

}  // namespace
