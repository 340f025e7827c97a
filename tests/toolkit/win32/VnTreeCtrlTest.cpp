// VnTreeCtrlTest.cpp - CVnTreeCtrl on a real tree view: searches, counts
// on empty and deep trees, open branches brought back on a refilled tree,
// drags with the mouse's messages, scrolling while the cursor rests at the
// edge, and the selection kept visible without the focus.
#include "toolkit/VnTreeCtrl.h"

#include "afx/win32/CImageList.h"

#include "MouseSupport.h"
#include "Screenshot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using vn::test::PumpFor;

namespace {

const DWORD kTreeStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT;
using Tree = CVnTreeCtrl;

// "A(B(D) C) E": the roots A and E, A with the children B and C, B with D.
// An item's data is the number after a colon ("x:2"), else its first letter.
void Fill(CTreeCtrl& tree, const std::wstring& text) {
  std::vector<HTREEITEM> path(1, TVI_ROOT);
  HTREEITEM last = nullptr;
  for (size_t at = 0; at < text.size();) {
    if (text[at] == L' ' || text[at] == L'(' || text[at] == L')') {
      if (text[at] == L'(')
        path.push_back(last);
      if (text[at] == L')')
        path.pop_back();
      ++at;
      continue;
    }
    size_t end = std::min(text.find_first_of(L" ()", at), text.size());
    std::wstring word = text.substr(at, end - at);
    size_t colon = word.find(L':');
    LPARAM data = colon == std::wstring::npos ? word[0] : std::stol(word.substr(colon + 1));
    last = tree.InsertItem(TVIF_TEXT | TVIF_PARAM, word.substr(0, colon).c_str(), 0, 0, 0, 0, data, path.back(),
                           TVI_LAST);
    at = end;
  }
}

std::string Name(CTreeCtrl& tree, HTREEITEM item) {
  CString text = item ? tree.GetItemText(item) : CString(L"(null)");
  return std::string(text.GetString(), text.GetString() + text.GetLength());
}

HTREEITEM Item(Tree& tree, const wchar_t* name) { return tree.FindItem(name, nullptr, Tree::SearchDepthFirst); }

// The open items, level by level.
std::string Open(Tree& tree) {
  std::string names;
  tree.EnumerateItems(
      [](CTreeCtrl& t, HTREEITEM item, void* open) {
        if (t.GetItemState(item, TVIS_EXPANDED) & TVIS_EXPANDED)
          *static_cast<std::string*>(open) += Name(t, item) + " ";
        return 1;
      },
      &names, nullptr, Tree::SearchBreadthFirst);
  return names;
}

POINT Centre(CTreeCtrl& tree, HTREEITEM item) {
  RECT rect = {};
  tree.GetItemRect(item, &rect, TRUE);
  return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

// A framework window as the parent, so notifications come back to the tree.
struct Window {
  CWnd parent;
  Window() {
    RECT frame = {0, 0, 320, 360};
    EXPECT_TRUE(parent.CreateEx(0, nullptr, L"tree test", WS_POPUP | WS_VISIBLE, frame, nullptr, 0));
  }
  void Add(CTreeCtrl& tree, int top = 10, int height = 200) {
    RECT rect = {10, top, 250, top + height};
    ASSERT_TRUE(tree.Create(kTreeStyle, rect, &parent, 100));
  }
};

// Visits record their item and answer as told.
struct Visits {
  std::string names;
  int answer;
  static int Visit(CTreeCtrl& tree, HTREEITEM item, void* self) {
    static_cast<Visits*>(self)->names += Name(tree, item) + " ";
    return static_cast<Visits*>(self)->answer;
  }
};

// Two items named x: breadth first finds the shallow one, depth first the
// deep one, whose branch comes before its parent.
TEST(CVnTreeCtrlTest, SearchesFindTheItemOfTheirOrder) {
  Window window;
  Tree tree;
  window.Add(tree);
  Fill(tree, L"R(a(b(x:1)) x:2) S");
  HTREEITEM a = Item(tree, L"a"), deep = tree.FindItem(reinterpret_cast<void*>(1), nullptr, Tree::SearchDepthFirst),
            shallow = tree.FindItem(reinterpret_cast<void*>(2), nullptr, Tree::SearchDepthFirst);
  ASSERT_TRUE(a && deep && shallow && tree.GetParentItem(shallow) == tree.GetRootItem());
  const struct { const wchar_t* text; HTREEITEM start; Tree::SearchType type; HTREEITEM found; } cases[] = {
      {L"x", nullptr, Tree::SearchBreadthFirst, shallow}, {L"x", nullptr, Tree::SearchDepthFirst, deep},
      {L"x", a, Tree::SearchBreadthFirst, deep},          {L"a", a, Tree::SearchDepthFirst, a},
      {L"X", nullptr, Tree::SearchDepthFirst, nullptr},   {L"S", a, Tree::SearchDepthFirst, nullptr},
  };
  for (const auto& c : cases)
    EXPECT_EQ(c.found, tree.FindItem(c.text, c.start, c.type)) << Name(tree, c.found) << " " << c.type;
  EXPECT_TRUE(tree.IsItemInTree(a, deep) && tree.IsItemInTree(a, a) && tree.IsItemInTree(nullptr, shallow));
  EXPECT_FALSE(tree.IsItemInTree(a, shallow));

  // -1 stops a search and lets an enumeration run on; 0 does the reverse.
  Visits find{"", -1}, enumerate{"", -1}, findNone{"", 0}, enumerateOne{"", 0};
  EXPECT_EQ(tree.GetRootItem(), tree.FindItem(&Visits::Visit, &find, nullptr, Tree::SearchBreadthFirst));
  EXPECT_TRUE(tree.EnumerateItems(&Visits::Visit, &enumerate, a, Tree::SearchDepthFirst));
  EXPECT_EQ(nullptr, tree.FindItem(&Visits::Visit, &findNone, a, Tree::SearchBreadthFirst));
  EXPECT_FALSE(tree.EnumerateItems(&Visits::Visit, &enumerateOne, a, Tree::SearchDepthFirst));
  EXPECT_EQ("R ", find.names);
  EXPECT_EQ("x b a ", enumerate.names);
  EXPECT_EQ("a b x ", findNone.names);
  EXPECT_EQ("x ", enumerateOne.names);
}

TEST(CVnTreeCtrlTest, CountsOnEmptyAndDeepTrees) {
  std::wstring deep;
  for (int i = 0; i < 150; ++i)
    deep += L"n(";
  deep += L"leaf" + std::wstring(150, L')');
  const struct { std::wstring tree; int roots, nodes, leaves; } cases[] = {
      {L"", 0, 0, 0}, {L"A(B(D E) C) F(G(H(I)) J) K", 3, 5, 6}, {deep, 1, 150, 1}};
  for (const auto& c : cases) {
    Window window;
    Tree tree;
    window.Add(tree);
    Fill(tree, c.tree);
    EXPECT_EQ(c.roots, tree.GetRootCount()) << c.nodes;
    EXPECT_EQ(c.nodes, tree.GetTotalNodeCount());
    EXPECT_EQ(c.leaves, tree.GetTotalLeafCount());
    tree.ExpandAll(TVI_ROOT);
    std::string open = Open(tree);
    EXPECT_EQ(c.nodes, std::count(open.begin(), open.end(), ' '));
    tree.CollapseAll(TVI_ROOT);
    EXPECT_EQ("", Open(tree));
    tree.DeleteAll();
    EXPECT_EQ(0u, tree.GetCount());
  }
}

// Saved, emptied, refilled with items gone, come and moved: the open
// branches and the selection are back, by item data.
TEST(CVnTreeCtrlTest, OpenBranchesComeBackOnARefilledTree) {
  Window window;
  Tree tree;
  window.Add(tree);
  Fill(tree, L"A(B(D E) C) F(G(H(I)) J)");
  for (const wchar_t* name : {L"A", L"B", L"G"})
    tree.Expand(Item(tree, name), TVE_EXPAND);
  tree.SelectItem(Item(tree, L"E"));
  tree.SaveTreeState();
  CVnTreeState saved;
  tree.SaveTreeState(saved);
  CByteArray bytes;
  saved.Serialize(bytes);
  const struct {
    const wchar_t* refill;
    const wchar_t* openFirst;  // by hand, before the restore
    bool fromBytes;            // else the control's own state
    const char* open;
    const char* selected;
  } cases[] = {
      {L"K A(C B(E X)) F(G(H(I)) J)", nullptr, false, "A B G ", "E"},
      {L"F(G(H(I)) J) A(B(D) C)", L"F", true, "F A G B ", "(null)"},
  };
  for (const auto& c : cases) {
    tree.DeleteAll();
    Fill(tree, c.refill);
    if (c.openFirst)
      tree.Expand(Item(tree, c.openFirst), TVE_EXPAND);
    CVnTreeState read;
    read.Deserialize(bytes.GetData(), static_cast<size_t>(bytes.GetSize()));
    read.m_dwSelectedID = saved.m_dwSelectedID;
    if (c.fromBytes)
      tree.RestoreTreeState(read);
    else
      tree.RestoreTreeState();
    EXPECT_EQ(c.open, Open(tree)) << Name(tree, tree.GetRootItem());
    EXPECT_EQ(c.selected, Name(tree, tree.GetSelectedItem())) << Name(tree, tree.GetRootItem());
  }
  Tree fresh;  // nothing saved: nothing changes
  window.Add(fresh, 220, 100);
  Fill(fresh, L"A(B)");
  fresh.RestoreTreeState();
  EXPECT_EQ("", Open(fresh));
}

// Every item but "Fixed" may be dragged; drops go anywhere but on "Closed"
// and on the dragged item itself.
class DragTree : public Tree {
public:
  bool m_bImage = false, m_bImageMade = false;
  std::string m_lastQuery, m_drops;

protected:
  BOOL OnQueryItemDrag(HTREEITEM item) override { return GetItemText(item) != CString(L"Fixed"); }
  BOOL OnQueryItemDrop(HTREEITEM dragged, HTREEITEM target) override {
    m_lastQuery = Name(*this, target);
    return dragged != target && GetItemText(target) != CString(L"Closed");
  }
  void OnItemDrop(HTREEITEM dragged, HTREEITEM target) override {
    m_drops += Name(*this, dragged) + ">" + Name(*this, target);
  }
  CImageList* OnCreateDragImage(HTREEITEM item) override {
    CImageList* image = m_bImage ? Tree::OnCreateDragImage(item) : nullptr;
    m_bImageMade = image != nullptr;
    return image;
  }
};

TEST(CVnTreeCtrlTest, DragsAnItemOntoAnotherWithTheMouse) {
  const struct {
    const char* name;
    bool image;
    const wchar_t *from, *over, *release;  // release null: WM_CANCELMODE instead
    bool dragging;
    const char *lit, *drops;
  } cases[] = {
      {"onto another item", true, L"Beta", L"Gamma", L"Gamma", true, "Gamma", "Beta>Gamma"},
      {"with no image", false, L"Beta", L"Alpha", L"Alpha", true, "Alpha", "Beta>Alpha"},
      {"released off the last move", true, L"Alpha", L"Gamma", L"Beta", true, "Gamma", "Alpha>Beta"},
      {"a refused target", true, L"Beta", L"Closed", L"Closed", true, "(null)", ""},
      {"onto itself", true, L"Beta", L"Beta", L"Beta", true, "(null)", ""},
      {"an item that stays", true, L"Fixed", L"Gamma", L"Gamma", false, "", ""},
      {"cancelled", true, L"Beta", L"Gamma", nullptr, true, "Gamma", ""},
  };
  for (const auto& c : cases) {
    Window window;
    DragTree tree;
    window.Add(tree);
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 1, 1));
    tree.SetImageList(images, TVSIL_NORMAL);
    tree.m_bImage = c.image;
    Fill(tree, L"Alpha Beta Gamma Fixed Closed");
    // Wine clears the drop highlight only while some item is selected, and
    // marks a refused drag's item as its target (docs/toolkit.md).
    tree.SelectItem(Item(tree, L"Fixed"));

    vn::test::BeginDrag(tree, Centre(tree, Item(tree, c.from)));
    EXPECT_EQ(c.dragging, ::GetCapture() == tree.m_hWnd) << c.name;
    EXPECT_EQ(c.dragging && c.image, tree.m_bImageMade) << c.name;
    vn::test::DragTo(tree, Centre(tree, Item(tree, c.over)));
    if (c.dragging) {
      EXPECT_EQ(c.lit, Name(tree, tree.GetDropHilightItem())) << c.name;
    }
    if (!c.release)
      tree.SendMessage(WM_CANCELMODE);
    vn::test::Release(tree, Centre(tree, Item(tree, c.release ? c.release : c.over)));
    EXPECT_EQ(c.drops, tree.m_drops) << c.name;
    EXPECT_NE(tree.m_hWnd, ::GetCapture()) << c.name;
    if (c.dragging) {
      EXPECT_EQ(nullptr, tree.GetDropHilightItem()) << c.name;
    }
    // The item under the release is asked about, the dragged one too.
    if (c.dragging && c.release) {
      EXPECT_EQ(Name(tree, Item(tree, c.release)), tree.m_lastQuery) << c.name;
    }
  }
}

int FirstVisibleRow(CTreeCtrl& tree) {
  int row = 0;
  for (HTREEITEM item = tree.GetRootItem(); item && item != tree.GetFirstVisibleItem();
       item = tree.GetNextSiblingItem(item))
    ++row;
  return row;
}

// The cursor rests where a user holds it during the drag; the timer scrolls
// a line a tick while it is within 8 pixels of an edge.
TEST(CVnTreeCtrlTest, DragScrollsWhileTheCursorRestsAtTheEdge) {
  Window window;
  DragTree tree;
  window.Add(tree);
  std::wstring rows;
  for (int i = 0; i < 60; ++i)
    rows += L"row" + std::to_wstring(i) + L" ";
  Fill(tree, rows);
  RECT client;
  tree.GetClientRect(&client);
  auto restAt = [&](int y, DWORD ms) {
    POINT p = {client.right / 2, y};
    ::ClientToScreen(tree, &p);
    ::SetCursorPos(p.x, p.y);
    PumpFor(100);
    int before = FirstVisibleRow(tree);
    PumpFor(ms);
    return FirstVisibleRow(tree) - before;
  };
  vn::test::BeginDrag(tree, Centre(tree, tree.GetRootItem()));
  ASSERT_EQ(tree.m_hWnd, ::GetCapture());
  EXPECT_GE(restAt(client.bottom - 3, 650), 2) << "the bottom band";
  EXPECT_EQ(0, restAt(client.bottom / 2, 650)) << "the middle";
  EXPECT_EQ(0, restAt(client.bottom + 30, 650)) << "below the control";
  EXPECT_LE(restAt(2, 650), -2) << "the top band";
  vn::test::Release(tree, {client.right / 2, client.bottom / 2});
  EXPECT_EQ(0, restAt(client.bottom - 3, 600)) << "after the drag";
  vn::test::ParkCursor();

  HTREEITEM row40 = Item(tree, L"row40"), selected = tree.GetSelectedItem();
  tree.SelectItemAndMakeVisible(row40, true);
  EXPECT_EQ(row40, tree.GetFirstVisibleItem());
  EXPECT_EQ(selected, tree.GetSelectedItem());
  tree.SelectItemAndMakeVisible(tree.GetRootItem(), false);
  EXPECT_EQ(tree.GetRootItem(), tree.GetSelectedItem());
  EXPECT_EQ(tree.GetRootItem(), tree.GetFirstVisibleItem());
}

// With the focus in an edit beside it, CVnTreeCtrl frames the selected
// item's text in the highlight colour; the plain control doesn't.
TEST(CVnTreeCtrlTest, SelectionStaysVisibleWithoutTheFocus) {
  Window window;
  Tree framed;
  CTreeCtrl plain;
  window.Add(framed, 10, 100);
  window.Add(plain, 130, 100);
  HWND edit = ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 260, 10, 50, 20, window.parent, nullptr,
                                nullptr, nullptr);
  for (CTreeCtrl* tree : {static_cast<CTreeCtrl*>(&framed), &plain}) {
    Fill(*tree, L"Alpha Beta Gamma");
    HTREEITEM beta = tree->GetNextSiblingItem(tree->GetRootItem());
    tree->SelectItem(beta);
    ::SetFocus(edit);
    ::RedrawWindow(*tree, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    RECT text, outer;
    ASSERT_TRUE(tree->GetItemRect(beta, &text, TRUE));
    vn::test::Picture picture = vn::test::CaptureWindow(*tree);
    ::GetWindowRect(*tree, &outer);
    POINT origin = {0, 0};
    ::ClientToScreen(*tree, &origin);
    int framedPixels = 0, edge = 0;
    for (LONG x = text.left; x < text.right; ++x)
      for (LONG y : {text.top, text.bottom - 1}) {
        const unsigned char* p = &picture.rgb[((y + origin.y - outer.top) * picture.width + x + origin.x - outer.left) * 3];
        framedPixels += RGB(p[0], p[1], p[2]) == ::GetSysColor(COLOR_HIGHLIGHT);
        ++edge;
      }
    EXPECT_EQ(tree == &framed ? edge : 0, framedPixels);
  }
  ::DestroyWindow(edit);
}

}  // namespace
