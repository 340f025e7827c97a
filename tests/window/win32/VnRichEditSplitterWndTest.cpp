// VnRichEditSplitterWndTest.cpp - the panes of a comparison kept in step:
// a synchronisation brings every pane, its number column and the bars to
// the origin's line and column; the shared bars scroll the panes and step
// by their tables; a nested splitter scrolls with the rest; the divider's
// share survives resizes and changes only when the user lets go of it; the
// operations on every pane.  Real windows, real messages, under the one
// shown host window.
#include "SplitterTestSupport.h"

#include "DialogDriver.h"

#include "window/VnPaneMessages.h"
#include "window/VnPaneSync.h"

#include <gtest/gtest.h>

using vn::test::NumberedRows;
using vn::test::SplitterWindows;

namespace {

const UINT kVBar = 0xEA10, kHBar = 0xEA00;

TEST(VnRichEditSplitterWnd, SynchronisationBringsEveryOtherPaneItsNumbersAndTheBarsToTheOrigin) {
  const struct {
    SplitterWindows::Arrangement arrangement;
    size_t origin;
    int line, column;
    int hbar;  // the horizontal bar, held within 0..200
  } cases[] = {
      {SplitterWindows::SideBySide, 0, 150, 0, 0},  {SplitterWindows::SideBySide, 1, 12, 30, 30},
      {SplitterWindows::SideBySide, 0, 0, 250, 200}, {SplitterWindows::Merge, 2, 90, 8, 8},
      {SplitterWindows::Merge, 1, 200, 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "arrangement " << c.arrangement << " origin " << c.origin << " line "
                                    << c.line << " column " << c.column);
    SplitterWindows windows(c.arrangement);
    windows.Fill({NumberedRows(300, L"row")});
    // The origin moved first, as its text pane does before it tells.
    CVnTextPane& text = *windows.Pane(c.origin).GetTextPane();
    text.LineScroll(c.line);
    text.HScroll(c.column, nullptr);
    CVnPaneSync sync(c.line, c.column);
    windows.Top().SendMessage(WM_PANE_SYNCHRONIZE, reinterpret_cast<WPARAM>(&sync),
                              reinterpret_cast<LPARAM>(&windows.Pane(c.origin)));
    for (size_t k = 0; k < windows.Panes().size(); ++k) {
      SCOPED_TRACE(testing::Message() << "pane " << k);
      EXPECT_EQ(c.line, windows.TextLine(k));
      if (k != c.origin) {  // the origin's own numbers are its pane's business
        EXPECT_EQ(c.line, windows.NumberLine(k));
        EXPECT_EQ(c.column, windows.Column(k));
      }
    }
    EXPECT_EQ(c.line, windows.BarPos(kVBar));
    EXPECT_EQ(c.hbar, windows.BarPos(kHBar));
  }
}

// What the user does in the origin's text pane: a click far down (the caret
// set there), Page Down twice, or Find Next through the Find dialog.
enum class Move { Caret, PageDown, SearchHit };

void MoveIn(CVnTextPane& text, Move move) {
  text.SetFocus();
  if (move == Move::Caret) {
    text.SendMessage(EM_SETSEL, static_cast<WPARAM>(text.LineIndex(230)), static_cast<LPARAM>(text.LineIndex(230)));
  } else if (move == Move::PageDown) {
    for (int k = 0; k < 2; ++k)
      text.SendMessage(WM_KEYDOWN, VK_NEXT, 0);
  } else {
    text.Find();
    HWND dialog = vn::test::WaitForDialog(nullptr);
    ASSERT_TRUE(dialog);
    vn::test::SetItemText(dialog, 0x480, L"row 260 ");
    vn::test::PressButton(dialog, 0x421);  // down
    vn::test::PressButton(dialog, IDOK);
    text.CloseFindReplace();
    vn::test::WaitUntilGone(dialog);
  }
  vn::test::PumpMessages();
}

TEST(VnRichEditSplitterWnd, ACaretMoveOrASearchHitBringsEveryPaneItsNumbersAndTheBarsToOneLine) {
  const struct {
    SplitterWindows::Arrangement arrangement;
    size_t origin;
    Move move;
  } cases[] = {
      {SplitterWindows::SideBySide, 0, Move::Caret},     {SplitterWindows::SideBySide, 1, Move::PageDown},
      {SplitterWindows::SideBySide, 1, Move::SearchHit}, {SplitterWindows::Merge, 2, Move::Caret},
      {SplitterWindows::Merge, 0, Move::SearchHit},      {SplitterWindows::Merge, 1, Move::PageDown},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "arrangement " << c.arrangement << " origin " << c.origin << " move "
                                    << static_cast<int>(c.move));
    SplitterWindows windows(c.arrangement, 900, 480, true);
    windows.Fill({NumberedRows(300, L"row")});
    MoveIn(*windows.Pane(c.origin).GetTextPane(), c.move);
    int line = windows.TextLine(c.origin);
    EXPECT_GT(line, 0) << "the origin moved";
    for (size_t k = 0; k < windows.Panes().size(); ++k) {
      EXPECT_EQ(line, windows.TextLine(k)) << "pane " << k;
      EXPECT_EQ(line, windows.NumberLine(k)) << "pane " << k;
    }
    EXPECT_EQ(line, windows.BarPos(kVBar));
    if (c.arrangement == SplitterWindows::Merge)
      EXPECT_EQ(line, windows.BarPos(kVBar + 1));
  }
}

TEST(VnRichEditSplitterWnd, TheVerticalBarStepsByItsTableAndThePanesFollowLevel) {
  // Each case starts from the bar and panes at line `from`.
  const struct {
    int from;
    UINT code, pos;
    int bar;   // -1: one visible page below from
    int text;  // first visible line of the panes; -1: not checked beyond level
  } cases[] = {
      {0, SB_LINEDOWN, 0, 1, 1},         {40, SB_LINEUP, 0, 39, 39},
      {0, SB_LINEUP, 0, 0, 0},           {0, SB_PAGEDOWN, 0, -1, -1},
      {0, SB_THUMBTRACK, 120, 0, 120},   // the panes move, the bar waits for the release
      {0, SB_THUMBPOSITION, 120, 120, -1},
      {50, SB_TOP, 0, 0, 0},             {50, SB_BOTTOM, 0, 300, -1},  // the top of the range, not beyond
      {50, SB_ENDSCROLL, 0, 50, 50},
  };
  SplitterWindows windows(SplitterWindows::SideBySide);
  windows.Fill({NumberedRows(300, L"left"), NumberedRows(300, L"right")});
  const int page = windows.Pane(0).GetVisibleLineCount();
  ASSERT_GT(page, 1);
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "from " << c.from << " code " << c.code);
    windows.Scroll(WM_VSCROLL, kVBar, SB_THUMBTRACK, static_cast<UINT>(c.from));
    windows.Scroll(WM_VSCROLL, kVBar, SB_THUMBPOSITION, static_cast<UINT>(c.from));
    ASSERT_EQ(c.from, windows.BarPos(kVBar));
    windows.Scroll(WM_VSCROLL, kVBar, c.code, c.pos);
    EXPECT_EQ(c.bar < 0 ? c.from + page : c.bar, windows.BarPos(kVBar));
    if (c.text >= 0) {
      EXPECT_EQ(c.text, windows.TextLine(0));
    }
    for (size_t k = 0; k < 2; ++k) {
      EXPECT_EQ(windows.TextLine(0), windows.TextLine(k)) << k;
      EXPECT_EQ(windows.TextLine(k), windows.NumberLine(k)) << k;
    }
  }
}

TEST(VnRichEditSplitterWnd, APageIsOneLineWhenThePaneShowsNoLine) {
  SplitterWindows windows(SplitterWindows::SideBySide, 900, 480);
  windows.Fill({NumberedRows(300, L"row")});
  // The caption takes the whole height: no text row is visible.
  windows.Top().MoveWindow(0, 0, 900, 2 * ::GetSystemMetrics(SM_CYHSCROLL));
  ASSERT_EQ(0, windows.Pane(0).GetVisibleLineCount());
  windows.Scroll(WM_VSCROLL, kVBar, SB_PAGEDOWN);
  EXPECT_EQ(1, windows.BarPos(kVBar));
}

TEST(VnRichEditSplitterWnd, TheHorizontalBarStepsByItsTableAndEveryPaneFollows) {
  // From column `from`, where a thumb position puts the bar.
  const struct {
    int from;
    UINT code, pos;
    int bar;
  } cases[] = {
      {0, SB_LINERIGHT, 0, 1},  {10, SB_LINELEFT, 0, 9},    {0, SB_PAGERIGHT, 0, 8},   {20, SB_PAGELEFT, 0, 12},
      {4, SB_PAGELEFT, 0, 0},   {196, SB_PAGERIGHT, 0, 200}, {30, SB_LEFT, 0, 0},       {30, SB_RIGHT, 0, 30},
      {0, SB_THUMBPOSITION, 77, 77}, {5, SB_THUMBTRACK, 77, 5},
  };
  for (SplitterWindows::Arrangement arrangement : {SplitterWindows::SideBySide, SplitterWindows::Merge}) {
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
    // A message that reaches the nested splitter is decided by the outer one.
    if (arrangement == SplitterWindows::Merge) {
      windows.Nested().SendMessage(WM_HSCROLL, MAKEWPARAM(SB_LEFT, 0), 0);
      windows.Nested().SendMessage(WM_HSCROLL, MAKEWPARAM(SB_PAGERIGHT, 0), 0);
      EXPECT_EQ(8, windows.BarPos(kHBar));
      EXPECT_EQ(windows.Column(0), windows.Column(2));
    }
  }
}

TEST(VnRichEditSplitterWnd, TheNestedArrangementScrollsAllThreePanesAndCountsAllTheirLines) {
  SplitterWindows windows(SplitterWindows::Merge);
  windows.Fill({NumberedRows(300, L"local"), NumberedRows(420, L"remote"), NumberedRows(300, L"merged")});
  EXPECT_EQ(420, windows.Top().GetMaxLineCount());
  // Each row's bar: the line count of its first pane, which for the nested
  // splitter is the greatest of its panes'.
  EXPECT_EQ(420, windows.BarMax(0xEA10));
  EXPECT_EQ(300, windows.BarMax(0xEA11));
  windows.Scroll(WM_VSCROLL, 0xEA11, SB_THUMBTRACK, 77);
  windows.Scroll(WM_VSCROLL, 0xEA11, SB_THUMBPOSITION, 77);
  for (size_t k = 0; k < 3; ++k) {
    EXPECT_EQ(77, windows.TextLine(k)) << k;
    EXPECT_EQ(77, windows.NumberLine(k)) << k;
  }
  EXPECT_EQ(77, windows.BarPos(0xEA10));
  EXPECT_EQ(77, windows.BarPos(0xEA11));
}

// Drags the divider at `from` to `to` (client coordinates of the splitter).
void DragDivider(CWnd& splitter, POINT from, POINT to) {
  splitter.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from.x, from.y));
  splitter.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to.x, to.y));
  splitter.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(to.x, to.y));
}

TEST(VnRichEditSplitterWnd, TheDividersShareIsSetOnReleaseAndKeptThroughResizesAndMinimising) {
  const int edge = ::GetSystemMetrics(SM_CXVSCROLL), hedge = ::GetSystemMetrics(SM_CXHSCROLL);
  const struct {
    SplitterWindows::Arrangement arrangement;
    int to;  // where the divider goes, along the splitter's width or height
    float low, high;
  } cases[] = {
      {SplitterWindows::SideBySide, 270, 0.29f, 0.31f},
      {SplitterWindows::SideBySide, -400, 0.0f, 0.0f},     // the far left
      {SplitterWindows::SideBySide, 5000, 0.97f, 0.99f},   // the far right
      {SplitterWindows::Merge, 120, 0.24f, 0.26f},
      {SplitterWindows::Merge, 9000, 0.93f, 0.99f},        // the bottom
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "arrangement " << c.arrangement << " to " << c.to);
    SplitterWindows windows(c.arrangement, 900, 480);
    windows.Fill({NumberedRows(40, L"row")});
    CVnRichEditSplitterWnd& top = windows.Top();
    bool rows = c.arrangement == SplitterWindows::Merge;
    EXPECT_FLOAT_EQ(0.5f, top.m_fSplitRatio);
    // The divider lies right after the first row or column.
    int current = 0, minimum = 0;
    rows ? top.GetRowInfo(0, current, minimum) : top.GetColumnInfo(0, current, minimum);
    POINT grab = rows ? POINT{100, current + 2} : POINT{current + 2, 100};
    POINT drop = rows ? POINT{100, c.to + 2} : POINT{c.to + 2, 100};
    DragDivider(top, grab, drop);
    float ratio = top.m_fSplitRatio;
    EXPECT_GE(ratio, c.low);
    EXPECT_LE(ratio, c.high);

    // Minimised, or squeezed to nothing: the share and the rows stay.
    const struct {
      UINT type;
      int cx, cy;
    } shrink[] = {{SIZE_MINIMIZED, 0, 0}, {SIZE_RESTORED, 0, 0}};
    for (const auto& s : shrink) {
      top.SendMessage(WM_SIZE, s.type, MAKELPARAM(s.cx, s.cy));
      EXPECT_FLOAT_EQ(ratio, top.m_fSplitRatio);
    }
    top.MoveWindow(0, 0, 0, 0);
    EXPECT_FLOAT_EQ(ratio, top.m_fSplitRatio);
    // A new size applies the share to the client area less a bar's width at
    // either end.
    top.MoveWindow(0, 0, 700, 400);
    EXPECT_FLOAT_EQ(ratio, top.m_fSplitRatio);
    int expected = rows ? static_cast<int>((400 - 2 * hedge) * ratio) : static_cast<int>((700 - 2 * edge) * ratio);
    rows ? top.GetRowInfo(0, current, minimum) : top.GetColumnInfo(0, current, minimum);
    EXPECT_EQ(expected, current);
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

TEST(VnRichEditSplitterWnd, OperationsReachEveryPaneAndTheWindowsAboveGetTheClose) {
  SplitterWindows windows(SplitterWindows::Merge);
  windows.Fill({NumberedRows(120, L"row")});
  CVnRichEditSplitterWnd& top = windows.Top();
  const CHARFORMATW& format = windows.Pane(0).GetDefaultCharFormat();
  EXPECT_EQ(0, top.GetLineNumWidth(format, 0));
  EXPECT_GT(top.GetLineNumWidth(format, 1), 0);
  EXPECT_NE(0, top.SetTabStops(format, 4));
  EXPECT_NE(0, top.SetDefaultCharFormat(format));

  // Back to the beginning from anywhere: lines, columns, bars, and the caret
  // in the first text pane.
  const int leftEdge[3] = {windows.FirstCharX(0), windows.FirstCharX(1), windows.FirstCharX(2)};
  windows.Scroll(WM_VSCROLL, kVBar, SB_THUMBTRACK, 60);
  windows.Scroll(WM_VSCROLL, kVBar, SB_THUMBPOSITION, 60);
  windows.Scroll(WM_HSCROLL, kHBar, SB_PAGERIGHT);
  top.GoToBeginning();
  for (size_t k = 0; k < 3; ++k) {
    EXPECT_EQ(0, windows.TextLine(k)) << k;
    EXPECT_EQ(0, windows.NumberLine(k)) << k;
    // The control's own view is back at the left edge (the pane's counted
    // column is the control's business: a thumb position doesn't reset it).
    EXPECT_EQ(leftEdge[k], windows.FirstCharX(k)) << k;
  }
  EXPECT_EQ(0, windows.BarPos(kVBar));
  EXPECT_EQ(0, windows.BarPos(kHBar));
  EXPECT_EQ(windows.Pane(0).GetTextPane()->GetSafeHwnd(), ::GetFocus());
  top.SetInitialFocus(true);
  EXPECT_EQ(windows.Pane(2).GetTextPane()->GetSafeHwnd(), ::GetFocus());

  // A close goes up to the parent, posted.
  top.SendMessage(WM_CLOSE);
  EXPECT_TRUE(::IsWindow(top));
  vn::test::PumpMessages();
  EXPECT_EQ(1, windows.Holder().m_nCloses);

  // Destroying the splitter deletes its panes, not a nested splitter.
  vn::test::SplitterHolder holder;
  ASSERT_TRUE(holder.CreateEx(0, nullptr, L"", WS_CHILD, RECT{0, 0, 400, 200}, &vn::test::HostWindow(), 2));
  CVnRichEditSplitterWnd outer, nested;
  ASSERT_TRUE(outer.CreateStatic(&holder, 2, 1));
  ASSERT_TRUE(nested.CreateStatic(&outer, 1, 2, WS_CHILD | WS_VISIBLE, static_cast<UINT>(outer.IdFromRowCol(0, 0))));
  for (int col = 0; col < 2; ++col)
    ASSERT_TRUE(nested.CreateView(0, col, RUNTIME_CLASS(CountedPane), SIZE{200, 100}));
  ASSERT_TRUE(outer.CreateView(1, 0, RUNTIME_CLASS(CountedPane), SIZE{400, 100}));
  CountedPane::s_nDeleted = 0;
  outer.DestroyWindow();
  EXPECT_EQ(3, CountedPane::s_nDeleted);
  EXPECT_EQ(nullptr, nested.GetSafeHwnd());
}

}  // namespace
