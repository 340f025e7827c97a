// CRichEditCtrl.h - the rich edit control.
//
// A CWnd over a window of class RichEdit20W (riched20.dll, loaded on first
// use).  Line numbers are 0-based and character positions count the
// control's own text, in which a line ends in one CR.  Each method is one
// message; the control keeps all state.
#ifndef VN_AFX_WIN32_CRICHEDITCTRL_H
#define VN_AFX_WIN32_CRICHEDITCTRL_H

#include "afx/win32/CGeometry.h"
#include "afx/win32/CWnd.h"

#include <richedit.h>

class VN_API CRichEditCtrl : public CWnd {
  DECLARE_DYNAMIC(CRichEditCtrl)
public:
  // Loads the control's library, then creates the control.
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
  // The window class of the control; null if its library would not load.
  static LPCWSTR ClassName();

  // Lines
  int GetLineCount() const;
  int LineIndex(int line = -1) const;
  int LineLength(int charIndex = -1) const;
  int LineFromChar(int charIndex) const;
  int GetLine(int line, CString& text) const;
  int GetFirstVisibleLine() const;
  void LineScroll(int lines, int chars = 0);

  // Text and selection
  // The length WM_GETTEXTLENGTH gives: a paragraph mark counts as CR LF.
  int GetTextLength() const;
  // EM_GETTEXTLENGTHEX: flags GTL_*, in the units of codePage (1200: UTF-16).
  long GetTextLengthEx(DWORD flags, UINT codePage = 1200) const;
  void GetSel(long& start, long& end) const;
  void SetSel(long start, long end);
  void ReplaceSel(LPCWSTR text, BOOL canUndo = FALSE);
  CString GetSelText() const;
  void HideSelection(BOOL hide, BOOL permanent);
  // SEL_EMPTY (0) or a combination of SEL_TEXT, SEL_OBJECT, SEL_MULTICHAR...
  WORD GetSelectionType() const;
  void Clear();
  void Copy();
  // Client coordinates of the top left of a character.
  CPoint PosFromChar(UINT charIndex) const;

  // Format and behaviour
  DWORD GetEventMask() const;
  DWORD SetEventMask(DWORD mask);
  BOOL SetReadOnly(BOOL readOnly = TRUE);
  COLORREF SetBackgroundColor(BOOL useSystem, COLORREF color);
  BOOL SetDefaultCharFormat(CHARFORMAT2W& format);
  BOOL SetSelectionCharFormat(CHARFORMAT2W& format);
  DWORD GetSelectionCharFormat(CHARFORMAT2W& format) const;
  BOOL SetSelectionCharFormat(CHARFORMATW& format);
  DWORD GetSelectionCharFormat(CHARFORMATW& format) const;
  BOOL SetModify(BOOL modified = TRUE);
  BOOL GetModify() const;
  void LimitText(long maxChars = 0);
};

#endif  // VN_AFX_WIN32_CRICHEDITCTRL_H
