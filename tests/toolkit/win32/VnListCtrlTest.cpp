// VnListCtrlTest.cpp - CVnListCtrl on a real list view: rows reordered by
// dragging with the mouse's messages, before or after the target, with
// their texts, data and selection; the styles that allow it; the column
// helpers.
#include "toolkit/VnListCtrl.h"

#include "MouseSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using vn::test::BeginDrag;
using vn::test::DragTo;
using vn::test::Release;

namespace {

const DWORD kReorderable = WS_CHILD | WS_VISIBLE | WS_BORDER | LVS_REPORT | LVS_SINGLESEL;

struct Window {
  CWnd parent;
  Window() {
    RECT frame = {0, 0, 340, 260};
    EXPECT_TRUE(parent.CreateEx(0, nullptr, L"list test", WS_POPUP | WS_VISIBLE, frame, nullptr, 0));
  }
  // Rows "0" to "4", each with its value "v0".. in the second column and
  // its data 100 and up.  Full-row selection lets the left edge of a row,
  // where the drag looks, count as the row (docs/toolkit.md).
  void Add(CVnListCtrl& list, DWORD style = kReorderable) {
    RECT rect = {10, 10, 330, 250};
    ASSERT_TRUE(list.Create(style, rect, &parent, 100));
    list.InsertColumn(0, L"Name", LVCFMT_LEFT, 80);
    list.InsertColumn(1, L"Value", LVCFMT_LEFT, 120);
    list.SetFullRowSelect();
    for (int i = 0; i < 5; ++i) {
      std::wstring name = std::to_wstring(i), value = L"v" + name;
      int row = list.InsertItem(i, name.c_str());  // a sorted list puts it in its place
      list.SetItemText(row, 1, value.c_str());
      list.SetItemData(row, 100 + i);
    }
  }
};

// The rows' names in order; each row's value and data must still match
// its name.
std::string Order(CVnListCtrl& list) {
  std::string order;
  for (int i = 0; i < list.GetItemCount(); ++i) {
    CString name = list.GetItemText(i, 0);
    order += static_cast<char>(name[0]);
    EXPECT_EQ(CString(L"v") + name, list.GetItemText(i, 1)) << i;
    EXPECT_EQ(static_cast<DWORD_PTR>(100 + name[0] - L'0'), list.GetItemData(i)) << i;
  }
  return order;
}

POINT RowCentre(CListCtrl& list, int row) {
  RECT rect = {};
  if (row < list.GetItemCount()) {
    list.GetItemRect(row, &rect, LVIR_BOUNDS);
  } else {  // the empty space below the last row
    list.GetItemRect(list.GetItemCount() - 1, &rect, LVIR_BOUNDS);
    ::OffsetRect(&rect, 0, 3 * (rect.bottom - rect.top));
  }
  return {40, (rect.top + rect.bottom) / 2};
}

TEST(CVnListCtrlTest, DragsARowToItsDropPlace) {
  const struct {
    const char* name;
    bool before;
    int from;
    std::vector<int> moves;  // rows the mouse passes, 5 for below the rows
    int release;
    int lit;                 // after the moves
    const char* order;
  } cases[] = {
      {"before: 1 onto 3", true, 1, {3}, 3, 3, "02134"}, {"after: 1 onto 3", false, 1, {3}, 3, 3, "02314"},
      {"before: 3 onto 1", true, 3, {1}, 1, 1, "03124"}, {"before: 2 onto 1", true, 2, {1}, 1, 1, "02134"},
      {"after: 2 onto 3", false, 2, {3}, 3, 3, "01324"}, {"after: 3 onto the last", false, 3, {4}, 4, 4, "01243"},
      // Where the row would stay in place there's no drop.
      {"before: 2 onto 3 stays", true, 2, {3}, 3, -1, "01234"},
      {"after: 2 onto 1 stays", false, 2, {1}, 1, -1, "01234"}, {"onto itself", true, 2, {2}, 2, -1, "01234"},
      // The last move decides, not the release.
      {"released over another row", true, 0, {4}, 1, 4, "12304"},
      {"moved on below the rows", true, 0, {3, 5}, 3, -1, "01234"},
      {"moved on to a refused row", true, 1, {3, 2}, 3, -1, "01234"},
  };
  for (const auto& c : cases) {
    Window window;
    CVnListCtrl list;
    window.Add(list);
    list.EnableDragDrop(true);
    if (c.before)
      list.SetInsertBeforeOnDrop();
    else
      list.SetInsertAfterOnDrop();
    EXPECT_EQ(c.before ? TRUE : FALSE, list.GetInsertBeforeOnDrop());

    BeginDrag(list, RowCentre(list, c.from));
    EXPECT_EQ(list.m_hWnd, ::GetCapture()) << c.name;
    list.SetItemState(c.from, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    for (int row : c.moves)
      DragTo(list, RowCentre(list, row));
    EXPECT_EQ(c.lit, list.GetNextItem(-1, LVNI_DROPHILITED)) << c.name;
    Release(list, RowCentre(list, c.release));

    EXPECT_EQ(c.order, Order(list)) << c.name;
    EXPECT_EQ(-1, list.GetNextItem(-1, LVNI_DROPHILITED)) << c.name;
    EXPECT_NE(list.m_hWnd, ::GetCapture()) << c.name;
    // Selection and focus travel with the row.
    int selected = list.GetNextItem(-1, LVNI_SELECTED);
    ASSERT_NE(-1, selected) << c.name;
    EXPECT_EQ(static_cast<DWORD_PTR>(100 + c.from), list.GetItemData(selected)) << c.name;
    EXPECT_EQ(selected, list.GetNextItem(-1, LVNI_FOCUSED)) << c.name;
  }
}

// Only a list whose order is the user's drags: single selection, no
// sorting, rows in a column.
TEST(CVnListCtrlTest, OnlyAReorderableListDrags) {
  const struct { DWORD style; bool reorderable; } cases[] = {
      {kReorderable, true}, {(kReorderable & ~LVS_TYPEMASK) | LVS_LIST, true},
      {kReorderable & ~LVS_TYPEMASK, false},  // icons
      {(kReorderable & ~LVS_TYPEMASK) | LVS_SMALLICON, false}, {kReorderable & ~LVS_SINGLESEL, false},
      {kReorderable | LVS_SORTASCENDING, false}, {kReorderable | LVS_SORTDESCENDING, false},
  };
  for (const auto& c : cases) {
    Window window;
    CVnListCtrl list;
    window.Add(list, c.style);
    EXPECT_EQ(c.reorderable, list.CanDragAndDrop()) << std::hex << c.style;
    list.EnableDragDrop(true);
    EXPECT_EQ(c.reorderable, list.OnQueryItemDrag(0) != FALSE) << std::hex << c.style;
  }
  Window window;  // not enabled: the rows stay
  CVnListCtrl list;
  window.Add(list);
  BeginDrag(list, RowCentre(list, 1));
  DragTo(list, RowCentre(list, 3));
  Release(list, RowCentre(list, 3));
  EXPECT_EQ("01234", Order(list));
}

TEST(CVnListCtrlTest, ColumnHelpers) {
  Window window;
  CVnListCtrl list;
  RECT rect = {10, 10, 330, 250};
  ASSERT_TRUE(list.Create(kReorderable, rect, &window.parent, 100));
  EXPECT_EQ(0, list.GetColumnCount());
  EXPECT_EQ(0, list.GetTotalColumnWidths());
  list.InsertColumn(0, L"Name", LVCFMT_LEFT, 80);
  list.InsertColumn(1, L"Value", LVCFMT_LEFT, 120);
  list.InsertColumn(2, L"More", LVCFMT_RIGHT, 35);
  EXPECT_EQ(3, list.GetColumnCount());
  EXPECT_EQ(235, list.GetTotalColumnWidths());
  list.SetExtendedStyle(LVS_EX_GRIDLINES);
  list.SetFullRowSelect();
  EXPECT_EQ(static_cast<DWORD>(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT), list.GetExtendedStyle());
}

}  // namespace
