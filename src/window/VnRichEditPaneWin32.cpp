// VnRichEditPaneWin32.cpp - line operations over the rich edit control.
//
// The control holds its text as paragraphs, each ended by one CR of its own,
// and a last paragraph with no visible end: a text that ends in a terminator
// has an empty last line, which the line count includes.  Lines go in and
// out through the selection: collapse or stretch it over whole lines with
// LineIndex, then EM_REPLACESEL (no undo) or WM_CLEAR.  A terminator of two
// characters ("\r\n") becomes one CR inside the control, so where a step must
// take back a paragraph mark it measures what the control holds rather than
// trusting the terminator's length; everywhere else the terminator's length
// is used as it is (ColorSelection stops half of it short of a line's end,
// which for "\r\n" is in front of the mark and for "\r" just behind it).
//
// The operations report nothing: a line beyond the end has the line index
// -1, and the operation then acts at the end of the text.
#include "window/VnRichEditPane.h"

#include "engine/VnDiffArg.h"
#include "options/VnAppFlags.h"
#include "window/VnPaneWnd.h"

#include <cassert>

IMPLEMENT_DYNCREATE(CVnRichEditPane, CRichEditCtrl)

static_assert(sizeof(CHARFORMATW) == 92, "the control's character format record is 92 bytes");

CVnRichEditPane::CVnRichEditPane() : m_nFirstVisibleChar(0), m_bHScrollReplay(0) {}

CVnRichEditPane::~CVnRichEditPane() {}

// The control is a window of a system class; subclassing it after creation
// routes its messages through this object, the control's own procedure
// doing the default work.
BOOL CVnRichEditPane::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CRichEditCtrl::Create(style, rect, parent, id) && SubclassCreated();
}

//===-- What the pane asks of its parent -----------------------------------===//

CVnPaneWnd* CVnRichEditPane::GetParentPane() const {
  CWnd* parent = GetParent();
  if (parent && parent->IsKindOf(RUNTIME_CLASS(CVnPaneWnd)))
    return static_cast<CVnPaneWnd*>(parent);
  return nullptr;
}

const CString& CVnRichEditPane::GetLineTerminator() const {
  if (!m_strLineTerminator.IsEmpty())
    return m_strLineTerminator;
  CVnPaneWnd* pane = GetParentPane();
  return pane ? pane->GetLineTerminator() : m_strLineTerminator;
}

// A pane outside a CVnPaneWnd measures with the default option values.
static const CVnDisplayOptions& DefaultOptions() {
  static const CVnDisplayOptions kDefaults;
  return kDefaults;
}

const CVnDisplayOptions& CVnRichEditPane::GetPaneOptions() const {
  CVnPaneWnd* pane = GetParentPane();
  return pane ? pane->GetDisplayOptions() : DefaultOptions();
}

const CHARFORMATW& CVnRichEditPane::GetPaneCharFormat() const {
  CVnPaneWnd* pane = GetParentPane();
  return pane ? pane->GetDefaultCharFormat() : DefaultOptions().GetCharFormat();
}

//===-- Positions ----------------------------------------------------------===//

// Outside the 2000 family the count is asked first and its answer dropped:
// that is when the control settles its paragraphs, and an index asked
// without it can be stale.
int CVnRichEditPane::LineIndex(int line) const {
  if (!CVnAppFlags::m_bWin2K)
    SendMessage(EM_GETLINECOUNT);
  return CRichEditCtrl::LineIndex(line);
}

// In the units of character indexes: each paragraph mark counts one.
// (WM_GETTEXTLENGTH counts it as CR LF, two.)
int CVnRichEditPane::TextLength() const { return static_cast<int>(GetTextLengthEx(GTL_NUMCHARS | GTL_PRECISE)); }

// A start of -1 (a line beyond the end) collapses the selection at the end
// of the text; the control itself would leave a start of -1 where the caret
// was.  An end of -1 runs to the end.
void CVnRichEditPane::SelectRange(int start, int end) {
  if (start < 0)
    SetSel(-1, -1);
  else
    SetSel(start, end);
}

// How many characters the paragraph mark in front of the line starting at
// lineStart takes in the control; 0 for the first line.
int CVnRichEditPane::ParagraphMarkBefore(int lineStart) const {
  int line = LineFromChar(lineStart);
  if (line <= 0)
    return 0;
  int previous = LineIndex(line - 1);
  return lineStart - (previous + LineLength(previous));
}

//===-- Inserting ----------------------------------------------------------===//

// Inserts count terminators in front of line.  With flag set, a line count
// above limit afterwards takes one of them back.  The row taken back is
// measured from the caret, as the control holds a terminator in fewer
// characters than it was given; and it is taken only from rows this call
// added, never from the text that was there.
int CVnRichEditPane::InsertBlankLines(int line, int count, int flag, int limit) {
  int i = LineIndex(line - 1);
  HideSelection(TRUE, FALSE);
  SelectRange(i, i);
  long at = 0, dummy = 0;
  GetSel(at, dummy);
  const CString& terminator = GetLineTerminator();
  long rowLength = 0;
  for (int k = 0; k < count; ++k) {
    ReplaceSel(terminator, FALSE);
    if (k == 0) {
      long end = 0;
      GetSel(end, dummy);
      rowLength = end - at;
    }
  }
  int rows = count > 0 ? count : 0;
  if (flag && rows > 0 && GetLineCount() > limit) {
    SetSel(at, at + rowLength);
    Clear();
    --rows;
  }
  return rows;
}

// The last character of a line set's line is dropped if it occurs in the
// terminator: the CR that a CR LF file leaves on its lines.
static CString LineWithoutEnd(const CVnDiffArg& arg, int index, const CString& terminator) {
  CString text = arg.GetLine(index);
  int length = text.GetLength();
  if (length > 0 && terminator.Find(text.GetAt(length - 1)) >= 0)
    text = text.Left(length - 1);
  return text;
}

// Puts count lines of another file's line set, from its 1-based line source
// on, in front of line, in format.  Past the end of the text the lines get a
// terminator in front (unless noLeadingBreak) and none behind the last one
// (unless lastLineBreak).  A source outside the line set raises the line
// set's failure, with the lines before it inserted.
int CVnRichEditPane::InsertDeletedLines(const CVnDiffArg& arg, int source, int count, int line, int noLeadingBreak,
                                        int lastLineBreak, const CHARFORMATW& format) {
  CString terminator = GetLineTerminator();
  int i = LineIndex(line - 1);
  SelectRange(i, i);
  bool atEnd = line - 1 >= GetLineCount();
  CHARFORMATW cf = format;
  if (atEnd && !noLeadingBreak)
    ReplaceSel(terminator, FALSE);
  SetSelectionCharFormat(cf);
  for (int k = 0; k < count; ++k) {
    CString text = LineWithoutEnd(arg, source + k - 1, terminator);
    if (!(atEnd && k == count - 1 && !lastLineBreak))
      text += terminator;
    ReplaceSel(text, FALSE);
    SetSelectionCharFormat(cf);
  }
  return count > 0 ? count : 0;
}

// text brings its own terminator if it is to be a line of its own.  Past
// the line count a terminator goes in first, and the text after it.
void CVnRichEditPane::InsertLine(int line, LPCWSTR text) {
  HideSelection(TRUE, FALSE);
  bool appended = false;
  if (line > GetLineCount()) {
    SetSel(-1, -1);
    ReplaceSel(GetLineTerminator(), FALSE);
    appended = true;
  }
  int i = LineIndex(line - 1);
  SelectRange(i, appended ? -1 : i);
  ReplaceSel(text, FALSE);
  HideSelection(FALSE, FALSE);
}

//===-- Deleting and replacing ---------------------------------------------===//

// The empty last line has no characters of its own: deleting it removes the
// paragraph mark in front of it.
void CVnRichEditPane::DeleteLine(int line) {
  HideSelection(TRUE, FALSE);
  int s = LineIndex(line - 1);
  if (s >= 0 && s == TextLength())
    s -= ParagraphMarkBefore(s);
  SelectRange(s, LineIndex(line));
  Clear();
  HideSelection(FALSE, FALSE);
}

void CVnRichEditPane::DeleteLines(int first, int count) {
  HideSelection(TRUE, FALSE);
  SelectRange(LineIndex(first - 1), LineIndex(first + count - 1));
  Clear();
  HideSelection(FALSE, FALSE);
}

// The line's terminator stays.
void CVnRichEditPane::ReplaceLine(int line, LPCWSTR text) {
  HideSelection(TRUE, FALSE);
  int i = LineIndex(line - 1);
  SelectRange(i, i + LineLength(i));
  ReplaceSel(text, FALSE);
  HideSelection(FALSE, FALSE);
}

//===-- Formats ------------------------------------------------------------===//

int CVnRichEditPane::SetDefaultCharFormat(CHARFORMATW& format) {
  format.cbSize = sizeof(CHARFORMATW);
  return static_cast<int>(SendMessage(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format)));
}

// Only size and face change, so the colours of the lines stay.  The window
// is hidden meanwhile, so a long text isn't redrawn step by step, and the
// event mask is 0, so the selection made to carry the format sets off no
// synchronisation.
int CVnRichEditPane::ChangeCharFormat(const CHARFORMATW& format) {
  long start = 0, end = 0;
  GetSel(start, end);
  ShowWindow(SW_HIDE);
  DWORD mask = SetEventMask(0);
  CHARFORMATW font = {};
  font.cbSize = sizeof(CHARFORMATW);
  font.dwMask = CFM_SIZE | CFM_FACE;
  font.yHeight = format.yHeight;
  ::lstrcpynW(font.szFaceName, format.szFaceName, LF_FACESIZE);
  int result = static_cast<int>(SendMessage(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&font)));
  SetSel(start, end);
  ShowWindow(SW_SHOW);
  SetEventMask(mask);
  return result;
}

// The selection stops half the terminator short of the end of line last:
// for a two-character terminator in front of the paragraph mark, for one
// character behind it.  With last the final line it runs to the end.
void CVnRichEditPane::ColorSelection(int first, int last, const CHARFORMATW& format) {
  int s = LineIndex(first - 1);
  int e = LineIndex(last);
  if (e != -1)
    e -= GetLineTerminator().GetLength() / 2;
  DWORD mask = SetEventMask(0);
  HideSelection(TRUE, TRUE);
  SelectRange(s, e);
  CHARFORMATW cf = format;
  SetSelectionCharFormat(cf);
  SetEventMask(mask);
}

void CVnRichEditPane::ColorCharacters(int line, int start, int end, const CHARFORMAT2W& format) {
  int s = LineIndex(line - 1);
  if (s < 0)
    return;
  DWORD mask = SetEventMask(0);
  HideSelection(TRUE, TRUE);
  SetSel(s + start, s + end);
  CHARFORMAT2W cf = format;
  SetSelectionCharFormat(cf);
  SetEventMask(mask);
}

// Three parts white to one part of the colour: light enough that the line's
// own text colour reads on it.
CHARFORMAT2W VnChangedWordsFormat(const CHARFORMATW& lines) {
  auto shade = [](unsigned channel) { return (channel + 3 * 255) / 4; };
  const COLORREF c = lines.crTextColor;
  CHARFORMAT2W format = {};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_BACKCOLOR;
  format.crBackColor = RGB(shade(GetRValue(c)), shade(GetGValue(c)), shade(GetBValue(c)));
  return format;
}

void CVnRichEditPane::SelectLines(int first, int last) {
  int s = LineIndex(first - 1);
  int e = LineIndex(last);
  HideSelection(TRUE, TRUE);
  SelectRange(s, e);
}

// The selection is left over the line, paragraph mark excluded.
void CVnRichEditPane::GetLineCharFormat(int line, CHARFORMATW& format) {
  int s = LineIndex(line - 1);
  int e = -1;
  if (s != -1) {
    e = LineIndex(line);
    if (e != -1)
      e -= 1;
  }
  SelectRange(s, e);
  GetSelectionCharFormat(format);
}
