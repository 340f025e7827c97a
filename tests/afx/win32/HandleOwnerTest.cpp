// HandleOwnerTest.cpp - CMenu and CBitmap own the handle they hold: it goes
// with them unless detached, and they take no null and no second handle.
// A menu's item texts are read by position or command.
#include "afx/win32/CGdiObject.h"
#include "afx/win32/CMenu.h"

#include <gtest/gtest.h>

namespace {

struct MenuKind {
  using Owner = CMenu;
  static HMENU Make() { return ::CreatePopupMenu(); }
  static bool Alive(HMENU menu) { return ::IsMenu(menu) != FALSE; }
  static void Free(HMENU menu) { ::DestroyMenu(menu); }
  static HMENU Held(const CMenu& owner) { return owner.GetSafeHmenu(); }
  static BOOL Drop(CMenu& owner) { return owner.DestroyMenu(); }
};

// GetObjectType gives 0 once a handle is deleted.
struct BitmapKind {
  using Owner = CBitmap;
  static HBITMAP Make() { return ::CreateBitmap(4, 3, 1, 32, nullptr); }
  static bool Alive(HBITMAP bitmap) { return ::GetObjectType(bitmap) == OBJ_BITMAP; }
  static void Free(HBITMAP bitmap) { ::DeleteObject(bitmap); }
  static HBITMAP Held(const CBitmap& owner) { return static_cast<HBITMAP>(owner.GetSafeHandle()); }
  static BOOL Drop(CBitmap& owner) { return owner.DeleteObject(); }
};

template <class Kind>
void ExpectOwnership() {
  auto destroyed = Kind::Make();
  {
    typename Kind::Owner owner;
    ASSERT_EQ(TRUE, owner.Attach(destroyed));
    EXPECT_TRUE(Kind::Alive(destroyed));
  }
  EXPECT_FALSE(Kind::Alive(destroyed));

  auto kept = Kind::Make();
  {
    typename Kind::Owner owner;
    ASSERT_EQ(TRUE, owner.Attach(kept));
    EXPECT_EQ(kept, owner.Detach());
    EXPECT_EQ(nullptr, Kind::Held(owner));
  }
  EXPECT_TRUE(Kind::Alive(kept));

  typename Kind::Owner owner;
  EXPECT_EQ(FALSE, owner.Attach(nullptr));
  EXPECT_EQ(FALSE, Kind::Drop(owner));
  ASSERT_EQ(TRUE, owner.Attach(kept));
  auto second = Kind::Make();
  EXPECT_EQ(FALSE, owner.Attach(second));
  EXPECT_EQ(kept, Kind::Held(owner));
  Kind::Free(second);
}

TEST(HandleOwnerTest, AMenuGoesWithItsOwnerUnlessDetached) { ExpectOwnership<MenuKind>(); }
TEST(HandleOwnerTest, ABitmapGoesWithItsOwnerUnlessDetached) { ExpectOwnership<BitmapKind>(); }

TEST(CMenuTest, ReadsItemsByPositionAndCommand) {
  CMenu menu;
  ASSERT_EQ(TRUE, menu.Attach(::CreatePopupMenu()));
  ::AppendMenuW(menu, MF_STRING, 11, L"&Open");
  ::AppendMenuW(menu, MF_STRING, 12, L"&Close");
  CString text;
  EXPECT_EQ(5, menu.GetMenuString(11, text, MF_BYCOMMAND));
  EXPECT_EQ(0, text.Compare(L"&Open"));
  EXPECT_EQ(6, menu.GetMenuString(1, text, MF_BYPOSITION));
  EXPECT_EQ(0, text.Compare(L"&Close"));
  EXPECT_EQ(0, menu.GetMenuString(99, text, MF_BYCOMMAND));
  EXPECT_TRUE(text.IsEmpty());
}

}  // namespace
