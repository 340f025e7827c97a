// VnLineNumPane.h - the line number column left of a text pane.
//
// A rich edit pane whose text is the line numbers, one row for each row of
// the text pane, so that the two scroll together row by row; an alignment
// row of the text has an empty row here.  Rows are decimal numbers without
// separators, or, in a column of double numbers (both files in one pane),
// two fields as wide as the largest number, either of them blank.  The
// column has the scroll bar colour as background and takes neither the
// focus's caret nor clicks.  It measures how wide it must be.
//
// Windows only.
#ifndef VN_WINDOW_VNLINENUMPANE_H
#define VN_WINDOW_VNLINENUMPANE_H

#include "window/VnRichEditPane.h"

class VN_API CVnLineNumPane : public CVnRichEditPane {
  DECLARE_DYNCREATE(CVnLineNumPane)
public:
  CVnLineNumPane() = default;

  // The control, with the system's scroll bar colour as background.  (The
  // control joins this object only once it exists, so its WM_CREATE never
  // reaches the map: creation is where the colour is set.)
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

  // The rows 1 to count, a terminator between each two; empty for 0.
  void DisplayLineNumbers(int count);
  // Appends a row: number, left-aligned in the width of largest.
  void AddLineNumber(int number, int largest);
  // Appends a row of two fields, each the width of largest; a number 0 is a
  // blank field (when both are 0, the second is written as 0).
  void AddSinglePaneLineNumber(int first, int second, int largest);
  // Joins other's rows behind this column's, row by row, into this column,
  // in format; rows of the longer column beyond the shorter are dropped.
  void Concatenate(CVnLineNumPane& other, const CHARFORMATW& format);
  // Pixels that count (twice, if doubled) and a blank take in format's font.
  int CalcTextWidth(const CHARFORMATW& format, long count, int doubled);
  // The decimal digits of number; of the line count when number is 0.
  int GetMaxDigits(int number);

protected:
  // The length of the text of DisplayLineNumbers(count).
  int CalcTextLength(int count);
  // The smallest number with digits digits; 1 below 2 digits.
  int Power(int digits);

  void OnSetFocus(CWnd* oldWnd);
  void OnLButtonDown(UINT flags, CPoint point);

  DECLARE_MESSAGE_MAP()
};

#endif  // VN_WINDOW_VNLINENUMPANE_H
