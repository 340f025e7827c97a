// VnFramePersistenceTest.cpp - a comparison frame's options between runs,
// and a changed set brought onto its panes in a fixed order.
#include "window/win32/FrameTestSupport.h"

#include <functional>

using namespace vn::test;
using Log = std::vector<std::string>;

namespace {

class FramePersistenceTest : public ::testing::Test {
protected:
  FrameTestApp m_app;
};

COLORREF DefaultColor(const CVnReconcileFrame& frame) { return frame.GetDefaultCharFormat().crTextColor; }

bool Shown(CWnd& wnd) { return (::GetWindowLongW(wnd.m_hWnd, GWL_STYLE) & WS_VISIBLE) != 0; }

}  // namespace

// Every value defaults to what the frame holds, but the show command to 1
// whatever the window's state.
TEST_F(FramePersistenceTest, AnEmptyTreeGivesTheConstructorsValuesAndShowNormal) {
  TestFrame frame;
  ASSERT_TRUE(frame.Make(false));
  frame.ShowWindow(SW_SHOWMINIMIZED);
  frame.GetOptionsFromRegistry();
  CVnOptionState fresh;
  EXPECT_TRUE(fresh.GetDisplayOptions() == frame.GetDisplayOptions());
  EXPECT_EQ(fresh.GetDefaultCharFormat().crTextColor, DefaultColor(frame));
  EXPECT_EQ(fresh.GetDeleteCharFormat().crTextColor, frame.GetDeleteCharFormat().crTextColor);
  EXPECT_EQ(static_cast<UINT>(SW_SHOWNORMAL), frame.Placement().showCmd);
}

// Text is never loaded in its background's colour; the guard is the
// default colour's alone.
TEST_F(FramePersistenceTest, ADefaultColourEqualToTheWindowLoadsAsTheWindowText) {
  const COLORREF window = ::GetSysColor(COLOR_WINDOW), text = ::GetSysColor(COLOR_WINDOWTEXT);
  const COLORREF cases[][2] = {{window, text}, {text, text}, {0x123456, 0x123456}};
  for (const auto& c : cases) {
    PutDword(L"ColorOptions", L"Default", c[0]);
    PutDword(L"ColorOptions", L"Replace", window);
    TestFrame frame;
    ASSERT_TRUE(frame.Make(false));
    frame.GetOptionsFromRegistry();
    EXPECT_EQ(c[1], DefaultColor(frame));
    EXPECT_EQ(window, frame.GetReplaceCharFormat().crTextColor);
  }
}

// Closing saves the options of a visible frame only; one closed while
// minimised is stored as restored.
TEST_F(FramePersistenceTest, ClosingStoresAVisibleFrameAndAMinimisedOneAsRestore) {
  const DWORD kNone = 0xDEADBEEF;
  const DWORD cases[][2] = {
      {SW_HIDE, kNone}, {SW_SHOWNORMAL, SW_SHOWNORMAL}, {SW_SHOWMINIMIZED, SW_RESTORE}, {SW_SHOWMAXIMIZED, SW_SHOWMAXIMIZED}};
  for (const auto& c : cases) {
    TestFrame frame;
    ASSERT_TRUE(frame.Make(false));
    frame.ShowWindow(static_cast<int>(c[0]));
    frame.SendMessage(WM_CLOSE);
    EXPECT_EQ(nullptr, frame.m_hWnd);
    EXPECT_EQ(c[1] == kNone ? Log{} : Log{"save"}, frame.m_log) << c[0];
    EXPECT_EQ(c[1], GetDword(L"Display", L"WndPlcmntShow")) << c[0];
    EXPECT_EQ(c[1] == kNone ? kNone : 4u, GetDword(L"DisplayOptions", L"TabSize")) << c[0];
  }
}

// What one frame writes the next reads back: a flag stored as 5 counts as
// set and comes back as 1; a coordinate off the screen comes back as it
// was; a stored 0 turns the merged-file editor's constructor 1 off, and the
// editor comes back as it was written.
TEST_F(FramePersistenceTest, TheValuesOneFrameWritesTheNextReadsBack) {
  PutDword(L"Display", L"WndPlcmntLeft", static_cast<DWORD>(-20));
  PutDword(L"DisplayOptions", L"FontHeight", 260);
  PutDword(L"DisplayOptions", L"ShowDiffOnly", 5);
  PutDword(L"DisplayOptions", L"DisplayToolBar", 0);
  PutDword(L"ColorOptions", L"Default", 0x010203);
  PutDword(L"ColorOptions", L"Insert", 0x040506);
  PutDword(L"MergeOptions", L"EditMergedFile", 0);
  TestFrame first, second, third;
  ASSERT_TRUE(first.Make(false) && second.Make(false) && third.Make(false));
  ASSERT_EQ(7, first.DiffAndDisplay());
  EXPECT_EQ(5, first.GetDisplayOptions().GetDisplayDiffOnly());
  EXPECT_EQ(0, first.m_bEditMergedFile);
  first.m_strEditor = L"\"C:\\Tools\\ed.exe\" -n";
  FrameTestApp::Clear();
  first.SendMessage(WM_CLOSE);
  EXPECT_EQ(0u, GetDword(L"MergeOptions", L"EditMergedFile"));
  ASSERT_EQ(7, second.DiffAndDisplay());
  const CVnDisplayOptions& read = second.GetDisplayOptions();
  EXPECT_EQ(1, read.GetDisplayDiffOnly());
  EXPECT_EQ(0, read.GetDisplayToolbar());
  EXPECT_EQ(260, read.GetCharFormat().yHeight);
  EXPECT_EQ(0x010203u, DefaultColor(second));
  EXPECT_EQ(0x040506u, second.GetInsertCharFormat().crTextColor);
  EXPECT_EQ(-20, second.Placement().rcNormalPosition.left);
  EXPECT_EQ(0, second.m_bEditMergedFile);
  EXPECT_EQ(CString(L"\"C:\\Tools\\ed.exe\" -n"), second.m_strEditor);
  PutDword(L"MergeOptions", L"EditMergedFile", 5);
  ASSERT_EQ(7, third.DiffAndDisplay());
  EXPECT_EQ(1, third.m_bEditMergedFile);
}

// Font, its resize on a visible window, tab stops, line numbers, bars, the
// differences-only view, the hidden window's resize: each step runs when
// its values changed or, but for the view, when forced.  The toolbar is
// hidden beforehand, so that the bar step shows.
TEST_F(FramePersistenceTest, ApplyDisplayOptionsRunsTheChangedStepsInItsOrder) {
  auto none = [](CVnDisplayOptions&) {};
  auto font = [](CVnDisplayOptions& o) {
    CHARFORMATW cf = o.GetCharFormat();
    cf.yHeight = 240;
    o.SetCharFormat(cf);
  };
  struct Case {
    bool visible;
    int force;
    std::function<void(CVnDisplayOptions&)> change;
    Log log;
    bool toolbar, statusBar;
  } cases[] = {
      {true, 0, none, {}, false, true},
      {false, 0, none, {"resize w"}, false, true},
      {true, 1, none, {"font 180 Courier New", "resize w", "tabs 4 180"}, true, true},
      {true, 0, [&](CVnDisplayOptions& o) { font(o), o.SetTabSize(8); },
       {"font 240 Courier New", "resize w", "tabs 8 240"}, false, true},
      {true, 0, [&](CVnDisplayOptions& o) { font(o), o.SetShowLineNum(0); },
       {"font 240 Courier New", "resize 0", "tabs 4 240"}, false, true},
      {false, 0, font, {"font 240 Courier New", "tabs 4 240", "resize w"}, false, true},
      {true, 0, [](CVnDisplayOptions& o) { o.SetTabSize(8); }, {"tabs 8 180"}, false, true},
      {true, 0, [](CVnDisplayOptions& o) { o.SetDisplayStatusBar(0); }, {}, true, false},
      {true, 0, [](CVnDisplayOptions& o) { o.SetDisplayDiffOnly(1); }, {"redisplay"}, false, true},
  };
  std::wstring text = L"a\r\nb\r\nc";
  for (const Case& c : cases) {
    TestFrame frame;
    ASSERT_TRUE(frame.Make());
    for (int pane = 0; pane < 2; ++pane)
      frame.Pane(pane)->SetDefaultText(reinterpret_cast<unsigned char*>(&text[0]), 14, frame.GetDefaultCharFormat());
    frame.ShowWindow(c.visible ? SW_SHOWNORMAL : SW_HIDE);
    frame.GetToolBar().ShowWindow(SW_HIDE);
    CVnDisplayOptions wanted = frame.GetDisplayOptions();
    c.change(wanted);
    frame.ApplyDisplayOptions(wanted, c.force);
    EXPECT_EQ(c.log, frame.m_log) << &c - cases;
    EXPECT_EQ(c.toolbar, Shown(frame.GetToolBar())) << &c - cases;
    EXPECT_EQ(c.statusBar, Shown(frame.GetStatusBar())) << &c - cases;
  }
}

// A change of system colours redraws, and rescues a default colour that has
// become the background; the other three stay.
TEST_F(FramePersistenceTest, ASystemColourChangeGuardsOnlyTheDefaultColour) {
  TestFrame frame;
  ASSERT_TRUE(frame.Make(false));
  const COLORREF window = ::GetSysColor(COLOR_WINDOW);
  frame.SetColors(window, window, 0x02, 0x03, false);
  EXPECT_EQ(window, DefaultColor(frame));
  frame.SendMessage(WM_SYSCOLORCHANGE);
  EXPECT_EQ((Log{"redisplay", "redisplay"}), frame.m_log);
  EXPECT_EQ(::GetSysColor(COLOR_WINDOWTEXT), DefaultColor(frame));
  EXPECT_EQ(window, frame.GetReplaceCharFormat().crTextColor);
  EXPECT_EQ(0x03u, frame.GetDeleteCharFormat().crTextColor);
}
