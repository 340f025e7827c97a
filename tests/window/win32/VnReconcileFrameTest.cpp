// VnReconcileFrameTest.cpp - the comparison frame: creation of its bars
// through the host, the order of one comparison, closing, the commands that
// go to the focused text pane, activation, and its private copies.
#include "ScriptedPrompt.h"
#include "TestSupport.h"
#include "window/win32/FrameTestSupport.h"

#include <commctrl.h>

#include <memory>

using namespace vn::test;

namespace {

using Log = std::vector<std::string>;

class FrameTest : public ::testing::Test {
protected:
  FrameTestApp m_app;
};

// A stored placement the window can't have by chance.
void StorePlacement(const CRect& rect) {
  const wchar_t* names[] = {L"WndPlcmntLeft", L"WndPlcmntTop", L"WndPlcmntRight", L"WndPlcmntBottom"};
  const LONG values[] = {rect.left, rect.top, rect.right, rect.bottom};
  PutDword(L"Display", L"WndPlcmntShow", SW_SHOWNORMAL);
  for (int i = 0; i < 4; ++i)
    PutDword(L"Display", names[i], static_cast<DWORD>(values[i]));
}

}  // namespace

//===-- The order of one comparison ------------------------------------------===//

// The options are read first in both cases; only a comparison that worked
// places the window, and the panes are filled after that.
TEST_F(FrameTest, DiffAndDisplayPlacesTheWindowOnlyAfterASuccessfulDiff) {
  const CRect stored(40, 50, 540, 450);
  struct Case {
    int diff;
    int result;
    Log log;
  } cases[] = {{0, 0, {"read", "diff"}}, {1, 7, {"read", "diff", "display"}}};
  for (const Case& c : cases) {
    StorePlacement(stored);
    PutDword(L"DisplayOptions", L"TabSize", 7);
    m_app.m_nCmdShow = SW_HIDE;
    TestFrame frame({1, 1, c.diff});
    ASSERT_TRUE(frame.Make());
    EXPECT_EQ(c.result, frame.DiffAndDisplay());
    EXPECT_EQ(c.log, frame.m_log);
    EXPECT_EQ(7u, frame.GetDisplayOptions().GetTabSize());
    CRect now;
    frame.GetWindowRect(&now);
    EXPECT_EQ(c.diff != 0, frame.IsWindowVisible() != 0);
    EXPECT_EQ(c.diff != 0, now == stored);
    EXPECT_EQ(c.diff ? SW_SHOWNORMAL : SW_HIDE, m_app.m_nCmdShow);
    if (c.diff)
      EXPECT_EQ(stored, frame.m_rectAtDisplay);
  }
}

//===-- Creation -------------------------------------------------------------===//

// The host's setup runs with its bar made and the other not yet; 0 from
// either fails the creation and stops it there.
TEST_F(FrameTest, OnCreateFailsWhenTheHostsBarSetupFails) {
  struct Case {
    int status, tool;
    bool created;
    Log log;
  } cases[] = {{1, 1, true, {"status", "tool"}}, {0, 1, false, {"status"}}, {1, 0, false, {"status", "tool"}}};
  for (const Case& c : cases) {
    TestFrame frame({c.status, c.tool});
    EXPECT_EQ(c.created, frame.Make(false) != 0);
    EXPECT_EQ(c.log, frame.m_setups);
    EXPECT_TRUE(frame.m_statusBarFirst);
    if (c.log.size() == 2)
      EXPECT_EQ(0u, frame.m_barStyleAtSetup & CBRS_TOOLTIPS);
  }
}

TEST_F(FrameTest, OnCreateGivesTheToolbarTheFlatStyleAndTheBarStyles) {
  TestFrame frame;
  ASSERT_TRUE(frame.Make(false));
  CFlatToolBar& bar = frame.GetToolBar();
  EXPECT_TRUE(::GetWindowLongW(bar.m_hWnd, GWL_STYLE) & TBSTYLE_FLAT);
  EXPECT_EQ(static_cast<DWORD>(CBRS_TOOLTIPS | CBRS_FLYBY | CBRS_SIZE_DYNAMIC),
            bar.GetBarStyle() & (CBRS_TOOLTIPS | CBRS_FLYBY | CBRS_SIZE_DYNAMIC));
  EXPECT_EQ(static_cast<DWORD>(CBRS_ALIGN_ANY), bar.GetDockStyle());
}

//===-- Closing --------------------------------------------------------------===//

// Only a frame the user saw keeps its options; either way it goes.
TEST_F(FrameTest, ClosingSavesTheOptionsOfAVisibleFrameOnly) {
  for (bool visible : {false, true}) {
    TestFrame frame;
    ASSERT_TRUE(frame.Make());
    if (visible)
      frame.ShowWindow(SW_SHOWNORMAL);
    frame.SendMessage(WM_CLOSE);
    EXPECT_EQ(nullptr, frame.m_hWnd);
    EXPECT_EQ(visible ? Log{"save"} : Log{}, frame.m_log);
    EXPECT_EQ(visible ? 4u : 0xDEADBEEF, GetDword(L"DisplayOptions", L"TabSize"));
    EXPECT_EQ(visible ? 1u : 0xDEADBEEF, GetDword(L"Display", L"WndPlcmntShow"));
  }
}

//===-- Commands routed to the focused text pane ------------------------------===//

// Find and Copy belong to a text pane of this frame; with the focus
// anywhere else Find says why it does nothing, Find Next stays silent, and
// Copy follows the selection of any text pane.
TEST_F(FrameTest, FindAsksForATextPaneWhileFindNextShowsNothing) {
  TestFrame frame, other;
  ASSERT_TRUE(frame.Make());
  ASSERT_TRUE(other.Make());
  ShowAndActivate(other);
  other.Text(0)->SetWindowText(L"some text");
  other.Text(0)->SetSel(0, 4);
  ShowAndActivate(frame);
  HMENU menu = ::CreatePopupMenu();
  ::AppendMenuW(menu, MF_STRING, kFind, L"Find");
  ::AppendMenuW(menu, MF_STRING, kCopy, L"Copy");
  struct Case {
    CWnd* focus;
    bool copyOn;
  } cases[] = {{&frame, false}, {other.Text(0), true}};
  for (const Case& c : cases) {
    c.focus->SetFocus();
    ScriptedPrompt prompt({IDOK});
    frame.SendMessage(WM_COMMAND, kFindNext);
    EXPECT_TRUE(prompt.Asked().empty());
    frame.SendMessage(WM_COMMAND, kFind);
    ASSERT_EQ(1u, prompt.Asked().size());
    EXPECT_EQ("Please click on a text pane first.", prompt.Asked()[0].text);
    EXPECT_EQ(static_cast<UINT>(MB_ICONSTOP), prompt.Asked()[0].type);
    frame.SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
    EXPECT_TRUE(::GetMenuState(menu, kFind, MF_BYCOMMAND) & MF_GRAYED);
    EXPECT_EQ(c.copyOn, !(::GetMenuState(menu, kCopy, MF_BYCOMMAND) & MF_GRAYED));
  }
  ::DestroyMenu(menu);
}

// The indicator shows the caret of the focused text pane, 1-based, in the
// host's format; without one it is disabled and keeps its text.
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
  }
}

//===-- Activation -----------------------------------------------------------===//

// Coming back to the frame gives the focus to the text pane that had it,
// unless that pane's window is gone or what had the focus was no text pane.
TEST_F(FrameTest, ReactivationHandsTheFocusBackToALivingTextPaneOnly) {
  enum Kind { Alive, Gone, NumberColumn };
  for (Kind kind : {Alive, Gone, NumberColumn}) {
    TestFrame frame, elsewhere;
    ASSERT_TRUE(frame.Make());
    ASSERT_TRUE(elsewhere.Make(false));
    ShowAndActivate(frame);
    CWnd* had = kind == NumberColumn ? static_cast<CWnd*>(frame.Pane(1)->GetLineNumPane()) : frame.Text(1);
    HWND hadWnd = had->m_hWnd;
    had->SetFocus();
    ASSERT_EQ(hadWnd, ::GetFocus());
    ShowAndActivate(elsewhere);
    if (kind == Gone)
      ::DestroyWindow(hadWnd);
    ::SetActiveWindow(frame.m_hWnd);
    EXPECT_EQ(kind == Alive ? hadWnd : frame.m_hWnd, ::GetFocus()) << kind;
  }
}

//===-- Private copies -------------------------------------------------------===//

// Each copy has a name of its own, is writable though its source is not,
// and lives exactly as long as the frame.
TEST_F(FrameTest, CopyToTempGivesDistinctWritableCopiesThatGoWithTheFrame) {
  ScratchDir dir;
  CString source = dir.Path() + L"source.txt";
  HANDLE h = ::CreateFileW(source, GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_READONLY, nullptr);
  DWORD written = 0;
  ::WriteFile(h, "abc", 3, &written, nullptr);
  ::CloseHandle(h);
  auto frame = std::make_unique<TestFrame>();
  CString first = source, second = source;
  ASSERT_TRUE(frame->CopyToTemp(first));
  ASSERT_TRUE(frame->CopyToTemp(second));
  EXPECT_NE(first.MakeLower(), second.MakeLower());
  for (const CString& copy : {first, second})
    EXPECT_EQ(0u, ::GetFileAttributesW(copy) & FILE_ATTRIBUTE_READONLY);

  // A copy that fails shows the failure and leaves no name behind.
  CString missing = dir.Path() + L"missing.txt", path = missing;
  {
    ScriptedPrompt prompt({IDOK});
    EXPECT_FALSE(frame->CopyToTemp(path));
    EXPECT_EQ(1u, prompt.Asked().size());
  }
  EXPECT_EQ(missing, path);
  ASSERT_EQ(3, frame->TempNames().GetSize());
  EXPECT_TRUE(frame->TempNames()[2].IsEmpty());

  frame.reset();
  for (const CString& copy : {first, second})
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, ::GetFileAttributesW(copy));
  ::SetFileAttributesW(source, FILE_ATTRIBUTE_NORMAL);
}
