// CTreeCtrl.cpp - the tree view control, one message a method.
#include "afx/win32/CTreeCtrl.h"

#include "afx/win32/CImageList.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CTreeCtrl, CWnd)

#define VN_ASSERT_WINDOW() assert(::IsWindow(m_hWnd) && "the control exists")

LPCWSTR CTreeCtrl::ClassName() {
  static const bool registered = [] {
    INITCOMMONCONTROLSEX init = {sizeof(init), ICC_TREEVIEW_CLASSES};
    return ::InitCommonControlsEx(&init) != FALSE;
  }();
  return registered ? WC_TREEVIEWW : nullptr;
}

BOOL CTreeCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  LPCWSTR className = ClassName();
  return className && CWnd::CreateEx(0, className, L"", style, rect, parent, id) && SubclassCreated();
}

//===-- Items --------------------------------------------------------------===//

HTREEITEM CTreeCtrl::InsertItem(const TVINSERTSTRUCTW* insert) {
  VN_ASSERT_WINDOW();
  return reinterpret_cast<HTREEITEM>(SendMessage(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(insert)));
}

HTREEITEM CTreeCtrl::InsertItem(LPCWSTR text, HTREEITEM parent, HTREEITEM after) {
  return InsertItem(TVIF_TEXT, text, 0, 0, 0, 0, 0, parent, after);
}

HTREEITEM CTreeCtrl::InsertItem(UINT mask, LPCWSTR text, int image, int selectedImage, UINT state,
                                UINT stateMask, LPARAM data, HTREEITEM parent, HTREEITEM after) {
  TVINSERTSTRUCTW insert = {};
  insert.hParent = parent;
  insert.hInsertAfter = after;
  insert.item.mask = mask;
  insert.item.pszText = const_cast<LPWSTR>(text);
  insert.item.iImage = image;
  insert.item.iSelectedImage = selectedImage;
  insert.item.state = state;
  insert.item.stateMask = stateMask;
  insert.item.lParam = data;
  return InsertItem(&insert);
}

BOOL CTreeCtrl::DeleteItem(HTREEITEM item) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item)));
}

BOOL CTreeCtrl::DeleteAllItems() { return DeleteItem(TVI_ROOT); }

UINT CTreeCtrl::GetCount() const {
  VN_ASSERT_WINDOW();
  return static_cast<UINT>(SendMessage(TVM_GETCOUNT));
}

UINT CTreeCtrl::GetVisibleCount() const {
  VN_ASSERT_WINDOW();
  return static_cast<UINT>(SendMessage(TVM_GETVISIBLECOUNT));
}

HTREEITEM CTreeCtrl::GetNextItem(HTREEITEM item, UINT code) const {
  VN_ASSERT_WINDOW();
  return reinterpret_cast<HTREEITEM>(SendMessage(TVM_GETNEXTITEM, code, reinterpret_cast<LPARAM>(item)));
}

//===-- Attributes ---------------------------------------------------------===//

BOOL CTreeCtrl::GetItem(TVITEMW* item) const {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(item)));
}

BOOL CTreeCtrl::SetItem(TVITEMW* item) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(item)));
}

// The control copies at most the buffer's size, so the buffer grows until
// the text leaves room to spare.
CString CTreeCtrl::GetItemText(HTREEITEM item) const {
  CString text;
  for (int size = 256;; size *= 2) {
    TVITEMW record = {};
    record.mask = TVIF_TEXT;
    record.hItem = item;
    record.pszText = text.GetBufferSetLength(size);
    record.cchTextMax = size;
    record.pszText[0] = 0;
    BOOL got = GetItem(&record);
    if (!got)
      record.pszText[0] = 0;
    text.ReleaseBuffer();
    if (!got || text.GetLength() < size - 1)
      return text;
  }
}

BOOL CTreeCtrl::SetItemText(HTREEITEM item, LPCWSTR text) {
  TVITEMW record = {};
  record.mask = TVIF_TEXT;
  record.hItem = item;
  record.pszText = const_cast<LPWSTR>(text);
  return SetItem(&record);
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM item) const {
  TVITEMW record = {};
  record.mask = TVIF_PARAM;
  record.hItem = item;
  return GetItem(&record) ? static_cast<DWORD_PTR>(record.lParam) : 0;
}

BOOL CTreeCtrl::SetItemData(HTREEITEM item, DWORD_PTR data) {
  TVITEMW record = {};
  record.mask = TVIF_PARAM;
  record.hItem = item;
  record.lParam = static_cast<LPARAM>(data);
  return SetItem(&record);
}

UINT CTreeCtrl::GetItemState(HTREEITEM item, UINT mask) const {
  VN_ASSERT_WINDOW();
  return static_cast<UINT>(SendMessage(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), mask));
}

BOOL CTreeCtrl::SetItemState(HTREEITEM item, UINT state, UINT mask) {
  TVITEMW record = {};
  record.mask = TVIF_STATE;
  record.hItem = item;
  record.state = state;
  record.stateMask = mask;
  return SetItem(&record);
}

// The message takes the item's handle in the rectangle it fills.
BOOL CTreeCtrl::GetItemRect(HTREEITEM item, LPRECT rect, BOOL textOnly) const {
  VN_ASSERT_WINDOW();
  *reinterpret_cast<HTREEITEM*>(rect) = item;
  return static_cast<BOOL>(SendMessage(TVM_GETITEMRECT, textOnly, reinterpret_cast<LPARAM>(rect)));
}

HIMAGELIST CTreeCtrl::SetImageList(HIMAGELIST imageList, int type) {
  VN_ASSERT_WINDOW();
  return reinterpret_cast<HIMAGELIST>(SendMessage(TVM_SETIMAGELIST, type, reinterpret_cast<LPARAM>(imageList)));
}

//===-- Operations ---------------------------------------------------------===//

BOOL CTreeCtrl::Expand(HTREEITEM item, UINT code) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(TVM_EXPAND, code, reinterpret_cast<LPARAM>(item)));
}

BOOL CTreeCtrl::Select(HTREEITEM item, UINT code) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(TVM_SELECTITEM, code, reinterpret_cast<LPARAM>(item)));
}

BOOL CTreeCtrl::EnsureVisible(HTREEITEM item) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item)));
}

HTREEITEM CTreeCtrl::HitTest(CPoint point, UINT* flags) const {
  VN_ASSERT_WINDOW();
  TVHITTESTINFO info = {};
  info.pt = point;
  HTREEITEM item = reinterpret_cast<HTREEITEM>(SendMessage(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&info)));
  if (flags)
    *flags = info.flags;
  return item;
}

CImageList* CTreeCtrl::CreateDragImage(HTREEITEM item) {
  VN_ASSERT_WINDOW();
  HIMAGELIST made = reinterpret_cast<HIMAGELIST>(SendMessage(TVM_CREATEDRAGIMAGE, 0, reinterpret_cast<LPARAM>(item)));
  if (!made)
    return nullptr;
  CImageList* image = new CImageList;
  image->Attach(made);
  return image;
}
