// CMenu.h - the owner of a menu handle.
//
// The object destroys the menu it holds when it dies; Detach hands ownership
// back (a menu set into a window belongs to that window).
#ifndef VN_AFX_WIN32_CMENU_H
#define VN_AFX_WIN32_CMENU_H

#include "afx/afx.h"

class VN_API CMenu : public CObject {
  DECLARE_DYNAMIC(CMenu)
public:
  CMenu() = default;
  ~CMenu() override;
  CMenu(const CMenu&) = delete;
  CMenu& operator=(const CMenu&) = delete;

  operator HMENU() const { return m_hMenu; }
  HMENU GetSafeHmenu() const { return m_hMenu; }
  // Gives FALSE for a null handle or when a menu is held already.
  BOOL Attach(HMENU menu);
  HMENU Detach();
  BOOL DestroyMenu();
  int GetMenuItemCount() const;
  UINT GetMenuItemID(int position) const;
  int GetMenuString(UINT item, CString& text, UINT flags) const;

  HMENU m_hMenu = nullptr;
};

#endif  // VN_AFX_WIN32_CMENU_H
