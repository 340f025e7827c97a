// CCmdUI.h - the state of one command's user interface item.
//
// Before a menu drops down, and when the application is idle, each item
// that carries a command id (menu item, toolbar button, status bar pane) is
// offered to the command routing as a CCmdUI: the update handler of that id
// enables, checks or names it.  The base acts on a menu item by position;
// toolbars and status bars derive their own.
#ifndef VN_AFX_WIN32_CCMDUI_H
#define VN_AFX_WIN32_CCMDUI_H

#include "afx/afx.h"

class CCmdTarget;
class CMenu;
class CWnd;

class VN_API CCmdUI {
public:
  CCmdUI() = default;
  virtual ~CCmdUI() = default;

  virtual void Enable(BOOL on = TRUE);
  // 0 unchecked, 1 checked, 2 indeterminate (shown as checked in a menu).
  virtual void SetCheck(int check = 1);
  virtual void SetRadio(BOOL on = TRUE);
  virtual void SetText(LPCWSTR text);
  // An update handler that wants the next target asked as well.
  void ContinueRouting() { m_bContinueRouting = TRUE; }

  // Offers the item to target's update handler.  With no handler and
  // disableIfNoHandler, the item is enabled exactly when target has a
  // command handler for it.  Separators and submenus are left alone.
  // Gives TRUE when an update handler took the item.
  BOOL DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler);

  UINT m_nID = 0;
  UINT m_nIndex = 0;       // position in the menu, bar or status bar
  UINT m_nIndexMax = 0;    // number of items there
  CMenu* m_pMenu = nullptr;
  CWnd* m_pOther = nullptr;  // a bar or control, when the item is not a menu item
  BOOL m_bEnableChanged = FALSE;
  BOOL m_bContinueRouting = FALSE;
};

#endif  // VN_AFX_WIN32_CCMDUI_H
