// CGdiObject.cpp - owners of GDI handles.
#include "afx/win32/CGdiObject.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)

CGdiObject::~CGdiObject() { DeleteObject(); }

BOOL CGdiObject::Attach(HGDIOBJ handle) {
  if (!handle || m_hObject)
    return FALSE;
  m_hObject = handle;
  return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
  HGDIOBJ handle = m_hObject;
  m_hObject = nullptr;
  return handle;
}

BOOL CGdiObject::DeleteObject() {
  if (!m_hObject)
    return FALSE;
  return ::DeleteObject(Detach());
}

int CBitmap::GetBitmap(BITMAP* info) const {
  assert(m_hObject && "a bitmap is attached");
  return ::GetObjectW(m_hObject, sizeof(BITMAP), info);
}
