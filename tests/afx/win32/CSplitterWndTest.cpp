// CSplitterWndTest.cpp - a static splitter: panes made by class in their
// numbered cells, shared bars beside the grid, the panes tiling the client
// area, the divider dragged with the mouse and held within the window.  A
// bar's messages reaching its panes is shown by the synchronised splitter's
// tests.
#include "afx/win32/CSplitterWnd.h"

#include "afx/win32/AfxMsgMap.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// A pane of its own class, made by the splitter from its run-time class.
class Cell : public CWnd {
  DECLARE_DYNCREATE(Cell)
};
IMPLEMENT_DYNCREATE(Cell, CWnd)

// Never shown: windows come and go without waiting on X.
struct Grid {
  CWnd parent;
  CSplitterWnd splitter;
  std::vector<Cell*> panes;

  Grid(int rows, int cols, DWORD scroll, int width = 600, int height = 400) {
    EXPECT_TRUE(parent.CreateEx(0, nullptr, L"grid", WS_POPUP, RECT{0, 0, width, height}, nullptr, 0));
    EXPECT_TRUE(splitter.CreateStatic(&parent, rows, cols, WS_CHILD | WS_VISIBLE | scroll));
    for (int r = 0; r < rows; ++r) {
      for (int c = 0; c < cols; ++c) {
        EXPECT_TRUE(splitter.CreateView(r, c, RUNTIME_CLASS(Cell), SIZE{100, 80}));
        panes.push_back(static_cast<Cell*>(splitter.GetPane(r, c)));
      }
    }
    splitter.MoveWindow(0, 0, width, height);
  }
  ~Grid() {
    splitter.DestroyWindow();
    for (Cell* pane : panes)
      delete pane;
  }
  // A child's rectangle in the splitter's client coordinates.
  RECT Placed(HWND child) const {
    RECT rect;
    ::GetWindowRect(child, &rect);
    ::MapWindowPoints(nullptr, splitter, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
  }
  RECT PaneRect(int r, int c) const { return Placed(*splitter.GetPane(r, c)); }
  void Mouse(UINT message, int x, int y) { splitter.SendMessage(message, MK_LBUTTON, MAKELPARAM(x, y)); }
};

const int kBar = ::GetSystemMetrics(SM_CXVSCROLL);
const int kHBar = ::GetSystemMetrics(SM_CYHSCROLL);
const int kGap = CSplitterWnd::kDividerSize;

TEST(CSplitterWnd, PanesAndBarsTakeTheirNumberedPlacesAndTileTheClientArea) {
  const struct { int rows, cols; DWORD scroll; } cases[] = {
      {1, 2, WS_VSCROLL | WS_HSCROLL}, {2, 1, WS_VSCROLL}, {2, 3, WS_HSCROLL}, {1, 1, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.rows << "x" << c.cols << " style " << std::hex << c.scroll);
    Grid grid(c.rows, c.cols, c.scroll);
    const int right = 600 - ((c.scroll & WS_VSCROLL) ? kBar : 0);
    const int bottom = 400 - ((c.scroll & WS_HSCROLL) ? kHBar : 0);
    for (int r = 0; r < c.rows; ++r) {
      for (int col = 0; col < c.cols; ++col) {
        CWnd* pane = grid.splitter.GetPane(r, col);
        ASSERT_NE(nullptr, pane);
        EXPECT_TRUE(pane->IsKindOf(RUNTIME_CLASS(Cell)));
        EXPECT_EQ(0xE900 + r * 16 + col, pane->GetDlgCtrlID());
        // Every row but the last has its ideal size; the last reaches the bars.
        CRect expected(col * (100 + kGap), r * (80 + kGap), col + 1 == c.cols ? right : (col + 1) * 100 + col * kGap,
                       r + 1 == c.rows ? bottom : (r + 1) * 80 + r * kGap);
        EXPECT_EQ(expected, CRect(grid.PaneRect(r, col))) << r << "," << col;
      }
    }
    // One bar beside each row, one below each column, or none.
    for (int k = 0; k < c.rows + c.cols; ++k) {
      bool vertical = k < c.rows;
      HWND bar = ::GetDlgItem(grid.splitter, vertical ? 0xEA10 + k : 0xEA00 + k - c.rows);
      ASSERT_EQ((c.scroll & (vertical ? WS_VSCROLL : WS_HSCROLL)) != 0, bar != nullptr) << k;
      if (!bar)
        continue;
      RECT rect = grid.Placed(bar), beside = vertical ? grid.PaneRect(k, 0) : grid.PaneRect(0, k - c.rows);
      CRect expected = vertical ? CRect(right, beside.top, 600, beside.bottom)
                                : CRect(beside.left, bottom, beside.right, 400);
      EXPECT_EQ(expected, CRect(rect)) << k;
    }
  }
}

TEST(CSplitterWnd, DraggingADividerMovesItWithThePointerWithinTheWindow) {
  // Column 0 starts 100 wide: its divider covers x 100..105.  The pointer
  // takes the divider at grabX and lets go at dropX.
  const struct { int grabX, dropX, width; } cases[] = {
      {102, 302, 300},  // to the right, the grab offset kept
      {100, 40, 40},  // to the left
      {103, -500, 0},  // beyond the left edge: the column closes
      {101, 2000, 600 - kBar - kGap},  // beyond the right edge: the next column closes
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.grabX << " -> " << c.dropX);
    Grid grid(1, 2, WS_VSCROLL);
    grid.Mouse(WM_LBUTTONDOWN, c.grabX, 50);
    EXPECT_EQ(grid.splitter.GetSafeHwnd(), ::GetCapture());
    grid.Mouse(WM_MOUSEMOVE, (c.grabX + c.dropX) / 2, 50);
    grid.Mouse(WM_LBUTTONUP, c.dropX, 50);
    EXPECT_EQ(nullptr, ::GetCapture());
    EXPECT_EQ(c.width, grid.PaneRect(0, 0).right);
    EXPECT_EQ(c.width + kGap, grid.PaneRect(0, 1).left);
    // After the drag, moving the pointer moves nothing.
    grid.Mouse(WM_MOUSEMOVE, 250, 50);
    EXPECT_EQ(c.width, grid.PaneRect(0, 0).right);
  }
  // A press away from a divider starts no drag.
  Grid grid(2, 1, 0);
  grid.Mouse(WM_LBUTTONDOWN, 50, 40);
  grid.Mouse(WM_MOUSEMOVE, 50, 200);
  grid.Mouse(WM_LBUTTONUP, 50, 200);
  EXPECT_EQ(80, grid.PaneRect(0, 0).bottom);
  // A row's divider moves up and down.
  grid.Mouse(WM_LBUTTONDOWN, 50, 82);
  grid.Mouse(WM_LBUTTONUP, 50, 252);
  EXPECT_EQ(250, grid.PaneRect(0, 0).bottom);
}

TEST(CSplitterWnd, TheActivePaneIsTheOneHoldingTheFocus) {
  Grid grid(2, 2, 0);
  HWND inner = ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, *grid.splitter.GetPane(1, 0),
                                 nullptr, nullptr, nullptr);
  ASSERT_NE(nullptr, inner);
  grid.splitter.SetActivePane(0, 1);
  int row = -1, col = -1;
  EXPECT_EQ(grid.splitter.GetPane(0, 1), grid.splitter.GetActivePane(&row, &col));
  EXPECT_EQ(0, row);
  EXPECT_EQ(1, col);
  // A window inside a pane: its pane is the active one.
  CWnd edit;
  edit.Attach(inner);
  grid.splitter.SetActivePane(1, 0, &edit);
  edit.Detach();
  EXPECT_EQ(inner, ::GetFocus());
  EXPECT_EQ(grid.splitter.GetPane(1, 0), grid.splitter.GetActivePane(&row, &col));
  EXPECT_EQ(1, row);
  EXPECT_EQ(0, col);
  // One with the pane's identifier stands for the pane.
  CWnd view;
  ASSERT_TRUE(view.Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20), grid.splitter.GetPane(1, 0),
                          CSplitterWnd::IdFromRowCol(1, 0)));
  view.SetFocus();
  EXPECT_EQ(&view, grid.splitter.GetActivePane());
  ::SetFocus(grid.parent);
  EXPECT_EQ(nullptr, grid.splitter.GetActivePane());
}

}  // namespace
