// VnReconcileFrameTest.cpp - the comparison frame: its bars made through
// the host, the order of one comparison, closing, the commands that belong
// to the focused text pane, activation, and its private copies.
#include "ScriptedPrompt.h"
#include "Screenshot.h"
#include "TestSupport.h"
#include "foundation/VnFileSystem.h"
#include "window/win32/FrameTestSupport.h"

#include <commctrl.h>

#include <memory>

using namespace vn::test;
using Log = std::vector<std::string>;

namespace {

class FrameTest : public ::testing::Test {
protected:
  FrameTestApp m_app;
};

}  // namespace

// The options are read in either case; only a comparison that worked places
// the window where it was stored, before the panes are filled.
TEST_F(FrameTest, DiffAndDisplayPlacesTheWindowOnlyAfterASuccessfulDiff) {
  const CRect stored(40, 50, 540, 450);
  for (int diff : {0, 1}) {
    PutDword(L"Display", L"WndPlcmntShow", SW_SHOWNORMAL);
    PutDword(L"Display", L"WndPlcmntLeft", stored.left);
    PutDword(L"Display", L"WndPlcmntTop", stored.top);
    PutDword(L"DisplayOptions", L"TabSize", 7);
    m_app.m_nCmdShow = SW_HIDE;
    TestFrame frame({1, 1, diff});
    ASSERT_TRUE(frame.Make());
    EXPECT_EQ(diff ? 7 : 0, frame.DiffAndDisplay());
    EXPECT_EQ((diff ? Log{"read", "diff", "display"} : Log{"read", "diff"}), frame.m_log);
    EXPECT_EQ(7u, frame.GetDisplayOptions().GetTabSize());
    CRect now;
    frame.GetWindowRect(&now);
    EXPECT_EQ(diff != 0, frame.IsWindowVisible() != 0);
    EXPECT_EQ(diff != 0, now.TopLeft() == stored.TopLeft());
    EXPECT_EQ(diff ? SW_SHOWNORMAL : SW_HIDE, m_app.m_nCmdShow);
    EXPECT_EQ(diff ? now : CRect(), frame.m_rectAtDisplay);
  }
}

// Each setup runs once its bar exists and before the next bar, or the
// toolbar's styles, are made; 0 from either fails the creation there.
TEST_F(FrameTest, OnCreateFailsWhenAHostBarSetupFails) {
  struct Case {
    int status, tool;
    Log setups;
  } cases[] = {{1, 1, {"status", "tool"}}, {0, 1, {"status"}}, {1, 0, {"status", "tool"}}};
  for (const Case& c : cases) {
    TestFrame frame({c.status, c.tool});
    bool created = c.status && c.tool;
    EXPECT_EQ(created, frame.Make(false) != 0);
    EXPECT_EQ(c.setups, frame.m_setups);
    EXPECT_TRUE(frame.m_statusBarFirst);
    EXPECT_EQ(0u, frame.m_barStyleAtSetup & CBRS_TOOLTIPS);
    if (created) {
      CFlatToolBar& bar = frame.GetToolBar();
      EXPECT_TRUE(::GetWindowLongW(bar.m_hWnd, GWL_STYLE) & TBSTYLE_FLAT);
      const DWORD added = CBRS_TOOLTIPS | CBRS_FLYBY | CBRS_SIZE_DYNAMIC;
      EXPECT_EQ(added, bar.GetBarStyle() & added);
      EXPECT_EQ(static_cast<DWORD>(CBRS_ALIGN_ANY), bar.GetDockStyle());
    }
  }
}

// With the focus outside this frame's text panes Find says why it does
// nothing and Find Next is silent; Copy follows any text pane's selection.
TEST_F(FrameTest, FindAsksForATextPaneWhileFindNextShowsNothing) {
  TestFrame frame, other;
  ASSERT_TRUE(frame.Make() && other.Make());
  ShowAndActivate(other);
  other.Text(0)->SetWindowText(L"some text");
  other.Text(0)->SetSel(0, 4);
  ShowAndActivate(frame);
  HMENU menu = ::CreatePopupMenu();
  ::AppendMenuW(menu, MF_STRING, kFind, L"Find");
  ::AppendMenuW(menu, MF_STRING, kCopy, L"Copy");
  for (CWnd* focus : {static_cast<CWnd*>(&frame), static_cast<CWnd*>(other.Text(0))}) {
    focus->SetFocus();
    ScriptedPrompt prompt({IDOK});
    frame.SendMessage(WM_COMMAND, kFindNext);
    EXPECT_TRUE(prompt.Asked().empty());
    frame.SendMessage(WM_COMMAND, kFind);
    ASSERT_EQ(1u, prompt.Asked().size());
    EXPECT_EQ("Please click on a text pane first.", prompt.Asked()[0].text);
    EXPECT_EQ(static_cast<UINT>(MB_ICONSTOP), prompt.Asked()[0].type);
    frame.SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
    EXPECT_TRUE(::GetMenuState(menu, kFind, MF_BYCOMMAND) & MF_GRAYED);
    EXPECT_EQ(focus == &frame, (::GetMenuState(menu, kCopy, MF_BYCOMMAND) & MF_GRAYED) != 0);
  }
  ::DestroyMenu(menu);
}

// Without a focused text pane the indicator is disabled and keeps its text.
TEST_F(FrameTest, UpdateIndicatorPositionShowsTheCaretOneBased) {
  TestFrame frame;
  ASSERT_TRUE(frame.Make());
  ShowAndActivate(frame);
  CVnTextPane* text = frame.Text(1);
  text->SetWindowText(L"first\r\nsecond line");
  text->SetFocus();
  text->SetSel(text->LineIndex(1) + 3, text->LineIndex(1) + 3);
  CVnReconcileStatusBar& bar = frame.GetStatusBar();
  for (bool inPane : {true, false}) {
    if (!inPane)
      frame.SetFocus();
    bar.SendMessage(WM_IDLEUPDATECMDUI, TRUE);
    EXPECT_EQ(L"Ln 2, Col 4", bar.GetPaneText(1));
    EXPECT_EQ(!inPane, (bar.GetPaneStyle(1) & SBPS_DISABLED) != 0);
    // For a person to look at: bars, both panes and the indicator.
    ::RedrawWindow(frame.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    if (inPane) {
      EXPECT_TRUE(WritePng(CaptureWindow(frame.m_hWnd), ScreenshotPath(L"frame.png")));
    }
  }
}

// Coming back, the frame hands the focus to the text pane that had it,
// unless that pane's window is gone or what had it was no text pane.
TEST_F(FrameTest, ReactivationHandsTheFocusBackToALivingTextPaneOnly) {
  enum Kind { Alive, Gone, NumberColumn };
  for (Kind kind : {Alive, Gone, NumberColumn}) {
    TestFrame frame, elsewhere;
    ASSERT_TRUE(frame.Make() && elsewhere.Make(false));
    ShowAndActivate(frame);
    CWnd* had = kind == NumberColumn ? static_cast<CWnd*>(frame.Pane(1)->GetLineNumPane()) : frame.Text(1);
    HWND hadWnd = had->m_hWnd;
    had->SetFocus();
    ShowAndActivate(elsewhere);
    if (kind == Gone)
      ::DestroyWindow(hadWnd);
    ::SetActiveWindow(frame.m_hWnd);
    EXPECT_EQ(kind == Alive ? hadWnd : frame.m_hWnd, ::GetFocus()) << kind;
  }
}

// Each copy has a name of its own and is writable though its source is
// not; a failed copy shows why and leaves no name; the copies go with the
// frame.
TEST_F(FrameTest, CopyToTempGivesDistinctWritableCopiesThatGoWithTheFrame) {
  ScratchDir dir;
  CString source = dir.Path() + L"source.txt", missing = dir.Path() + L"missing.txt";
  CVnFileSystem::CreateFileW(source, 3, "abc");
  ::SetFileAttributesW(source, FILE_ATTRIBUTE_READONLY);
  auto frame = std::make_unique<TestFrame>();
  CString first = source, second = source, path = missing;
  ASSERT_TRUE(frame->CopyToTemp(first) && frame->CopyToTemp(second));
  EXPECT_NE(0, first.CompareNoCase(second));
  for (const CString& copy : {first, second})
    EXPECT_EQ(0u, ::GetFileAttributesW(copy) & FILE_ATTRIBUTE_READONLY);
  {
    ScriptedPrompt prompt({IDOK});
    EXPECT_FALSE(frame->CopyToTemp(path));
    EXPECT_EQ(1u, prompt.Asked().size());
  }
  EXPECT_EQ(missing, path);
  EXPECT_TRUE(frame->TempNames()[2].IsEmpty());
  frame.reset();
  for (const CString& copy : {first, second})
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, ::GetFileAttributesW(copy));
  ::SetFileAttributesW(source, FILE_ATTRIBUTE_NORMAL);
}
