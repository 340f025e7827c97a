// CListCtrl.h - the list view control.
//
// A CWnd over a window of class SysListView32 whose messages run through
// the object (made by Create, or joined from a dialog's template through
// SubclassDlgItem).  Rows are 0-based indexes, columns too; column 0 is the
// row's own text, the others its subitems.  Each method is one message and
// the control keeps all state.
#ifndef VN_AFX_WIN32_CLISTCTRL_H
#define VN_AFX_WIN32_CLISTCTRL_H

#include "afx/win32/CGeometry.h"
#include "afx/win32/CWnd.h"

#include <commctrl.h>

class CImageList;

class VN_API CListCtrl : public CWnd {
  DECLARE_DYNAMIC(CListCtrl)
public:
  // Registers the common controls' list class, then gives its name; null
  // if that failed.  A dialog template that holds a list needs it first.
  static LPCWSTR ClassName();
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

  // Rows
  int GetItemCount() const;
  // Gives the new row's index, -1 on failure.
  int InsertItem(const LVITEMW* item);
  int InsertItem(int index, LPCWSTR text);
  BOOL DeleteItem(int index);
  BOOL DeleteAllItems();
  BOOL GetItem(LVITEMW* item) const;
  BOOL SetItem(const LVITEMW* item);
  CString GetItemText(int index, int column) const;
  BOOL SetItemText(int index, int column, LPCWSTR text);
  UINT GetItemState(int index, UINT mask) const;
  BOOL SetItemState(int index, UINT state, UINT mask);
  DWORD_PTR GetItemData(int index) const;
  BOOL SetItemData(int index, DWORD_PTR data);
  // The next row after start (-1: from the top) with the LVNI_ flags.
  int GetNextItem(int start, UINT flags) const;
  // code: LVIR_BOUNDS, LVIR_LABEL...; client coordinates.
  BOOL GetItemRect(int index, LPRECT rect, UINT code) const;
  int GetTopIndex() const;
  BOOL EnsureVisible(int index, BOOL partialOK);
  // Redraws the row (and arranges an auto-arranged list).
  BOOL Update(int index);
  // point: client coordinates; -1 when no row is there.
  int HitTest(CPoint point, UINT* flags = nullptr) const;
  // The control's picture of the row, the caller's to delete; upperLeft
  // receives where the picture's top left corner lies.
  CImageList* CreateDragImage(int index, LPPOINT upperLeft);

  // Columns
  int InsertColumn(int column, LPCWSTR heading, int format = LVCFMT_LEFT, int width = -1);
  BOOL DeleteColumn(int column);
  int GetColumnWidth(int column) const;
  BOOL SetColumnWidth(int column, int width);
  // The header control of a report view.
  HWND GetHeaderCtrl() const;

  // The LVS_EX_ styles.  SetExtendedStyle replaces them all.
  DWORD GetExtendedStyle() const;
  DWORD SetExtendedStyle(DWORD style);
};

#endif  // VN_AFX_WIN32_CLISTCTRL_H
