// VnFramePersistenceTest.cpp - a comparison frame's options between runs,
// and a changed set of options brought onto its panes in a fixed order.
#include "window/win32/FrameTestSupport.h"

#include <functional>

using namespace vn::test;

namespace {

using Log = std::vector<std::string>;

class FramePersistenceTest : public ::testing::Test {
protected:
  FrameTestApp m_app;
};

COLORREF DefaultColor(const CVnReconcileFrame& frame) { return frame.GetDefaultCharFormat().crTextColor; }

// Both panes hold three lines, so the number column has a width to give.
void FillPanes(TestFrame& frame) {
  std::wstring text = L"a\r\nb\r\nc";
  for (int c = 0; c < 2; ++c)
    frame.Pane(c)->SetDefaultText(reinterpret_cast<unsigned char*>(&text[0]), static_cast<int>(text.size() * 2),
                                  frame.GetDefaultCharFormat());
}

bool HasStyle(CWnd& wnd, DWORD style) { return (::GetWindowLongW(wnd.m_hWnd, GWL_STYLE) & style) != 0; }

}  // namespace

//===-- Reading and writing the tree -----------------------------------------===//

// Every read defaults to what the frame holds, except the show command,
// which is 1 whatever the window's state.
TEST_F(FramePersistenceTest, AnEmptyTreeGivesTheConstructorsValuesAndShowNormal) {
  TestFrame frame;
  ASSERT_TRUE(frame.Make(false));
  frame.ShowWindow(SW_SHOWMINIMIZED);
  WINDOWPLACEMENT now = {sizeof(now)};
  frame.GetWindowPlacement(&now);
  frame.GetOptionsFromRegistry();
  CVnOptionState fresh;
  EXPECT_TRUE(fresh.GetDisplayOptions() == frame.GetDisplayOptions());
  EXPECT_EQ(fresh.GetDefaultCharFormat().crTextColor, DefaultColor(frame));
  EXPECT_EQ(fresh.GetReplaceCharFormat().crTextColor, frame.GetReplaceCharFormat().crTextColor);
  EXPECT_EQ(fresh.GetInsertCharFormat().crTextColor, frame.GetInsertCharFormat().crTextColor);
  EXPECT_EQ(fresh.GetDeleteCharFormat().crTextColor, frame.GetDeleteCharFormat().crTextColor);
  EXPECT_EQ(static_cast<UINT>(SW_SHOWNORMAL), frame.Placement().showCmd);
  EXPECT_TRUE(::EqualRect(&now.rcNormalPosition, &frame.Placement().rcNormalPosition));
}

// Text is never loaded in its background's colour; that guard is the
// default colour's alone.
TEST_F(FramePersistenceTest, ADefaultColourEqualToTheWindowLoadsAsTheWindowText) {
  const COLORREF window = ::GetSysColor(COLOR_WINDOW), text = ::GetSysColor(COLOR_WINDOWTEXT);
  struct Case {
    COLORREF stored, loaded;
  } cases[] = {{window, text}, {text, text}, {0x123456, 0x123456}};
  for (const Case& c : cases) {
    PutDword(L"ColorOptions", L"Default", c.stored);
    PutDword(L"ColorOptions", L"Replace", window);
    TestFrame frame;
    ASSERT_TRUE(frame.Make(false));
    frame.GetOptionsFromRegistry();
    EXPECT_EQ(c.loaded, DefaultColor(frame));
    EXPECT_EQ(window, frame.GetReplaceCharFormat().crTextColor);
  }
}

TEST_F(FramePersistenceTest, AFrameClosedWhileMinimisedIsStoredAsRestore) {
  struct Case {
    int show;
    DWORD stored;
  } cases[] = {{SW_SHOWNORMAL, SW_SHOWNORMAL}, {SW_SHOWMINIMIZED, SW_RESTORE}, {SW_SHOWMAXIMIZED, SW_SHOWMAXIMIZED}};
  for (const Case& c : cases) {
    TestFrame frame;
    ASSERT_TRUE(frame.Make(false));
    frame.ShowWindow(c.show);
    frame.SendMessage(WM_CLOSE);
    EXPECT_EQ(c.stored, GetDword(L"Display", L"WndPlcmntShow")) << c.show;
  }
}

// What one frame writes, the next reads back: a flag stored as 5 counts as
// set and comes back as 1, a coordinate left of the screen comes back as
// it was.
TEST_F(FramePersistenceTest, TheValuesOneFrameWritesTheNextReadsBack) {
  const struct {
    const wchar_t *section, *name;
    DWORD value;
  } tree[] = {{L"Display", L"WndPlcmntShow", SW_SHOWNORMAL},  {L"Display", L"WndPlcmntLeft", static_cast<DWORD>(-20)},
              {L"Display", L"WndPlcmntTop", 30},              {L"Display", L"WndPlcmntRight", 500},
              {L"Display", L"WndPlcmntBottom", 400},          {L"DisplayOptions", L"TabSize", 3},
              {L"DisplayOptions", L"FontHeight", 260},        {L"DisplayOptions", L"ShowLineNum", 0},
              {L"DisplayOptions", L"ShowDiffOnly", 5},        {L"DisplayOptions", L"DisplayToolBar", 0},
              {L"ColorOptions", L"Default", 0x010203},        {L"ColorOptions", L"Insert", 0x040506}};
  for (const auto& value : tree)
    PutDword(value.section, value.name, value.value);
  TestFrame first;
  ASSERT_TRUE(first.Make(false));
  ASSERT_EQ(7, first.DiffAndDisplay());
  EXPECT_EQ(5, first.GetDisplayOptions().GetDisplayDiffOnly());
  FrameTestApp::Clear();
  first.SendMessage(WM_CLOSE);
  EXPECT_EQ(1u, GetDword(L"DisplayOptions", L"ShowDiffOnly"));

  TestFrame second;
  ASSERT_TRUE(second.Make(false));
  ASSERT_EQ(7, second.DiffAndDisplay());
  const CVnDisplayOptions& read = second.GetDisplayOptions();
  EXPECT_EQ(1, read.GetDisplayDiffOnly());
  EXPECT_EQ(0, read.GetShowLineNum());
  EXPECT_EQ(0, read.GetDisplayToolbar());
  EXPECT_EQ(3u, read.GetTabSize());
  EXPECT_EQ(260, read.GetCharFormat().yHeight);
  EXPECT_EQ(0x010203u, DefaultColor(second));
  EXPECT_EQ(0x040506u, second.GetInsertCharFormat().crTextColor);
  EXPECT_EQ(CRect(-20, 30, 500, 400), CRect(second.Placement().rcNormalPosition));
}

//===-- Applying a changed set -----------------------------------------------===//

// The steps run in a fixed order (font, its resize on a visible window, tab
// stops, line numbers, bars, the differences-only view, the hidden window's
// resize), each only when its values changed or, but for the view, when
// forced.  The toolbar is hidden beforehand, so the bar step shows in it.
TEST_F(FramePersistenceTest, ApplyDisplayOptionsRunsOnlyTheStepsThatChanged) {
  using Change = std::function<void(CVnDisplayOptions&)>;
  auto font = [](CVnDisplayOptions& o) {
    CHARFORMATW cf = o.GetCharFormat();
    cf.yHeight = 240;
    o.SetCharFormat(cf);
  };
  struct Case {
    const char* name;
    bool visible;
    int force;
    Change change;
    Log log;
    bool toolbar, statusBar;
  } cases[] = {
      {"equal", true, 0, [](CVnDisplayOptions&) {}, {}, false, true},
      {"equal, hidden", false, 0, [](CVnDisplayOptions&) {}, {"resize w"}, false, true},
      {"equal, forced", true, 1, [](CVnDisplayOptions&) {}, {"font 180 Courier New", "resize w", "tabs 4 180"}, true,
       true},
      {"font and tabs", true, 0, [&](CVnDisplayOptions& o) { font(o), o.SetTabSize(8); },
       {"font 240 Courier New", "resize w", "tabs 8 240"}, false, true},
      {"font and numbers", true, 0, [&](CVnDisplayOptions& o) { font(o), o.SetShowLineNum(0); },
       {"font 240 Courier New", "resize 0", "tabs 4 240"}, false, true},
      {"font, hidden", false, 0, font, {"font 240 Courier New", "tabs 4 240", "resize w"}, false, true},
      {"numbers", true, 0, [](CVnDisplayOptions& o) { o.SetShowLineNum(0); }, {"resize 0"}, false, true},
      {"tabs", true, 0, [](CVnDisplayOptions& o) { o.SetTabSize(8); }, {"tabs 8 180"}, false, true},
      {"status bar", true, 0, [](CVnDisplayOptions& o) { o.SetDisplayStatusBar(0); }, {}, true, false},
      {"differences only", true, 0, [](CVnDisplayOptions& o) { o.SetDisplayDiffOnly(1); }, {"redisplay"}, false,
       true},
  };
  for (const Case& c : cases) {
    TestFrame frame;
    ASSERT_TRUE(frame.Make());
    FillPanes(frame);
    if (c.visible)
      frame.ShowWindow(SW_SHOWNORMAL);
    frame.GetToolBar().ShowWindow(SW_HIDE);
    CVnDisplayOptions wanted = frame.GetDisplayOptions();
    c.change(wanted);
    frame.ApplyDisplayOptions(wanted, c.force);
    EXPECT_EQ(c.log, frame.m_log) << c.name;
    EXPECT_EQ(c.toolbar, HasStyle(frame.GetToolBar(), WS_VISIBLE)) << c.name;
    EXPECT_EQ(c.statusBar, HasStyle(frame.GetStatusBar(), WS_VISIBLE)) << c.name;
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
  EXPECT_EQ(0x02u, frame.GetInsertCharFormat().crTextColor);
  EXPECT_EQ(0x03u, frame.GetDeleteCharFormat().crTextColor);
}
