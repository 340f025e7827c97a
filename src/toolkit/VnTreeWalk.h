// VnTreeWalk.h - walking, searching and counting a tree, and saving and
// restoring which of its branches are open.
//
// The walks need only three questions of a tree: an item's first child, its
// next sibling and its previous sibling (CVnTreeAccess).  The tree control
// (VnTreeCtrl.h) answers them with a tree view's messages; any other tree of
// opaque item handles gets the same walks.  A null handle is no item.
//
// Two orders: breadth first, level by level; and depth first in post-order,
// an item's children before the item.  A walk covers its start item and
// everything below it, or with a null start every root and everything below
// them.  Walks keep their own queue or stack, so a tree of any depth is safe.
//
// The state of a tree is which items are open and which one is selected,
// kept by item ID rather than handle, so that it outlives a refill of the
// tree.  Restoring only opens and selects: an item open now stays open, and
// an item the state doesn't know stays as it is.  After a refill, where all
// items arrive closed, that gives back the saved picture.
#ifndef VN_TOOLKIT_VNTREEWALK_H
#define VN_TOOLKIT_VNTREEWALK_H

#include "afx/afx.h"

#ifdef _WIN32
#include <commctrl.h>
#else
struct _TREEITEM;
typedef struct _TREEITEM* HTREEITEM;
#define TVI_ROOT ((HTREEITEM)(UINT_PTR)-0x10000)
#define TVIS_EXPANDED 0x0020u
#endif

// The orders of a walk.
enum SearchType { SearchBreadthFirst = 0, SearchDepthFirst = 1 };

// What the walks and the state ask of a tree.
class VN_API CVnTreeAccess {
public:
  virtual ~CVnTreeAccess() = default;

  // Navigation.  GetRootItem gives the first root, null on an empty tree.
  virtual HTREEITEM GetRootItem() const = 0;
  virtual HTREEITEM GetChildItem(HTREEITEM item) const = 0;
  virtual HTREEITEM GetNextSiblingItem(HTREEITEM item) const = 0;
  virtual HTREEITEM GetPrevSiblingItem(HTREEITEM item) const = 0;

  // What the state and the bulk operations act on.
  // The ID that names the item in a saved state.
  virtual DWORD GetTreeItemID(HTREEITEM item) = 0;
  virtual bool IsExpanded(HTREEITEM item) const = 0;
  virtual void Expand(HTREEITEM item, bool expand) = 0;
  virtual HTREEITEM GetSelectedItem() const = 0;
  virtual void SelectItem(HTREEITEM item) = 0;
  virtual void DeleteItem(HTREEITEM item) = 0;
};

// Which items are open (TVIS_EXPANDED, else 0) by item ID, in 97 buckets,
// and the ID of the selected item.
class VN_API CVnTreeState : public CMap<DWORD, DWORD, DWORD, DWORD> {
public:
  enum : DWORD { NoSelection = 0xFFFFFFFFu };

  CVnTreeState() { InitHashTable(97); }

  // The count, then each ID and value, as 32-bit little-endian numbers; the
  // selected ID is not written.  bytes is replaced.
  void Serialize(CByteArray& bytes) const;
  // Reads what Serialize wrote into an emptied map.  A buffer of any other
  // length leaves the map empty and gives FALSE.
  BOOL Deserialize(const BYTE* data, size_t size);

  DWORD m_dwSelectedID = NoSelection;
};

// Called for each item of a walk; an answer of 0 stops it there.
typedef int (*VnTreeVisit)(HTREEITEM item, void* context);

// The item at which visit answered 0, or null when the walk ran to the end,
// the tree is empty or order is no SearchType.
VN_API HTREEITEM VnWalkTree(const CVnTreeAccess& tree, HTREEITEM start, int order, VnTreeVisit visit,
                            void* context);
// The last of the roots, null on an empty tree.
VN_API HTREEITEM VnLastRoot(const CVnTreeAccess& tree);
VN_API int VnCountRoots(const CVnTreeAccess& tree);
// The items with children in item's branch, item included; a null item
// means the whole tree.
VN_API int VnCountNodes(const CVnTreeAccess& tree, HTREEITEM item);
// Opens or closes item, then every item below it, each one's children read
// after it was opened.
VN_API void VnExpandBranch(CVnTreeAccess& tree, HTREEITEM item, bool expand);
// Deletes the roots from the last to the first.
VN_API void VnDeleteRoots(CVnTreeAccess& tree);

// Adds the open state of item and of every item below it, open or closed,
// to state.  A later item with an ID seen before overwrites its value.
VN_API void VnSaveBranchState(CVnTreeAccess& tree, CVnTreeState& state, HTREEITEM item);
// Selects the item whose ID is the selected one and opens the items saved
// open, top down, in item's branch.  Items of the same ID are each selected
// in turn, so the last one stays selected.
VN_API void VnRestoreBranchState(CVnTreeAccess& tree, const CVnTreeState& state, HTREEITEM item);

#endif  // VN_TOOLKIT_VNTREEWALK_H
