// CGdiObjectTest.cpp - a CGdiObject owns the GDI handle it holds.
#include "afx/win32/CGdiObject.h"

#include <gtest/gtest.h>

namespace {

// GetObjectType gives 0 once a handle is deleted.
TEST(CGdiObjectTest, DeletesItsHandleUnlessDetached) {
  HBITMAP deleted = ::CreateBitmap(4, 3, 1, 32, nullptr);
  {
    CBitmap bitmap;
    ASSERT_EQ(TRUE, bitmap.Attach(deleted));
    EXPECT_EQ(static_cast<DWORD>(OBJ_BITMAP), ::GetObjectType(deleted));
  }
  EXPECT_EQ(0u, ::GetObjectType(deleted));

  HBITMAP kept = ::CreateBitmap(4, 3, 1, 32, nullptr);
  {
    CBitmap bitmap;
    ASSERT_EQ(TRUE, bitmap.Attach(kept));
    EXPECT_EQ(kept, bitmap.Detach());
  }
  EXPECT_EQ(static_cast<DWORD>(OBJ_BITMAP), ::GetObjectType(kept));
  ::DeleteObject(kept);
}

TEST(CGdiObjectTest, AttachRefusesNullAndASecondHandle) {
  CBitmap bitmap;
  EXPECT_EQ(FALSE, bitmap.Attach(nullptr));
  EXPECT_EQ(FALSE, bitmap.DeleteObject());
  HBITMAP first = ::CreateBitmap(1, 1, 1, 32, nullptr);
  HBITMAP second = ::CreateBitmap(1, 1, 1, 32, nullptr);
  ASSERT_EQ(TRUE, bitmap.Attach(first));
  EXPECT_EQ(FALSE, bitmap.Attach(second));
  EXPECT_EQ(static_cast<HGDIOBJ>(first), bitmap.GetSafeHandle());
  ::DeleteObject(second);
}

}  // namespace
