// VnListCtrl.h - the list view of the component's dialogs and hosts.
//
// Over CListCtrl: reordering rows by dragging one onto another, and a few
// column helpers.  Dragging follows the scheme of the tree (VnTreeCtrl.h):
// the subclass is asked through OnQueryItemDrag and OnQueryItemDrop, and a
// drag image is shown while the row moves; but here the default drop does
// the real work: OnItemDrop moves the row, with its texts, image, data,
// selection and focus, before the target row or after it.
//
// Only a list that can be reordered drags: a report (or list) view with a
// single selection and no sorting.  EnableDragDrop(true) switches dragging
// on only for such a list.  While a row is dragged, the hit test looks at
// the left edge of the rows, so the image moves only up and down; the drop
// goes to the row last highlighted, never to where the button came up.
// There is no scrolling at the edge.
#ifndef VN_TOOLKIT_VNLISTCTRL_H
#define VN_TOOLKIT_VNLISTCTRL_H

#include "afx/win32/CListCtrl.h"

class CImageList;

class VN_API CVnListCtrl : public CListCtrl {
  DECLARE_DYNAMIC(CVnListCtrl)
public:
  CVnListCtrl() = default;
  ~CVnListCtrl() override;

  // Both default to whether dragging is enabled.
  virtual BOOL OnQueryItemDrag(int item);
  virtual BOOL OnQueryItemDrop(int dragged, int target);
  // Moves the dragged row before the target row, or after it.
  virtual void OnItemDrop(int dragged, int target);
  // The picture dragged along, owned by the control from here; null drags
  // none.  Default: the control's picture of the row.
  virtual CImageList* OnCreateDragImage(int item);
  virtual void OnBeginDragImage(int item, const CPoint& point);
  virtual void OnMoveDragImage(const CPoint& point);
  virtual void OnEndDragImage();

  // The style allows reordering: report or list view, single selection,
  // not sorted.
  bool CanDragAndDrop();
  // Enabling holds only where CanDragAndDrop does.
  void EnableDragDrop(bool enable);
  void SetInsertAfterOnDrop() { m_bInsertBefore = FALSE; }
  void SetInsertBeforeOnDrop() { m_bInsertBefore = TRUE; }
  BOOL GetInsertBeforeOnDrop() const { return m_bInsertBefore; }

  int GetColumnCount() const;
  // 0 with no columns.
  int GetTotalColumnWidths() const;
  // Adds LVS_EX_FULLROWSELECT to the extended style.
  void SetFullRowSelect();

protected:
  int GetDragItem() const { return m_nDragItem; }
  // The row under point (client coordinates), or -1.
  int FindDropTarget(const CPoint& point);
  void DoBeginDrag(int item, const CPoint& point);
  void DoContinueDrag(const CPoint& point);
  void DoEndDrag(const CPoint& point);
  // Highlights the row as the drop target, alone; -1 clears the highlight.
  void SelectDropTarget(int index);

  void OnBeginDrag(NMHDR* notify, LRESULT* result);
  void OnLButtonUp(UINT flags, CPoint point);
  void OnMouseMove(UINT flags, CPoint point);

  DECLARE_MESSAGE_MAP()

private:
  int m_nDragItem = -1;
  CImageList* m_pDragImage = nullptr;
  BOOL m_bInsertBefore = TRUE;
  bool m_bDragEnabled = false;
};

#endif  // VN_TOOLKIT_VNLISTCTRL_H
