// CCmdTarget.cpp - the map walk and the command lookup.
#include "afx/win32/CCmdTarget.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

static const AFX_MSGMAP_ENTRY kNoEntries[] = {{0, 0, 0, 0, nullptr, nullptr}};

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
  static const AFX_MSGMAP map = {nullptr, kNoEntries};
  return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return GetThisMessageMap(); }

// A registered message has no fixed number: its entry points at the
// variable that holds the number the system gave.
static bool EntryHasMessage(const AFX_MSGMAP_ENTRY& entry, UINT message) {
  return entry.pnMessage ? *entry.pnMessage == message : entry.nMessage == message;
}

const AFX_MSGMAP_ENTRY* CCmdTarget::FindMessageEntry(UINT message) const {
  for (const AFX_MSGMAP* map = GetMessageMap(); map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr) {
    for (const AFX_MSGMAP_ENTRY* e = map->lpEntries; e->pfn; ++e) {
      if (EntryHasMessage(*e, message))
        return e;
    }
  }
  return nullptr;
}

const AFX_MSGMAP_ENTRY* CCmdTarget::FindCodeEntry(UINT message, UINT code, UINT id) const {
  for (const AFX_MSGMAP* map = GetMessageMap(); map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr) {
    for (const AFX_MSGMAP_ENTRY* e = map->lpEntries; e->pfn; ++e) {
      if (e->nMessage == message && e->nCode == code && id >= e->nID && id <= e->nLastID)
        return e;
    }
  }
  return nullptr;
}

// Command entries are WM_COMMAND entries keyed by code and id; the handler
// gets the id as wParam and pExtra as lParam.
BOOL CCmdTarget::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo) {
  const AFX_MSGMAP_ENTRY* entry = FindCodeEntry(WM_COMMAND, static_cast<UINT>(code), id);
  if (!entry)
    return FALSE;
  if (handlerInfo) {
    handlerInfo->pTarget = this;
    handlerInfo->pfn = entry->pfn;
    return TRUE;
  }
  entry->pfn(this, id, reinterpret_cast<LPARAM>(extra));
  return TRUE;
}
