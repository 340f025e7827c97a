// VnTreeWalkTest.cpp - the tree walks over a tree of plain nodes: both
// orders and where they stop, counts on empty, flat and very deep trees,
// opening and deleting in bulk, and the open-branch state carried across a
// refill that changed the items.
#include "toolkit/VnTreeWalk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace {

// A tree written as text: "A(B(D) C) E" is the roots A and E, A with the
// children B and C, B with D.  A name may carry its ID after a colon ("B:7");
// otherwise the ID is its first letter.  A lazy tree gives an item its
// children only once it was opened, as a tree filled on demand does.
class TestTree : public CVnTreeAccess {
public:
  struct Node {
    std::string name;
    DWORD id;
    Node* parent;
    std::vector<Node*> children;
    bool expanded = false;
  };

  explicit TestTree(const std::string& text, bool lazy = false) : m_bLazy(lazy) {
    size_t at = 0;
    Parse(text, at, nullptr);
  }
  // depth items named N, each the only child of the one before, and a leaf
  // L below the last.
  explicit TestTree(int depth) : m_bLazy(false) {
    Node* parent = nullptr;
    for (int i = 0; i <= depth; ++i) {
      m_nodes.push_back(Node{i < depth ? "N" : "L", i < depth ? DWORD('N') : DWORD('L'), parent, {}});
      (parent ? parent->children : m_roots).push_back(&m_nodes.back());
      parent = &m_nodes.back();
    }
  }

  HTREEITEM Find(const std::string& name) const {
    for (const Node& node : m_nodes)
      if (node.name == name && Alive(&node))
        return Handle(&node);
    return nullptr;
  }
  static const Node* NodeOf(HTREEITEM item) { return reinterpret_cast<const Node*>(item); }
  static std::string Name(HTREEITEM item) { return item ? NodeOf(item)->name : "(null)"; }
  int ItemCount() const {
    return static_cast<int>(std::count_if(m_nodes.begin(), m_nodes.end(), [&](const Node& n) { return Alive(&n); }));
  }
  // The open items, in the order of the text.
  std::string Expanded() const {
    std::string names;
    for (const Node& node : m_nodes)
      if (node.expanded && Alive(&node))
        names += node.name + " ";
    return names;
  }

  HTREEITEM GetRootItem() const override { return m_roots.empty() ? nullptr : Handle(m_roots.front()); }
  HTREEITEM GetChildItem(HTREEITEM item) const override {
    const Node* node = NodeOf(item);
    bool shown = !m_bLazy || node->expanded;
    return shown && !node->children.empty() ? Handle(node->children.front()) : nullptr;
  }
  HTREEITEM GetNextSiblingItem(HTREEITEM item) const override { return Sibling(item, +1); }
  HTREEITEM GetPrevSiblingItem(HTREEITEM item) const override { return Sibling(item, -1); }
  DWORD GetTreeItemID(HTREEITEM item) override { return NodeOf(item)->id; }
  bool IsExpanded(HTREEITEM item) const override { return NodeOf(item)->expanded; }
  // As a tree view, an item without children never opens.
  void Expand(HTREEITEM item, bool expand) override {
    Mutable(item)->expanded = expand && !NodeOf(item)->children.empty();
  }
  HTREEITEM GetSelectedItem() const override { return m_selected; }
  void SelectItem(HTREEITEM item) override {
    m_selected = item;
    m_selections.push_back(Name(item));
  }
  void DeleteItem(HTREEITEM item) override {
    m_deleted.push_back(Name(item));
    std::vector<Node*>& from = Mutable(item)->parent ? Mutable(item)->parent->children : m_roots;
    from.erase(std::find(from.begin(), from.end(), NodeOf(item)));
  }

  std::vector<std::string> m_selections;
  std::vector<std::string> m_deleted;

private:
  static HTREEITEM Handle(const Node* node) { return reinterpret_cast<HTREEITEM>(const_cast<Node*>(node)); }
  static Node* Mutable(HTREEITEM item) { return const_cast<Node*>(NodeOf(item)); }
  bool Alive(const Node* node) const {
    for (; node->parent; node = node->parent)
      if (std::find(node->parent->children.begin(), node->parent->children.end(), node) ==
          node->parent->children.end())
        return false;
    return std::find(m_roots.begin(), m_roots.end(), node) != m_roots.end();
  }
  HTREEITEM Sibling(HTREEITEM item, int step) const {
    const Node* node = NodeOf(item);
    const std::vector<Node*>& row = node->parent ? node->parent->children : m_roots;
    auto at = std::find(row.begin(), row.end(), node) - row.begin() + step;
    return at >= 0 && at < static_cast<long>(row.size()) ? Handle(row[at]) : nullptr;
  }
  void Parse(const std::string& text, size_t& at, Node* parent) {
    while (at < text.size() && text[at] != ')') {
      if (text[at] == ' ') {
        ++at;
        continue;
      }
      size_t end = text.find_first_of(" ()", at);
      std::string word = text.substr(at, end == std::string::npos ? std::string::npos : end - at);
      at += word.size();
      size_t colon = word.find(':');
      DWORD id = colon == std::string::npos ? static_cast<DWORD>(word[0]) : std::stoul(word.substr(colon + 1));
      m_nodes.push_back(Node{word.substr(0, colon), id, parent, {}});
      Node* node = &m_nodes.back();
      (parent ? parent->children : m_roots).push_back(node);
      if (at < text.size() && text[at] == '(') {
        Parse(text, ++at, node);
        ++at;  // the ')'
      }
    }
  }

  std::deque<Node> m_nodes;
  std::vector<Node*> m_roots;
  HTREEITEM m_selected = nullptr;
  bool m_bLazy;
};

// Visits record their item; the item named stop answers 0.
struct Recorder {
  std::string visited;
  std::string stop;
  static int Visit(HTREEITEM item, void* context) {
    auto* self = static_cast<Recorder*>(context);
    self->visited += TestTree::Name(item) + " ";
    return TestTree::Name(item) == self->stop ? 0 : 1;
  }
};

const char kSample[] = "A(B(D) C)";
const char kForest[] = "A(B(D E) C) F(G(H(I)) J)";

TEST(VnTreeWalkTest, OrdersAndStops) {
  const struct {
    const char* tree;
    const char* start;  // null: from the roots
    int order;
    const char* stop;   // the item that answers 0; empty for none
    const char* visited;
    const char* found;
  } cases[] = {
      {kSample, nullptr, SearchDepthFirst, "", "D B C A ", "(null)"},
      {kSample, nullptr, SearchBreadthFirst, "", "A B C D ", "(null)"},
      {kForest, nullptr, SearchDepthFirst, "", "D E B C A I H G J F ", "(null)"},
      {kForest, nullptr, SearchBreadthFirst, "", "A F B C G J D E H I ", "(null)"},
      // A start confines the walk to its branch, start included.
      {kForest, "G", SearchDepthFirst, "", "I H G ", "(null)"},
      {kForest, "B", SearchBreadthFirst, "", "B D E ", "(null)"},
      {kForest, "C", SearchDepthFirst, "", "C ", "(null)"},
      // A 0 ends the walk at that item.
      {kForest, nullptr, SearchDepthFirst, "C", "D E B C ", "C"},
      {kForest, nullptr, SearchBreadthFirst, "G", "A F B C G ", "G"},
      {kForest, "F", SearchDepthFirst, "F", "I H G J F ", "F"},
      // No order of that number, or no items: nothing is visited.
      {kSample, nullptr, 2, "", "", "(null)"},
      {kSample, nullptr, -1, "", "", "(null)"},
      {"", nullptr, SearchDepthFirst, "", "", "(null)"},
      {"", nullptr, SearchBreadthFirst, "", "", "(null)"},
  };
  for (const auto& c : cases) {
    TestTree tree(c.tree);
    Recorder recorder;
    recorder.stop = c.stop;
    HTREEITEM start = c.start ? tree.Find(c.start) : nullptr;
    HTREEITEM found = VnWalkTree(tree, start, c.order, &Recorder::Visit, &recorder);
    EXPECT_EQ(c.visited, recorder.visited) << c.tree << " from " << (c.start ? c.start : "roots");
    EXPECT_EQ(c.found, TestTree::Name(found)) << c.tree;
  }
}

// A node is an item with children; the rest are leaves.
TEST(VnTreeWalkTest, CountsRootsNodesAndLeaves) {
  const struct {
    const char* tree;
    const char* branch;
    int roots, nodes, leaves, branchNodes;
  } cases[] = {
      {"", nullptr, 0, 0, 0, 0},
      {"A", "A", 1, 0, 1, 0},
      {"A B C", "B", 3, 0, 3, 0},
      {kSample, "B", 1, 2, 2, 1},
      {kForest, "F", 2, 5, 5, 3},
  };
  for (const auto& c : cases) {
    TestTree tree(c.tree);
    EXPECT_EQ(c.roots, VnCountRoots(tree)) << c.tree;
    EXPECT_EQ(c.nodes, VnCountNodes(tree, nullptr)) << c.tree;
    EXPECT_EQ(c.leaves, tree.ItemCount() - VnCountNodes(tree, nullptr)) << c.tree;
    if (c.branch) {
      EXPECT_EQ(c.branchNodes, VnCountNodes(tree, tree.Find(c.branch))) << c.tree;
    }
  }
}

// A chain far deeper than any call stack would bear: every walk and count
// keeps its own stack.
TEST(VnTreeWalkTest, DeepTreesNeedNoCallStack) {
  const int depth = 200000;
  TestTree tree(depth);
  EXPECT_EQ(depth, VnCountNodes(tree, nullptr));
  Recorder recorder;
  recorder.stop = "L";
  EXPECT_EQ("L", TestTree::Name(VnWalkTree(tree, nullptr, SearchDepthFirst, &Recorder::Visit, &recorder)));
  VnExpandBranch(tree, tree.GetRootItem(), true);
  CVnTreeState state;
  VnSaveBranchState(tree, state, tree.GetRootItem());
  ASSERT_EQ(2, state.GetCount());  // every N shares one ID
  DWORD open = 0, leaf = 1;
  EXPECT_TRUE(state.Lookup('N', open));
  EXPECT_EQ(static_cast<DWORD>(TVIS_EXPANDED), open);
  EXPECT_TRUE(state.Lookup('L', leaf));
  EXPECT_EQ(0u, leaf);
}

TEST(VnTreeWalkTest, BulkOpenCloseAndDelete) {
  // Opening reads each item's children after opening it, so a lazy tree
  // opens all the way down.
  TestTree lazy(kForest, true);
  VnExpandBranch(lazy, lazy.Find("F"), true);
  EXPECT_EQ("F G H ", lazy.Expanded());
  VnExpandBranch(lazy, lazy.Find("A"), true);
  EXPECT_EQ("A B F G H ", lazy.Expanded());
  TestTree full(kForest);
  VnExpandBranch(full, full.Find("A"), true);
  VnExpandBranch(full, full.Find("F"), true);
  VnExpandBranch(full, full.Find("F"), false);
  EXPECT_EQ("A B ", full.Expanded());

  TestTree tree("A(B) C D(E)");
  VnDeleteRoots(tree);
  EXPECT_EQ((std::vector<std::string>{"D", "C", "A"}), tree.m_deleted);
  EXPECT_EQ(nullptr, tree.GetRootItem());
  VnDeleteRoots(tree);
  EXPECT_EQ(3u, tree.m_deleted.size());
}

// Saved on one tree, restored on a refill whose items changed: items
// keep their IDs, some went, some came, all arrived closed.
TEST(VnTreeWalkTest, RestoreOpensSavedBranchesOnARefill) {
  const struct {
    const char* name;
    const char* before;
    const char* open;      // opened before saving
    const char* selected;  // selected before saving
    const char* after;     // the refill
    bool lazy;             // the refill gives children only once opened
    const char* openNow;   // opened on the refill before restoring
    const char* expanded;  // after restoring
    const char* selections;
  } cases[] = {
      {"same items", kForest, "A B F", "E", kForest, false, "", "A B F ", "E "},
      {"items gone and come", "A(B(D) C) F(G)", "A B F", "D", "A(C(X) B(Y D)) Z(F(G))", false, "",
       "A B F ", "D "},
      {"filled on demand", kForest, "F G H", "I", kForest, true, "", "F G H ", "I "},
      {"open stays open", kSample, "A", "C", kSample, false, "B", "A B ", "C "},
      {"nothing selected", kSample, "B", "", kSample, false, "", "B ", ""},
      {"same ID twice: the last wins", "A(P:5 Q:5(R))", "A Q", "Q", "A(P:5 Q:5(R))", false, "",
       "A Q ", "P Q "},
  };
  for (const auto& c : cases) {
    TestTree before(c.before);
    for (char name : std::string(c.open))
      if (name != ' ')
        before.Expand(before.Find(std::string(1, name)), true);
    CVnTreeState state;
    for (HTREEITEM root = before.GetRootItem(); root; root = before.GetNextSiblingItem(root))
      VnSaveBranchState(before, state, root);
    if (*c.selected)
      state.m_dwSelectedID = before.GetTreeItemID(before.Find(c.selected));

    TestTree after(c.after, c.lazy);
    for (char name : std::string(c.openNow))
      if (name != ' ')
        after.Expand(after.Find(std::string(1, name)), true);
    for (HTREEITEM root = after.GetRootItem(); root; root = after.GetNextSiblingItem(root))
      VnRestoreBranchState(after, state, root);
    EXPECT_EQ(c.expanded, after.Expanded()) << c.name;
    std::string selections;
    for (const std::string& s : after.m_selections)
      selections += s + " ";
    EXPECT_EQ(c.selections, selections) << c.name;
  }
}

TEST(VnTreeWalkTest, StateSerialisesAndRefusesForeignBuffers) {
  CVnTreeState state;
  EXPECT_EQ(97u, state.GetHashTableSize());
  state.SetAt(3, TVIS_EXPANDED);
  state.SetAt(0x01020304, 0);
  state.SetAt(100, TVIS_EXPANDED);  // bucket 3, with the 3
  state.m_dwSelectedID = 3;
  CByteArray bytes;
  state.Serialize(bytes);
  ASSERT_EQ(4 + 3 * 8, bytes.GetSize());
  EXPECT_EQ(3, bytes[0]);
  EXPECT_EQ(0, bytes[1] | bytes[2] | bytes[3]);

  CVnTreeState read;
  ASSERT_TRUE(read.Deserialize(bytes.GetData(), static_cast<size_t>(bytes.GetSize())));
  EXPECT_EQ(3, read.GetCount());
  EXPECT_EQ(static_cast<DWORD>(CVnTreeState::NoSelection), read.m_dwSelectedID);  // not written
  for (DWORD id : {3u, 0x01020304u, 100u}) {
    DWORD mine = 7, theirs = 9;
    EXPECT_TRUE(state.Lookup(id, mine));
    EXPECT_TRUE(read.Lookup(id, theirs));
    EXPECT_EQ(mine, theirs) << id;
  }

  const std::vector<BYTE> foreign[] = {
      {},
      {1, 0, 0},
      {1, 0, 0, 0, 1, 2, 3},               // one pair announced, half of it there
      {0, 0, 0, 0, 9},                     // trailing bytes
      {0xFF, 0xFF, 0xFF, 0xFF, 1, 2, 3, 4, 5, 6, 7, 8},  // a huge count
  };
  for (const std::vector<BYTE>& buffer : foreign) {
    read.SetAt(1, 1);
    EXPECT_FALSE(read.Deserialize(buffer.data(), buffer.size())) << buffer.size();
    EXPECT_EQ(0, read.GetCount());
  }
  EXPECT_FALSE(read.Deserialize(nullptr, 12));
  CVnTreeState empty;
  empty.Serialize(bytes);
  EXPECT_TRUE(read.Deserialize(bytes.GetData(), 4));
  EXPECT_EQ(0, read.GetCount());
}

}  // namespace
