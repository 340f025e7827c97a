// CStatic.cpp - the static control, one message a method.
#include "afx/win32/CStatic.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CStatic, CWnd)

#define VN_ASSERT_WINDOW() assert(::IsWindow(m_hWnd) && "the control exists")

BOOL CStatic::Create(LPCWSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  return CWnd::CreateEx(0, L"STATIC", text, style, rect, parent, id) && SubclassCreated();
}

HBITMAP CStatic::SetBitmap(HBITMAP bitmap) {
  VN_ASSERT_WINDOW();
  return reinterpret_cast<HBITMAP>(SendMessage(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap)));
}

HBITMAP CStatic::GetBitmap() const {
  VN_ASSERT_WINDOW();
  return reinterpret_cast<HBITMAP>(SendMessage(STM_GETIMAGE, IMAGE_BITMAP));
}
