// VnPaneWnd.h - one column of a comparison: a caption bar on top, a line
// number pane on the left, a text pane filling the rest.
//
// The pane lays out its three children, forwards the line operations to
// both rich edit children so that text and numbers never drift apart,
// answers the private messages (VnPaneMessages.h), and holds the line
// terminator its children use.  A host puts its own child classes in by
// overriding CreateTextPane and CreateLineNumPane.  The children have no
// scroll bars of their own: the splitter's shared bars drive them.  The
// text pane's identifier is the pane's; the number column's is one more.
//
// What a child asks of its pane (after testing with IsKindOf that the
// parent is one):
//
//   GetLineTerminator     the text that ends a line in this pane
//   GetDefaultCharFormat  the default text format, whose font all measuring uses
//   GetDisplayOptions     the display option values, read for the tab size
//   GetCaption            the pane's title
//
// and it sends WM_PANE_SYNCHRONIZE to start a synchronisation.  The pane in
// turn asks the frame above its splitters (GetParentFrame: the parent, or
// through one or two levels of CVnRichEditSplitterWnd) for the two values
// and for the top splitter.  A pane with no frame above it (a pane on its
// own, as tests and small hosts make it) answers the values it was given
// with SetDisplayOptions, and a synchronisation it starts stops at the pane:
// there is no splitter to go up to.
//
// Line numbers in the arguments are 1-based, as in the line operations of
// CVnRichEditPane.  Windows only.
#ifndef VN_WINDOW_VNPANEWND_H
#define VN_WINDOW_VNPANEWND_H

#include "afx/win32/CStatusBar.h"
#include "afx/win32/CWnd.h"
#include "options/VnDisplayOptions.h"

class CScrollBar;
class CVnDiffArg;
class CVnLineNumPane;
class CVnReconcileFrame;
class CVnRichEditSplitterWnd;
class CVnTextPane;

// The terminator of a file's lines in a pane: "\r\n", whatever the buffer,
// as the intake repairs line ends to CR LF.
VN_API CString GetLineTerminator(unsigned char* buffer, unsigned int size);

class VN_API CVnPaneWnd : public CWnd {
  DECLARE_DYNCREATE(CVnPaneWnd)
public:
  CVnPaneWnd();
  // Destroys the window, and with it the children.
  ~CVnPaneWnd() override;

  CVnTextPane* GetTextPane() const { return m_pTextPane; }
  CVnLineNumPane* GetLineNumPane() const { return m_pLineNumPane; }
  int IsDoubleLineNum() const { return m_bDoubleLineNum; }
  void SetDoubleLineNum(int doubled) { m_bDoubleLineNum = doubled; }
  const CString& GetLineTerminator() const { return m_strLineTerminator; }
  // A null terminator counts as empty: the children then fall back to their own.
  void SetLineTerminator(LPCWSTR terminator);

  // The caption's text; a null text changes nothing.  Gives 1.
  int SetCaption(LPCWSTR text, int update = TRUE);
  // The caption's background: a colour, or CLR_DEFAULT for the system's.
  void SetCaptionColor(COLORREF color);
  CString GetCaption() const;

  // The frame above: the parent, or through at most two splitters; null
  // when there is none.
  CVnReconcileFrame* GetParentFrame() const;
  // The frame's values, or the pane's own when there is no frame.
  const CHARFORMATW& GetDefaultCharFormat() const;
  const CVnDisplayOptions& GetDisplayOptions() const;
  void SetDisplayOptions(const CVnDisplayOptions& options) { m_DisplayOptions = options; }

  // Counts.  GetLineCount and GetMaxLineCount count alignment rows too.
  int GetLineCount() const;
  int GetVisibleLineCount();
  int GetTotalLineCount(CPtrArray& first, CPtrArray& second);
  // Pixels the number column needs for numbers up to count.
  long GetLineNumWidth(const CHARFORMATW& format, long count);

  // A file's text enters the pane: format on both children, the text, and
  // the numbers 1 to the line count (none for size 0).
  void SetDefaultText(unsigned char* buffer, int size, const CHARFORMATW& format);
  // On the text pane, then, if that worked, on the number column.
  int SetDefaultCharFormat(const CHARFORMATW& format);
  // On the text pane only.
  int SetTabStops(const CHARFORMATW& format, unsigned int tabSize);

  // Line operations on both children, so that their rows stay level; the
  // results are the text pane's.  InsertDeletedLines gives the number
  // column as many empty rows as it put lines in the text.
  void ColorSelection(int first, int last, const CHARFORMATW& format);
  int InsertBlankLines(int line, int count, int flag, int limit);
  int InsertDeletedLines(const CVnDiffArg& arg, int source, int count, int line, int noLeadingBreak,
                         int lastLineBreak, const CHARFORMATW& format);
  // On the text pane only: the number column is the host's to mend.
  void InsertLine(int line, LPCWSTR text);
  void DeleteLine(int line);
  void ColorCharacters(int line, int start, int end, const CHARFORMAT2W& format);

  void HideSelection(int hide, int permanent);
  // Text pane first; stops at the first child that gives 0.
  int SetReadOnly(int textPane, int lineNumPane);
  // The text pane's event mask; gives the one it had.
  long SetEventMask(long mask);
  void CloseFindReplace();

  // Makes both children (client-sized text, number column of width 0),
  // asks the text pane for selection changes and makes both read-only.
  // Gives 0 when a child could not be made.
  int CreateInternalPanes();

protected:
  // Make the child objects and their windows; give the creation's result.
  virtual int CreateTextPane(CRect& rect);
  virtual int CreateLineNumPane(CRect& rect);

  int OnCreate(LPCREATESTRUCTW create);
  void OnDestroy();
  void OnClose() override;
  void OnSize(UINT type, int cx, int cy);
  void OnHScroll(UINT code, UINT pos, CScrollBar* bar) override;
  void OnVScroll(UINT code, UINT pos, CScrollBar* bar) override;
  LRESULT OnSynchronize(WPARAM wParam, LPARAM lParam);
  LRESULT OnSetDefaultCharFormat(WPARAM wParam, LPARAM lParam);
  LRESULT OnSetTabStops(WPARAM wParam, LPARAM lParam);
  LRESULT OnGoToBeginning(WPARAM wParam, LPARAM lParam);
  LRESULT OnResizeInternalPanes(WPARAM wParam, LPARAM lParam);
  LRESULT OnGetMaxLineCount(WPARAM wParam, LPARAM lParam);

  CStatusBar m_wndCaption;
  CVnTextPane* m_pTextPane;
  CVnLineNumPane* m_pLineNumPane;
  int m_bDoubleLineNum;
  CString m_strLineTerminator;

private:
  bool HasChildren() const;
  int CaptionHeight() const;
  CVnRichEditSplitterWnd* GetTopSplitter() const;
  CScrollBar* GetParentHScrollBar(CScrollBar& lent) const;
  void LevelNumbersWithText();

  CVnDisplayOptions m_DisplayOptions;

  DECLARE_MESSAGE_MAP()
};

#endif  // VN_WINDOW_VNPANEWND_H
