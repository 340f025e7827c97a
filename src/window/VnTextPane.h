// VnTextPane.h - the rich edit pane that shows a file's text, and search.
//
// The text comes from the file intake's buffer: 16-bit text, or the bytes
// of a binary file marked by BINARY_MARKER as their last byte, shown as
// 8-bit text in the system's code page.  Tab stops are set to a width in
// characters of a font.  Every selection change of a visible pane, and every
// search hit, starts a synchronisation: WM_PANE_SYNCHRONIZE to the parent
// CVnPaneWnd with this position, the parent as origin.
//
// Search.  One search text, direction and case serve all text panes of the
// process (static members), and one modeless Find dialog, which belongs to
// the pane that opened it: only that pane receives its messages.  A search
// never wraps around: at the last hit in its direction the next search says
// "The search text was not  found." and leaves the selection collapsed at
// its end.  m_bNewSearch, per pane, makes the first hit of a new search
// (a new pane, Find, a changed text, a failed search) scroll its line to the
// top; later hits only move the selection.
//
// Windows only.
#ifndef VN_WINDOW_VNTEXTPANE_H
#define VN_WINDOW_VNTEXTPANE_H

#include "window/VnRichEditPane.h"

class CVnFindReplaceDialog;

class VN_API CVnTextPane : public CVnRichEditPane {
  DECLARE_DYNCREATE(CVnTextPane)
public:
  // Forgets any find dialog still open: it keeps reporting to the pane that
  // opened it, and a later Find opens another.
  CVnTextPane();

  // buffer: size bytes from the intake; null, or size 0, gives an empty
  // text.  16-bit text (size / 2 units, an odd last byte dropped) shows each
  // form feed as "^L"; a binary buffer is shown as it is, marker included,
  // up to its first zero byte (where the control's text ends).
  void SetPaneText(const unsigned char* buffer, int size);
  // Stops every tabSize blanks of format's font, 32 of them; gives the
  // control's answer, or 1 without setting anything on an empty pane.
  int SetTabStops(const CHARFORMATW& format, unsigned int tabSize);

  // The Find command: brings the open dialog to the front, or opens one
  // with the shared search state.
  void Find();
  // The next hit in the shared direction; the dialog when there is no
  // search text; the message when there is no hit.
  void FindNext();
  // Selects the nearest hit from the selection on in the search direction
  // and gives its character index, or collapses the selection and gives -1.
  long FindTextInPane();
  void CloseFindReplace();
  // Copies a selection that isn't empty.
  void OnCopy();
  // The title of the parent pane; empty outside a CVnPaneWnd.
  CString GetCaption() const;

  int m_bNewSearch;

  static CVnFindReplaceDialog* m_pFindDialog;

protected:
  LRESULT OnFindText(WPARAM wParam, LPARAM lParam);
  LRESULT OnFindReplaceDestroyed(WPARAM wParam, LPARAM lParam);
  void OnSelChange(NMHDR* header, LRESULT* result);

  static CString m_aFindString;
  static int m_bMatchCase;
  static int m_bSearchDown;

private:
  void SendSynchronize();
  void CollapseSelection();
  long FindDown(DWORD flags, long start, FINDTEXTEXW& hit);
  long FindUp(DWORD flags, long before, FINDTEXTEXW& hit);

  DECLARE_MESSAGE_MAP()
};

#endif  // VN_WINDOW_VNTEXTPANE_H
