// VnRichEditSplitterWndWin32.cpp - the panes of a comparison kept in step.
//
// The synchronisation pass.  A text pane whose selection changed, or that
// found a search hit, sends WM_PANE_SYNCHRONIZE with its first visible line
// and column to its CVnPaneWnd, which sends it on, unchanged, to the top
// splitter.  Then:
//
//   1. The splitter visits its panes row by row, column by column, and
//      sends the message to each pane that is not the origin.  A nested
//      splitter repeats this step on its own panes; a CVnPaneWnd scrolls its
//      text to GetSyncLine and its column, and its numbers to the line.
//   2. In the same loop, each column's horizontal bar is brought to the
//      column, held within its range.
//   3. The vertical bars are brought to the line through OnVScroll with
//      SB_THUMBPOSITION.
//
// The pass ends because the origin is never sent to and a pane that is not
// the origin never sends on.
//
// Scrolling.  A bar's message goes to the panes (of the whole grid when the
// splitter has several rows), and then the bars set their own positions by
// a step table: the panes scroll the text, the bars only mirror it.
// Horizontal scrolling is always decided by the outermost splitter, so that
// the panes above and below a nested splitter move together.
#include "window/VnRichEditSplitterWnd.h"

#include "afx/win32/AfxMsgMap.h"
#include "window/VnPaneMessages.h"
#include "window/VnPaneSync.h"
#include "window/VnPaneWnd.h"
#include "window/VnTextPane.h"

#include <algorithm>
#include <cassert>

IMPLEMENT_DYNCREATE(CVnRichEditSplitterWnd, CSplitterWnd)

BEGIN_MESSAGE_MAP(CVnRichEditSplitterWnd, CSplitterWnd)
ON_WM_DESTROY()
ON_WM_LBUTTONUP()
ON_WM_SIZE()
ON_MESSAGE(WM_PANE_SYNCHRONIZE, OnSynchronize)
ON_MESSAGE(WM_PANE_SETDEFAULTCHARFORMAT, OnSetDefaultCharFormat)
ON_MESSAGE(WM_PANE_SETTABSTOPS, OnSetTabStops)
ON_MESSAGE(WM_PANE_GOTOBEGINNING, OnGoToBeginning)
ON_MESSAGE(WM_PANE_RESIZEINTERNALPANES, OnResizeInternalPanes)
ON_MESSAGE(WM_PANE_GETMAXLINECOUNT, OnGetMaxLineCount)
END_MESSAGE_MAP()

static CVnPaneWnd* AsPane(CWnd* wnd) {
  return wnd && wnd->IsKindOf(RUNTIME_CLASS(CVnPaneWnd)) ? static_cast<CVnPaneWnd*>(wnd) : nullptr;
}

static CVnRichEditSplitterWnd* AsSplitter(CWnd* wnd) {
  return wnd && wnd->IsKindOf(RUNTIME_CLASS(CVnRichEditSplitterWnd)) ? static_cast<CVnRichEditSplitterWnd*>(wnd)
                                                                     : nullptr;
}

static LPARAM BarWnd(CScrollBar* bar) { return reinterpret_cast<LPARAM>(bar ? bar->m_hWnd : nullptr); }

CScrollBar* CVnRichEditSplitterWnd::GetBar(UINT id) const {
  CWnd* wnd = GetDlgItem(static_cast<int>(id));
  return wnd && wnd->IsKindOf(RUNTIME_CLASS(CScrollBar)) ? static_cast<CScrollBar*>(wnd) : nullptr;
}

// The message to every pane that exists; the last answer, or with
// stopAtZero the first 0.
LRESULT CVnRichEditSplitterWnd::SendToPanes(UINT message, WPARAM wParam, LPARAM lParam, bool stopAtZero) {
  LRESULT result = 0;
  for (int r = 0; r < GetRowCount(); ++r) {
    for (int c = 0; c < GetColumnCount(); ++c) {
      if (CWnd* pane = GetPane(r, c)) {
        result = pane->SendMessage(message, wParam, lParam);
        if (stopAtZero && result == 0)
          return 0;
      }
    }
  }
  return result;
}

//===-- The synchronisation pass -------------------------------------------===//

int CVnRichEditSplitterWnd::GetSyncLine(CVnPaneWnd*, CVnPaneWnd*, int line) { return line; }

// Step 2: the column's bar to the pane's column, within the bar's range.
static void FollowColumn(CScrollBar* bar, int column) {
  int pos = bar->GetScrollPos(), min = 0, max = 0;
  bar->GetScrollRange(&min, &max);
  int delta = std::max(-pos, std::min(column - pos, max - pos));
  if (delta != 0)
    bar->SetScrollPos(pos + delta, TRUE);
}

LRESULT CVnRichEditSplitterWnd::OnSynchronize(WPARAM wParam, LPARAM lParam) {
  const CVnPaneSync* sync = reinterpret_cast<const CVnPaneSync*>(wParam);
  CWnd* origin = reinterpret_cast<CVnPaneWnd*>(lParam);
  for (int r = 0; r < GetRowCount(); ++r) {
    for (int c = 0; c < GetColumnCount(); ++c) {
      CWnd* pane = GetPane(r, c);
      if (!pane)
        continue;
      if (pane != origin)
        pane->SendMessage(WM_PANE_SYNCHRONIZE, wParam, lParam);
      CScrollBar* bar = (GetScrollStyle() & WS_HSCROLL) ? GetBar(AFX_IDW_HSCROLL_FIRST + c) : nullptr;
      if (bar)
        FollowColumn(bar, sync->GetChar());
    }
  }
  OnVScroll(SB_THUMBPOSITION, static_cast<UINT>(sync->GetLine()), nullptr);
  return 0;
}

//===-- Vertical scrolling -------------------------------------------------===//

// Without a bar, bar 0xEA10.  A splitter of one row lets its base send the
// message along the row, to the row's own bar.
void CVnRichEditSplitterWnd::OnVScroll(UINT code, UINT pos, CScrollBar* bar) {
  if (!bar)
    bar = GetBar(AFX_IDW_VSCROLL_FIRST);
  if (GetRowCount() > 1) {
    SendToPanes(WM_VSCROLL, MAKEWPARAM(code, pos), BarWnd(bar), false);
  } else {
    if (bar && bar->GetDlgCtrlID() > static_cast<int>(AFX_IDW_VSCROLL_FIRST) - 1 + GetRowCount())
      bar = GetBar(AFX_IDW_VSCROLL_FIRST);
    CSplitterWnd::OnVScroll(code, pos, bar);
  }
  for (int r = 0; (GetScrollStyle() & WS_VSCROLL) && r < GetRowCount(); ++r) {
    if (CScrollBar* rowBar = GetBar(AFX_IDW_VSCROLL_FIRST + r))
      SetNewVScrollPos(rowBar, code, pos);
  }
}

// The lines a vertical code moves the bar by, before it is held in range.
static int VerticalStep(UINT code, UINT pos, int cur, int max, int page) {
  switch (code) {
  case SB_LINEUP:
    return -1;
  case SB_LINEDOWN:
    return 1;
  case SB_PAGEUP:
    return -page;
  case SB_PAGEDOWN:
    return page;
  case SB_THUMBPOSITION:
    return static_cast<int>(pos) - cur;
  case SB_TOP:
    return -cur;
  case SB_BOTTOM:
    return max - cur + 1;
  default:
    return 0;  // SB_THUMBTRACK included: the bar moves when the thumb is let go
  }
}

// The page is the visible line count of the row's first CVnPaneWnd (through
// a nested splitter's pane (0, 0)), at least 1.  It is measured only for
// the page codes: a synchronisation pass ends here with SB_THUMBPOSITION.
void CVnRichEditSplitterWnd::SetNewVScrollPos(CScrollBar* bar, UINT code, UINT pos) {
  int page = 1;
  if (code == SB_PAGEUP || code == SB_PAGEDOWN) {
    CWnd* pane = GetPane(bar->GetDlgCtrlID() - static_cast<int>(AFX_IDW_VSCROLL_FIRST), 0);
    if (CVnRichEditSplitterWnd* nested = AsSplitter(pane))
      pane = nested->GetPane(0, 0);
    if (CVnPaneWnd* paneWnd = AsPane(pane))
      page = std::max(1, paneWnd->GetVisibleLineCount());
  }
  int cur = bar->GetScrollPos(), min = 0, max = 0;
  bar->GetScrollRange(&min, &max);
  int step = std::max(-cur, std::min(VerticalStep(code, pos, cur, max, page), max - cur));
  if (step != 0)
    bar->SetScrollPos(cur + step, TRUE);
}

//===-- Horizontal scrolling -----------------------------------------------===//

void CVnRichEditSplitterWnd::OnHScroll(UINT code, UINT pos, CScrollBar* bar) {
  if (!bar)
    bar = GetBar(AFX_IDW_HSCROLL_FIRST);
  CWnd* parent = GetParent();
  if (AsSplitter(parent)) {
    parent->SendMessage(WM_HSCROLL, MAKEWPARAM(code, pos), BarWnd(bar));
    return;
  }
  DoHScroll(code, pos, bar);
}

// With a nested splitter in pane (0, 0), that splitter scrolls its panes and
// pane (1, 0) follows; else every pane, column by column.
void CVnRichEditSplitterWnd::DoHScroll(UINT code, UINT pos, CScrollBar* bar) {
  CVnRichEditSplitterWnd* nested = GetRowCount() > 1 ? AsSplitter(GetPane(0, 0)) : nullptr;
  if (nested) {
    nested->DoHScroll(code, pos, bar);
    if (CWnd* below = GetPane(1, 0))
      below->SendMessage(WM_HSCROLL, MAKEWPARAM(code, pos), BarWnd(bar));
    if (CScrollBar* first = GetBar(AFX_IDW_HSCROLL_FIRST))
      SetNewHScrollPos(first, code, pos);
    return;
  }
  if (GetColumnCount() > 1) {
    for (int c = 0; c < GetColumnCount(); ++c)
      for (int r = 0; r < GetRowCount(); ++r)
        if (CWnd* pane = GetPane(r, c))
          pane->SendMessage(WM_HSCROLL, MAKEWPARAM(code, pos), BarWnd(bar));
  } else {
    if (bar && bar->GetDlgCtrlID() > static_cast<int>(AFX_IDW_HSCROLL_FIRST) - 1 + GetColumnCount())
      bar = GetBar(AFX_IDW_HSCROLL_FIRST);
    CSplitterWnd::OnHScroll(code, pos, bar);
  }
  for (int c = 0; (GetScrollStyle() & WS_HSCROLL) && c < GetColumnCount(); ++c) {
    if (CScrollBar* colBar = GetBar(AFX_IDW_HSCROLL_FIRST + c))
      SetNewHScrollPos(colBar, code, pos);
  }
}

// A horizontal page is always 8 columns, whatever the pane's width.
static int HorizontalStep(UINT code, UINT pos, int cur) {
  switch (code) {
  case SB_LINELEFT:
    return -1;
  case SB_LINERIGHT:
    return 1;
  case SB_PAGELEFT:
    return -8;
  case SB_PAGERIGHT:
    return 8;
  case SB_THUMBPOSITION:
    return static_cast<int>(pos) - cur;
  case SB_LEFT:
    return -cur;
  default:
    return 0;
  }
}

void CVnRichEditSplitterWnd::SetNewHScrollPos(CScrollBar* bar, UINT code, UINT pos) {
  int cur = bar->GetScrollPos(), min = 0, max = 0;
  bar->GetScrollRange(&min, &max);
  int step = std::max(-cur, std::min(HorizontalStep(code, pos, cur), max - cur));
  if (step != 0)
    bar->SetScrollPos(cur + step, TRUE);
}

void CVnRichEditSplitterWnd::SetupHScrollBars() {
  for (int c = 0; (GetScrollStyle() & WS_HSCROLL) && c < GetColumnCount(); ++c) {
    if (CScrollBar* bar = GetBar(AFX_IDW_HSCROLL_FIRST + c))
      bar->SetScrollRange(0, 200, TRUE);
  }
}

// The range of a row is the line count of its pane in column 0: once
// aligned, the panes of a row have equal counts.
void CVnRichEditSplitterWnd::SetupVScrollBars() {
  for (int r = 0; (GetScrollStyle() & WS_VSCROLL) && r < GetRowCount(); ++r) {
    CScrollBar* bar = GetBar(AFX_IDW_VSCROLL_FIRST + r);
    CWnd* pane = GetPane(r, 0);
    if (bar && pane)
      bar->SetScrollRange(0, static_cast<int>(pane->SendMessage(WM_PANE_GETMAXLINECOUNT)), TRUE);
  }
}

//===-- Operations on every pane -------------------------------------------===//

int CVnRichEditSplitterWnd::CreateInternalPanes() {
  int result = 0;
  for (int r = 0; r < GetRowCount(); ++r) {
    for (int c = 0; c < GetColumnCount(); ++c) {
      CWnd* pane = GetPane(r, c);
      if (CVnRichEditSplitterWnd* nested = AsSplitter(pane))
        result = nested->CreateInternalPanes();
      else if (CVnPaneWnd* paneWnd = AsPane(pane))
        result = paneWnd->CreateInternalPanes();
    }
  }
  return result;
}

int CVnRichEditSplitterWnd::SetDefaultCharFormat(const CHARFORMATW& format) {
  return static_cast<int>(SendToPanes(WM_PANE_SETDEFAULTCHARFORMAT, 0, reinterpret_cast<LPARAM>(&format), false));
}

int CVnRichEditSplitterWnd::SetTabStops(const CHARFORMATW& format, unsigned int tab) {
  return static_cast<int>(SendToPanes(WM_PANE_SETTABSTOPS, tab, reinterpret_cast<LPARAM>(&format), true));
}

long CVnRichEditSplitterWnd::GetMaxLineCount() {
  long most = 0;
  for (int r = 0; r < GetRowCount(); ++r) {
    for (int c = 0; c < GetColumnCount(); ++c) {
      if (CWnd* pane = GetPane(r, c))
        most = std::max(most, static_cast<long>(pane->SendMessage(WM_PANE_GETMAXLINECOUNT)));
    }
  }
  return most;
}

// One width serves every pane; each row's first CVnPaneWnd is asked, and
// the last row's answer counts.  Nested splitters are not asked.
long CVnRichEditSplitterWnd::GetLineNumWidth(const CHARFORMATW& format, int show) {
  if (!show)
    return 0;
  long count = GetMaxLineCount(), width = 0;
  for (int r = 0; r < GetRowCount(); ++r) {
    for (int c = 0; c < GetColumnCount(); ++c) {
      if (CVnPaneWnd* pane = AsPane(GetPane(r, c))) {
        width = pane->GetLineNumWidth(format, count);
        break;
      }
    }
  }
  return width;
}

void CVnRichEditSplitterWnd::ResizeInternalPanes(long width) {
  SendToPanes(WM_PANE_RESIZEINTERNALPANES, 0, static_cast<LPARAM>(width), false);
}

// Every pane to its first line and column; the caret to the start of the
// first text pane, and the bars to 0.
void CVnRichEditSplitterWnd::GoToBeginning() {
  SendToPanes(WM_PANE_GOTOBEGINNING, 0, 0, false);
  if (CVnPaneWnd* first = AsPane(GetPane(0, 0))) {
    CVnTextPane* text = first->GetTextPane();
    SetActivePane(0, 0, text);
    text->ShowCaret();
    text->SetSel(0, 0);
  }
  OnVScroll(SB_THUMBPOSITION, 0, nullptr);
  CScrollBar* bar = GetBar(AFX_IDW_HSCROLL_FIRST);
  CWnd* parent = GetParent();
  if (AsSplitter(parent))
    parent->SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 0), BarWnd(bar));
  else
    DoHScroll(SB_THUMBPOSITION, 0, bar);
}

void CVnRichEditSplitterWnd::SetInitialFocus(bool secondRow) {
  CVnPaneWnd* pane = AsPane(GetPane(secondRow ? 1 : 0, 0));
  assert(pane && "the first pane of the row is a CVnPaneWnd");
  pane->GetTextPane()->SetFocus();
}

//===-- The private messages, for a nested splitter ------------------------===//

LRESULT CVnRichEditSplitterWnd::OnSetDefaultCharFormat(WPARAM, LPARAM lParam) {
  return SetDefaultCharFormat(*reinterpret_cast<const CHARFORMATW*>(lParam));
}

LRESULT CVnRichEditSplitterWnd::OnSetTabStops(WPARAM wParam, LPARAM lParam) {
  return SetTabStops(*reinterpret_cast<const CHARFORMATW*>(lParam), static_cast<unsigned int>(wParam));
}

LRESULT CVnRichEditSplitterWnd::OnGoToBeginning(WPARAM, LPARAM) {
  GoToBeginning();
  return 0;
}

LRESULT CVnRichEditSplitterWnd::OnResizeInternalPanes(WPARAM, LPARAM lParam) {
  ResizeInternalPanes(static_cast<long>(lParam));
  return 0;
}

LRESULT CVnRichEditSplitterWnd::OnGetMaxLineCount(WPARAM, LPARAM) { return GetMaxLineCount(); }

//===-- The divider's share, size and lifetime -----------------------------===//

// Any release of the button may end a drag: the share is measured against
// the whole client area.
void CVnRichEditSplitterWnd::OnLButtonUp(UINT flags, CPoint point) {
  CSplitterWnd::OnLButtonUp(flags, point);
  CWnd* first = GetPane(0, 0);
  if (!first)
    return;
  CRect pane, whole;
  first->GetClientRect(&pane);
  GetClientRect(&whole);
  bool rows = GetRowCount() > 1;
  int measure = rows ? whole.Height() : whole.Width();
  if (measure > 0)
    m_fSplitRatio = static_cast<float>(rows ? pane.Height() : pane.Width()) / static_cast<float>(measure);
}

// A minimised or empty window keeps its share and its rows; the next real
// size applies the share again, to the client area less a bar's width at
// either end.
void CVnRichEditSplitterWnd::OnSize(UINT type, int cx, int cy) {
  CSplitterWnd::OnSize(type, cx, cy);
  if (type == SIZE_MINIMIZED || cx == 0 || cy == 0)
    return;
  CRect client;
  GetClientRect(&client);
  int current = 0, minimum = 0;
  if (GetRowCount() > 1) {
    int edge = ::GetSystemMetrics(SM_CXHSCROLL);
    GetRowInfo(0, current, minimum);
    SetRowInfo(0, static_cast<int>(static_cast<float>(client.Height() - 2 * edge) * m_fSplitRatio), minimum);
  } else if (GetColumnCount() > 1) {
    int edge = ::GetSystemMetrics(SM_CXVSCROLL);
    GetColumnInfo(0, current, minimum);
    SetColumnInfo(0, static_cast<int>(static_cast<float>(client.Width() - 2 * edge) * m_fSplitRatio), minimum);
  }
  RecalcLayout();
}

// Panes are deleted by their virtual destructors; a nested splitter is its
// owner's, and deletes its own panes when its window goes.
void CVnRichEditSplitterWnd::OnDestroy() {
  for (int r = 0; r < GetRowCount(); ++r) {
    for (int c = 0; c < GetColumnCount(); ++c) {
      CWnd* pane = GetPane(r, c);
      if (pane && !pane->IsKindOf(RUNTIME_CLASS(CSplitterWnd)))
        delete pane;
    }
  }
  CWnd::OnDestroy();
}

// A close always reaches the frame.
void CVnRichEditSplitterWnd::OnClose() {
  if (HWND parent = ::GetParent(m_hWnd))
    ::PostMessageW(parent, WM_CLOSE, 0, 0);
}
