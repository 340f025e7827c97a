// CControlBar.h - a bar along an edge of a frame (toolbar, status bar).
//
// A bar keeps its CBRS_ styles apart from its window styles: which edge it
// takes (CBRS_ALIGN_*), on which sides it draws a border, whether it shows
// tooltips.  Its parent lays out bars with CWnd::RepositionBars, which asks
// each bar in an identifier range (WM_SIZEPARENT) to take its strip of the
// rectangle that is left and gives the rest to one client child.  When the
// application is idle a bar receives WM_IDLEUPDATECMDUI and updates its
// items through the frame's command routing (OnUpdateCmdUI).
#ifndef VN_AFX_WIN32_CCONTROLBAR_H
#define VN_AFX_WIN32_CCONTROLBAR_H

#include "afx/win32/AfxRes.h"
#include "afx/win32/CCmdUI.h"
#include "afx/win32/CWnd.h"

#define CBRS_ALIGN_LEFT 0x1000L
#define CBRS_ALIGN_TOP 0x2000L
#define CBRS_ALIGN_RIGHT 0x4000L
#define CBRS_ALIGN_BOTTOM 0x8000L
#define CBRS_ALIGN_ANY 0xF000L
#define CBRS_BORDER_LEFT 0x0100L
#define CBRS_BORDER_TOP 0x0200L
#define CBRS_BORDER_RIGHT 0x0400L
#define CBRS_BORDER_BOTTOM 0x0800L
#define CBRS_BORDER_ANY 0x0F00L
#define CBRS_TOOLTIPS 0x0010L
#define CBRS_FLYBY 0x0020L
#define CBRS_SIZE_DYNAMIC 0x0004L
#define CBRS_SIZE_FIXED 0x0002L
#define CBRS_TOP (CBRS_ALIGN_TOP | CBRS_BORDER_BOTTOM)
#define CBRS_BOTTOM (CBRS_ALIGN_BOTTOM | CBRS_BORDER_TOP)
#define CBRS_ALL 0x0040FFFFL

// Sent by RepositionBars to each bar; lParam is an AFX_SIZEPARENTPARAMS.
#define WM_SIZEPARENT 0x0361

struct AFX_SIZEPARENTPARAMS {
  HDWP hDWP;       // null when the caller only asks how much room is left
  RECT rect;       // what is left of the parent's client area
  SIZE sizeTotal;  // what the bars took, across and down
  BOOL bStretch;   // a bar stretches to the whole length of its edge
};

class CFrameWnd;

class VN_API CControlBar : public CWnd {
  DECLARE_DYNAMIC(CControlBar)
public:
  CControlBar() = default;

  DWORD GetBarStyle() const { return m_dwStyle; }
  void SetBarStyle(DWORD style) { m_dwStyle = style; }
  void EnableDocking(DWORD style) { m_dwDockStyle = style & CBRS_ALIGN_ANY; }
  DWORD GetDockStyle() const { return m_dwDockStyle; }

  // The bar's size along its edge and across it.  The default is the
  // window's present size.
  virtual CSize CalcFixedLayout(BOOL stretch, BOOL horizontal);
  // Updates the bar's items through target's command routing.
  virtual void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) = 0;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

  DWORD m_dwStyle = 0;
  DWORD m_dwDockStyle = 0;

private:
  void TakeEdge(AFX_SIZEPARENTPARAMS* layout);
};

#endif  // VN_AFX_WIN32_CCONTROLBAR_H
