// VnPaneWnd.h - one column of a comparison, as far as its children see it.
//
// A pane holds a rich edit text pane and a line number pane.  A child asks
// its parent pane, after testing with IsKindOf that the parent is one:
//
//   GetLineTerminator     the text that ends a line in this pane
//   GetDefaultCharFormat  the default text format, whose font all measuring uses
//   GetDisplayOptions     the display option values, read for the tab size
//
// and sends WM_PANE_SYNCHRONIZE to it to start a synchronisation (see
// VnPaneMessages.h).  A pane in turn asks the frame above its splitters for
// the top splitter and the two values.
//
// This class so far holds the terminator and the display option values it
// hands its children; the default format is the one inside those values, as
// the frame's is.  Its layout, caption, children and the answers to the
// private messages come with the pane itself.  Windows only.
#ifndef VN_WINDOW_VNPANEWND_H
#define VN_WINDOW_VNPANEWND_H

#include "afx/win32/CWnd.h"
#include "options/VnDisplayOptions.h"

class VN_API CVnPaneWnd : public CWnd {
  DECLARE_DYNCREATE(CVnPaneWnd)
public:
  CVnPaneWnd() = default;

  const CString& GetLineTerminator() const { return m_strLineTerminator; }
  void SetLineTerminator(LPCWSTR terminator);

  const CHARFORMATW& GetDefaultCharFormat() const { return m_DisplayOptions.GetCharFormat(); }
  const CVnDisplayOptions& GetDisplayOptions() const { return m_DisplayOptions; }
  // Until the frame hands them down, the values are set on the pane itself.
  void SetDisplayOptions(const CVnDisplayOptions& options) { m_DisplayOptions = options; }

private:
  CVnDisplayOptions m_DisplayOptions;
  CString m_strLineTerminator;
};

#endif  // VN_WINDOW_VNPANEWND_H
