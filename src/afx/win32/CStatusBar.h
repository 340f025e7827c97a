// CStatusBar.h - a status bar: the common control msctls_statusbar32 as a
// control bar, with indicators.
//
// Each indicator is one part of the control, named by an identifier whose
// string gives its first text (and, unless the part stretches, its width).
// The control keeps the texts and their drawing styles; this object keeps
// what the control has no room for: each part's identifier, style and
// width, from which it sets the parts' right edges whenever the bar changes
// size.  A part with SBPS_STRETCH shares the width that the others leave.
// The drawing bits of a part's style are those of the control
// (SBPS_NOBORDERS = SBT_NOBORDERS, SBPS_POPOUT = SBT_POPOUT).
#ifndef VN_AFX_WIN32_CSTATUSBAR_H
#define VN_AFX_WIN32_CSTATUSBAR_H

#include "afx/win32/CControlBar.h"

#include <vector>

#define SBPS_NORMAL 0x0000
#define SBPS_NOBORDERS 0x0100
#define SBPS_POPOUT 0x0200
#define SBPS_DISABLED 0x04000000
#define SBPS_STRETCH 0x08000000

class VN_API CStatusBar : public CControlBar {
  DECLARE_DYNAMIC(CStatusBar)
public:
  // style: window styles with a CBRS_ALIGN_* edge (CBRS_BOTTOM usually).
  BOOL Create(CWnd* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_BOTTOM, UINT id = AFX_IDW_STATUS_BAR);

  // One part per identifier, its text the string of that number in module
  // (the executable's when null); ID_SEPARATOR gives an empty part.  Gives
  // FALSE, with the parts up to the failing one set, when a string is
  // missing or the control refuses the parts.
  BOOL SetIndicators(const UINT* ids, int count, HINSTANCE module = nullptr);
  int GetCount() const { return static_cast<int>(m_aParts.size()); }
  UINT GetItemID(int index) const;
  // The index of the part with the identifier, -1 if none.
  int CommandToIndex(UINT id) const;

  void GetPaneInfo(int index, UINT& id, UINT& style, int& width) const;
  void SetPaneInfo(int index, UINT id, UINT style, int width);
  UINT GetPaneStyle(int index) const;
  void SetPaneStyle(int index, UINT style);
  CString GetPaneText(int index) const;
  // update: redraw the part now.  Gives FALSE if the control refused.
  BOOL SetPaneText(int index, LPCWSTR text, BOOL update = TRUE);

  // Along a horizontal edge: the height of the bar's font and borders.
  CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
  // Offers each indicator with an identifier to target's update handlers,
  // which set its text or disable it (SBPS_DISABLED hides the text).  An
  // indicator nobody updates keeps its state.
  void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) override;

protected:
  void OnSize(UINT type, int cx, int cy);

private:
  struct Part {
    UINT id;
    UINT style;
    int width;
  };
  void UpdateParts();
  int TextWidth(LPCWSTR text) const;

  std::vector<Part> m_aParts;

  DECLARE_MESSAGE_MAP()
};

// The update record of one indicator.
class VN_API CStatusCmdUI : public CCmdUI {
public:
  void Enable(BOOL on = TRUE) override;
  void SetCheck(int check = 1) override;
  void SetText(LPCWSTR text) override;

private:
  CStatusBar* Bar() const { return static_cast<CStatusBar*>(m_pOther); }
};

#endif  // VN_AFX_WIN32_CSTATUSBAR_H
