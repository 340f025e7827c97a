// LocalResourcesWin32Test.cpp - menus and bitmaps by module and number.  That
// the component's texts come from the DLL, not the host, every text test shows.
#include "foundation/LocalResources.h"

#include "afx/win32/CGdiObject.h"
#include "afx/win32/CMenu.h"

#include "TestModule.h"

#include <gtest/gtest.h>

namespace {

using vn::test::TestModule;

// A missing resource and an object that already holds one give 0 and
// leave the object as it was.
TEST(LocalResourcesWin32Test, LoadsAMenuIntoAnEmptyObjectOnly) {
  CMenu menu;
  EXPECT_EQ(FALSE, LoadLocalMenu(TestModule(), 999, menu));
  EXPECT_EQ(FALSE, LoadLocalMenu(GetResourceModule(), vn::test::kMenu, menu));
  EXPECT_EQ(nullptr, menu.GetSafeHmenu());
  ASSERT_EQ(TRUE, LoadLocalMenu(TestModule(), vn::test::kMenu, menu));
  EXPECT_EQ(2, menu.GetMenuItemCount());
  EXPECT_EQ(vn::test::kMenuFirst, menu.GetMenuItemID(0));
  CString text;
  menu.GetMenuString(vn::test::kMenuSecond, text, MF_BYCOMMAND);
  EXPECT_EQ(0, text.Compare(L"&Second"));
  HMENU held = menu.GetSafeHmenu();
  EXPECT_EQ(FALSE, LoadLocalMenu(TestModule(), vn::test::kMenu, menu));
  EXPECT_EQ(held, menu.GetSafeHmenu());
}

TEST(LocalResourcesWin32Test, LoadsABitmapIntoAnEmptyObjectOnly) {
  CBitmap bitmap;
  EXPECT_EQ(FALSE, LoadLocalBitmap(TestModule(), 999, bitmap));
  EXPECT_EQ(nullptr, bitmap.GetSafeHandle());
  ASSERT_EQ(TRUE, LoadLocalBitmap(TestModule(), vn::test::kBitmap, bitmap));
  BITMAP info = {};
  ASSERT_NE(0, bitmap.GetBitmap(&info));
  EXPECT_EQ(2, info.bmWidth);
  EXPECT_EQ(1, info.bmHeight);
  HGDIOBJ held = bitmap.GetSafeHandle();
  EXPECT_EQ(FALSE, LoadLocalBitmap(TestModule(), vn::test::kBitmap, bitmap));
  EXPECT_EQ(held, bitmap.GetSafeHandle());
}

}  // namespace
