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

BOOL CDC::Attach(HDC hDC) {
  if (!hDC || m_hDC)
    return FALSE;
  m_hDC = m_hAttribDC = hDC;
  return TRUE;
}

HDC CDC::Detach() {
  HDC hDC = m_hDC;
  m_hDC = m_hAttribDC = nullptr;
  return hDC;
}

//===-- Printing -----------------------------------------------------------===//

int CDC::StartDoc(const DOCINFOW* info) {
  VN_ASSERT_DC();
  return ::StartDocW(m_hDC, info);
}

int CDC::StartPage() {
  VN_ASSERT_DC();
  return ::StartPage(m_hDC);
}

int CDC::EndPage() {
  VN_ASSERT_DC();
  return ::EndPage(m_hDC);
}

int CDC::EndDoc() {
  VN_ASSERT_DC();
  return ::EndDoc(m_hDC);
}

int CDC::AbortDoc() {
  VN_ASSERT_DC();
  return ::AbortDoc(m_hDC);
}

int CDC::SetAbortProc(ABORTPROC proc) {
  VN_ASSERT_DC();
  return ::SetAbortProc(m_hDC, proc);
}

//===-- Coordinates and clipping -------------------------------------------===//

int CDC::SetMapMode(int mode) {
  VN_ASSERT_DC();
  return ::SetMapMode(m_hDC, mode);
}

CPoint CDC::SetViewportOrg(int x, int y) {
  VN_ASSERT_DC();
  POINT old = {0, 0};
  ::SetViewportOrgEx(m_hDC, x, y, &old);
  return CPoint(old);
}

CSize CDC::GetWindowExt() const {
  VN_ASSERT_DC();
  SIZE size = {0, 0};
  ::GetWindowExtEx(m_hDC, &size);
  return CSize(size.cx, size.cy);
}

CSize CDC::SetWindowExt(int cx, int cy) {
  VN_ASSERT_DC();
  SIZE old = {0, 0};
  ::SetWindowExtEx(m_hDC, cx, cy, &old);
  return CSize(old.cx, old.cy);
}

CSize CDC::ScaleWindowExt(int xNum, int xDenom, int yNum, int yDenom) {
  VN_ASSERT_DC();
  SIZE old = {0, 0};
  ::ScaleWindowExtEx(m_hDC, xNum, xDenom, yNum, yDenom, &old);
  return CSize(old.cx, old.cy);
}

BOOL CDC::DPtoLP(LPPOINT points, int count) const {
  VN_ASSERT_DC();
  return ::DPtoLP(m_hDC, points, count);
}

int CDC::SaveDC() {
  VN_ASSERT_DC();
  return ::SaveDC(m_hDC);
}

BOOL CDC::RestoreDC(int saved) {
  VN_ASSERT_DC();
  return ::RestoreDC(m_hDC, saved);
}

int CDC::IntersectClipRect(int left, int top, int right, int bottom) {
  VN_ASSERT_DC();
  return ::IntersectClipRect(m_hDC, left, top, right, bottom);
}

CClientDC::CClientDC(CWnd* wnd) : m_hWnd(wnd ? wnd->GetSafeHwnd() : nullptr) {
  assert(m_hWnd && "a window to draw in");
  m_hDC = m_hAttribDC = ::GetDC(m_hWnd);
}

CClientDC::~CClientDC() {
  if (m_hDC)
    ::ReleaseDC(m_hWnd, m_hDC);
}
