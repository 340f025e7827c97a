// CScrollBarTest.cpp - a real scroll bar control: range, position, info.
#include "afx/win32/CScrollBar.h"

#include <gtest/gtest.h>

namespace {

TEST(CScrollBarTest, KeepsRangePositionAndPage) {
  RECT frame = {0, 0, 300, 100}, rect = {0, 0, 280, 20};
  CWnd parent;
  ASSERT_TRUE(parent.CreateEx(0, nullptr, L"bar test", WS_OVERLAPPEDWINDOW, frame, nullptr, 0));
  CScrollBar bar;
  ASSERT_TRUE(bar.Create(WS_CHILD | WS_VISIBLE | SBS_HORZ, rect, &parent, 5));
  bar.SetScrollRange(-5, 50, FALSE);
  int min = -1, max = -1;
  bar.GetScrollRange(&min, &max);
  EXPECT_EQ(-5, min);
  EXPECT_EQ(50, max);
  bar.SetScrollPos(70, FALSE);
  EXPECT_EQ(50, bar.GetScrollPos());  // beyond the range: held at its top
  EXPECT_EQ(50, bar.SetScrollPos(-3));  // gives the position it had
  // The info record's size is the wrapper's to fill in, both ways.
  SCROLLINFO info = {};
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = 99;
  info.nPage = 10;
  info.nPos = 42;
  EXPECT_EQ(42, bar.SetScrollInfo(&info, FALSE));
  SCROLLINFO read = {};
  ASSERT_TRUE(bar.GetScrollInfo(&read));
  EXPECT_EQ(99, read.nMax);
  EXPECT_EQ(10u, read.nPage);
  EXPECT_EQ(42, read.nPos);
}

}  // namespace
