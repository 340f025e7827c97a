// CScrollBarTest.cpp - a real scroll bar control: range, position, info.
#include "afx/win32/CScrollBar.h"

#include <gtest/gtest.h>

namespace {

class CScrollBarTest : public testing::Test {
protected:
  void SetUp() override {
    RECT frame = {0, 0, 300, 100};
    ASSERT_TRUE(m_parent.CreateEx(0, nullptr, L"bar test", WS_OVERLAPPEDWINDOW, frame, nullptr, 0));
    RECT rect = {0, 0, 280, 20};
    ASSERT_TRUE(m_bar.Create(WS_CHILD | WS_VISIBLE | SBS_HORZ, rect, &m_parent, 5));
  }

  CWnd m_parent;
  CScrollBar m_bar;
};

TEST_F(CScrollBarTest, KeepsItsRangeAndPosition) {
  const struct {
    int min, max, set, kept;
  } cases[] = {
      {0, 50, 20, 20},
      {0, 50, 70, 50},  // beyond the range: held at its top
      {10, 30, 5, 10},  // below it: held at its bottom
      {-5, 5, -3, -3},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.set);
    m_bar.SetScrollRange(c.min, c.max, FALSE);
    int min = -1, max = -1;
    m_bar.GetScrollRange(&min, &max);
    EXPECT_EQ(c.min, min);
    EXPECT_EQ(c.max, max);
    m_bar.SetScrollPos(c.set, FALSE);
    EXPECT_EQ(c.kept, m_bar.GetScrollPos());
  }
  EXPECT_EQ(-3, m_bar.SetScrollPos(4));  // gives the position it had
}

TEST_F(CScrollBarTest, ScrollInfoCarriesPageAndPosition) {
  SCROLLINFO info = {};
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMin = 0;
  info.nMax = 99;
  info.nPage = 10;
  info.nPos = 42;
  EXPECT_EQ(42, m_bar.SetScrollInfo(&info, FALSE));
  SCROLLINFO read = {};
  ASSERT_TRUE(m_bar.GetScrollInfo(&read));
  EXPECT_EQ(99, read.nMax);
  EXPECT_EQ(10u, read.nPage);
  EXPECT_EQ(42, read.nPos);
  EXPECT_TRUE(m_bar.IsKindOf(RUNTIME_CLASS(CWnd)));
}

}  // namespace
