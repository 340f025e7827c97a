// CMenuTest.cpp - a CMenu owns the menu it holds.
#include "afx/win32/CMenu.h"

#include <gtest/gtest.h>

namespace {

TEST(CMenuTest, DestroysItsMenuUnlessDetached) {
  HMENU destroyed = ::CreatePopupMenu();
  {
    CMenu menu;
    ASSERT_EQ(TRUE, menu.Attach(destroyed));
  }
  EXPECT_FALSE(::IsMenu(destroyed));

  HMENU kept = ::CreatePopupMenu();
  {
    CMenu menu;
    ASSERT_EQ(TRUE, menu.Attach(kept));
    EXPECT_EQ(kept, menu.Detach());
    EXPECT_EQ(nullptr, menu.GetSafeHmenu());
  }
  EXPECT_TRUE(::IsMenu(kept));
  ::DestroyMenu(kept);
}

TEST(CMenuTest, AttachRefusesNullAndASecondMenu) {
  CMenu menu;
  EXPECT_EQ(FALSE, menu.Attach(nullptr));
  EXPECT_EQ(FALSE, menu.DestroyMenu());
  HMENU first = ::CreatePopupMenu();
  HMENU second = ::CreatePopupMenu();
  ASSERT_EQ(TRUE, menu.Attach(first));
  EXPECT_EQ(FALSE, menu.Attach(second));
  EXPECT_EQ(first, menu.GetSafeHmenu());
  ::DestroyMenu(second);
}

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
