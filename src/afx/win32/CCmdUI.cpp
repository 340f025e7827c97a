// CCmdUI.cpp - a menu item's state, set by position.
#include "afx/win32/CCmdUI.h"

#include "afx/win32/CCmdTarget.h"
#include "afx/win32/CMenu.h"
#include "afx/win32/CWnd.h"

#include <cassert>

void CCmdUI::Enable(BOOL on) {
  if (m_pMenu)
    ::EnableMenuItem(*m_pMenu, m_nIndex, MF_BYPOSITION | (on ? MF_ENABLED : MF_GRAYED));
  else if (m_pOther)
    m_pOther->EnableWindow(on);
  m_bEnableChanged = TRUE;
}

void CCmdUI::SetCheck(int check) {
  if (m_pMenu)
    ::CheckMenuItem(*m_pMenu, m_nIndex, MF_BYPOSITION | (check ? MF_CHECKED : MF_UNCHECKED));
}

void CCmdUI::SetRadio(BOOL on) {
  if (!m_pMenu)
    return;
  MENUITEMINFOW info = {};
  info.cbSize = sizeof(info);
  info.fMask = MIIM_FTYPE | MIIM_STATE;
  if (!::GetMenuItemInfoW(*m_pMenu, m_nIndex, TRUE, &info))
    return;
  info.fType = on ? (info.fType | MFT_RADIOCHECK) : (info.fType & ~MFT_RADIOCHECK);
  info.fState = on ? (info.fState | MFS_CHECKED) : (info.fState & ~MFS_CHECKED);
  ::SetMenuItemInfoW(*m_pMenu, m_nIndex, TRUE, &info);
}

void CCmdUI::SetText(LPCWSTR text) {
  if (!m_pMenu)
    return;
  MENUITEMINFOW info = {};
  info.cbSize = sizeof(info);
  info.fMask = MIIM_STRING;
  info.dwTypeData = const_cast<LPWSTR>(text);
  ::SetMenuItemInfoW(*m_pMenu, m_nIndex, TRUE, &info);
}

BOOL CCmdUI::DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler) {
  assert(target && "an item is updated by some target");
  if (m_nID == 0 || LOWORD(m_nID) == 0xFFFF)
    return TRUE;
  m_bEnableChanged = FALSE;
  m_bContinueRouting = FALSE;
  BOOL handled = target->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
  if (!handled && disableIfNoHandler && !m_bEnableChanged) {
    AFX_CMDHANDLERINFO info = {nullptr, nullptr};
    Enable(target->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
  }
  return handled;
}
