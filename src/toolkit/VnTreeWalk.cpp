// VnTreeWalk.cpp - the walks, counts and open-branch state of a tree that
// answers first child, next sibling and previous sibling.
//
// Depth first runs without recursion: the path from the walk's top down to
// the present item is an explicit stack.  Going down, each item with
// children is pushed and its first child taken; an item whose children are
// all done is visited (post-order) or was visited on the way down
// (pre-order); then its next sibling is taken, or, with none, the parent is
// popped.  At the top the walk goes on to the next root only when it began
// at the roots.
#include "toolkit/VnTreeWalk.h"

#include <deque>
#include <vector>

//===-- The saved state ----------------------------------------------------===//

static void PutLittle32(CByteArray& bytes, DWORD value) {
  for (int shift = 0; shift < 32; shift += 8)
    bytes.Add(static_cast<BYTE>(value >> shift));
}

static DWORD GetLittle32(const BYTE* data) {
  return static_cast<DWORD>(data[0]) | static_cast<DWORD>(data[1]) << 8 | static_cast<DWORD>(data[2]) << 16 |
         static_cast<DWORD>(data[3]) << 24;
}

void CVnTreeState::Serialize(CByteArray& bytes) const {
  bytes.RemoveAll();
  PutLittle32(bytes, static_cast<DWORD>(GetCount()));
  DWORD id = 0, value = 0;
  for (POSITION pos = GetStartPosition(); pos;) {
    GetNextAssoc(pos, id, value);
    PutLittle32(bytes, id);
    PutLittle32(bytes, value);
  }
}

// The length must be exactly the count's: a cut or padded buffer is not a
// state this class wrote.
BOOL CVnTreeState::Deserialize(const BYTE* data, size_t size) {
  RemoveAll();
  if (!data || size < 4)
    return FALSE;
  size_t count = GetLittle32(data);
  if ((size - 4) / 8 != count || (size - 4) % 8 != 0)
    return FALSE;
  for (size_t i = 0; i < count; ++i) {
    const BYTE* pair = data + 4 + 8 * i;
    SetAt(GetLittle32(pair), GetLittle32(pair + 4));
  }
  return TRUE;
}

//===-- Walks --------------------------------------------------------------===//

// Fills the queue with the start item or all roots, then visits the head
// and appends its children until the queue runs dry.
static HTREEITEM BreadthFirst(const CVnTreeAccess& tree, HTREEITEM start, VnTreeVisit visit, void* context) {
  std::deque<HTREEITEM> queue;
  if (start)
    queue.push_back(start);
  else
    for (HTREEITEM root = tree.GetRootItem(); root; root = tree.GetNextSiblingItem(root))
      queue.push_back(root);
  while (!queue.empty()) {
    HTREEITEM item = queue.front();
    queue.pop_front();
    if (visit(item, context) == 0)
      return item;
    for (HTREEITEM child = tree.GetChildItem(item); child; child = tree.GetNextSiblingItem(child))
      queue.push_back(child);
  }
  return nullptr;
}

// The item after item once its branch is done: its next sibling, or the
// next sibling of the nearest ancestor on path that has one.  Pops path as
// it climbs.  At the top, the next root only if the walk spans the roots.
static HTREEITEM NextAfterBranch(const CVnTreeAccess& tree, std::vector<HTREEITEM>& path, HTREEITEM item,
                                 bool roots) {
  for (;;) {
    if (path.empty())
      return roots ? tree.GetNextSiblingItem(item) : nullptr;
    if (HTREEITEM next = tree.GetNextSiblingItem(item))
      return next;
    item = path.back();
    path.pop_back();
  }
}

// Post-order: down to the deepest first child, visit, then the siblings;
// a parent is visited when its last child's branch is done.
static HTREEITEM DepthFirst(const CVnTreeAccess& tree, HTREEITEM start, VnTreeVisit visit, void* context) {
  bool roots = start == nullptr;
  std::vector<HTREEITEM> path;
  HTREEITEM item = roots ? tree.GetRootItem() : start;
  while (item) {
    for (HTREEITEM child; (child = tree.GetChildItem(item)) != nullptr; item = child)
      path.push_back(item);
    for (;;) {
      if (visit(item, context) == 0)
        return item;
      if (path.empty()) {
        item = roots ? tree.GetNextSiblingItem(item) : nullptr;
        break;
      }
      if (HTREEITEM next = tree.GetNextSiblingItem(item)) {
        item = next;
        break;
      }
      item = path.back();
      path.pop_back();
    }
  }
  return nullptr;
}

HTREEITEM VnWalkTree(const CVnTreeAccess& tree, HTREEITEM start, int order, VnTreeVisit visit, void* context) {
  if (!tree.GetRootItem())
    return nullptr;
  switch (order) {
  case SearchBreadthFirst:
    return BreadthFirst(tree, start, visit, context);
  case SearchDepthFirst:
    return DepthFirst(tree, start, visit, context);
  default:
    return nullptr;
  }
}

// Pre-order over item's branch: act sees an item before its children are
// read, so it may open the item and so give it children.
template <class Act>
static void PreOrder(const CVnTreeAccess& tree, HTREEITEM item, Act act) {
  std::vector<HTREEITEM> path;
  while (item) {
    act(item);
    if (HTREEITEM child = tree.GetChildItem(item)) {
      path.push_back(item);
      item = child;
    } else {
      item = NextAfterBranch(tree, path, item, false);
    }
  }
}

//===-- Counts and bulk operations -----------------------------------------===//

HTREEITEM VnLastRoot(const CVnTreeAccess& tree) {
  HTREEITEM last = tree.GetRootItem();
  for (HTREEITEM next = last; next; next = tree.GetNextSiblingItem(next))
    last = next;
  return last;
}

int VnCountRoots(const CVnTreeAccess& tree) {
  int count = 0;
  for (HTREEITEM root = tree.GetRootItem(); root; root = tree.GetNextSiblingItem(root))
    ++count;
  return count;
}

namespace {
struct NodeCount {
  const CVnTreeAccess* tree;
  int count;
};
}  // namespace

static int CountIfNode(HTREEITEM item, void* context) {
  auto* nodes = static_cast<NodeCount*>(context);
  if (nodes->tree->GetChildItem(item))
    ++nodes->count;
  return 1;
}

int VnCountNodes(const CVnTreeAccess& tree, HTREEITEM item) {
  NodeCount nodes = {&tree, 0};
  VnWalkTree(tree, item, SearchDepthFirst, &CountIfNode, &nodes);
  return nodes.count;
}

void VnExpandBranch(CVnTreeAccess& tree, HTREEITEM item, bool expand) {
  PreOrder(tree, item, [&](HTREEITEM each) { tree.Expand(each, expand); });
}

// Each root's previous sibling is taken before the root goes.
void VnDeleteRoots(CVnTreeAccess& tree) {
  for (HTREEITEM root = VnLastRoot(tree); root;) {
    HTREEITEM previous = tree.GetPrevSiblingItem(root);
    tree.DeleteItem(root);
    root = previous;
  }
}

//===-- Saving and restoring the open branches -----------------------------===//

void VnSaveBranchState(CVnTreeAccess& tree, CVnTreeState& state, HTREEITEM item) {
  PreOrder(tree, item, [&](HTREEITEM each) {
    state.SetAt(tree.GetTreeItemID(each), tree.IsExpanded(each) ? TVIS_EXPANDED : 0);
  });
}

void VnRestoreBranchState(CVnTreeAccess& tree, const CVnTreeState& state, HTREEITEM item) {
  PreOrder(tree, item, [&](HTREEITEM each) {
    DWORD id = tree.GetTreeItemID(each), value = 0;
    state.Lookup(id, value);
    if (id == state.m_dwSelectedID)
      tree.SelectItem(each);
    if (value != 0)
      tree.Expand(each, true);
  });
}
