// VnRichEditPane.h - a rich edit control seen as a container of numbered
// lines.
//
// The control thinks in characters and selections; this class inserts,
// deletes, replaces, colours and counts whole lines, tells where the caret
// stands and which column is at the left edge.  The text and line number
// panes derive from it.  Every operation that changes the text works through
// the selection and leaves it where the change left it.
//
// Line numbers: InsertBlankLines, InsertDeletedLines, InsertLine, DeleteLine,
// DeleteLines, ReplaceLine, ColorSelection, SelectLines and GetLineCharFormat
// take 1-based lines; LineIndex, GetPaneLine, GetCurrentCaret and the line of
// a CVnPaneSync are 0-based.  A line beyond the end has the line index -1,
// and the operations then act at the end of the text.
//
// The terminator: m_strLineTerminator if it isn't empty, else the parent
// CVnPaneWnd's, else empty.  The control itself ends a paragraph in one CR
// whatever terminator went in ("\r" and "\r\n" alike).
//
// Printing (VnRichEditPaneCombineWin32.cpp, VnRichEditPanePrintWin32.cpp):
// CombineForPrint writes two panes' lines side by side into this pane, and
// OnFilePrint prints this pane page by page.  A host calls both, in that
// order, on a pane of its own that no one sees.
//
// Windows only.
#ifndef VN_WINDOW_VNRICHEDITPANE_H
#define VN_WINDOW_VNRICHEDITPANE_H

#include "afx/win32/CGeometry.h"
#include "afx/win32/CRichEditCtrl.h"

class CDC;
class CFont;
class CPrintInfo;
class CScrollBar;
class CVnDiffArg;
class CVnDisplayOptions;
class CVnPaneWnd;

// The format of changed words inside lines shown in `lines`: a background
// in a light shade of that format's colour, the text colour left alone.
VN_API CHARFORMAT2W VnChangedWordsFormat(const CHARFORMATW& lines);

class VN_API CVnRichEditPane : public CRichEditCtrl {
  DECLARE_DYNCREATE(CVnRichEditPane)
public:
  CVnRichEditPane();
  ~CVnRichEditPane() override;

  // Creates the control and routes its messages through this object, so
  // that the scroll and close handlers below see them.
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

  // The effective terminator (see the file comment).
  const CString& GetLineTerminator() const;
  // Character index of a 0-based line's first character, -1 for the
  // caret's line; -1 when there is no such line.
  int LineIndex(int line = -1) const;

  // Measuring.
  int GetVisibleLineCount();
  // Rows after alignment: the line count, plus the lengths of the Delete
  // records of first and of the Insert records of second (CVnDiffChange*).
  int GetTotalLineCount(const CPtrArray& first, const CPtrArray& second);
  // Width in pixels of text with its tabs expanded, in format's font.
  int GetFormattedTextLength(const CHARFORMATW& format, LPCWSTR text);
  int GetMaxLineLength();

  // Changing lines.  The rows-added results count rows the control gained.
  int InsertBlankLines(int line, int count, int flag, int limit);
  int InsertDeletedLines(const CVnDiffArg& arg, int source, int count, int line, int noLeadingBreak,
                         int lastLineBreak, const CHARFORMATW& format);
  void InsertLine(int line, LPCWSTR text);
  void DeleteLine(int line);
  void DeleteLines(int first, int count);
  void ReplaceLine(int line, LPCWSTR text);

  // Formats.  SetDefaultCharFormat applies to the whole text (SCF_ALL);
  // ChangeCharFormat changes only the font, quietly and unseen.
  int SetDefaultCharFormat(CHARFORMATW& format);
  int ChangeCharFormat(const CHARFORMATW& format);
  void ColorSelection(int first, int last, const CHARFORMATW& format);
  // Formats characters [start, end) of a line, counted from its first; a
  // line beyond the end changes nothing.  Quiet like ColorSelection.
  void ColorCharacters(int line, int start, int end, const CHARFORMAT2W& format);
  void SelectLines(int first, int last);
  void GetLineCharFormat(int line, CHARFORMATW& format);

  // Reading and positions.
  int GetPaneLine(int line, CString& text);
  long CharFromPos(CPoint point);
  void GetCurrentCaret(long& line, long& column);
  int GetFirstVisibleChar();

  // Scrolling.
  void HScroll(int column, CScrollBar* bar);
  void GoToBeginning();

  // Printing.  CombineForPrint fills this pane with header2's line, then
  // header1's, then one row per line of the longer pane: left's line padded
  // to left's longest line, a blank, right's line.  Rows whose left line is
  // struck through take that line's format; the rest take format.  A
  // selection in right becomes the selection of the same rows here.  This
  // pane's parent must be a CVnPaneWnd with a terminator (or the pane its
  // own).  The selection of left is left moved.
  void CombineForPrint(CVnRichEditPane* left, CVnRichEditPane* right, LPCWSTR header1, LPCWSTR header2,
                       const CHARFORMATW& format);
  // Asks for a printer (and, to print to a file, the file's name) and prints
  // this pane, or its selection when the user chose it, with a dialog that
  // lets the user stop the job.  parent is disabled for the job's length.
  // Returns when the job has ended.
  void OnFilePrint(CWnd* parent);

  CDWordArray m_aPageStart;     // where each printed page starts
  int m_nFirstVisibleChar;      // the pane's idea of the column at the left edge
  int m_bHScrollReplay;         // set while HScroll replays scroll messages
  CString m_strLineTerminator;  // the pane's own terminator; empty: the parent's

protected:
  // The steps of a print job (VnRichEditPanePrintWin32.cpp).
  int DoPreparePrinting(CPrintInfo* info);
  void OnBeginPrinting(CDC* dc, CPrintInfo* info);
  void OnPrepareDC(CDC* dc, CPrintInfo* info);
  void OnPrint(CDC* dc, CPrintInfo* info);
  long PrintPage(CDC* dc, long first, long last);
  int PaginateTo(CDC* dc, CPrintInfo* info);
  void OnEndPrinting(CDC* dc, CPrintInfo* info);
  // Keeps the user interface alive during a job; 0 once the user stopped it.
  static BOOL CALLBACK PrintAbortProc(HDC dc, int code);

  void OnClose() override;
  void OnHScroll(UINT code, UINT pos, CScrollBar* bar) override;
  void OnVScroll(UINT code, UINT pos, CScrollBar* bar) override;

private:
  CVnPaneWnd* GetParentPane() const;
  const CVnDisplayOptions& GetPaneOptions() const;
  const CHARFORMATW& GetPaneCharFormat() const;
  int TextLength() const;
  void SelectRange(int start, int end);
  int ParagraphMarkBefore(int lineStart) const;
  void SelectFormatFont(CDC& dc, CFont& font, const CHARFORMATW& format, HGDIOBJ& old);
  void StrikeDeletedRows(CVnRichEditPane& left, int rows);
  void PrintPages(CDC& dc, CPrintInfo& info, CWnd& dialog);
  void SetPageRect(CDC& dc, CPrintInfo& info);
};

#endif  // VN_WINDOW_VNRICHEDITPANE_H
