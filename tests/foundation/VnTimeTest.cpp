// VnTimeTest.cpp - tolerance, parts of a value, zone shifts and text forms.
#include "foundation/VnTime.h"

#include "TestSupport.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <tuple>

namespace {

using vn::test::U8;

const double kMs = 1.0 / 86400000.0;

#ifndef _WIN32
// Natively the zone follows TZ, so tests can choose one: this sets it for one
// test and restores it, and the zone state, afterwards.
class ZoneScope {
public:
  explicit ZoneScope(const char* tz) : m_had(getenv("TZ") != nullptr), m_old(m_had ? getenv("TZ") : "") {
    setenv("TZ", tz, 1);
    CVnTime::ResetZoneShift();
  }
  ~ZoneScope() {
    m_had ? setenv("TZ", m_old.c_str(), 1) : unsetenv("TZ");
    CVnTime::ResetZoneShift();
  }

private:
  bool m_had;
  std::string m_old;
};
#endif

TEST(VnTimeTest, EqualityForgivesLessThanAMillisecond) {
  const double base = 38000.5;
  const struct { double delta; bool equal, less; } cases[] = {
      {0.0, true, false}, {0.5 * kMs, true, true}, {1.0 * kMs, false, true}, {2.0 * kMs, false, true}};
  for (const auto& c : cases) {
    CVnTime a(base), b(base + c.delta);
    EXPECT_EQ(std::make_tuple(c.equal, !c.equal, c.less, c.less || c.equal, c.equal),
              std::make_tuple(a == b, a != b, a < b, a <= b, a >= b)) << c.delta;
  }
}

TEST(VnTimeTest, ReservedValues) {
  const auto kinds = [](const CVnTime& t) { return std::make_tuple(t.IsCurrent(), t.IsUnknown(), t.IsIgnore()); };
  EXPECT_EQ(std::make_tuple(true, true, false), kinds(CVnTime()));
  EXPECT_EQ(std::make_tuple(false, false, true), kinds(CVnTime::IgnoreTime));
}

TEST(VnTimeTest, DateAndTimeParts) {
  const struct { double value, date, time; } cases[] = {
      {38000.75, 38000.0, 0.75}, {-0.25, -1.0, 0.75}, {0.0, 0.0, 0.0}, {-2.5, -3.0, 0.5}};
  for (const auto& c : cases) {
    EXPECT_DOUBLE_EQ(c.date, CVnTime(c.value).GetDateOnly().m_dt) << c.value;
    EXPECT_DOUBLE_EQ(c.time, CVnTime(c.value).GetTimeOnly().m_dt) << c.value;
  }
  CVnTime joined(CVnTime(38000.9), CVnTime(1.25));
  EXPECT_DOUBLE_EQ(38000.25, joined.m_dt);
}

TEST(VnTimeTest, SixPartConstructorAndInvalidDates) {
  EXPECT_DOUBLE_EQ(25569.0, CVnTime(1970, 1, 1, 0, 0, 0).m_dt);
  EXPECT_DOUBLE_EQ(38000.5, CVnTime(2004, 1, 14, 12, 0, 0).m_dt);
  EXPECT_EQ(COleDateTime::valid, CVnTime(2004, 2, 29, 0, 0, 0).GetStatus());
  const int bad[][6] = {{2003, 2, 29, 0, 0, 0}, {2004, 13, 1, 0, 0, 0}, {2004, 1, 1, 24, 0, 0}, {99, 1, 1, 0, 0, 0}};
  for (const auto& b : bad) {
    CVnTime t(b[0], b[1], b[2], b[3], b[4], b[5]);
    EXPECT_EQ(COleDateTime::invalid, t.GetStatus());
    EXPECT_TRUE(t.FormatDateLocale(0).IsEmpty());
    EXPECT_EQ("Invalid DateTime", U8(t.Format(_T("%Y"))));
  }
}

TEST(VnTimeTest, DateDifferences) {
  CVnTime lateEvening(38000.95), nextMorning(38001.05), sameDayNoon(38000.5);
  EXPECT_EQ(0, lateEvening.CompareDate(sameDayNoon));
  EXPECT_EQ(-1L, lateEvening.GetDateDifference(nextMorning));
  EXPECT_EQ(1L, nextMorning.GetDateDifference(lateEvening));
  EXPECT_EQ(-1, lateEvening.CompareDate(nextMorning));
  CVnTime t(38000.0);
  t.Add(3);
  EXPECT_DOUBLE_EQ(38003.0, t.m_dt);
}

#ifndef _WIN32
TEST(VnTimeTest, LocalDateDifferenceFollowsTheZoneShift) {
  ZoneScope zone("UTC-10");  // POSIX sign: ten hours east of Greenwich
  EXPECT_NEAR(10.0 / 24.0, CVnTime::GetZoneShift(), 1e-9);
  CVnTime lateEvening(38000.95), nextMorning(38001.05);
  EXPECT_EQ(-1L, lateEvening.GetDateDifference(nextMorning));
  EXPECT_EQ(0L, lateEvening.GetLocalDateDifference(nextMorning));
  EXPECT_EQ(0, lateEvening.CompareLocalDate(nextMorning));
  EXPECT_NEAR(38000.95 + 10.0 / 24.0, lateEvening.GetLocalTime().m_dt, 1e-9);
  EXPECT_NEAR(38000.95 - 10.0 / 24.0, lateEvening.GetUTCTime().m_dt, 1e-9);
  EXPECT_DOUBLE_EQ(38001.0, lateEvening.GetLocalDate().m_dt);
}

TEST(VnTimeTest, AdjustedLocalTimeUsesTheDaylightSavingOfTheDate) {
  ZoneScope zone("CET-1CEST,M3.5.0,M10.5.0/3");
  const CVnTime winter(2004, 1, 14, 12, 0, 0), summer(2004, 7, 14, 12, 0, 0);
  EXPECT_NEAR(winter.m_dt + 1.0 / 24.0, winter.GetAdjustedLocalTime().m_dt, 1e-9);
  EXPECT_NEAR(summer.m_dt + 2.0 / 24.0, summer.GetAdjustedLocalTime().m_dt, 1e-9);
  for (const CVnTime& t : {winter, summer})
    EXPECT_TRUE(t.GetAdjustedLocalTime().GetUTCTimeFromAdjustedLocalTime() == t);
  // Before 1970 the C library has no answer: no daylight saving.
  const CVnTime old(1960, 7, 14, 12, 0, 0);
  EXPECT_NEAR(old.m_dt + 1.0 / 24.0, old.GetAdjustedLocalTime().m_dt, 1e-9);
}

#endif

TEST(VnTimeTest, FormatUTCShowsThePartsThatArePresent) {
  const struct { double value; const char* separator; const char* suffix; bool fileName; const char* text; } cases[] = {
      {0.0, " ", "Z", false, ""}, {0.5, "T", "Z", true, "12-00-00Z"}, {0.5, "T", "", false, "12:00:00"},
      {38000.0, "T", "Z", false, "2004-01-14Z"}, {38000.5, "T", "Z", false, "2004-01-14T12:00:00Z"},
      {38000.5, "_", ".txt", true, "2004-01-14_12-00-00.txt"},
      {38000.5, " %Y ", "", false, "2004-01-14 2004 12:00:00"},  // the separator passes the formatter
      {1.0e7, " ", "", false, "Invalid DateTime"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.text, U8(CVnTime(c.value).FormatUTC(VnFromUtf8(c.separator), VnFromUtf8(c.suffix), c.fileName)))
        << c.value;
  }
}

#ifndef _WIN32
// The user's locale texts are the platform's; natively they are US English.
// FormatLocal shifts only full moments: a bare time or date stays as it is.
TEST(VnTimeTest, LocaleTextsAndFormatLocal) {
  const CVnTime t(2004, 1, 14, 15, 4, 5);
  EXPECT_EQ("1/14/2004", U8(t.FormatDateLocale(0)));
  EXPECT_EQ("3:04:05 PM", U8(t.FormatTimeLocale(0)));
  EXPECT_EQ("Wednesday, January 14, 2004", U8(t.FormatDateLocale(2)));
  ZoneScope zone("UTC-2");
  const struct { double value; const char* text; } cases[] = {
      {0.0, ""}, {0.5, "12:00:00 PM"}, {38000.0, "1/14/2004"}, {38000.5, "1/14/2004 2:00:00 PM"}};
  for (const auto& c : cases)
    EXPECT_EQ(c.text, U8(CVnTime(c.value).FormatLocal())) << c.value;
}
#endif

TEST(VnTimeTest, ClockRisesStrictly) {
  CVnTime previous = CVnTime::GetCurrentUTCTime();
  for (int i = 0; i < 50; ++i) {
    CVnTime next = CVnTime::GetCurrentUTCTime();
    EXPECT_GT(next.m_dt, previous.m_dt);
    previous = next;
  }
  EXPECT_GT(previous.m_dt, CVnTime(2020, 1, 1, 0, 0, 0).m_dt);
  EXPECT_GT(CVnTime::GetTickCount().m_dt, CVnTime(2020, 1, 1, 0, 0, 0).m_dt);
}

}  // namespace
