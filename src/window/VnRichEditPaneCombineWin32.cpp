// VnRichEditPaneCombineWin32.cpp - two panes written side by side into one,
// as the text a comparison prints.
//
// The printed text is one plain column of rows: for each row of the longer
// pane, the left pane's line filled with blanks to the width of the left
// pane's longest line, one blank, and the right pane's line, uncut.  A tab
// counts as one character in this.  Two header lines stand above the rows,
// the second header's line on top: each goes in on the caret's line, and
// the caret stands behind the one inserted before.  Of the
// panes' formats only one reaches the paper: a row whose left line is
// struck through (a deleted line) prints in that line's format over the
// whole row; every other row prints in the format the caller gives.
//
// The phases:
//   1. Note the rows selected in the right pane, if any.
//   2. Build the rows and make them this pane's text, in the given format.
//   3. Put the two header lines on top.
//   4. Strike through the rows of deleted lines.
//   5. Select the rows that were selected in the right pane (+2 for the
//      headers), or nothing.
#include "window/VnRichEditPane.h"

#include "afx/win32/CWinApp.h"

// The 0-based lines at the two ends of pane's selection; -1 and -1 when it
// is empty.
static void SelectedLines(CVnRichEditPane& pane, long& first, long& last) {
  first = last = -1;
  long start = 0, end = 0;
  pane.GetSel(start, end);
  if (start == end)
    return;
  first = pane.LineFromChar(start);
  last = pane.LineFromChar(end);
}

// A line past the end of a pane reads as the empty string.
static CString PaneLine(CVnRichEditPane& pane, int line) {
  CString text;
  pane.GetPaneLine(line, text);
  return text;
}

static CString CombinedRows(CVnRichEditPane& left, CVnRichEditPane& right, int rows, int width,
                            const CString& terminator) {
  CString text;
  for (int i = 0; i < rows; ++i) {
    CString row = PaneLine(left, i);
    row += CString(L' ', width - row.GetLength() + 1);
    row += PaneLine(right, i);
    row += terminator;
    text += row;
  }
  return text;
}

// Reading a line's format moves left's selection: its notifications are
// held back meanwhile, so that the reading starts no synchronisation.
void CVnRichEditPane::StrikeDeletedRows(CVnRichEditPane& left, int rows) {
  DWORD mask = left.SetEventMask(0);
  for (int line = 3; line <= rows + 2; ++line) {
    CHARFORMATW format = {};
    format.cbSize = sizeof(format);
    left.GetLineCharFormat(line - 2, format);
    if (format.dwEffects & CFE_STRIKEOUT)
      ColorSelection(line, line, format);
  }
  left.SetEventMask(mask);
}

void CVnRichEditPane::CombineForPrint(CVnRichEditPane* left, CVnRichEditPane* right, LPCWSTR header1,
                                      LPCWSTR header2, const CHARFORMATW& format) {
  CWinApp* app = AfxGetApp();
  if (app)
    app->BeginWaitCursor();
  long first = -1, last = -1;
  SelectedLines(*right, first, last);

  int leftRows = left->GetLineCount(), rightRows = right->GetLineCount();
  int rows = leftRows > rightRows ? leftRows : rightRows;
  const CString terminator = GetLineTerminator();
  CString text = CombinedRows(*left, *right, rows, left->GetMaxLineLength(), terminator);
  CHARFORMATW all = format;
  all.cbSize = sizeof(CHARFORMATW);
  SendMessage(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&all));
  SetWindowText(text);

  InsertLine(0, CString(header2) + terminator);
  InsertLine(0, CString(header1) + terminator);
  HideSelection(TRUE, FALSE);
  left->HideSelection(TRUE, FALSE);
  right->HideSelection(TRUE, FALSE);

  StrikeDeletedRows(*left, rows);
  if (first >= 0)
    SetSel(LineIndex(first + 2), LineIndex(last + 3));
  else
    SetSel(0, 0);
  if (app)
    app->EndWaitCursor();
}
