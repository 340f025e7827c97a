// CDC.cpp - device contexts, one GDI call a method.
#include "afx/win32/CDC.h"

#include "afx/win32/CGdiObject.h"
#include "afx/win32/CWnd.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CDC, CObject)
IMPLEMENT_DYNAMIC(CClientDC, CDC)

#define VN_ASSERT_DC() assert(m_hDC && "the object holds a device context")

HGDIOBJ CDC::SelectObject(CGdiObject* object) {
  assert(object && object->m_hObject && "a GDI object to select");
  return SelectObject(object->m_hObject);
}

HGDIOBJ CDC::SelectObject(HGDIOBJ object) {
  VN_ASSERT_DC();
  return ::SelectObject(m_hDC, object);
}

int CDC::GetDeviceCaps(int index) const {
  VN_ASSERT_DC();
  return ::GetDeviceCaps(m_hDC, index);
}

BOOL CDC::GetTextMetrics(LPTEXTMETRICW metrics) const {
  VN_ASSERT_DC();
  return ::GetTextMetricsW(m_hDC, metrics);
}

CSize CDC::GetTextExtent(LPCWSTR text, int count) const {
  VN_ASSERT_DC();
  SIZE size = {0, 0};
  ::GetTextExtentPoint32W(m_hDC, text, count, &size);
  return CSize(size.cx, size.cy);
}

CSize CDC::GetTabbedTextExtent(LPCWSTR text, int count, int tabPositions, LPINT tabStops) const {
  VN_ASSERT_DC();
  return CSize(::GetTabbedTextExtentW(m_hDC, text, count, tabPositions, tabStops));
}

CClientDC::CClientDC(CWnd* wnd) : m_hWnd(wnd ? wnd->GetSafeHwnd() : nullptr) {
  assert(m_hWnd && "a window to draw in");
  m_hDC = ::GetDC(m_hWnd);
}

CClientDC::~CClientDC() {
  if (m_hDC)
    ::ReleaseDC(m_hWnd, m_hDC);
}
