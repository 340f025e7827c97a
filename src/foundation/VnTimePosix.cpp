// VnTimePosix.cpp - the clock, time zone rules and date texts from the C library.
//
// The zone comes from tzset/localtime_r (TZ or /etc/localtime).  localtime
// is asked only for moments from 1970 on, which is all the platform the
// component was written for answers.  Date and time texts follow the
// platform's default user locale (US English): "1/14/2004", "12:00:00 PM".
#include "foundation/VnTime.h"

#include <ctime>
#include <sys/time.h>

namespace vn {
namespace timezone {

ZoneInfo CurrentZone() {
  tzset();
  time_t now = time(nullptr);
  struct tm local;
  ZoneInfo zone = {0, 0};
  if (!localtime_r(&now, &local))
    return zone;
  zone.dstFlag = local.tm_isdst > 0 ? 1 : 0;
  // tm_gmtoff includes daylight saving; the answer wanted is standard time.
  zone.minutesWest = -(local.tm_gmtoff - zone.dstFlag * 3600L) / 60;
  return zone;
}

bool IsDaylightSavingAt(long long t) {
  if (t < 0)
    return false;
  time_t when = static_cast<time_t>(t);
  struct tm local;
  if (!localtime_r(&when, &local))
    return false;
  return local.tm_isdst >= 1;
}

static void FromTm(const struct tm& t, SYSTEMTIME& st) {
  st.wYear = static_cast<WORD>(t.tm_year + 1900);
  st.wMonth = static_cast<WORD>(t.tm_mon + 1);
  st.wDayOfWeek = static_cast<WORD>(t.tm_wday);
  st.wDay = static_cast<WORD>(t.tm_mday);
  st.wHour = static_cast<WORD>(t.tm_hour);
  st.wMinute = static_cast<WORD>(t.tm_min);
  st.wSecond = static_cast<WORD>(t.tm_sec);
  st.wMilliseconds = 0;
}

bool LocalNow(SYSTEMTIME& st) {
  time_t now = time(nullptr);
  struct tm local;
  if (!localtime_r(&now, &local))
    return false;
  FromTm(local, st);
  return true;
}

void UtcNow(SYSTEMTIME& st) {
  struct timeval tv;
  gettimeofday(&tv, nullptr);
  time_t now = tv.tv_sec;
  struct tm utc;
  gmtime_r(&now, &utc);
  FromTm(utc, st);
  st.wMilliseconds = static_cast<WORD>(tv.tv_usec / 1000);
}

// DATE_LONGDATE (2) asks for the long form; every other flag gives the short one.
CString LocaleDate(const SYSTEMTIME& st, unsigned long flags) {
  static const WCHAR* const kDays[] = {_T("Sunday"), _T("Monday"), _T("Tuesday"), _T("Wednesday"),
                                       _T("Thursday"), _T("Friday"), _T("Saturday")};
  static const WCHAR* const kMonths[] = {_T("January"), _T("February"), _T("March"), _T("April"),
                                         _T("May"), _T("June"), _T("July"), _T("August"),
                                         _T("September"), _T("October"), _T("November"), _T("December")};
  CString out;
  if (flags & 2)
    out.Format(_T("%s, %s %d, %d"), kDays[st.wDayOfWeek % 7], kMonths[(st.wMonth + 11) % 12], st.wDay, st.wYear);
  else
    out.Format(_T("%d/%d/%d"), st.wMonth, st.wDay, st.wYear);
  return out;
}

// TIME_NOSECONDS (2) leaves the seconds out.
CString LocaleTime(const SYSTEMTIME& st, unsigned long flags) {
  const int h12 = st.wHour % 12 == 0 ? 12 : st.wHour % 12;
  const WCHAR* ampm = st.wHour < 12 ? _T("AM") : _T("PM");
  CString out;
  if (flags & 2)
    out.Format(_T("%d:%02d %s"), h12, st.wMinute, ampm);
  else
    out.Format(_T("%d:%02d:%02d %s"), h12, st.wMinute, st.wSecond, ampm);
  return out;
}

}  // namespace timezone
}  // namespace vn
