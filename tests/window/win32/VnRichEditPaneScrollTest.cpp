// VnRichEditPaneScrollTest.cpp - how a rich edit pane scrolls and closes,
// driven by the scroll and close messages that the windows above it send.
#include "PaneTestSupport.h"

#include "afx/win32/CScrollBar.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

using namespace vn::test;

namespace {

// A pane window that counts the close requests it gets and stays open.
class ClosingPane : public CVnPaneWnd {
public:
  int m_nCloses = 0;

protected:
  void OnClose() override { ++m_nCloses; }
};

POINT ScrollPos(CVnRichEditPane& edit) {
  POINT pos = {-1, -1};
  edit.SendMessage(EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&pos));
  return pos;
}

std::wstring LongRows(int count, int width) {
  std::wstring rows;
  for (int k = 0; k < count; ++k) {
    if (k)
      rows += L'|';
    rows += std::wstring(width, static_cast<wchar_t>(L'a' + k % 26));
  }
  return rows;
}

//===-- Horizontal -----------------------------------------------------------===//

// The first visible line stays where it was.
TEST(VnRichEditPaneHScroll, GoesToTheLeftEdgeThenOneColumnAtATime) {
  BasicPaneWindows<RecordingPane> windows(false, 300, 200);
  RecordingPane& edit = windows.Edit();
  edit.SetWindowText(Text(LongRows(120, 150)).c_str());
  edit.LineScroll(40);
  ASSERT_EQ(40, edit.GetFirstVisibleLine());
  edit.m_watch = WM_HSCROLL;
  for (int column : {5, 0, 3}) {
    SCOPED_TRACE(column);
    edit.m_nFirstVisibleChar = 40;
    edit.m_seen.clear();
    edit.HScroll(column, nullptr);
    ASSERT_EQ(column + 1u, edit.m_seen.size());
    for (size_t k = 0; k < edit.m_seen.size(); ++k)
      EXPECT_EQ(static_cast<UINT>(k ? SB_LINERIGHT : SB_LEFT), LOWORD(edit.m_seen[k].first)) << k;
    // Replayed messages aren't counted again on top of the column set.
    EXPECT_EQ(column, edit.m_nFirstVisibleChar);
    EXPECT_EQ(0, edit.m_bHScrollReplay);
    EXPECT_EQ(column == 0, ScrollPos(edit).x == 0);
    EXPECT_EQ(40, edit.GetFirstVisibleLine());
  }
}

TEST(VnRichEditPaneOnHScroll, CountsColumnsWithinTheBarsRangeAndTheControlStillScrolls) {
  PaneWindows windows;
  windows.Fill(LongRows(3, 150));
  CVnRichEditPane& edit = windows.Edit();
  CScrollBar bar;
  ASSERT_TRUE(bar.Create(WS_CHILD | SBS_HORZ, RECT{0, 310, 300, 330}, &HostWindow(), 9));
  bar.SetScrollRange(0, 20, FALSE);
  const struct { int start; UINT code; int expected; } cases[] = {
      {0, SB_LINERIGHT, 1},   {5, SB_LINELEFT, 4},      {0, SB_LINELEFT, 0},  {10, SB_PAGERIGHT, 18},
      {15, SB_PAGERIGHT, 20}, {10, SB_PAGELEFT, 2},     {3, SB_PAGELEFT, 0},  {17, SB_LEFT, 0},
      {7, SB_THUMBTRACK, 7},  {7, SB_THUMBPOSITION, 7}, {7, SB_ENDSCROLL, 7}, {20, SB_LINERIGHT, 20},
  };
  for (const auto& c : cases) {
    edit.m_nFirstVisibleChar = c.start;
    edit.SendMessage(WM_HSCROLL, MAKEWPARAM(c.code, 3), reinterpret_cast<LPARAM>(bar.m_hWnd));
    EXPECT_EQ(c.expected, edit.m_nFirstVisibleChar) << c.start << " code " << c.code;
  }
  // The control still scrolls itself.
  edit.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_LEFT, 0), 0);
  EXPECT_EQ(0, ScrollPos(edit).x);
  edit.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_PAGERIGHT, 0), 0);
  EXPECT_GT(ScrollPos(edit).x, 0);
}

//===-- Vertical -------------------------------------------------------------===//

TEST(VnRichEditPaneOnVScroll, TheThumbMovesByWholeLinesAndItsReleaseMovesNothing) {
  PaneWindows windows;
  windows.Fill(LongRows(120, 3));
  CVnRichEditPane& edit = windows.Edit();
  const struct { UINT code; int pos, firstVisible; } steps[] = {
      {SB_THUMBTRACK, 30, 30},
      {SB_THUMBTRACK, 30, 30},
      {SB_THUMBPOSITION, 50, 30},  // a release never moves the text
      {SB_LINEDOWN, 0, 31},        // the control's own handling
      {SB_THUMBTRACK, 12, 12},
      {SB_TOP, 0, 0},
  };
  for (const auto& s : steps) {
    edit.SendMessage(WM_VSCROLL, MAKEWPARAM(s.code, s.pos), 0);
    EXPECT_EQ(s.firstVisible, edit.GetFirstVisibleLine()) << "code " << s.code << " pos " << s.pos;
  }
}

// The sideways part goes by EM_LINESCROLL, by the length of the caret's
// line; Wine's control scrolls only vertically by that message, so what is
// checked sideways is the request.
TEST(VnRichEditPaneGoToBeginning, ScrollsToTheFirstLineAndLeftByTheCaretsLine) {
  BasicPaneWindows<RecordingPane> windows(false, 300, 200);
  RecordingPane& edit = windows.Edit();
  edit.SetWindowText(Text(LongRows(120, 150)).c_str());
  edit.SetSel(3, 3);
  edit.LineScroll(40);
  ASSERT_EQ(40, edit.GetFirstVisibleLine());
  edit.m_watch = EM_LINESCROLL;
  edit.GoToBeginning();
  EXPECT_EQ(0, edit.GetFirstVisibleLine());
  ASSERT_EQ(2u, edit.m_seen.size());
  EXPECT_EQ(std::make_pair(WPARAM(0), LPARAM(-40)), edit.m_seen[0]);
  EXPECT_EQ(std::make_pair(static_cast<WPARAM>(-150), LPARAM(0)), edit.m_seen[1]);
}

//===-- Closing --------------------------------------------------------------===//

TEST(VnRichEditPaneOnClose, PassesTheRequestUpAndStaysOpen) {
  BasicPaneWindows<CVnRichEditPane, ClosingPane> windows;
  windows.Edit().SendMessage(WM_CLOSE);
  EXPECT_EQ(0, windows.Pane().m_nCloses);  // posted, not sent
  PumpMessages();
  EXPECT_EQ(1, windows.Pane().m_nCloses);
  EXPECT_TRUE(::IsWindow(windows.Edit().GetSafeHwnd()));
}

}  // namespace
