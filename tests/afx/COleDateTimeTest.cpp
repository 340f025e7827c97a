// COleDateTimeTest.cpp - automation dates: calendar arithmetic both ways.
#include "afx/portable/COleDateTime.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(COleDateTimeTest, KnownDatesHaveKnownValues) {
  const struct { int y, mo, d, h, mi, s; double value; } cases[] = {
      {1899, 12, 30, 0, 0, 0, 0.0},      {1899, 12, 31, 0, 0, 0, 1.0},   {1970, 1, 1, 0, 0, 0, 25569.0},
      {2004, 1, 14, 18, 0, 0, 38000.75}, {1899, 12, 29, 6, 0, 0, -1.25}, {100, 1, 1, 0, 0, 0, -657434.0},
      {9999, 12, 31, 0, 0, 0, 2958465.0},
  };
  for (const auto& c : cases) {
    COleDateTime t(c.y, c.mo, c.d, c.h, c.mi, c.s);
    EXPECT_EQ(COleDateTime::valid, t.GetStatus());
    EXPECT_DOUBLE_EQ(c.value, t.m_dt);
    EXPECT_EQ((std::vector<int>{c.y, c.mo, c.d, c.h}),
              (std::vector<int>{t.GetYear(), t.GetMonth(), t.GetDay(), t.GetHour()}));
  }
  EXPECT_EQ(4, COleDateTime(2004, 1, 14, 0, 0, 0).GetDayOfWeek());  // a Wednesday
  EXPECT_EQ(60, COleDateTime(2004, 2, 29, 0, 0, 0).GetDayOfYear());
}

TEST(COleDateTimeTest, OutOfRangeValuesHaveNoParts) {
  for (double v : {-700000.0, 3.0e6}) {
    COleDateTime t(v);
    EXPECT_EQ(-1, t.GetYear());
    EXPECT_EQ("Invalid DateTime", VnToUtf8(t.Format(_T("%Y"))));
  }
  COleDateTime null;
  null.SetStatus(COleDateTime::null);
  EXPECT_TRUE(null.Format(_T("%Y")).IsEmpty());
}

TEST(COleDateTimeTest, RoundsToTheNearestSecond) {
  SYSTEMTIME st;
  ASSERT_TRUE(VnVariantTimeToSystemTime(0.5 + 0.4 / 86400.0, st));
  EXPECT_EQ(0, st.wSecond);
  ASSERT_TRUE(VnVariantTimeToSystemTime(1.0 - 0.2 / 86400.0, st));
  EXPECT_EQ(31, st.wDay);  // carried into 31 December 1899, 00:00:00
  EXPECT_EQ(0, st.wHour);
}

}  // namespace
