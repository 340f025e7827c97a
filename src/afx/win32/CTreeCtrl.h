// CTreeCtrl.h - the tree view control.
//
// A CWnd over a window of class SysTreeView32 whose messages run through
// the object (made by Create, or joined from a dialog's template through
// SubclassDlgItem), so a derived class handles its mouse messages and its
// own reflected notifications.  Items are the control's HTREEITEM handles;
// each method is one message and the control keeps all state.
#ifndef VN_AFX_WIN32_CTREECTRL_H
#define VN_AFX_WIN32_CTREECTRL_H

#include "afx/win32/CGeometry.h"
#include "afx/win32/CWnd.h"

#include <commctrl.h>

class CImageList;

class VN_API CTreeCtrl : public CWnd {
  DECLARE_DYNAMIC(CTreeCtrl)
public:
  // Registers the common controls' tree class, then gives its name; null
  // if that failed.  A dialog template that holds a tree needs it first.
  static LPCWSTR ClassName();
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

  // Items
  HTREEITEM InsertItem(const TVINSERTSTRUCTW* insert);
  HTREEITEM InsertItem(LPCWSTR text, HTREEITEM parent = TVI_ROOT, HTREEITEM after = TVI_LAST);
  // mask: the TVIF_ fields that count among text, data, state and images.
  HTREEITEM InsertItem(UINT mask, LPCWSTR text, int image, int selectedImage, UINT state, UINT stateMask,
                       LPARAM data, HTREEITEM parent, HTREEITEM after);
  BOOL DeleteItem(HTREEITEM item);
  BOOL DeleteAllItems();
  UINT GetCount() const;
  UINT GetVisibleCount() const;

  // Navigation: TVM_GETNEXTITEM with a TVGN_ code.
  HTREEITEM GetNextItem(HTREEITEM item, UINT code) const;
  HTREEITEM GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
  HTREEITEM GetChildItem(HTREEITEM item) const { return GetNextItem(item, TVGN_CHILD); }
  HTREEITEM GetNextSiblingItem(HTREEITEM item) const { return GetNextItem(item, TVGN_NEXT); }
  HTREEITEM GetPrevSiblingItem(HTREEITEM item) const { return GetNextItem(item, TVGN_PREVIOUS); }
  HTREEITEM GetParentItem(HTREEITEM item) const { return GetNextItem(item, TVGN_PARENT); }
  HTREEITEM GetSelectedItem() const { return GetNextItem(nullptr, TVGN_CARET); }
  HTREEITEM GetDropHilightItem() const { return GetNextItem(nullptr, TVGN_DROPHILITE); }
  HTREEITEM GetFirstVisibleItem() const { return GetNextItem(nullptr, TVGN_FIRSTVISIBLE); }
  BOOL ItemHasChildren(HTREEITEM item) const { return GetChildItem(item) != nullptr; }

  // Attributes
  BOOL GetItem(TVITEMW* item) const;
  BOOL SetItem(TVITEMW* item);
  CString GetItemText(HTREEITEM item) const;
  BOOL SetItemText(HTREEITEM item, LPCWSTR text);
  DWORD_PTR GetItemData(HTREEITEM item) const;
  BOOL SetItemData(HTREEITEM item, DWORD_PTR data);
  UINT GetItemState(HTREEITEM item, UINT mask) const;
  BOOL SetItemState(HTREEITEM item, UINT state, UINT mask);
  // The item's whole row, or with textOnly its text's box, in client
  // coordinates; FALSE for an item not in view.
  BOOL GetItemRect(HTREEITEM item, LPRECT rect, BOOL textOnly) const;
  // type: TVSIL_NORMAL or TVSIL_STATE.  Gives the list the control had.
  HIMAGELIST SetImageList(HIMAGELIST imageList, int type);

  // Operations
  // code: TVE_EXPAND, TVE_COLLAPSE, TVE_TOGGLE...
  BOOL Expand(HTREEITEM item, UINT code);
  // code: TVGN_CARET, TVGN_DROPHILITE or TVGN_FIRSTVISIBLE; a null item
  // clears the caret or the drop highlight.
  BOOL Select(HTREEITEM item, UINT code);
  BOOL SelectItem(HTREEITEM item) { return Select(item, TVGN_CARET); }
  BOOL SelectDropTarget(HTREEITEM item) { return Select(item, TVGN_DROPHILITE); }
  BOOL EnsureVisible(HTREEITEM item);
  // point: client coordinates; flags receives the TVHT_ part hit.
  HTREEITEM HitTest(CPoint point, UINT* flags = nullptr) const;
  // The control's picture of the item, the caller's to delete; null when
  // the control has no image list to make one from.
  CImageList* CreateDragImage(HTREEITEM item);
};

#endif  // VN_AFX_WIN32_CTREECTRL_H
