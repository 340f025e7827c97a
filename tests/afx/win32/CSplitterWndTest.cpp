// CSplitterWndTest.cpp - a static splitter: panes made by class in their
// numbered cells, shared bars beside the grid, the panes tiling the client
// area, a bar's scroll messages reaching the panes of its row or column,
// the divider dragged with the mouse, the focus among the panes.
#include "afx/win32/CSplitterWnd.h"

#include "afx/win32/AfxMsgMap.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// A pane that records the scroll messages it receives.
class ScrollRecorder : public CWnd {
  DECLARE_DYNCREATE(ScrollRecorder)
public:
  struct Scroll {
    UINT message, code, pos;
    HWND bar;
  };
  std::vector<Scroll> m_scrolls;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_HSCROLL || message == WM_VSCROLL)
      m_scrolls.push_back({message, LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam)});
    return CWnd::WindowProc(message, wParam, lParam);
  }
};
IMPLEMENT_DYNCREATE(ScrollRecorder, CWnd)

// Never shown: windows come and go without waiting on X.
struct Grid {
  CWnd parent;
  CSplitterWnd splitter;
  std::vector<ScrollRecorder*> panes;

  Grid(int rows, int cols, DWORD scroll, int width = 600, int height = 400) {
    EXPECT_TRUE(parent.CreateEx(0, nullptr, L"grid", WS_POPUP, RECT{0, 0, width, height}, nullptr, 0));
    EXPECT_TRUE(splitter.CreateStatic(&parent, rows, cols, WS_CHILD | WS_VISIBLE | scroll));
    for (int r = 0; r < rows; ++r) {
      for (int c = 0; c < cols; ++c) {
        EXPECT_TRUE(splitter.CreateView(r, c, RUNTIME_CLASS(ScrollRecorder), SIZE{100, 80}));
        panes.push_back(static_cast<ScrollRecorder*>(splitter.GetPane(r, c)));
      }
    }
    splitter.MoveWindow(0, 0, width, height);
  }
  ~Grid() {
    splitter.DestroyWindow();
    for (ScrollRecorder* pane : panes)
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
  const struct {
    int rows, cols;
    DWORD scroll;
  } cases[] = {{1, 2, WS_VSCROLL | WS_HSCROLL}, {2, 1, WS_VSCROLL}, {2, 3, WS_HSCROLL}, {1, 1, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.rows << "x" << c.cols << " style " << std::hex << c.scroll);
    Grid grid(c.rows, c.cols, c.scroll);
    EXPECT_EQ(c.rows, grid.splitter.GetRowCount());
    EXPECT_EQ(c.cols, grid.splitter.GetColumnCount());
    EXPECT_EQ(c.scroll, grid.splitter.GetScrollStyle());
    const int right = 600 - ((c.scroll & WS_VSCROLL) ? kBar : 0);
    const int bottom = 400 - ((c.scroll & WS_HSCROLL) ? kHBar : 0);
    for (int r = 0; r < c.rows; ++r) {
      for (int col = 0; col < c.cols; ++col) {
        CWnd* pane = grid.splitter.GetPane(r, col);
        ASSERT_NE(nullptr, pane);
        EXPECT_TRUE(pane->IsKindOf(RUNTIME_CLASS(ScrollRecorder)));
        EXPECT_EQ(0xE900 + r * 16 + col, pane->GetDlgCtrlID());
        // Every row but the last has its ideal size; the last reaches the bars.
        RECT rect = grid.PaneRect(r, col);
        EXPECT_EQ(r + 1 == c.rows ? bottom : (r + 1) * 80 + r * kGap, rect.bottom);
        EXPECT_EQ(col + 1 == c.cols ? right : (col + 1) * 100 + col * kGap, rect.right);
        EXPECT_EQ(r * (80 + kGap), rect.top);
        EXPECT_EQ(col * (100 + kGap), rect.left);
      }
    }
    // One bar beside each row, one below each column, or none.
    for (int r = 0; r < c.rows; ++r) {
      HWND bar = ::GetDlgItem(grid.splitter, 0xEA10 + r);
      ASSERT_EQ((c.scroll & WS_VSCROLL) != 0, bar != nullptr);
      if (bar) {
        RECT rect = grid.Placed(bar), row = grid.PaneRect(r, 0);
        EXPECT_EQ(row.top, rect.top);
        EXPECT_EQ(row.bottom, rect.bottom);
        EXPECT_EQ(right, rect.left);
        EXPECT_TRUE(::GetWindowLongW(bar, GWL_STYLE) & SBS_VERT);
      }
    }
    for (int col = 0; col < c.cols; ++col) {
      HWND bar = ::GetDlgItem(grid.splitter, 0xEA00 + col);
      ASSERT_EQ((c.scroll & WS_HSCROLL) != 0, bar != nullptr);
      if (bar) {
        RECT rect = grid.Placed(bar), column = grid.PaneRect(0, col);
        EXPECT_EQ(column.left, rect.left);
        EXPECT_EQ(column.right, rect.right);
        EXPECT_EQ(bottom, rect.top);
      }
    }
  }
}

TEST(CSplitterWnd, IdealSizesGiveWayToTheClientAreaAndMinimumsHold) {
  // {ideal, minimum} of column 0 -> its width; the splitter is 600 wide, no bars.
  const struct {
    int ideal, minimum, width;
  } cases[] = {{250, 0, 250}, {0, 0, 0}, {10, 40, 40}, {900, 0, 600 - kGap}, {-5, 0, 0}};
  Grid grid(1, 2, 0);
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.ideal << " min " << c.minimum);
    grid.splitter.SetColumnInfo(0, c.ideal, c.minimum);
    grid.splitter.RecalcLayout();
    int current = -1, minimum = -1;
    grid.splitter.GetColumnInfo(0, current, minimum);
    EXPECT_EQ(c.width, current);
    EXPECT_EQ(c.minimum, minimum);
    RECT second = grid.PaneRect(0, 1);
    EXPECT_EQ(c.width + kGap, second.left);
    EXPECT_EQ(600, second.right);
  }
}

TEST(CSplitterWnd, ABarsScrollMessagesReachThePanesOfItsRowOrColumn) {
  Grid grid(2, 3, WS_HSCROLL | WS_VSCROLL);
  const struct {
    UINT message, code, pos, barId;
    int row, col;  // -1: every row or column
  } cases[] = {
      {WM_VSCROLL, SB_LINEDOWN, 0, 0xEA10, 0, -1},
      {WM_VSCROLL, SB_THUMBTRACK, 1234, 0xEA11, 1, -1},
      {WM_HSCROLL, SB_PAGERIGHT, 0, 0xEA02, -1, 2},
      {WM_HSCROLL, SB_THUMBPOSITION, 7, 0xEA00, -1, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << std::hex << c.barId);
    HWND bar = ::GetDlgItem(grid.splitter, static_cast<int>(c.barId));
    ASSERT_NE(nullptr, bar);
    for (ScrollRecorder* pane : grid.panes)
      pane->m_scrolls.clear();
    grid.splitter.SendMessage(c.message, MAKEWPARAM(c.code, c.pos), reinterpret_cast<LPARAM>(bar));
    for (int r = 0; r < 2; ++r) {
      for (int col = 0; col < 3; ++col) {
        ScrollRecorder* pane = grid.panes[static_cast<size_t>(r * 3 + col)];
        bool reached = (c.row < 0 || c.row == r) && (c.col < 0 || c.col == col);
        ASSERT_EQ(reached ? 1u : 0u, pane->m_scrolls.size()) << r << "," << col;
        if (reached) {
          EXPECT_EQ(c.message, pane->m_scrolls[0].message);
          EXPECT_EQ(c.code, pane->m_scrolls[0].code);
          EXPECT_EQ(c.pos, pane->m_scrolls[0].pos);
          EXPECT_EQ(bar, pane->m_scrolls[0].bar);
        }
      }
    }
  }
}

TEST(CSplitterWnd, DraggingADividerMovesItWithThePointerWithinTheWindow) {
  // Column 0 starts 100 wide: its divider covers x 100..105.  The pointer
  // takes the divider at grabX and lets go at dropX.
  const struct {
    int grabX, dropX, width;
  } cases[] = {
      {102, 302, 300},   // to the right, the grab offset kept
      {100, 40, 40},     // to the left
      {103, -500, 0},    // beyond the left edge: the column closes
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
