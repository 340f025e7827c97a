// VnTreeCtrlTest.cpp - CVnTreeCtrl on a real tree view: searches in both
// orders, counts on empty and deep trees, open branches brought back on a
// refilled tree, drags with the mouse's messages, scrolling while the
// cursor rests at the edge, and the selection kept visible without the
// focus.
#include "toolkit/VnTreeCtrl.h"

#include "afx/win32/CImageList.h"

#include "MouseSupport.h"
#include "Screenshot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using vn::test::BeginDrag;
using vn::test::DragTo;
using vn::test::PumpFor;
using vn::test::Release;

namespace {

const DWORD kTreeStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT;

// A tree written as text: "A(B(D) C) E" is the roots A and E, A with the
// children B and C, B with D.  An item's data is the number after a colon
// ("B:7"), else the code of its first letter.
void Fill(CTreeCtrl& tree, const std::wstring& text, size_t& at, HTREEITEM parent) {
  while (at < text.size() && text[at] != L')') {
    if (text[at] == L' ') {
      ++at;
      continue;
    }
    size_t end = text.find_first_of(L" ()", at);
    std::wstring word = text.substr(at, end == std::wstring::npos ? std::wstring::npos : end - at);
    at += word.size();
    size_t colon = word.find(L':');
    LPARAM data = colon == std::wstring::npos ? word[0] : std::stol(word.substr(colon + 1));
    HTREEITEM item = tree.InsertItem(TVIF_TEXT | TVIF_PARAM, word.substr(0, colon).c_str(), 0, 0, 0, 0, data,
                                     parent ? parent : TVI_ROOT, TVI_LAST);
    if (at < text.size() && text[at] == L'(') {
      Fill(tree, text, ++at, item);
      ++at;
    }
  }
}

void Fill(CTreeCtrl& tree, const std::wstring& text) {
  size_t at = 0;
  Fill(tree, text, at, nullptr);
}

std::string Name(CTreeCtrl& tree, HTREEITEM item) {
  if (!item)
    return "(null)";
  CString text = tree.GetItemText(item);
  return std::string(text.GetString(), text.GetString() + text.GetLength());
}

// The open items, top down.
std::string Expanded(CVnTreeCtrl& tree) {
  struct Collect {
    static int Add(CTreeCtrl& t, HTREEITEM item, void* names) {
      if (t.GetItemState(item, TVIS_EXPANDED) & TVIS_EXPANDED)
        *static_cast<std::string*>(names) += Name(t, item) + " ";
      return 1;
    }
  };
  std::string names;
  tree.EnumerateItems(&Collect::Add, &names, nullptr, CVnTreeCtrl::SearchBreadthFirst);
  return names;
}

POINT Centre(CTreeCtrl& tree, HTREEITEM item) {
  RECT rect = {};
  tree.GetItemRect(item, &rect, TRUE);
  return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

// A parent window of the framework's, so that the tree's notifications come
// back to the tree.
struct Window {
  CWnd parent;
  explicit Window(int height = 300) {
    RECT frame = {0, 0, 320, height};
    EXPECT_TRUE(parent.CreateEx(0, nullptr, L"tree test", WS_POPUP | WS_VISIBLE, frame, nullptr, 0));
  }
  template <class Tree>
  void Add(Tree& tree, int height = 260) {
    RECT rect = {10, 10, 250, 10 + height};
    ASSERT_TRUE(tree.Create(kTreeStyle, rect, &parent, 100));
  }
};

// Every item reached, in order, by a callback that answers answer.
struct Visits {
  std::string names;
  int answer;
  static int Visit(CTreeCtrl& tree, HTREEITEM item, void* self) {
    auto* visits = static_cast<Visits*>(self);
    visits->names += Name(tree, item) + " ";
    return visits->answer;
  }
};

TEST(CVnTreeCtrlTest, WalksInBothOrdersAndStopsAsTheCallbackSays) {
  Window window;
  CVnTreeCtrl tree;
  window.Add(tree);
  Fill(tree, L"A(B(D) C)");
  const struct {
    CVnTreeCtrl::SearchType type;
    int answer;
    bool find;  // FindItem, else EnumerateItems
    const char* visited;
    const char* found;  // FindItem's item
    bool ranToEnd;      // EnumerateItems' answer
  } cases[] = {
      {CVnTreeCtrl::SearchDepthFirst, 1, false, "D B C A ", "", true},
      {CVnTreeCtrl::SearchBreadthFirst, 1, false, "A B C D ", "", true},
      // -1 stops a search and lets an enumeration go on; 0 the reverse.
      {CVnTreeCtrl::SearchDepthFirst, -1, true, "D ", "D", true},
      {CVnTreeCtrl::SearchDepthFirst, -1, false, "D B C A ", "", true},
      {CVnTreeCtrl::SearchBreadthFirst, 0, false, "A ", "", false},
      {CVnTreeCtrl::SearchBreadthFirst, 0, true, "A B C D ", "(null)", true},
  };
  for (const auto& c : cases) {
    Visits visits = {"", c.answer};
    if (c.find) {
      HTREEITEM found = tree.FindItem(&Visits::Visit, &visits, nullptr, c.type);
      EXPECT_EQ(c.found, Name(tree, found)) << c.type << " " << c.answer;
    } else {
      EXPECT_EQ(c.ranToEnd, tree.EnumerateItems(&Visits::Visit, &visits, nullptr, c.type));
    }
    EXPECT_EQ(c.visited, visits.names) << c.type << " " << c.answer << " " << c.find;
  }
}

// Two items named x: the shallow one comes first breadth first, the deep
// one depth first, since a branch's items come before the branch.
TEST(CVnTreeCtrlTest, FindsByTextDataAndBranch) {
  Window window;
  CVnTreeCtrl tree;
  window.Add(tree);
  Fill(tree, L"R(a(b(x:1)) x:2) S");
  HTREEITEM a = tree.FindItem(L"a", nullptr, CVnTreeCtrl::SearchBreadthFirst);
  HTREEITEM deep = tree.FindItem(reinterpret_cast<void*>(1), nullptr, CVnTreeCtrl::SearchBreadthFirst);
  HTREEITEM shallow = tree.FindItem(reinterpret_cast<void*>(2), nullptr, CVnTreeCtrl::SearchDepthFirst);
  ASSERT_TRUE(a && deep && shallow);
  EXPECT_EQ(a, tree.GetParentItem(tree.GetParentItem(deep)));
  EXPECT_EQ(tree.GetRootItem(), tree.GetParentItem(shallow));

  const struct {
    const wchar_t* text;
    HTREEITEM start;
    CVnTreeCtrl::SearchType type;
    HTREEITEM found;
  } cases[] = {
      {L"x", nullptr, CVnTreeCtrl::SearchBreadthFirst, shallow},
      {L"x", nullptr, CVnTreeCtrl::SearchDepthFirst, deep},
      {L"x", a, CVnTreeCtrl::SearchBreadthFirst, deep},  // only a's branch
      {L"a", a, CVnTreeCtrl::SearchDepthFirst, a},       // the start counts
      {L"X", nullptr, CVnTreeCtrl::SearchDepthFirst, nullptr},  // letter case counts
      {L"S", a, CVnTreeCtrl::SearchDepthFirst, nullptr},
      {L"", nullptr, CVnTreeCtrl::SearchBreadthFirst, nullptr},
  };
  for (const auto& c : cases)
    EXPECT_EQ(c.found, tree.FindItem(c.text, c.start, c.type)) << Name(tree, c.found) << " " << c.type;
  EXPECT_EQ(nullptr, tree.FindItem(reinterpret_cast<void*>(99), nullptr, CVnTreeCtrl::SearchDepthFirst));

  EXPECT_TRUE(tree.IsItemInTree(a, deep));
  EXPECT_TRUE(tree.IsItemInTree(a, a));
  EXPECT_FALSE(tree.IsItemInTree(a, shallow));
  EXPECT_TRUE(tree.IsItemInTree(nullptr, shallow));

  tree.DeleteAll();
  EXPECT_EQ(0u, tree.GetCount());
  EXPECT_FALSE(tree.IsItemInTree(nullptr, a));
  EXPECT_TRUE(tree.EnumerateItems(&Visits::Visit, nullptr, nullptr, CVnTreeCtrl::SearchDepthFirst));
  EXPECT_EQ(nullptr, tree.FindItem(L"R", nullptr, CVnTreeCtrl::SearchDepthFirst));
}

TEST(CVnTreeCtrlTest, CountsRootsNodesAndLeaves) {
  std::wstring deep;
  for (int i = 0; i < 150; ++i)
    deep += L"n(";
  deep += L"leaf" + std::wstring(150, L')');
  const struct {
    const char* name;
    std::wstring tree;
    int roots, nodes, leaves;
  } cases[] = {
      {"empty", L"", 0, 0, 0},
      {"one item", L"A", 1, 0, 1},
      {"a forest", L"A(B(D E) C) F(G(H(I)) J) K", 3, 5, 6},
      {"151 levels", deep, 1, 150, 1},
  };
  for (const auto& c : cases) {
    Window window;
    CVnTreeCtrl tree;
    window.Add(tree);
    Fill(tree, c.tree);
    EXPECT_EQ(c.roots, tree.GetRootCount()) << c.name;
    EXPECT_EQ(c.nodes, tree.GetTotalNodeCount()) << c.name;
    EXPECT_EQ(c.leaves, tree.GetTotalLeafCount()) << c.name;
    tree.ExpandAll(TVI_ROOT);
    std::string open = Expanded(tree);
    EXPECT_EQ(c.nodes, static_cast<int>(std::count(open.begin(), open.end(), ' '))) << c.name;
    tree.CollapseAll(TVI_ROOT);
    EXPECT_EQ("", Expanded(tree)) << c.name;
    tree.DeleteAll();
    EXPECT_EQ(0u, tree.GetCount()) << c.name;
  }
}

// Saved, emptied, refilled with items gone, come and moved; restored: the
// open branches and the selection are back by item data.
TEST(CVnTreeCtrlTest, OpenBranchesComeBackOnARefilledTree) {
  Window window;
  CVnTreeCtrl tree;
  window.Add(tree);
  Fill(tree, L"A(B(D E) C) F(G(H(I)) J)");
  for (const wchar_t* name : {L"A", L"B", L"G"})
    tree.Expand(tree.FindItem(name, nullptr, CVnTreeCtrl::SearchDepthFirst), TVE_EXPAND);
  tree.SelectItem(tree.FindItem(L"E", nullptr, CVnTreeCtrl::SearchDepthFirst));
  EXPECT_EQ("A B G ", Expanded(tree));
  tree.SaveTreeState();
  CVnTreeState saved;
  tree.SaveTreeState(saved);
  CByteArray bytes;
  saved.Serialize(bytes);

  const struct {
    const char* name;
    const wchar_t* refill;
    const wchar_t* openFirst;  // opened by hand before the restore
    bool owned;                // the control's own state, else the bytes read back
    const char* expanded;
    const char* selected;
  } cases[] = {
      {"the same items", L"A(B(D E) C) F(G(H(I)) J)", nullptr, true, "A B G ", "E"},
      {"moved, gone and new items", L"K A(C B(E X)) F(G(H(I)) J)", nullptr, true, "A B G ", "E"},
      {"an open item stays open", L"A(B(D E) C) F(G(H(I)) J)", L"F", true, "A F B G ", "E"},
      {"read back from bytes", L"F(G(H(I)) J) A(B(D E) C)", nullptr, false, "A G B ", "E"},
      {"the selected item gone", L"A(B(D) C) F(G(H(I)) J)", nullptr, true, "A B G ", "(null)"},
  };
  for (const auto& c : cases) {
    tree.DeleteAll();
    ASSERT_EQ(0u, tree.GetCount());
    Fill(tree, c.refill);
    if (c.openFirst)
      tree.Expand(tree.FindItem(c.openFirst, nullptr, CVnTreeCtrl::SearchDepthFirst), TVE_EXPAND);
    if (c.owned) {
      tree.RestoreTreeState();
    } else {
      CVnTreeState read;
      ASSERT_TRUE(read.Deserialize(bytes.GetData(), static_cast<size_t>(bytes.GetSize())));
      read.m_dwSelectedID = saved.m_dwSelectedID;
      tree.RestoreTreeState(read);
    }
    EXPECT_EQ(c.expanded, Expanded(tree)) << c.name;
    EXPECT_EQ(c.selected, Name(tree, tree.GetSelectedItem())) << c.name;
  }

  // Nothing saved, or an empty tree saved: a restore changes nothing.
  CVnTreeCtrl fresh;
  window.Add(fresh);
  Fill(fresh, L"A(B)");
  fresh.RestoreTreeState();
  CVnTreeState empty;
  CVnTreeCtrl none;
  window.Add(none);
  none.SaveTreeState(empty);
  EXPECT_EQ(0, empty.GetCount());
  EXPECT_EQ(static_cast<DWORD>(CVnTreeState::NoSelection), empty.m_dwSelectedID);
  fresh.RestoreTreeState(empty);
  EXPECT_EQ("", Expanded(fresh));
}

// A subclass that lets every item but "Fixed" be dragged and takes drops
// on every item but "Closed" and the dragged one itself.
class DragTree : public CVnTreeCtrl {
public:
  bool m_bImage = true;
  bool m_bImageMade = false;
  std::vector<std::string> m_queries, m_drops;

protected:
  BOOL OnQueryItemDrag(HTREEITEM item) override { return GetItemText(item) != CString(L"Fixed"); }
  BOOL OnQueryItemDrop(HTREEITEM dragged, HTREEITEM target) override {
    m_queries.push_back(Name(*this, target));
    return dragged != target && GetItemText(target) != CString(L"Closed");
  }
  void OnItemDrop(HTREEITEM dragged, HTREEITEM target) override {
    m_drops.push_back(Name(*this, dragged) + ">" + Name(*this, target));
  }
  CImageList* OnCreateDragImage(HTREEITEM item) override {
    CImageList* image = m_bImage ? CVnTreeCtrl::OnCreateDragImage(item) : nullptr;
    m_bImageMade = image != nullptr;
    return image;
  }
};

TEST(CVnTreeCtrlTest, DragsAnItemOntoAnotherWithTheMouse) {
  const struct {
    const char* name;
    bool image;
    const wchar_t* from;
    const wchar_t* over;     // the last move, null for none
    const wchar_t* release;  // where the button comes up; null: WM_CANCELMODE
    bool dragging;           // the drag started
    const char* lit;         // the drop target after the moves
    const char* drops;
  } cases[] = {
      {"onto another item", true, L"Beta", L"Gamma", L"Gamma", true, "Gamma", "Beta>Gamma"},
      {"with no image", false, L"Beta", L"Alpha", L"Alpha", true, "Alpha", "Beta>Alpha"},
      {"released elsewhere than the last move", true, L"Alpha", L"Gamma", L"Beta", true, "Gamma", "Alpha>Beta"},
      {"a refused target", true, L"Beta", L"Closed", L"Closed", true, "(null)", ""},
      {"onto itself", true, L"Beta", L"Beta", L"Beta", true, "(null)", ""},
      {"an item that stays", true, L"Fixed", L"Gamma", L"Gamma", false, "(null)", ""},
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
    auto item = [&](const wchar_t* name) { return tree.FindItem(name, nullptr, CVnTreeCtrl::SearchDepthFirst); };
    // Wine's tree clears the drop highlight only while some other item is
    // selected (docs/toolkit.md).
    tree.SelectItem(item(L"Fixed"));

    BeginDrag(tree, Centre(tree, item(c.from)));
    EXPECT_EQ(c.dragging, ::GetCapture() == tree.m_hWnd) << c.name;
    EXPECT_EQ(c.dragging && c.image, tree.m_bImageMade) << c.name;
    if (c.over)
      DragTo(tree, Centre(tree, item(c.over)));
    // Wine marks a refused drag's item as the drop target on its own.
    if (c.dragging) {
      EXPECT_EQ(c.lit, Name(tree, tree.GetDropHilightItem())) << c.name;
    }
    if (c.release) {
      Release(tree, Centre(tree, item(c.release)));
    } else {
      tree.SendMessage(WM_CANCELMODE);
      Release(tree, Centre(tree, item(c.over)));
    }
    std::string drops;
    for (const std::string& d : tree.m_drops)
      drops += d;
    EXPECT_EQ(c.drops, drops) << c.name;
    if (c.dragging) {
      EXPECT_EQ(nullptr, tree.GetDropHilightItem()) << c.name;
    }
    EXPECT_NE(tree.m_hWnd, ::GetCapture()) << c.name;
    // The subclass is asked about the item under the release, itself too.
    if (c.release && c.dragging) {
      ASSERT_FALSE(tree.m_queries.empty()) << c.name;
      EXPECT_EQ(Name(tree, item(c.release)), tree.m_queries.back()) << c.name;
    }
  }
}

// Nothing is dragged until a subclass says so.
TEST(CVnTreeCtrlTest, NoDragByDefault) {
  Window window;
  CVnTreeCtrl tree;
  window.Add(tree);
  Fill(tree, L"Alpha Beta");
  HTREEITEM beta = tree.FindItem(L"Beta", nullptr, CVnTreeCtrl::SearchDepthFirst);
  BeginDrag(tree, Centre(tree, tree.GetRootItem()));
  EXPECT_NE(tree.m_hWnd, ::GetCapture());
  DragTo(tree, Centre(tree, beta));
  EXPECT_NE(beta, tree.GetDropHilightItem());
  Release(tree, Centre(tree, beta));
}

int FirstVisibleRow(CTreeCtrl& tree) {
  int row = 0;
  for (HTREEITEM item = tree.GetRootItem(); item && item != tree.GetFirstVisibleItem();
       item = tree.GetNextSiblingItem(item))
    ++row;
  return row;
}

// The cursor is put where a user would hold it during the drag; the timer
// scrolls a line a tick while it rests in the 8-pixel band at an edge.
TEST(CVnTreeCtrlTest, DragScrollsWhileTheCursorRestsAtTheEdge) {
  Window window(360);
  DragTree tree;
  window.Add(tree, 200);
  std::wstring rows;
  for (int i = 0; i < 60; ++i)
    rows += L"row" + std::to_wstring(i) + L" ";
  Fill(tree, rows);
  RECT client;
  tree.GetClientRect(&client);
  auto cursorAt = [&](int x, int y) {
    POINT p = {x, y};
    ::ClientToScreen(tree, &p);
    ::SetCursorPos(p.x, p.y);
  };

  BeginDrag(tree, Centre(tree, tree.GetRootItem()));
  ASSERT_EQ(tree.m_hWnd, ::GetCapture());
  const struct {
    const char* where;
    int x, y;
    int direction;  // of the first visible row: +1 down, -1 up, 0 still
  } rests[] = {
      {"the bottom band", client.right / 2, client.bottom - 3, +1},
      {"the middle", client.right / 2, client.bottom / 2, 0},
      {"below the control", client.right / 2, client.bottom + 30, 0},
      {"the top band", client.right / 2, 2, -1},
  };
  for (const auto& rest : rests) {
    cursorAt(rest.x, rest.y);
    PumpFor(100);
    int before = FirstVisibleRow(tree);
    PumpFor(650);
    int moved = FirstVisibleRow(tree) - before;
    if (rest.direction == 0) {
      EXPECT_EQ(0, moved) << rest.where;
    } else {
      EXPECT_GE(moved * rest.direction, 2) << rest.where;
    }
  }
  Release(tree, {client.right / 2, client.bottom / 2});
  // The timer went with the drag.
  cursorAt(client.right / 2, client.bottom - 3);
  int before = FirstVisibleRow(tree);
  PumpFor(600);
  EXPECT_EQ(before, FirstVisibleRow(tree));
  vn::test::ParkCursor();

  HTREEITEM row40 = tree.FindItem(L"row40", nullptr, CVnTreeCtrl::SearchDepthFirst);
  HTREEITEM selected = tree.GetSelectedItem();
  tree.SelectItemAndMakeVisible(row40, true);
  EXPECT_EQ(row40, tree.GetFirstVisibleItem());
  EXPECT_EQ(selected, tree.GetSelectedItem());
  tree.SelectItemAndMakeVisible(tree.GetRootItem(), false);
  EXPECT_EQ(tree.GetRootItem(), tree.GetSelectedItem());
  EXPECT_EQ(tree.GetRootItem(), tree.GetFirstVisibleItem());
}

// The pixels around the selected item's text, drawn with the focus in an
// edit beside the tree: framed in the highlight colour by CVnTreeCtrl, and
// not by the plain control.
TEST(CVnTreeCtrlTest, SelectionStaysVisibleWithoutTheFocus) {
  Window window;
  CVnTreeCtrl framed;
  window.Add(framed, 100);
  CTreeCtrl plain;
  RECT below = {10, 130, 250, 230};
  ASSERT_TRUE(plain.Create(kTreeStyle, below, &window.parent, 101));
  HWND edit = ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 260, 10, 50, 20, window.parent, nullptr,
                                nullptr, nullptr);
  COLORREF highlight = ::GetSysColor(COLOR_HIGHLIGHT);
  const struct {
    CTreeCtrl* tree;
    bool framed;
  } cases[] = {{&framed, true}, {&plain, false}};
  for (const auto& c : cases) {
    Fill(*c.tree, L"Alpha Beta Gamma");
    HTREEITEM beta = c.tree->GetNextSiblingItem(c.tree->GetRootItem());
    c.tree->SelectItem(beta);
    ::SetFocus(edit);
    ::RedrawWindow(*c.tree, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    PumpFor(50);
    RECT text;
    ASSERT_TRUE(c.tree->GetItemRect(beta, &text, TRUE));
    vn::test::Picture picture = vn::test::CaptureWindow(*c.tree);
    RECT outer;
    ::GetWindowRect(*c.tree, &outer);
    POINT origin = {0, 0};
    ::ClientToScreen(*c.tree, &origin);
    int dx = origin.x - outer.left, dy = origin.y - outer.top;
    int onFrame = 0, edge = 0;
    for (int x = text.left; x < text.right; ++x)
      for (LONG y : {text.top, text.bottom - 1}) {
        const unsigned char* p = &picture.rgb[((y + dy) * picture.width + x + dx) * 3];
        onFrame += RGB(p[0], p[1], p[2]) == highlight;
        ++edge;
      }
    EXPECT_EQ(c.framed ? edge : 0, onFrame) << c.framed;
  }
  ::DestroyWindow(edit);
}

}  // namespace
