// VnRichEditPaneScrollWin32.cpp - how a rich edit pane scrolls and closes.
//
// The panes of a comparison have no scroll bars of their own: the shared
// bars of the splitter send them WM_HSCROLL and WM_VSCROLL.  The control
// doesn't tell which column is at its left edge, so the pane counts it
// (m_nFirstVisibleChar) from the horizontal messages it receives, except
// those it sends itself while HScroll replays a position.  A thumb being
// dragged scrolls by whole lines at once; its release moves nothing, so
// that letting go of a bar never shifts the text.
#include "window/VnRichEditPane.h"

#include "afx/win32/CScrollBar.h"

// Left edge, then one column at a time to the right: the control moves to a
// column by its own messages only.  Some builds of the control take SB_LEFT
// to the top left corner; the first visible line is put back, as a
// sideways move must leave it.
void CVnRichEditPane::HScroll(int column, CScrollBar* bar) {
  LPARAM barWnd = reinterpret_cast<LPARAM>(bar ? bar->m_hWnd : nullptr);
  int top = GetFirstVisibleLine();
  m_bHScrollReplay = 1;
  SendMessage(WM_HSCROLL, MAKEWPARAM(SB_LEFT, 0), barWnd);
  int moved = GetFirstVisibleLine() - top;
  if (moved != 0)
    LineScroll(-moved);
  for (int k = 0; k < column; ++k)
    SendMessage(WM_HSCROLL, MAKEWPARAM(SB_LINERIGHT, 0), barWnd);
  m_nFirstVisibleChar = column;
  m_bHScrollReplay = 0;
}

// The columns a scroll code moves by; max is the top of the bar's range.
static int ColumnStep(UINT code, int max) {
  switch (code) {
  case SB_LINELEFT:
    return -1;
  case SB_LINERIGHT:
    return 1;
  case SB_PAGELEFT:
    return -8;
  case SB_PAGERIGHT:
    return 8;
  case SB_LEFT:
    return -max;
  default:
    return 0;  // thumb codes included: the thumb tells no column
  }
}

// The range comes from the bar that sent the message, or, for the control's
// own bar, from that.
void CVnRichEditPane::OnHScroll(UINT code, UINT pos, CScrollBar* bar) {
  if (!m_bHScrollReplay) {
    int min = 0, max = 0;
    if (bar)
      bar->GetScrollRange(&min, &max);
    else
      ::GetScrollRange(m_hWnd, SB_HORZ, &min, &max);
    int column = m_nFirstVisibleChar + ColumnStep(code, max);
    m_nFirstVisibleChar = column < 0 ? 0 : (column > max ? max : column);
  }
  CRichEditCtrl::OnHScroll(code, pos, bar);
}

void CVnRichEditPane::OnVScroll(UINT code, UINT pos, CScrollBar* bar) {
  if (code == SB_THUMBTRACK) {
    int first = GetFirstVisibleLine();
    if (static_cast<int>(pos) != first)
      LineScroll(static_cast<int>(pos) - first);
    return;
  }
  if (code == SB_THUMBPOSITION)
    return;
  CRichEditCtrl::OnVScroll(code, pos, bar);
}

// Sideways by the length of the caret's line, asked through the line's start:
// not every control answers EM_LINELENGTH for -1 with the caret's line.
void CVnRichEditPane::GoToBeginning() {
  LineScroll(-GetFirstVisibleLine());
  LineScroll(0, -LineLength(LineIndex(-1)));
}

// A pane never closes itself: the request goes up to the windows above.
void CVnRichEditPane::OnClose() {
  HWND parent = ::GetParent(m_hWnd);
  if (parent)
    ::PostMessageW(parent, WM_CLOSE, 0, 0);
}
