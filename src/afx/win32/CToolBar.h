// CToolBar.h - a row of command buttons (the common toolbar control).
//
// LoadToolBar reads the host's toolbar resource (type 241: version 1, the
// button width and height, the count, then one command id per button, 0
// for a separator) and the bitmap of the same name, whose images stand side
// by side in the order of the non-separator buttons, on the silver
// (192, 192, 192) that counts as transparent: the bar shows its own colour
// there and draws a disabled button's picture from the rest.  Tooltips come from the
// command's string: the part after '\n' (the frame answers the control's
// request).  When the application is idle the bar offers each button to the
// frame's command routing (OnUpdateCmdUI), which enables, disables or checks
// it.
//
// Button styles use the framework's TBBS_ values: the control's style in the
// low word and its state in the high word, with TBBS_DISABLED standing for a
// cleared "enabled" state.
#ifndef VN_AFX_WIN32_CTOOLBAR_H
#define VN_AFX_WIN32_CTOOLBAR_H

#include "afx/win32/CControlBar.h"

#include <commctrl.h>

#define TBBS_BUTTON MAKELONG(TBSTYLE_BUTTON, 0)
#define TBBS_SEPARATOR MAKELONG(TBSTYLE_SEP, 0)
#define TBBS_CHECKBOX MAKELONG(TBSTYLE_CHECK, 0)
#define TBBS_CHECKED MAKELONG(0, TBSTATE_CHECKED)
#define TBBS_PRESSED MAKELONG(0, TBSTATE_PRESSED)
#define TBBS_DISABLED MAKELONG(0, TBSTATE_ENABLED)
#define TBBS_INDETERMINATE MAKELONG(0, TBSTATE_INDETERMINATE)

class CFrameWnd;

class VN_API CToolBar : public CControlBar {
  DECLARE_DYNAMIC(CToolBar)
public:
  CToolBar() = default;
  ~CToolBar() override;

  // style: window styles with the bar's CBRS_ styles.
  BOOL Create(CWnd* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_TOP, UINT id = AFX_IDW_TOOLBAR);
  BOOL LoadToolBar(LPCWSTR resourceName);
  BOOL LoadToolBar(UINT resourceId) { return LoadToolBar(MAKEINTRESOURCEW(LOWORD(resourceId))); }

  int GetCount() const;
  UINT GetItemID(int index) const;
  UINT GetButtonStyle(int index) const;
  void SetButtonStyle(int index, UINT style);

  // Offers every button to target's command routing.
  void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) override;
  CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;

protected:
  // Offers each button but the separators, through state, to the bar's own
  // map and then to target.
  void UpdateButtons(CCmdUI& state, CFrameWnd* target, BOOL disableIfNoHandler);

private:
  HIMAGELIST m_hImages = nullptr;  // the buttons' pictures; the control doesn't own them
};

// The update record of one toolbar button.
class VN_API CToolCmdUI : public CCmdUI {
public:
  void Enable(BOOL on = TRUE) override;
  void SetCheck(int check = 1) override;
  void SetText(LPCWSTR) override {}

protected:
  CToolBar* Bar() const { return static_cast<CToolBar*>(m_pOther); }
};

#endif  // VN_AFX_WIN32_CTOOLBAR_H
