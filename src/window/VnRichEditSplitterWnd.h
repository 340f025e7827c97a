// VnRichEditSplitterWnd.h - the splitter that holds the panes of a
// comparison and keeps them in step.
//
// Two files shown side by side have been made equal in length by blank rows,
// so line n of one pane lies beside line n of the other.  This splitter
// keeps its panes on the same first line and column, drives the shared
// scroll bars (vertical: a line number, range 0 to the line count;
// horizontal: a column, range 0 to 200), keeps the divider at a fixed share
// of the window across resizes, and hands font, tab size, line number width
// and the return to the beginning to every pane.
//
// A pane is a CVnPaneWnd or another CVnRichEditSplitterWnd: both answer the
// private messages of VnPaneMessages.h, so they look alike from above.  Two
// arrangements are provided for: one splitter with its panes in a row or a
// column, and a splitter whose pane (0, 0) is a nested splitter and whose
// pane (1, 0) is a CVnPaneWnd.  Operations that visit every pane go row by
// row and, within a row, column by column.
//
// Windows only.
#ifndef VN_WINDOW_VNRICHEDITSPLITTERWND_H
#define VN_WINDOW_VNRICHEDITSPLITTERWND_H

#include "afx/portable/CharFormat.h"
#include "afx/win32/CSplitterWnd.h"

class CVnPaneWnd;

class VN_API CVnRichEditSplitterWnd : public CSplitterWnd {
  DECLARE_DYNCREATE(CVnRichEditSplitterWnd)
public:
  CVnRichEditSplitterWnd() = default;

  // CreateInternalPanes of every CVnPaneWnd and nested splitter; the result
  // of the last pane visited, 0 if there is none.
  int CreateInternalPanes();
  // The last pane's result, 0 if there is none.
  int SetDefaultCharFormat(const CHARFORMATW& format);
  // Stops at the first pane that gives 0 and gives 0; else the last pane's
  // result.
  int SetTabStops(const CHARFORMATW& format, unsigned int tab);
  // The greatest line count of all panes, nested ones included; 0 if none.
  long GetMaxLineCount();
  // Pixels for the number columns of every pane: 0 when show is 0.
  long GetLineNumWidth(const CHARFORMATW& format, int show);
  void ResizeInternalPanes(long width);
  // The host calls these after it has filled the panes.
  void SetupHScrollBars();
  void SetupVScrollBars();
  void GoToBeginning();
  // The focus to the text pane of pane (1, 0) or (0, 0), a CVnPaneWnd.
  void SetInitialFocus(bool secondRow);
  // The line that pane is to show at the top when origin shows line.  The
  // panes are aligned line for line, so it is line; a host whose panes are
  // not overrides this.
  virtual int GetSyncLine(CVnPaneWnd* pane, CVnPaneWnd* origin, int line);

  // Share of the first row, or with one row of the first column: kept across
  // resizes, set when the user lets go of the divider.
  float m_fSplitRatio = 0.5f;

protected:
  void OnClose() override;
  void OnHScroll(UINT code, UINT pos, CScrollBar* bar) override;
  void OnVScroll(UINT code, UINT pos, CScrollBar* bar) override;
  void OnDestroy();
  void OnLButtonUp(UINT flags, CPoint point);
  void OnSize(UINT type, int cx, int cy);

  // The private messages (VnPaneMessages.h).
  LRESULT OnSynchronize(WPARAM wParam, LPARAM lParam);
  LRESULT OnSetDefaultCharFormat(WPARAM wParam, LPARAM lParam);
  LRESULT OnSetTabStops(WPARAM wParam, LPARAM lParam);
  LRESULT OnGoToBeginning(WPARAM wParam, LPARAM lParam);
  LRESULT OnResizeInternalPanes(WPARAM wParam, LPARAM lParam);
  LRESULT OnGetMaxLineCount(WPARAM wParam, LPARAM lParam);

  void SetNewVScrollPos(CScrollBar* bar, UINT code, UINT pos);
  void SetNewHScrollPos(CScrollBar* bar, UINT code, UINT pos);
  void DoHScroll(UINT code, UINT pos, CScrollBar* bar);
  DECLARE_MESSAGE_MAP()

private:
  CScrollBar* GetBar(UINT id) const;
  LRESULT SendToPanes(UINT message, WPARAM wParam, LPARAM lParam, bool stopAtZero);
};

#endif  // VN_WINDOW_VNRICHEDITSPLITTERWND_H
