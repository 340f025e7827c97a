// CFlatToolBar.h - the toolbar with the flat look, and the repainting that
// look needs.
//
// A flat toolbar draws no button edges until the mouse is over a button, so
// when the bar moves, what was under its old place must be erased on the
// parent and its non-client border drawn again.  Its button updates show a
// checked command as a pressed button (TBBS_PRESSED) rather than turning it
// into a check box, and a button's text is never changed by an update.
#ifndef VN_TOOLKIT_CFLATTOOLBAR_H
#define VN_TOOLKIT_CFLATTOOLBAR_H

#include "afx/win32/CToolBar.h"

class VN_API CFlatToolBar : public CToolBar {
  DECLARE_DYNAMIC(CFlatToolBar)
public:
  CFlatToolBar() = default;

  // The base's load, then the flat style.  The number's low 16 bits name
  // the resource.
  BOOL LoadToolBar(LPCWSTR resourceName);
  BOOL LoadToolBar(UINT resourceId) { return LoadToolBar(MAKEINTRESOURCEW(LOWORD(resourceId))); }

  void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) override;

protected:
  void OnWindowPosChanging(WINDOWPOS* position);
  void OnWindowPosChanged(WINDOWPOS* position);

  DECLARE_MESSAGE_MAP()
};

// The update record of one flat toolbar button.
class VN_API CFlatToolBarCmdUI : public CToolCmdUI {
public:
  void SetCheck(int check = 1) override;
};

#endif  // VN_TOOLKIT_CFLATTOOLBAR_H
