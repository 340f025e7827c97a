// VnRichEditPaneMeasureWin32.cpp - what a rich edit pane measures and reads:
// rows that fit, rows after alignment, widths of text, lines, the caret and
// the column at the left edge.
//
// Widths are measured in the font of a character format, made at whole
// points (the half point of a 190 twip height is lost), in the control's
// own device context.  The control tells the selection but not at which end
// the caret stands, nor which column is at its left edge: both are worked
// out by comparing the caret's position with those of the selection's ends.
#include "window/VnRichEditPane.h"

#include "afx/win32/CDC.h"
#include "afx/win32/CFont.h"
#include "engine/VnDiffChange.h"
#include "window/VnPaneWnd.h"

#include <cassert>

//===-- Fonts and widths ---------------------------------------------------===//

// Makes format's font at whole points and selects it into dc; old receives
// what it replaced, to be selected back.
void CVnRichEditPane::SelectFormatFont(CDC& dc, CFont& font, const CHARFORMATW& format, HGDIOBJ& old) {
  int tenths = static_cast<int>(format.yHeight / 20) * 10;
  font.CreatePointFont(tenths, format.szFaceName);
  old = dc.SelectObject(&font);
}

// Whole rows of the default font that fit in the client area.
int CVnRichEditPane::GetVisibleLineCount() {
  CClientDC dc(this);
  CFont font;
  HGDIOBJ old = nullptr;
  SelectFormatFont(dc, font, GetPaneCharFormat(), old);
  TEXTMETRICW metrics = {};
  dc.GetTextMetrics(&metrics);
  dc.SelectObject(old);
  CRect client;
  GetClientRect(&client);
  return metrics.tmHeight > 0 ? client.bottom / metrics.tmHeight : 0;
}

static long CountRows(const CPtrArray& changes, CVnDiffChange::Action action) {
  long rows = 0;
  for (INT_PTR k = 0; k < changes.GetSize(); ++k) {
    const CVnDiffChange* change = static_cast<const CVnDiffChange*>(changes.GetAt(k));
    assert(change && "change lists hold records");
    if (change->GetAction() != action)
      continue;
    rows += action == CVnDiffChange::Delete ? change->SourceChangeLen() : change->TargetChangeLen();
  }
  return rows;
}

int CVnRichEditPane::GetTotalLineCount(const CPtrArray& first, const CPtrArray& second) {
  return GetLineCount() + static_cast<int>(CountRows(first, CVnDiffChange::Delete)) +
         static_cast<int>(CountRows(second, CVnDiffChange::Insert));
}

// One tab stop, at the width of a tab character times the tab size; the
// answer is the low half of GetTabbedTextExtent, signed.
int CVnRichEditPane::GetFormattedTextLength(const CHARFORMATW& format, LPCWSTR text) {
  CClientDC dc(this);
  CFont font;
  HGDIOBJ old = nullptr;
  SelectFormatFont(dc, font, format, old);
  int tabSize = static_cast<int>(GetPaneOptions().GetTabSize());
  int tabStop = dc.GetTextExtent(L"\t", 1).cx * tabSize;
  int length = text ? ::lstrlenW(text) : 0;
  int width = dc.GetTabbedTextExtent(text ? text : L"", length, 1, &tabStop).cx;
  dc.SelectObject(old);
  return width;
}

//===-- Lines --------------------------------------------------------------===//

// Gives 0 and leaves text alone for a line the control hasn't.
int CVnRichEditPane::GetPaneLine(int line, CString& text) {
  if (line < 0 || line >= GetLineCount())
    return 0;
  int index = LineIndex(line);
  if (index == -1)
    return 0;
  CString read;
  GetLine(line, read);
  text = read.Left(LineLength(index));
  return 1;
}

int CVnRichEditPane::GetMaxLineLength() {
  int count = GetLineCount();
  int longest = 0;
  for (int line = 0; line < count; ++line) {
    int index = LineIndex(line);
    if (index == -1)
      continue;
    int length = LineLength(index);
    if (length > longest)
      longest = length;
  }
  return longest;
}

//===-- Positions ----------------------------------------------------------===//

// The character in front of the first one, from the second visible
// character on, that stands below point, or level with it and to its right;
// the text length if there is none.
long CVnRichEditPane::CharFromPos(CPoint point) {
  int length = TextLength();
  for (int c = LineIndex(GetFirstVisibleLine()) + 1; c < length; ++c) {
    CPoint at = PosFromChar(static_cast<UINT>(c));
    if (at.y > point.y || (at.y == point.y && at.x > point.x))
      return c - 1;
  }
  return length;
}

// The caret stands at the start of the selection if its position is that
// character's; else at the end.  A selection ending at the very start of a
// line is told as the end of the line before it, one column past its
// length; one that reaches behind the text's last character (the final
// paragraph mark) is told one column back.
void CVnRichEditPane::GetCurrentCaret(long& line, long& column) {
  int caretLine = LineIndex(-1);
  line = LineFromChar(caretLine);
  long s = 0, e = 0;
  GetSel(s, e);
  CPoint caret = GetCaretPos();
  long c = PosFromChar(static_cast<UINT>(s)) == caret ? s : e;
  column = c - caretLine;
  if (s == e)
    return;
  if (line != 0 && c == caretLine) {
    line -= 1;
    column = LineLength(LineIndex(static_cast<int>(line))) + 1;
    return;
  }
  if (caretLine + column > TextLength() && column != 0)
    column -= 1;
}

// Characters at the end of prefix, counted back from the caret, that fit
// left of caretX: the string loses its first character until it fits.
static int CharsLeftOfCaret(CVnRichEditPane& pane, const CHARFORMATW& format, CString prefix, int caretX) {
  int n = prefix.GetLength();
  while (pane.GetFormattedTextLength(format, prefix) > caretX && n > 0) {
    --n;
    prefix = prefix.Right(n);
  }
  return prefix.GetLength();
}

// Without the focus there is no caret to go by: the last stored column.
// Otherwise the caret's column on its line, less the columns that fit left
// of it: counted in widths of a space for text without tabs, character by
// character from the caret back where tabs make widths uneven.
int CVnRichEditPane::GetFirstVisibleChar() {
  CPoint caret = GetCaretPos();
  if (::GetFocus() != m_hWnd || caret.x < 0)
    return m_nFirstVisibleChar;
  const CHARFORMATW& format = GetPaneCharFormat();
  unsigned int tabSize = GetPaneOptions().GetTabSize();
  long s = 0, e = 0;
  GetSel(s, e);
  CPoint atStart = PosFromChar(static_cast<UINT>(s));
  CPoint atEnd = PosFromChar(static_cast<UINT>(e));
  if (caret != atStart && caret != atEnd && e != 0) {
    --e;
    atEnd = PosFromChar(static_cast<UINT>(e));
  }
  long c = caret == atEnd ? e : s;
  int lineNo = LineFromChar(static_cast<int>(c));
  int column = static_cast<int>(c) - LineIndex(lineNo);
  CString text;
  GetLine(lineNo, text);
  if (text.GetLength() > column)
    text = text.Left(column);
  int fit = 0;
  if (text.Find(L'\t') < 0 || tabSize == 1) {
    int space = GetFormattedTextLength(format, L" ");
    if (space <= 0)
      return m_nFirstVisibleChar;
    fit = caret.x / space;
  } else {
    fit = CharsLeftOfCaret(*this, format, text, caret.x);
  }
  m_nFirstVisibleChar = column - fit;
  return m_nFirstVisibleChar;
}
