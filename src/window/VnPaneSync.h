// VnPaneSync.h - the position that travels with a synchronisation.
//
// When one pane of a comparison moves, the others follow it to the same
// place: the first visible line (0-based) and the first visible column,
// counted in characters.  A plain value: the sender keeps it alive for the
// length of the synchronous send that carries its address.
#ifndef VN_WINDOW_VNPANESYNC_H
#define VN_WINDOW_VNPANESYNC_H

#include "afx/portable/AfxTypes.h"

class CVnPaneSync {
public:
  CVnPaneSync() = default;
  CVnPaneSync(int line, int ch) : m_nLine(line), m_nChar(ch) {}
  CVnPaneSync(const CVnPaneSync&) = default;
  CVnPaneSync& operator=(const CVnPaneSync&) = default;

  int GetLine() const { return m_nLine; }
  int GetChar() const { return m_nChar; }
  void SetLine(int line) { m_nLine = line; }
  void SetChar(int ch) { m_nChar = ch; }

private:
  int m_nLine = 0;
  int m_nChar = 0;
};

#endif  // VN_WINDOW_VNPANESYNC_H
