// CListCtrl.cpp - the list view control, one message a method.
#include "afx/win32/CListCtrl.h"

#include "afx/win32/CImageList.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CListCtrl, CWnd)

#define VN_ASSERT_WINDOW() assert(::IsWindow(m_hWnd) && "the control exists")

LPCWSTR CListCtrl::ClassName() {
  static const bool registered = [] {
    INITCOMMONCONTROLSEX init = {sizeof(init), ICC_LISTVIEW_CLASSES};
    return ::InitCommonControlsEx(&init) != FALSE;
  }();
  return registered ? WC_LISTVIEWW : nullptr;
}

BOOL CListCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  LPCWSTR className = ClassName();
  return className && CWnd::CreateEx(0, className, L"", style, rect, parent, id) && SubclassCreated();
}

//===-- Rows ---------------------------------------------------------------===//

int CListCtrl::GetItemCount() const {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(LVM_GETITEMCOUNT));
}

int CListCtrl::InsertItem(const LVITEMW* item) {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(item)));
}

int CListCtrl::InsertItem(int index, LPCWSTR text) {
  LVITEMW item = {};
  item.mask = LVIF_TEXT;
  item.iItem = index;
  item.pszText = const_cast<LPWSTR>(text);
  return InsertItem(&item);
}

BOOL CListCtrl::DeleteItem(int index) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(LVM_DELETEITEM, index));
}

BOOL CListCtrl::DeleteAllItems() {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(LVM_DELETEALLITEMS));
}

BOOL CListCtrl::GetItem(LVITEMW* item) const {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(item)));
}

BOOL CListCtrl::SetItem(const LVITEMW* item) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(item)));
}

// The message gives the length it copied, so the buffer grows until the
// text leaves room to spare.
CString CListCtrl::GetItemText(int index, int column) const {
  VN_ASSERT_WINDOW();
  CString text;
  for (int size = 256;; size *= 2) {
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = text.GetBufferSetLength(size);
    item.cchTextMax = size;
    int length = static_cast<int>(SendMessage(LVM_GETITEMTEXTW, index, reinterpret_cast<LPARAM>(&item)));
    text.ReleaseBuffer(length);
    if (length < size - 1)
      return text;
  }
}

BOOL CListCtrl::SetItemText(int index, int column, LPCWSTR text) {
  VN_ASSERT_WINDOW();
  LVITEMW item = {};
  item.iSubItem = column;
  item.pszText = const_cast<LPWSTR>(text);
  return static_cast<BOOL>(SendMessage(LVM_SETITEMTEXTW, index, reinterpret_cast<LPARAM>(&item)));
}

UINT CListCtrl::GetItemState(int index, UINT mask) const {
  VN_ASSERT_WINDOW();
  return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, index, mask));
}

BOOL CListCtrl::SetItemState(int index, UINT state, UINT mask) {
  VN_ASSERT_WINDOW();
  LVITEMW item = {};
  item.state = state;
  item.stateMask = mask;
  return static_cast<BOOL>(SendMessage(LVM_SETITEMSTATE, index, reinterpret_cast<LPARAM>(&item)));
}

DWORD_PTR CListCtrl::GetItemData(int index) const {
  LVITEMW item = {};
  item.mask = LVIF_PARAM;
  item.iItem = index;
  return GetItem(&item) ? static_cast<DWORD_PTR>(item.lParam) : 0;
}

BOOL CListCtrl::SetItemData(int index, DWORD_PTR data) {
  LVITEMW item = {};
  item.mask = LVIF_PARAM;
  item.iItem = index;
  item.lParam = static_cast<LPARAM>(data);
  return SetItem(&item);
}

int CListCtrl::GetNextItem(int start, UINT flags) const {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(LVM_GETNEXTITEM, start, MAKELPARAM(flags, 0)));
}

// The message takes the code in the rectangle it fills.
BOOL CListCtrl::GetItemRect(int index, LPRECT rect, UINT code) const {
  VN_ASSERT_WINDOW();
  rect->left = static_cast<LONG>(code);
  return static_cast<BOOL>(SendMessage(LVM_GETITEMRECT, index, reinterpret_cast<LPARAM>(rect)));
}

int CListCtrl::GetTopIndex() const {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(LVM_GETTOPINDEX));
}

BOOL CListCtrl::EnsureVisible(int index, BOOL partialOK) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(LVM_ENSUREVISIBLE, index, partialOK));
}

BOOL CListCtrl::Update(int index) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(LVM_UPDATE, index));
}

int CListCtrl::HitTest(CPoint point, UINT* flags) const {
  VN_ASSERT_WINDOW();
  LVHITTESTINFO info = {};
  info.pt = point;
  int index = static_cast<int>(SendMessage(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&info)));
  if (flags)
    *flags = info.flags;
  return index;
}

CImageList* CListCtrl::CreateDragImage(int index, LPPOINT upperLeft) {
  VN_ASSERT_WINDOW();
  POINT ignored;
  HIMAGELIST made = reinterpret_cast<HIMAGELIST>(
      SendMessage(LVM_CREATEDRAGIMAGE, index, reinterpret_cast<LPARAM>(upperLeft ? upperLeft : &ignored)));
  if (!made)
    return nullptr;
  CImageList* image = new CImageList;
  image->Attach(made);
  return image;
}

//===-- Columns ------------------------------------------------------------===//

int CListCtrl::InsertColumn(int column, LPCWSTR heading, int format, int width) {
  VN_ASSERT_WINDOW();
  LVCOLUMNW record = {};
  record.mask = LVCF_TEXT | LVCF_FMT | (width >= 0 ? LVCF_WIDTH : 0);
  record.fmt = format;
  record.cx = width;
  record.pszText = const_cast<LPWSTR>(heading);
  return static_cast<int>(SendMessage(LVM_INSERTCOLUMNW, column, reinterpret_cast<LPARAM>(&record)));
}

BOOL CListCtrl::DeleteColumn(int column) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(LVM_DELETECOLUMN, column));
}

int CListCtrl::GetColumnWidth(int column) const {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, column));
}

BOOL CListCtrl::SetColumnWidth(int column, int width) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(LVM_SETCOLUMNWIDTH, column, MAKELPARAM(width, 0)));
}

HWND CListCtrl::GetHeaderCtrl() const {
  VN_ASSERT_WINDOW();
  return reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER));
}

DWORD CListCtrl::GetExtendedStyle() const {
  VN_ASSERT_WINDOW();
  return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE));
}

// A mask of 0 lets every bit of style count.
DWORD CListCtrl::SetExtendedStyle(DWORD style) {
  VN_ASSERT_WINDOW();
  return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, style));
}
