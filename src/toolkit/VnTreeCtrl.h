// VnTreeCtrl.h - the tree view of the component's dialogs and hosts.
//
// Over CTreeCtrl, five things every tree in the hosts needs:
//   - walking and searching, breadth first or depth first (post-order),
//     from the roots or within one branch (VnTreeWalk.h does the walking);
//   - saving and restoring which branches are open and which item is
//     selected, by an item ID that survives a refill (GetTreeItemID);
//   - dragging an item onto another, asked of the subclass through
//     OnQueryItemDrag, OnQueryItemDrop and OnItemDrop, with the drop target
//     highlighted, a drag image when the control can make one, and
//     scrolling while the cursor rests in the 8-pixel border of the window;
//   - counting roots, nodes (items with children) and leaves;
//   - keeping the selection visible while another window has the focus: the
//     selected item's text is framed in the highlight colour.
//
// Nothing is dragged until a subclass allows it: the query defaults say no.
// The control reflects TVN_BEGINDRAG and NM_CUSTOMDRAW to itself, so its
// parent must be a window of the framework (a CWnd, a dialog).
#ifndef VN_TOOLKIT_VNTREECTRL_H
#define VN_TOOLKIT_VNTREECTRL_H

#include "afx/win32/CTreeCtrl.h"
#include "toolkit/VnTreeWalk.h"

class CImageList;

class VN_API CVnTreeCtrl : public CTreeCtrl {
  DECLARE_DYNAMIC(CVnTreeCtrl)
public:
  typedef ::SearchType SearchType;
  static constexpr SearchType SearchBreadthFirst = ::SearchBreadthFirst;
  static constexpr SearchType SearchDepthFirst = ::SearchDepthFirst;
  // A walk's callback.  EnumerateItems stops where it answers 0; FindItem
  // stops where it answers anything else.
  typedef int (*EnumerateProc)(CTreeCtrl& tree, HTREEITEM item, void* param);

  enum : UINT_PTR { kAutoScrollTimer = 1001 };
  enum : UINT { kAutoScrollInterval = 200 };
  enum : int { kAutoScrollBorder = 8 };

  CVnTreeCtrl() = default;
  // Stops a scroll timer that still runs; frees the owned state.
  ~CVnTreeCtrl() override;

  // Dragging, for a subclass to allow and carry out.
  virtual BOOL OnQueryItemDrag(HTREEITEM item);
  virtual BOOL OnQueryItemDrop(HTREEITEM dragged, HTREEITEM target);
  virtual void OnItemDrop(HTREEITEM dragged, HTREEITEM target);
  // The picture dragged along, owned by the control from here; null drags
  // none.  Default: the control's own (none without an image list).
  virtual CImageList* OnCreateDragImage(HTREEITEM item);
  virtual void OnBeginDragImage(HTREEITEM item, const CPoint& point);
  virtual void OnMoveDragImage(const CPoint& point);
  virtual void OnEndDragImage();

  // The open state of item's branch, added to state.
  virtual void SaveTreeState(CVnTreeState& state, HTREEITEM item);
  // The whole tree's state and its selected item; state is emptied first.
  virtual void SaveTreeState(CVnTreeState& state);
  // Into the state the control owns, made on first use.
  virtual void SaveTreeState();
  virtual void RestoreTreeState(const CVnTreeState& state, HTREEITEM item);
  // Nothing with an empty state.
  virtual void RestoreTreeState(const CVnTreeState& state);
  // Nothing before the first SaveTreeState().
  virtual void RestoreTreeState();
  // What names an item in a saved state; default its item data.  A subclass
  // that refills the tree gives IDs that stay the same across the refill.
  virtual DWORD GetTreeItemID(HTREEITEM item);

  // Walks from start (null: every root) in the order type.  True when the
  // walk ran to the end, also on an empty tree; false when the callback
  // stopped it.
  bool EnumerateItems(EnumerateProc callback, void* param, HTREEITEM start, SearchType type);
  // The first item the callback answers non-zero for, or null.
  HTREEITEM FindItem(EnumerateProc callback, void* param, HTREEITEM start, SearchType type);
  // The first item with exactly this text (letter case counts).
  HTREEITEM FindItem(LPCWSTR text, HTREEITEM start, SearchType type);
  // The first item with this item data.
  HTREEITEM FindItem(void* itemData, HTREEITEM start, SearchType type);
  // Whether item is start or lies below it; FALSE on an empty tree.
  BOOL IsItemInTree(HTREEITEM start, HTREEITEM item);

  int GetRootCount() const;
  // Items that have children.
  int GetTotalNodeCount();
  // Items without children.
  int GetTotalLeafCount();
  // item and all below it; TVI_ROOT for the whole tree.
  void ExpandAll(HTREEITEM item);
  void CollapseAll(HTREEITEM item);
  // Deletes the roots from the last to the first.
  void DeleteAll();
  // Selects the item and scrolls it into view; with asFirstVisible, only
  // scrolls it to the top without selecting it.
  void SelectItemAndMakeVisible(HTREEITEM item, bool asFirstVisible);

protected:
  HTREEITEM GetDragItem() const { return m_hDragItem; }
  // The item under point (client coordinates), or null.
  HTREEITEM FindDropTarget(const CPoint& point);
  void DoBeginDrag(HTREEITEM item, const CPoint& point);
  void DoContinueDrag(const CPoint& point);
  void DoEndDrag(const CPoint& point);
  void StartAutoScrollTimer();
  void StopAutoScrollTimer();
  void OnAutoScrollTimer();
  void ExpandCollapseAll(HTREEITEM item, bool expand);
  // Adds the items with children in item's branch, item included.
  void GetChildNodeCount(HTREEITEM item, int& count);

  void OnMouseMove(UINT flags, CPoint point);
  void OnLButtonUp(UINT flags, CPoint point);
  void OnTimer(UINT_PTR id);
  void OnCancelMode();
  void OnBeginDrag(NMHDR* notify, LRESULT* result);
  void OnCustomDraw(NMHDR* notify, LRESULT* result);

  DECLARE_MESSAGE_MAP()

private:
  // The context of one walk: the public callback behind VnWalkTree's visit.
  struct Walk {
    CVnTreeCtrl* tree;
    EnumerateProc callback;
    void* param;
  };
  static int EnumerateItem_EnumerateWrapper(HTREEITEM item, void* walk);
  static int EnumerateItem_FindWrapper(HTREEITEM item, void* walk);
  static int MatchItem(CTreeCtrl& tree, HTREEITEM item, void* wanted);
  static int MatchParam(CTreeCtrl& tree, HTREEITEM item, void* data);
  static int MatchText(CTreeCtrl& tree, HTREEITEM item, void* text);
  HTREEITEM EnumerateItems(VnTreeVisit wrapper, EnumerateProc callback, void* param, HTREEITEM start,
                           SearchType type);

  HTREEITEM m_hDragItem = nullptr;
  CImageList* m_pDragImage = nullptr;
  UINT_PTR m_nScrollTimer = 0;
  RECT m_rcOuterScroll = {0, 0, 0, 0};
  RECT m_rcInnerScroll = {0, 0, 0, 0};
  CVnTreeState* m_pTreeState = nullptr;
};

#endif  // VN_TOOLKIT_VNTREECTRL_H
