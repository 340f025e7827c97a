// VnTreeWalkTest.cpp - the tree walks over a tree of plain nodes: both
// orders and where they stop, counts on empty, flat and very deep trees,
// and the open-branch state carried across a refill that changed the items.
#include "toolkit/VnTreeWalk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <string>
#include <vector>

namespace {

// A tree written as text: "A(B(D) C) E" is the roots A and E, A with the
// children B and C, B with D.  An item's ID is its letter, or the number
// after a colon ("P:5").  A lazy tree shows an item's children only once it
// is open, as a tree filled on demand does.
class TestTree : public CVnTreeAccess {
public:
  struct Node { std::string name; DWORD id; Node* parent; std::vector<Node*> children; bool open; };

  explicit TestTree(const std::string& text, bool lazy = false) : m_bLazy(lazy) {
    std::vector<Node*> path;  // the item whose children follow a '('
    for (size_t at = 0; at < text.size();) {
      char c = text[at];
      if (c == ' ' || c == '(' || c == ')') {
        if (c == '(')
          path.push_back(&m_nodes.back());
        if (c == ')')
          path.pop_back();
        ++at;
        continue;
      }
      size_t end = std::min(text.find_first_of(" ()", at), text.size());
      std::string word = text.substr(at, end - at);
      size_t colon = word.find(':');
      DWORD id = colon == std::string::npos ? DWORD(word[0]) : DWORD(std::stoul(word.substr(colon + 1)));
      Add(word.substr(0, colon), id, path.empty() ? nullptr : path.back());
      at = end;
    }
  }
  // depth items N, each the only child of the one before, over a leaf L.
  explicit TestTree(int depth) : m_bLazy(false) {
    for (int i = 0; i <= depth; ++i)
      Add(i < depth ? "N" : "L", i < depth ? 'N' : 'L', i ? &m_nodes.back() : nullptr);
  }

  HTREEITEM Find(const std::string& name) const {
    for (const Node& node : m_nodes)
      if (node.name == name)
        return Handle(&node);
    return nullptr;
  }
  static std::string Name(HTREEITEM item) { return item ? Of(item)->name : "(null)"; }
  int ItemCount() const { return static_cast<int>(m_nodes.size()); }
  std::string Open() const {
    std::string names;
    for (const Node& node : m_nodes)
      names += node.open ? node.name + " " : "";
    return names;
  }

  HTREEITEM GetRootItem() const override { return m_roots.empty() ? nullptr : Handle(m_roots[0]); }
  HTREEITEM GetChildItem(HTREEITEM item) const override {
    const Node* node = Of(item);
    return (!m_bLazy || node->open) && !node->children.empty() ? Handle(node->children[0]) : nullptr;
  }
  HTREEITEM GetNextSiblingItem(HTREEITEM item) const override { return Sibling(item, +1); }
  HTREEITEM GetPrevSiblingItem(HTREEITEM item) const override { return Sibling(item, -1); }
  DWORD GetTreeItemID(HTREEITEM item) override { return Of(item)->id; }
  bool IsExpanded(HTREEITEM item) const override { return Of(item)->open; }
  // As a tree view, an item without children never opens.
  void Expand(HTREEITEM item, bool expand) override { Of(item)->open = expand && !Of(item)->children.empty(); }
  HTREEITEM GetSelectedItem() const override { return nullptr; }
  void SelectItem(HTREEITEM item) override { m_selections += Name(item) + " "; }
  void DeleteItem(HTREEITEM item) override { m_roots.erase(std::find(m_roots.begin(), m_roots.end(), Of(item))); }

  std::string m_selections;

private:
  static Node* Of(HTREEITEM item) { return reinterpret_cast<Node*>(item); }
  static HTREEITEM Handle(const Node* node) { return reinterpret_cast<HTREEITEM>(const_cast<Node*>(node)); }
  void Add(const std::string& name, DWORD id, Node* parent) {
    m_nodes.push_back(Node{name, id, parent, {}, false});
    (parent ? parent->children : m_roots).push_back(&m_nodes.back());
  }
  HTREEITEM Sibling(HTREEITEM item, int step) const {
    const std::vector<Node*>& row = Of(item)->parent ? Of(item)->parent->children : m_roots;
    long at = std::find(row.begin(), row.end(), Of(item)) - row.begin() + step;
    return at >= 0 && at < static_cast<long>(row.size()) ? Handle(row[at]) : nullptr;
  }

  std::deque<Node> m_nodes;
  std::vector<Node*> m_roots;
  bool m_bLazy;
};

// Records each item visited; the item named stop answers 0.
struct Recorder {
  std::string visited, stop;
  static int Visit(HTREEITEM item, void* self) {
    auto* r = static_cast<Recorder*>(self);
    r->visited += TestTree::Name(item) + " ";
    return TestTree::Name(item) == r->stop ? 0 : 1;
  }
};

const char kForest[] = "A(B(D E) C) F(G(H(I)) J)";

TEST(VnTreeWalkTest, OrdersAndStops) {
  const struct {
    const char* tree;
    const char* start;  // null: from the roots
    int order;
    const char* stop;
    const char* visited;
    const char* found;
  } cases[] = {
      {"A(B(D) C)", nullptr, SearchDepthFirst, "", "D B C A ", "(null)"},
      {"A(B(D) C)", nullptr, SearchBreadthFirst, "", "A B C D ", "(null)"},
      {kForest, nullptr, SearchDepthFirst, "", "D E B C A I H G J F ", "(null)"},
      {kForest, nullptr, SearchBreadthFirst, "", "A F B C G J D E H I ", "(null)"},
      // A start confines the walk to its branch, start included.
      {kForest, "G", SearchDepthFirst, "", "I H G ", "(null)"},
      {kForest, "B", SearchBreadthFirst, "", "B D E ", "(null)"},
      // A 0 ends the walk at that item.
      {kForest, nullptr, SearchDepthFirst, "C", "D E B C ", "C"},
      {kForest, nullptr, SearchBreadthFirst, "G", "A F B C G ", "G"},
      {kForest, "F", SearchDepthFirst, "F", "I H G J F ", "F"},
      // No such order, or no items: nothing is visited.
      {kForest, nullptr, 2, "", "", "(null)"}, {"", nullptr, SearchBreadthFirst, "", "", "(null)"},
  };
  for (const auto& c : cases) {
    TestTree tree(c.tree);
    Recorder recorder{"", c.stop};
    HTREEITEM found = VnWalkTree(tree, c.start ? tree.Find(c.start) : nullptr, c.order, &Recorder::Visit, &recorder);
    EXPECT_EQ(c.visited, recorder.visited) << c.tree << " from " << (c.start ? c.start : "the roots");
    EXPECT_EQ(c.found, TestTree::Name(found)) << c.tree;
  }
}

// A node is an item with children; the rest are leaves.
TEST(VnTreeWalkTest, CountsOnEmptyFlatAndDeepTrees) {
  const struct { const char* tree; int roots, nodes, leaves; } cases[] = {
      {"", 0, 0, 0}, {"A", 1, 0, 1}, {"A B C", 3, 0, 3}, {kForest, 2, 5, 5}};
  for (const auto& c : cases) {
    TestTree tree(c.tree);
    EXPECT_EQ(c.roots, VnCountRoots(tree)) << c.tree;
    EXPECT_EQ(c.nodes, VnCountNodes(tree, nullptr)) << c.tree;
    EXPECT_EQ(c.leaves, tree.ItemCount() - VnCountNodes(tree, nullptr)) << c.tree;
  }
  // Far deeper than a call stack would bear: the walks keep their own.
  TestTree deep(200000);
  EXPECT_EQ(200000, VnCountNodes(deep, nullptr));
  Recorder recorder{"", "L"};
  EXPECT_EQ("L", TestTree::Name(VnWalkTree(deep, nullptr, SearchDepthFirst, &Recorder::Visit, &recorder)));
  VnExpandBranch(deep, deep.GetRootItem(), true);
  CVnTreeState state;
  VnSaveBranchState(deep, state, deep.GetRootItem());
  DWORD open = 0;
  EXPECT_TRUE(state.Lookup('N', open) && open == TVIS_EXPANDED);
}

// Saved on one tree, restored on a refill whose items changed: they keep
// their IDs, some went, some came, all arrived closed.
TEST(VnTreeWalkTest, RestoreOpensSavedBranchesOnARefill) {
  const struct {
    const char* name;
    const char* before;
    const char* open;      // opened before saving
    const char* selected;  // selected before saving
    const char* after;     // the refill
    bool lazy;             // the refill gives children only once opened
    const char* openNow;   // opened on the refill before restoring
    const char* expanded;
    const char* selections;
  } cases[] = {
      {"same items", kForest, "ABF", "E", kForest, false, "", "A B F ", "E "},
      {"items gone, come and moved", "A(B(D) C) F(G)", "ABF", "D", "A(C(X) B(Y D)) Z(F(G))", false, "", "A B F ",
       "D "},
      {"filled on demand", kForest, "FGH", "I", kForest, true, "", "F G H ", "I "},
      {"open stays open", kForest, "A", "C", kForest, false, "B", "A B ", "C "},
      {"nothing selected", kForest, "B", "", kForest, false, "", "B ", ""},
      {"one ID twice: the last wins", "A(P:5 Q:5(R))", "AQ", "Q", "A(P:5 Q:5(R))", false, "", "A Q ", "P Q "},
  };
  for (const auto& c : cases) {
    TestTree before(c.before), after(c.after, c.lazy);
    for (char name : std::string(c.open))
      before.Expand(before.Find(std::string(1, name)), true);
    CVnTreeState state;
    for (HTREEITEM root = before.GetRootItem(); root; root = before.GetNextSiblingItem(root))
      VnSaveBranchState(before, state, root);
    if (*c.selected)
      state.m_dwSelectedID = before.GetTreeItemID(before.Find(c.selected));
    for (char name : std::string(c.openNow))
      after.Expand(after.Find(std::string(1, name)), true);
    for (HTREEITEM root = after.GetRootItem(); root; root = after.GetNextSiblingItem(root))
      VnRestoreBranchState(after, state, root);
    EXPECT_EQ(c.expanded, after.Open()) << c.name;
    EXPECT_EQ(c.selections, after.m_selections) << c.name;
  }
}

TEST(VnTreeWalkTest, StateSerialisesAndRefusesForeignBuffers) {
  CVnTreeState state, read;
  EXPECT_EQ(97u, state.GetHashTableSize());
  state.SetAt(3, TVIS_EXPANDED);
  state.SetAt(0x01020304, 0);
  state.SetAt(100, TVIS_EXPANDED);  // the bucket of 3
  state.m_dwSelectedID = 3;
  CByteArray bytes;
  state.Serialize(bytes);
  ASSERT_EQ(4 + 3 * 8, bytes.GetSize());
  EXPECT_EQ(3, bytes[0] | bytes[1] | bytes[2] | bytes[3]);
  ASSERT_TRUE(read.Deserialize(bytes.GetData(), static_cast<size_t>(bytes.GetSize())));
  EXPECT_EQ(static_cast<DWORD>(CVnTreeState::NoSelection), read.m_dwSelectedID);  // not written
  for (DWORD id : {3u, 0x01020304u, 100u}) {
    DWORD mine = 7, theirs = 9;
    EXPECT_TRUE(state.Lookup(id, mine) && read.Lookup(id, theirs) && mine == theirs) << id;
  }
  const std::vector<BYTE> foreign[] = {
      {}, {1, 0, 0}, {1, 0, 0, 0, 1, 2, 3}, {0, 0, 0, 0, 9}, {0xFF, 0xFF, 0xFF, 0xFF, 1, 2, 3, 4, 5, 6, 7, 8},
  };
  for (const std::vector<BYTE>& buffer : foreign) {
    EXPECT_FALSE(read.Deserialize(buffer.data(), buffer.size())) << buffer.size();
    EXPECT_EQ(0, read.GetCount());
  }
}

}  // namespace
