// DialogDriverTest.cpp - the shared dialog driver answers a real modal box
// from its second thread while the test thread waits in the box's loop.
#include "DialogDriver.h"
#include "afx/win32/CWnd.h"

#include <gtest/gtest.h>

TEST(DialogDriver, PressesAButtonOfAModalBoxOwnedByTheWindow) {
  CWnd owner;
  const RECT rect = {0, 0, 200, 100};
  ASSERT_TRUE(owner.CreateEx(0, nullptr, L"owner", WS_OVERLAPPEDWINDOW, rect, nullptr, 0));
  vn::test::DialogDriver driver(owner, [](HWND box) { vn::test::PressButton(box, IDNO); }, L"Question");
  EXPECT_EQ(IDNO, ::MessageBoxW(owner, L"Go on?", L"Question", MB_YESNO));
  EXPECT_TRUE(driver.Acted());
}
