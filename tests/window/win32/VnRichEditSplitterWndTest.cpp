// VnRichEditSplitterWndTest.cpp - the panes of a comparison kept in step:
// what the user does in one pane brings every pane, its number column and
// the bars to the same line and column; the shared bars step by their
// tables and every pane follows, the nested splitter's too; the divider's
// share survives resizes and changes only when the user lets go of it; the
// return to the beginning, the close and the panes' deletion.  Real windows
// and real messages, in a frame under the one shown host window.
#include "DialogDriver.h"
#include "SplitterTestSupport.h"

#include "window/VnPaneMessages.h"
#include "window/VnPaneSync.h"

#include <gtest/gtest.h>

#include <algorithm>

using vn::test::NumberedRows;
using vn::test::SplitterWindows;

namespace {

const UINT kVBar = 0xEA10, kHBar = 0xEA00;
const auto SideBySide = SplitterWindows::SideBySide;
const auto Merge = SplitterWindows::Merge;

// What the user does in the origin's text pane: a click far down (the caret
// set there), Page Down twice, Find Next through the Find dialog; or the
// text pane scrolled to line 120 and column c, and its own report of that.
enum Move { Caret, PageDown, SearchHit, Column };

void MoveIn(CVnPaneWnd& pane, Move move, int column) {
  CVnTextPane& text = *pane.GetTextPane();
  text.SetFocus();
  if (move == Caret) {
    text.SendMessage(EM_SETSEL, static_cast<WPARAM>(text.LineIndex(230)), static_cast<LPARAM>(text.LineIndex(230)));
  } else if (move == PageDown) {
    for (int k = 0; k < 2; ++k)
      text.SendMessage(WM_KEYDOWN, VK_NEXT, 0);
  } else if (move == SearchHit) {
    text.Find();
    HWND dialog = vn::test::WaitForDialog(nullptr);
    ASSERT_TRUE(dialog);
    vn::test::SetItemText(dialog, 0x480, L"row 260 ");
    vn::test::PressButton(dialog, 0x421);  // down
    vn::test::PressButton(dialog, IDOK);
    text.CloseFindReplace();
    vn::test::WaitUntilGone(dialog);
  } else {
    ::SetFocus(nullptr);  // the column is the one the pane counted
    text.LineScroll(120);
    text.HScroll(column, nullptr);
    CVnPaneSync sync(text.GetFirstVisibleLine(), column);
    pane.SendMessage(WM_PANE_SYNCHRONIZE, reinterpret_cast<WPARAM>(&sync), reinterpret_cast<LPARAM>(&pane));
  }
  vn::test::PumpMessages();
}

TEST(VnRichEditSplitterWnd, AMoveInOnePaneBringsEveryPaneItsNumbersAndTheBarsToOneLineAndColumn) {
  const struct {
    SplitterWindows::Arrangement arrangement;
    size_t origin;
    Move move;
    int column, hbar;  // the horizontal bar is held within 0..200
  } cases[] = {
      {SideBySide, 0, Caret, 0, 0},  {SideBySide, 1, PageDown, 0, 0}, {SideBySide, 1, SearchHit, 0, 0},
      {SideBySide, 0, Column, 30, 30}, {SideBySide, 1, Column, 250, 200}, {Merge, 2, Caret, 0, 0},
      {Merge, 0, SearchHit, 0, 0},   {Merge, 1, PageDown, 0, 0},      {Merge, 2, Column, 8, 8},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "arrangement " << c.arrangement << " origin " << c.origin << " move " << c.move);
    SplitterWindows windows(c.arrangement);
    windows.Fill({NumberedRows(300, L"row")});
    MoveIn(windows.Pane(c.origin), c.move, c.column);
    int line = windows.TextLine(c.origin);
    EXPECT_GT(line, 0) << "the origin moved";
    for (size_t k = 0; k < windows.Panes().size(); ++k) {
      EXPECT_EQ(line, windows.TextLine(k)) << "pane " << k;
      EXPECT_EQ(line, windows.NumberLine(k)) << "pane " << k;
      if (k != c.origin)
        EXPECT_EQ(c.column, windows.Column(k)) << "pane " << k;
    }
    for (UINT bar = kVBar; bar < kVBar + (c.arrangement == Merge ? 2 : 1); ++bar)
      EXPECT_EQ(line, windows.BarPos(bar));
    EXPECT_EQ(c.hbar, windows.BarPos(kHBar));
  }
}

TEST(VnRichEditSplitterWnd, TheVerticalBarStepsByItsTableAndEveryPaneFollowsLevel) {
  const int kPage = -1, kTop = -2;  // one visible page below from; the top of the range
  const struct {
    int from;
    UINT code, pos;
    int bar, text;  // text -1: only level with the others
  } cases[] = {
      {0, SB_LINEDOWN, 0, 1, 1},       {40, SB_LINEUP, 0, 39, 39},      {0, SB_LINEUP, 0, 0, 0},
      {0, SB_PAGEDOWN, 0, kPage, -1},  {0, SB_THUMBTRACK, 120, 0, 120},  // the bar waits for the release
      {0, SB_THUMBPOSITION, 120, 120, -1}, {50, SB_TOP, 0, 0, 0},       {50, SB_BOTTOM, 0, kTop, -1},
      {50, SB_ENDSCROLL, 0, 50, 50},
  };
  for (SplitterWindows::Arrangement arrangement : {SideBySide, Merge}) {
    SplitterWindows windows(arrangement);
    windows.Fill({NumberedRows(300, L"row")});
    const int page = windows.Pane(0).GetVisibleLineCount();
    for (const auto& c : cases) {
      SCOPED_TRACE(testing::Message() << "arrangement " << arrangement << " from " << c.from << " code " << c.code);
      windows.Scroll(WM_VSCROLL, kVBar, SB_THUMBTRACK, static_cast<UINT>(c.from));
      windows.Scroll(WM_VSCROLL, kVBar, SB_THUMBPOSITION, static_cast<UINT>(c.from));
      windows.Scroll(WM_VSCROLL, kVBar, c.code, c.pos);
      EXPECT_EQ(c.bar == kPage ? c.from + page : c.bar == kTop ? windows.BarMax(kVBar) : c.bar, windows.BarPos(kVBar));
      // A page is each pane's own: only the panes of one row stay level
      // on every code.
      EXPECT_EQ(windows.TextLine(0), windows.TextLine(1));
      for (size_t k = 0; k < windows.Panes().size(); ++k) {
        if (c.text >= 0)
          EXPECT_EQ(c.text, windows.TextLine(k)) << k;
        EXPECT_EQ(windows.TextLine(k), windows.NumberLine(k)) << k;
      }
    }
  }
  // A pane that shows no line (the caption takes the whole height) pages by 1.
  SplitterWindows squeezed(SideBySide);
  squeezed.Fill({NumberedRows(300, L"row")});
  squeezed.Top().MoveWindow(0, 0, 900, 2 * ::GetSystemMetrics(SM_CYHSCROLL));
  ASSERT_EQ(0, squeezed.Pane(0).GetVisibleLineCount());
  squeezed.Scroll(WM_VSCROLL, kVBar, SB_PAGEDOWN);
  EXPECT_EQ(1, squeezed.BarPos(kVBar));
}

TEST(VnRichEditSplitterWnd, TheHorizontalBarStepsByItsTableAndEveryPaneFollows) {
  // From column `from`, where a thumb position puts the bar.
  const struct {
    int from;
    UINT code, pos;
    int bar;
  } cases[] = {
      {0, SB_LINERIGHT, 0, 1},       {10, SB_LINELEFT, 0, 9},     {0, SB_PAGERIGHT, 0, 8}, {4, SB_PAGELEFT, 0, 0},
      {196, SB_PAGERIGHT, 0, 200},   {30, SB_LEFT, 0, 0},         {30, SB_RIGHT, 0, 30},
      {0, SB_THUMBPOSITION, 77, 77}, {5, SB_THUMBTRACK, 77, 5},
  };
  for (SplitterWindows::Arrangement arrangement : {SideBySide, Merge}) {
    SplitterWindows windows(arrangement);
    windows.Fill({NumberedRows(50, L"row", 400)});
    for (const auto& c : cases) {
      SCOPED_TRACE(testing::Message() << "arrangement " << arrangement << " from " << c.from << " code " << c.code);
      windows.Scroll(WM_HSCROLL, kHBar, SB_THUMBPOSITION, static_cast<UINT>(c.from));
      windows.Scroll(WM_HSCROLL, kHBar, c.code, c.pos);
      EXPECT_EQ(c.bar, windows.BarPos(kHBar));
      for (size_t k = 1; k < windows.Panes().size(); ++k)
        EXPECT_EQ(windows.Column(0), windows.Column(k)) << "pane " << k;
    }
    // What reaches the nested splitter is decided by the outer one.
    if (arrangement == Merge) {
      windows.Nested().SendMessage(WM_HSCROLL, MAKEWPARAM(SB_LEFT, 0), 0);
      windows.Nested().SendMessage(WM_HSCROLL, MAKEWPARAM(SB_PAGERIGHT, 0), 0);
      EXPECT_EQ(8, windows.BarPos(kHBar));
      EXPECT_EQ(windows.Column(0), windows.Column(2));
    }
  }
}

TEST(VnRichEditSplitterWnd, TheDividersShareIsSetOnReleaseAndKeptThroughResizesAndMinimising) {
  const struct {
    SplitterWindows::Arrangement arrangement;
    int to;  // where the divider is let go, along the width or the height
  } cases[] = {{SideBySide, 270}, {SideBySide, -400}, {SideBySide, 5000}, {Merge, 120}, {Merge, 9000}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "arrangement " << c.arrangement << " to " << c.to);
    SplitterWindows windows(c.arrangement, 900, 480);
    CVnRichEditSplitterWnd& top = windows.Top();
    bool rows = c.arrangement == Merge;
    int current = 0, minimum = 0;
    rows ? top.GetRowInfo(0, current, minimum) : top.GetColumnInfo(0, current, minimum);
    POINT grab = rows ? POINT{100, current + 2} : POINT{current + 2, 100};
    POINT drop = rows ? POINT{100, c.to + 2} : POINT{c.to + 2, 100};
    top.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(grab.x, grab.y));
    top.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(drop.x, drop.y));
    EXPECT_FLOAT_EQ(0.5f, top.m_fSplitRatio) << "not before the release";
    top.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(drop.x, drop.y));
    // The first row or column as far as the pointer went, held between the
    // window's edge and the bar; measured against the whole client area.
    CRect client;
    top.GetClientRect(&client);
    int measure = rows ? client.Height() : client.Width();
    int bar = ::GetSystemMetrics(rows ? SM_CYHSCROLL : SM_CXVSCROLL);
    int size = std::max(0, std::min(c.to, measure - bar - CSplitterWnd::kDividerSize));
    float ratio = top.m_fSplitRatio;
    EXPECT_NEAR(static_cast<float>(size) / static_cast<float>(measure), ratio, 1e-4);
    // Minimised, or squeezed to nothing, then a new size: the share holds
    // and applies to the client area less a bar's width at either end.
    top.SendMessage(WM_SIZE, SIZE_MINIMIZED, 0);
    top.MoveWindow(0, 0, 0, 0);
    top.MoveWindow(0, 0, 700, 400);
    EXPECT_FLOAT_EQ(ratio, top.m_fSplitRatio);
    int edge = ::GetSystemMetrics(rows ? SM_CXHSCROLL : SM_CXVSCROLL);
    rows ? top.GetRowInfo(0, current, minimum) : top.GetColumnInfo(0, current, minimum);
    EXPECT_EQ(static_cast<int>(((rows ? 400 : 700) - 2 * edge) * ratio), current);
  }
}

// A pane that counts the objects deleted.
class CountedPane : public CVnPaneWnd {
  DECLARE_DYNCREATE(CountedPane)
public:
  static int s_nDeleted;
  ~CountedPane() override { ++s_nDeleted; }
};
IMPLEMENT_DYNCREATE(CountedPane, CVnPaneWnd)
int CountedPane::s_nDeleted = 0;

TEST(VnRichEditSplitterWnd, CountsGoingBackToTheBeginningClosingAndDestroyingReachEveryPane) {
  SplitterWindows windows(Merge);
  windows.Fill({NumberedRows(120, L"local"), NumberedRows(170, L"remote"), NumberedRows(120, L"merged")});
  CVnRichEditSplitterWnd& top = windows.Top();
  // A row's range is its first pane's line count; the nested splitter
  // answers the greatest of its panes'.
  EXPECT_EQ(170, top.GetMaxLineCount());
  EXPECT_EQ(170, windows.BarMax(kVBar));
  EXPECT_EQ(120, windows.BarMax(kVBar + 1));
  const int leftEdge[3] = {windows.FirstCharX(0), windows.FirstCharX(1), windows.FirstCharX(2)};
  windows.Scroll(WM_VSCROLL, kVBar, SB_THUMBTRACK, 60);
  windows.Scroll(WM_VSCROLL, kVBar, SB_THUMBPOSITION, 60);
  windows.Scroll(WM_HSCROLL, kHBar, SB_PAGERIGHT);
  top.GoToBeginning();
  for (size_t k = 0; k < 3; ++k) {
    EXPECT_EQ(0, windows.TextLine(k)) << k;
    EXPECT_EQ(0, windows.NumberLine(k)) << k;
    EXPECT_EQ(leftEdge[k], windows.FirstCharX(k)) << k;  // the control's own view is at the left edge
  }
  EXPECT_EQ(0, windows.BarPos(kVBar));
  EXPECT_EQ(0, windows.BarPos(kHBar));
  EXPECT_EQ(windows.Pane(0).GetTextPane()->GetSafeHwnd(), ::GetFocus());
  top.SetInitialFocus(true);
  EXPECT_EQ(windows.Pane(2).GetTextPane()->GetSafeHwnd(), ::GetFocus());

  // A close is posted to the frame, the splitter stays.
  top.SendMessage(WM_CLOSE);
  MSG posted;
  EXPECT_TRUE(::PeekMessageW(&posted, windows.Frame(), WM_CLOSE, WM_CLOSE, PM_REMOVE));
  EXPECT_TRUE(::IsWindow(top));

  // Destroying a splitter deletes its panes, and a nested splitter's go
  // with that splitter's window.
  CVnRichEditSplitterWnd outer, nested;
  ASSERT_TRUE(outer.CreateStatic(&windows.Frame(), 2, 1, WS_CHILD, 2));
  ASSERT_TRUE(nested.CreateStatic(&outer, 1, 2, WS_CHILD | WS_VISIBLE, static_cast<UINT>(outer.IdFromRowCol(0, 0))));
  for (int col = 0; col < 2; ++col)
    ASSERT_TRUE(nested.CreateView(0, col, RUNTIME_CLASS(CountedPane), SIZE{200, 100}));
  ASSERT_TRUE(outer.CreateView(1, 0, RUNTIME_CLASS(CountedPane), SIZE{400, 100}));
  CountedPane::s_nDeleted = 0;
  outer.DestroyWindow();
  EXPECT_EQ(3, CountedPane::s_nDeleted);
}

}  // namespace
