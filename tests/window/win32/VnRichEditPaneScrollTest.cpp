// VnRichEditPaneScrollTest.cpp - how a rich edit pane scrolls and closes,
// driven by the scroll and close messages that the windows above it send.
#include "PaneTestSupport.h"

#include "afx/win32/CScrollBar.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using vn::test::PaneWindows;

namespace {

// A pane that records the codes of the WM_HSCROLL messages it receives,
// and the arguments of one other message.
class RecordingPane : public CVnRichEditPane {
public:
  std::vector<UINT> m_codes;
  UINT m_watch = 0;
  std::vector<std::pair<WPARAM, LPARAM>> m_seen;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_HSCROLL)
      m_codes.push_back(LOWORD(wParam));
    if (message == m_watch)
      m_seen.emplace_back(wParam, lParam);
    return CVnRichEditPane::WindowProc(message, wParam, lParam);
  }
};

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

TEST(VnRichEditPaneHScroll, GoesToTheLeftEdgeThenOneColumnAtATime) {
  RECT rect = {0, 0, 300, 200};
  RecordingPane edit;
  ASSERT_TRUE(edit.Create(vn::test::kPaneChildStyle, rect, &vn::test::HostWindow(), 1));
  edit.SetWindowText(vn::test::Text(LongRows(3, 150)).c_str());
  const struct {
    int column;
    size_t messages;
  } cases[] = {{5, 6}, {0, 1}, {3, 4}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.column);
    edit.m_nFirstVisibleChar = 40;
    edit.m_codes.clear();
    edit.HScroll(c.column, nullptr);
    ASSERT_EQ(c.messages, edit.m_codes.size());
    EXPECT_EQ(static_cast<UINT>(SB_LEFT), edit.m_codes[0]);
    for (size_t k = 1; k < edit.m_codes.size(); ++k)
      EXPECT_EQ(static_cast<UINT>(SB_LINERIGHT), edit.m_codes[k]);
    // Replayed messages aren't counted again on top of the column set.
    EXPECT_EQ(c.column, edit.m_nFirstVisibleChar);
    EXPECT_EQ(0, edit.m_bHScrollReplay);
    EXPECT_EQ(c.column == 0, ScrollPos(edit).x == 0);
  }
}

TEST(VnRichEditPaneHScroll, LeavesTheFirstVisibleLineWhereItWas) {
  PaneWindows windows;
  windows.Fill(LongRows(120, 150));
  CVnRichEditPane& edit = windows.Edit();
  edit.LineScroll(40);
  ASSERT_EQ(40, edit.GetFirstVisibleLine());
  for (int column : {7, 0, 2}) {
    edit.HScroll(column, nullptr);
    EXPECT_EQ(40, edit.GetFirstVisibleLine()) << column;
  }
}

TEST(VnRichEditPaneOnHScroll, CountsColumnsWithinTheBarsRange) {
  PaneWindows windows;
  windows.Fill(LongRows(3, 150));
  CVnRichEditPane& edit = windows.Edit();
  CScrollBar bar;
  RECT rect = {0, 310, 300, 330};
  ASSERT_TRUE(bar.Create(WS_CHILD | SBS_HORZ, rect, &vn::test::HostWindow(), 9));
  bar.SetScrollRange(0, 20, FALSE);
  const struct {
    int start;
    UINT code;
    int expected;
  } cases[] = {
      {0, SB_LINERIGHT, 1},    {5, SB_LINELEFT, 4},      {0, SB_LINELEFT, 0},   {10, SB_PAGERIGHT, 18},
      {15, SB_PAGERIGHT, 20},  {10, SB_PAGELEFT, 2},     {3, SB_PAGELEFT, 0},   {17, SB_LEFT, 0},
      {7, SB_THUMBTRACK, 7},   {7, SB_THUMBPOSITION, 7}, {7, SB_ENDSCROLL, 7},  {20, SB_LINERIGHT, 20},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.start << " code " << c.code);
    edit.m_nFirstVisibleChar = c.start;
    edit.SendMessage(WM_HSCROLL, MAKEWPARAM(c.code, 3), reinterpret_cast<LPARAM>(bar.m_hWnd));
    EXPECT_EQ(c.expected, edit.m_nFirstVisibleChar);
  }
}

TEST(VnRichEditPaneOnHScroll, TheControlStillScrolls) {
  PaneWindows windows;
  windows.Fill(LongRows(3, 150));
  CVnRichEditPane& edit = windows.Edit();
  edit.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_PAGERIGHT, 0), 0);
  EXPECT_GT(ScrollPos(edit).x, 0);
  edit.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_LEFT, 0), 0);
  EXPECT_EQ(0, ScrollPos(edit).x);
}

//===-- Vertical -------------------------------------------------------------===//

TEST(VnRichEditPaneOnVScroll, TheThumbMovesByWholeLinesAndItsReleaseMovesNothing) {
  PaneWindows windows;
  windows.Fill(LongRows(120, 3));
  CVnRichEditPane& edit = windows.Edit();
  const struct {
    UINT code;
    int pos;
    int firstVisible;
  } steps[] = {
      {SB_THUMBTRACK, 30, 30},
      {SB_THUMBTRACK, 30, 30},
      {SB_THUMBPOSITION, 50, 30},  // a release never moves the text
      {SB_LINEDOWN, 0, 31},        // the control's own handling
      {SB_THUMBTRACK, 12, 12},
      {SB_TOP, 0, 0},
  };
  for (const auto& s : steps) {
    SCOPED_TRACE(testing::Message() << "code " << s.code << " pos " << s.pos);
    edit.SendMessage(WM_VSCROLL, MAKEWPARAM(s.code, s.pos), 0);
    EXPECT_EQ(s.firstVisible, edit.GetFirstVisibleLine());
  }
}

// The sideways part goes by EM_LINESCROLL, by the length of the caret's
// line; Wine's control scrolls only vertically by that message, so what is
// checked sideways is the request.
TEST(VnRichEditPaneGoToBeginning, ScrollsToTheFirstLineAndLeftByTheCaretsLine) {
  RECT rect = {0, 0, 300, 200};
  RecordingPane edit;
  ASSERT_TRUE(edit.Create(vn::test::kPaneChildStyle, rect, &vn::test::HostWindow(), 1));
  edit.SetWindowText(vn::test::Text(LongRows(120, 150)).c_str());
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
  RECT rect = {0, 0, 300, 200};
  ClosingPane pane;
  ASSERT_TRUE(pane.CreateEx(0, nullptr, L"", WS_CHILD | WS_VISIBLE, rect, &vn::test::HostWindow(), 1));
  CVnRichEditPane edit;
  ASSERT_TRUE(edit.Create(vn::test::kPaneChildStyle, rect, &pane, 2));
  edit.SendMessage(WM_CLOSE);
  EXPECT_EQ(0, pane.m_nCloses);  // posted, not sent
  vn::test::PumpMessages();
  EXPECT_EQ(1, pane.m_nCloses);
  EXPECT_TRUE(::IsWindow(edit.GetSafeHwnd()));
}

}  // namespace
