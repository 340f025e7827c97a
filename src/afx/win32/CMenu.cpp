// CMenu.cpp - the owner of a menu handle.
#include "afx/win32/CMenu.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CMenu, CObject)

CMenu::~CMenu() { DestroyMenu(); }

BOOL CMenu::Attach(HMENU menu) {
  if (!menu || m_hMenu)
    return FALSE;
  m_hMenu = menu;
  return TRUE;
}

HMENU CMenu::Detach() {
  HMENU menu = m_hMenu;
  m_hMenu = nullptr;
  return menu;
}

BOOL CMenu::DestroyMenu() {
  if (!m_hMenu)
    return FALSE;
  return ::DestroyMenu(Detach());
}

int CMenu::GetMenuItemCount() const {
  assert(m_hMenu && "a menu is attached");
  return ::GetMenuItemCount(m_hMenu);
}

UINT CMenu::GetMenuItemID(int position) const {
  assert(m_hMenu && "a menu is attached");
  return ::GetMenuItemID(m_hMenu, position);
}

// The item's text, found by ID or position as flags say; gives its length.
int CMenu::GetMenuString(UINT item, CString& text, UINT flags) const {
  assert(m_hMenu && "a menu is attached");
  int length = ::GetMenuStringW(m_hMenu, item, nullptr, 0, flags);
  if (length <= 0) {
    text.Empty();
    return 0;
  }
  ::GetMenuStringW(m_hMenu, item, text.GetBufferSetLength(length), length + 1, flags);
  text.ReleaseBuffer(length);
  return length;
}
