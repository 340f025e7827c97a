// CScrollBar.h - a scroll bar control (window class "SCROLLBAR").
//
// The bar keeps its range and position; each method is one SBM_ message.
// A bar made by Create is tied to its object, so the scroll handlers of its
// parent receive that object.
#ifndef VN_AFX_WIN32_CSCROLLBAR_H
#define VN_AFX_WIN32_CSCROLLBAR_H

#include "afx/win32/CWnd.h"

class VN_API CScrollBar : public CWnd {
  DECLARE_DYNAMIC(CScrollBar)
public:
  // style: SBS_HORZ or SBS_VERT with the window styles.
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

  int GetScrollPos() const;
  int SetScrollPos(int pos, BOOL redraw = TRUE);
  void GetScrollRange(LPINT minPos, LPINT maxPos) const;
  void SetScrollRange(int minPos, int maxPos, BOOL redraw = TRUE);
  BOOL GetScrollInfo(LPSCROLLINFO info, UINT mask = SIF_ALL) const;
  // Gives the position the bar now has.
  int SetScrollInfo(LPSCROLLINFO info, BOOL redraw = TRUE);
};

#endif  // VN_AFX_WIN32_CSCROLLBAR_H
