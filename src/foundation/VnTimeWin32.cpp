// VnTimeWin32.cpp - the clock, time zone rules and date texts from Win32 and the CRT.
#include "foundation/VnTime.h"

#include <ctime>
#include <sys/timeb.h>

namespace vn {
namespace timezone {

ZoneInfo CurrentZone() {
  _tzset();
  struct _timeb tb;
  _ftime(&tb);
  ZoneInfo zone = {tb.timezone, tb.dstflag};
  return zone;
}

bool IsDaylightSavingAt(long long t) {
  time_t when = static_cast<time_t>(t);
  struct tm* local = localtime(&when);
  return local && local->tm_isdst >= 1;
}

bool LocalNow(SYSTEMTIME& st) {
  __time64_t now;
  _time64(&now);
  struct tm* local = _localtime64(&now);
  if (!local)
    return false;
  st.wYear = static_cast<WORD>(local->tm_year + 1900);
  st.wMonth = static_cast<WORD>(local->tm_mon + 1);
  st.wDayOfWeek = static_cast<WORD>(local->tm_wday);
  st.wDay = static_cast<WORD>(local->tm_mday);
  st.wHour = static_cast<WORD>(local->tm_hour);
  st.wMinute = static_cast<WORD>(local->tm_min);
  st.wSecond = static_cast<WORD>(local->tm_sec);
  st.wMilliseconds = 0;
  return true;
}

void UtcNow(SYSTEMTIME& st) { ::GetSystemTime(&st); }

CString LocaleDate(const SYSTEMTIME& st, unsigned long flags) {
  wchar_t buf[1024];
  int n = GetDateFormatW(LOCALE_USER_DEFAULT, flags, &st, nullptr, buf, 1024);
  return n ? CString(buf) : CString();
}

CString LocaleTime(const SYSTEMTIME& st, unsigned long flags) {
  wchar_t buf[1024];
  int n = GetTimeFormatW(LOCALE_USER_DEFAULT, flags, &st, nullptr, buf, 1024);
  return n ? CString(buf) : CString();
}

}  // namespace timezone
}  // namespace vn
