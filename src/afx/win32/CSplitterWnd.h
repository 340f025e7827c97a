// CSplitterWnd.h - a static splitter: a fixed grid of panes with dividers
// the user drags, and shared scroll bars.
//
// The grid is fixed when the window is made (CreateStatic); each cell holds
// one pane, a child window whose identifier tells its place:
// AFX_IDW_PANE_FIRST + row * 16 + column.  A pane is found by that
// identifier, so the splitter keeps no list of its panes.  A pane is made
// by run-time class (CreateView) or is a window created with the splitter as
// parent and that identifier, such as a nested splitter.
//
// The shared scroll bars are scroll bar controls beside the grid, one a
// column below it (AFX_IDW_HSCROLL_FIRST + column) and one a row to its
// right (AFX_IDW_VSCROLL_FIRST + row), made when the style given to
// CreateStatic holds WS_HSCROLL or WS_VSCROLL.  A bar's scroll messages come
// to the splitter, which by default sends them on to the panes of the
// bar's column or row.
//
// Sizes: each row and column has an ideal and a minimum size; RecalcLayout
// gives every row but the last its ideal size, as far as the client area
// reaches, and the last row the rest; columns alike.  The dividers between
// rows and columns are drawn by the splitter; dragging one (with the mouse
// captured) sets the ideal size of the row or column before it, never below
// its minimum.
//
// Panes are not deleted here: a derived class or the owner does that.
#ifndef VN_AFX_WIN32_CSPLITTERWND_H
#define VN_AFX_WIN32_CSPLITTERWND_H

#include "afx/win32/AfxRes.h"
#include "afx/win32/CScrollBar.h"
#include "afx/win32/CWnd.h"

#include <memory>
#include <vector>

class VN_API CSplitterWnd : public CWnd {
  DECLARE_DYNAMIC(CSplitterWnd)
public:
  // Width of a divider between two rows or columns, in pixels.
  static constexpr int kDividerSize = 6;

  CSplitterWnd() = default;

  // Makes the splitter window as the child `id` of parent, with rows x cols
  // cells (each 1 to 16).  style: the window styles, with WS_HSCROLL and
  // WS_VSCROLL asking for the shared bars.  Gives FALSE when the window
  // could not be made.
  BOOL CreateStatic(CWnd* parent, int rows, int cols, DWORD style = WS_CHILD | WS_VISIBLE,
                    UINT id = AFX_IDW_PANE_FIRST);
  // Makes an object of paneClass (which must have dynamic creation and
  // derive from CWnd) and its window in cell (row, col), initial size
  // sizeInit, which becomes the ideal size of the row and of the column.
  // Gives FALSE, and makes nothing, when the class can't create or the
  // window fails.  The caller owns the object.
  virtual BOOL CreateView(int row, int col, CRuntimeClass* paneClass, SIZE sizeInit);

  int GetRowCount() const { return static_cast<int>(m_aRows.size()); }
  int GetColumnCount() const { return static_cast<int>(m_aCols.size()); }
  // The object of the pane in the cell, null when it has no window or no
  // object tied to it.
  CWnd* GetPane(int row, int col) const;
  static int IdFromRowCol(int row, int col) { return static_cast<int>(AFX_IDW_PANE_FIRST) + row * 16 + col; }

  void GetRowInfo(int row, int& cyCur, int& cyMin) const;
  void SetRowInfo(int row, int cyIdeal, int cyMin);
  void GetColumnInfo(int col, int& cxCur, int& cxMin) const;
  void SetColumnInfo(int col, int cxIdeal, int cxMin);
  // Places the panes, the bars and the dividers in the client area.
  virtual void RecalcLayout();

  // The pane holding the focus (the focus window or one of its ancestors),
  // with its cell; null when the focus lies outside the panes.  A focus
  // window inside the pane with the pane's own identifier is given instead
  // of the pane.
  virtual CWnd* GetActivePane(int* row = nullptr, int* col = nullptr);
  // Gives the focus to wnd, or, when wnd is null, to the pane of the cell.
  virtual void SetActivePane(int row, int col, CWnd* wnd = nullptr);
  // WS_HSCROLL and WS_VSCROLL: which shared bars the splitter has.
  DWORD GetScrollStyle() const { return m_dwScrollStyle; }

protected:
  // A shared bar's messages go to every pane of its column or row.
  void OnHScroll(UINT code, UINT pos, CScrollBar* bar) override;
  void OnVScroll(UINT code, UINT pos, CScrollBar* bar) override;

  void OnSize(UINT type, int cx, int cy);
  void OnPaint();
  void OnLButtonDown(UINT flags, CPoint point);
  void OnLButtonUp(UINT flags, CPoint point);
  void OnMouseMove(UINT flags, CPoint point);
  BOOL OnSetCursor(CWnd* wnd, UINT hitTest, UINT message);
  void OnCaptureChanged(CWnd* wnd);
  DECLARE_MESSAGE_MAP()

private:
  struct CRowColInfo {
    int nMinSize = 0;
    int nIdealSize = 0;
    int nCurSize = 0;
  };
  // Which divider the user holds: before row or column m_nTrackIndex + 1.
  enum TrackKind { TrackNone, TrackRow, TrackCol };

  BOOL CreateScrollBars();
  // Top or left edge of a row or column in the client area.
  static int Start(const std::vector<CRowColInfo>& info, int index);
  // The divider under a client point: the kind, and the row or column
  // before it.
  TrackKind HitDivider(CPoint point, int* index) const;
  void TrackTo(CPoint point);
  // Height (rows) or width (columns) of the client area less the bars.
  int PaneArea(bool rows) const;
  static void Layout(std::vector<CRowColInfo>& info, int area);

  std::vector<CRowColInfo> m_aRows, m_aCols;
  std::vector<std::unique_ptr<CScrollBar>> m_aBars;  // found by identifier, held for their objects
  DWORD m_dwScrollStyle = 0;
  TrackKind m_eTrack = TrackNone;
  int m_nTrackIndex = 0;
  int m_nTrackOffset = 0;  // from the pointer to the divider's leading edge
};

#endif  // VN_AFX_WIN32_CSPLITTERWND_H
