// VnLineNumPaneWin32.cpp - the number column: its rows, its width, and a
// control that the user can't enter.
//
// Rows are separated by the pane's terminator, with none behind the last,
// since a terminator there would add an empty row.  A column of double
// numbers has two fields a row, each as wide as the largest number, so that
// every row is equally wide and a blank field keeps the second number in
// its place.
#include "window/VnLineNumPane.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CDC.h"
#include "afx/win32/CFont.h"

#include <vector>

IMPLEMENT_DYNCREATE(CVnLineNumPane, CVnRichEditPane)

BEGIN_MESSAGE_MAP(CVnLineNumPane, CVnRichEditPane)
  ON_WM_SETFOCUS()
  ON_WM_LBUTTONDOWN()
END_MESSAGE_MAP()

BOOL CVnLineNumPane::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  if (!CVnRichEditPane::Create(style, rect, parent, id))
    return FALSE;
  SetBackgroundColor(FALSE, ::GetSysColor(COLOR_SCROLLBAR));
  return TRUE;
}

// The default procedure doesn't run: no caret, no selection by the mouse.
void CVnLineNumPane::OnSetFocus(CWnd*) {}
void CVnLineNumPane::OnLButtonDown(UINT, CPoint) {}

//===-- Counting -----------------------------------------------------------===//

int CVnLineNumPane::GetMaxDigits(int number) {
  CString digits;
  digits.Format(L"%d", number == 0 ? GetLineCount() : number);
  return digits.GetLength();
}

int CVnLineNumPane::Power(int digits) {
  int power = 1;
  for (int k = 1; k < digits; ++k)
    power *= 10;
  return power;
}

// The numbers of d digits, then the 9 of one digit, the 90 of two and so
// on, then a terminator between each two numbers.  For 12 and "\r\n":
// 3 * 2 + 9 + 11 * 2 = 37.
int CVnLineNumPane::CalcTextLength(int count) {
  int d = GetMaxDigits(count);
  int length = (count - Power(d) + 1) * d;
  for (int k = 1; k < d; ++k)
    length += 9 * k * Power(k);
  return length + GetLineTerminator().GetLength() * (count - 1);
}

//===-- Rows ---------------------------------------------------------------===//

void CVnLineNumPane::DisplayLineNumbers(int count) {
  if (count == 0)
    SetWindowText(L"");
  int length = CalcTextLength(count);
  if (length <= 0)
    return;
  const CString& terminator = GetLineTerminator();
  CString text;
  text.GetBuffer(length);
  text.ReleaseBuffer(0);
  for (int i = 1; i <= count; ++i) {
    text.AppendFormat(L"%d", i);
    if (i < count)
      text += terminator;
  }
  SetWindowText(text);
}

// At the end of the text, whatever the selection was.
static void AppendRow(CVnLineNumPane& pane, const CString& row) {
  pane.SetSel(-1, -1);
  pane.ReplaceSel(row + pane.GetLineTerminator(), FALSE);
}

void CVnLineNumPane::AddLineNumber(int number, int largest) {
  CString row;
  row.Format(L"%-*d", GetMaxDigits(largest), number);
  AppendRow(*this, row);
}

void CVnLineNumPane::AddSinglePaneLineNumber(int first, int second, int largest) {
  int w = GetMaxDigits(largest);
  CString blank, row;
  blank.Format(L"%-*s", w, L" ");
  if (first == 0)
    row.Format(L"%s %-*d", blank.GetString(), w, second);
  else if (second == 0)
    row.Format(L"%-*d %s", w, first, blank.GetString());
  else
    row.Format(L"%-*d %-*d", w, first, w, second);
  AppendRow(*this, row);
}

//===-- Width --------------------------------------------------------------===//

// The measured text ends in a blank: the gap between number and text.
int CVnLineNumPane::CalcTextWidth(const CHARFORMATW& format, long count, int doubled) {
  CClientDC dc(this);
  CFont font;
  font.CreatePointFont(static_cast<int>(format.yHeight / 20) * 10, format.szFaceName);
  HGDIOBJ old = dc.SelectObject(&font);
  CString text;
  if (doubled)
    text.Format(L"%ld %ld ", count, count);
  else
    text.Format(L"%ld ", count);
  int width = dc.GetTextExtent(text, text.GetLength()).cx;
  dc.SelectObject(old);
  return width;
}

//===-- Joining two columns ------------------------------------------------===//

namespace {
// One column's text, read a row at a time.
struct ColumnReader {
  LPCWSTR at;
  bool Done() const { return *at == 0; }
  // Copies up to w characters of the row into out, stopping at a character
  // of the terminator or at the end; skips the terminator's n characters if
  // it stopped there.  Gives the characters copied.
  int CopyRow(std::vector<WCHAR>& out, int w, const CString& terminator) {
    int copied = 0;
    while (copied < w && *at && terminator.Find(*at) < 0) {
      out.push_back(*at++);
      ++copied;
    }
    if (copied < w) {
      for (int k = 0; k < terminator.GetLength() && *at; ++k)
        ++at;
    }
    return copied;
  }
};
}  // namespace

// Row by row: this column's field padded to w, the other's field, the
// terminator.  Stops when either column runs out, or at the buffer's size.
void CVnLineNumPane::Concatenate(CVnLineNumPane& other, const CHARFORMATW& format) {
  HideSelection(TRUE, TRUE);
  CString mine, theirs;
  GetWindowText(mine);
  other.GetWindowText(theirs);
  const CString& terminator = GetLineTerminator();
  int n = terminator.GetLength();
  int rows = GetLineCount() > other.GetLineCount() ? GetLineCount() : other.GetLineCount();
  int mineLast = LineLength(LineIndex(GetLineCount() - 1));
  int theirsLast = other.LineLength(other.LineIndex(other.GetLineCount() - 1));
  int longest = mineLast > theirsLast ? mineLast : theirsLast;
  size_t capacity = static_cast<size_t>(n + 2 * longest + 2) * rows;
  int w = GetMaxDigits(rows) + 1;
  std::vector<WCHAR> out;
  ColumnReader a = {mine}, b = {theirs};
  while (!a.Done() && !b.Done() && out.size() < capacity) {
    for (int k = a.CopyRow(out, w, terminator); k < w; ++k)
      out.push_back(L' ');
    b.CopyRow(out, w, terminator);
    out.insert(out.end(), terminator.GetString(), terminator.GetString() + n);
  }
  out.push_back(0);
  CHARFORMATW cf = format;
  SetDefaultCharFormat(cf);
  // The new text takes the default format, not that of the text it replaces.
  SendMessage(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&cf));
  SetWindowText(out.data());
}
