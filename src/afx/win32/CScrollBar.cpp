// CScrollBar.cpp - a scroll bar control, one message a method.
#include "afx/win32/CScrollBar.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

#define VN_ASSERT_WINDOW() assert(::IsWindow(m_hWnd) && "the scroll bar exists")

// The bar's messages are routed through this object, so that a scroll
// message from it names this object as its bar.
BOOL CScrollBar::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::CreateEx(0, L"SCROLLBAR", nullptr, style, rect, parent, id) && SubclassCreated();
}

int CScrollBar::GetScrollPos() const {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(SBM_GETPOS));
}

int CScrollBar::SetScrollPos(int pos, BOOL redraw) {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(SBM_SETPOS, static_cast<WPARAM>(pos), redraw));
}

void CScrollBar::GetScrollRange(LPINT minPos, LPINT maxPos) const {
  VN_ASSERT_WINDOW();
  SendMessage(SBM_GETRANGE, reinterpret_cast<WPARAM>(minPos), reinterpret_cast<LPARAM>(maxPos));
}

void CScrollBar::SetScrollRange(int minPos, int maxPos, BOOL redraw) {
  VN_ASSERT_WINDOW();
  SendMessage(redraw ? SBM_SETRANGEREDRAW : SBM_SETRANGE, static_cast<WPARAM>(minPos), maxPos);
}

BOOL CScrollBar::GetScrollInfo(LPSCROLLINFO info, UINT mask) const {
  VN_ASSERT_WINDOW();
  info->cbSize = sizeof(SCROLLINFO);
  info->fMask = mask;
  return static_cast<BOOL>(SendMessage(SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(info)));
}

int CScrollBar::SetScrollInfo(LPSCROLLINFO info, BOOL redraw) {
  VN_ASSERT_WINDOW();
  info->cbSize = sizeof(SCROLLINFO);
  return static_cast<int>(SendMessage(SBM_SETSCROLLINFO, static_cast<WPARAM>(redraw), reinterpret_cast<LPARAM>(info)));
}
