// COleDateTime.cpp - calendar arithmetic for automation dates, and their text.
#include "afx/portable/COleDateTime.h"

#include <cmath>
#include <cstdio>
#include <ctime>
#include <cwchar>
#ifdef _WIN32
#include <oleauto.h>
#endif

namespace {

const double kMinDate = -657434.0;            // 1 January 100
const double kMaxDate = 2958465.999988426;    // 31 December 9999, 23:59:59
// Days since 1 January 1970 of a proleptic Gregorian date, and back.
long DaysFromCivil(long y, unsigned m, unsigned d) {
  y -= m <= 2;
  const long era = (y >= 0 ? y : y - 399) / 400;
  const unsigned yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<long>(doe) - 719468;
}

void CivilFromDays(long z, long& y, unsigned& m, unsigned& d) {
  z += 719468;
  const long era = (z >= 0 ? z : z - 146096) / 146097;
  const unsigned doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  y = static_cast<long>(yoe) + era * 400;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  d = doy - (153 * mp + 2) / 5 + 1;
  m = mp < 10 ? mp + 3 : mp - 9;
  y += m <= 2;
}

bool IsLeap(long y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int DaysInMonth(long y, int m) {
  static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return m == 2 && IsLeap(y) ? 29 : kDays[m - 1];
}

// Day number relative to 30 December 1899.
long OleDay(long y, unsigned m, unsigned d) {
  return DaysFromCivil(y, m, d) - DaysFromCivil(1899, 12, 30);
}

}  // namespace

bool VnSystemTimeToVariantTime(const SYSTEMTIME& st, DATE& value) {
  if (st.wYear < 100 || st.wYear > 9999 || st.wMonth < 1 || st.wMonth > 12)
    return false;
  if (st.wDay < 1 || st.wDay > DaysInMonth(st.wYear, st.wMonth))
    return false;
  if (st.wHour > 23 || st.wMinute > 59 || st.wSecond > 59)
    return false;
  const long day = OleDay(st.wYear, st.wMonth, st.wDay);
  const double frac = (st.wHour * 3600.0 + st.wMinute * 60.0 + st.wSecond) / 86400.0;
  // Before 30 December 1899 the whole part counts back while the fraction
  // still counts forward from midnight.
  value = day >= 0 ? day + frac : day - frac;
  return true;
}

bool VnVariantTimeToSystemTime(DATE value, SYSTEMTIME& st) {
  if (!(value >= kMinDate && value <= kMaxDate + 0.5 / 86400.0))
    return false;
  double whole = std::trunc(value);
  long secs = std::lround(std::fabs(value - whole) * 86400.0);
  long day = static_cast<long>(whole);
  if (secs >= 86400) {  // rounding carried into the next day
    secs -= 86400;
    day += 1;
  }
  long y;
  unsigned m, d;
  CivilFromDays(day + DaysFromCivil(1899, 12, 30), y, m, d);
  if (y < 100 || y > 9999)
    return false;
  st.wYear = static_cast<WORD>(y);
  st.wMonth = static_cast<WORD>(m);
  st.wDay = static_cast<WORD>(d);
  // 1 January 1970 was a Thursday (4).
  const long fromEpoch = DaysFromCivil(y, m, d);
  st.wDayOfWeek = static_cast<WORD>(((fromEpoch % 7) + 7 + 4) % 7);
  st.wHour = static_cast<WORD>(secs / 3600);
  st.wMinute = static_cast<WORD>(secs / 60 % 60);
  st.wSecond = static_cast<WORD>(secs % 60);
  st.wMilliseconds = 0;
  return true;
}

COleDateTime::COleDateTime(int year, int month, int day, int hour, int minute, int second)
    : m_dt(0.0), m_status(valid) {
  SetDateTime(year, month, day, hour, minute, second);
}

int COleDateTime::SetDateTime(int year, int month, int day, int hour, int minute, int second) {
  SYSTEMTIME st = {};
  const bool inRange = year >= 0 && year <= 0xFFFF && month >= 0 && day >= 0 && hour >= 0 &&
                       minute >= 0 && second >= 0 && month < 0x10000 && day < 0x10000 &&
                       hour < 0x10000 && minute < 0x10000 && second < 0x10000;
  if (inRange) {
    st.wYear = static_cast<WORD>(year);
    st.wMonth = static_cast<WORD>(month);
    st.wDay = static_cast<WORD>(day);
    st.wHour = static_cast<WORD>(hour);
    st.wMinute = static_cast<WORD>(minute);
    st.wSecond = static_cast<WORD>(second);
  }
  if (inRange && VnSystemTimeToVariantTime(st, m_dt)) {
    m_status = valid;
    return 0;
  }
  m_dt = 0.0;
  m_status = invalid;
  return 1;
}

bool COleDateTime::GetAsSystemTime(SYSTEMTIME& st) const {
  return m_status == valid && VnVariantTimeToSystemTime(m_dt, st);
}

int COleDateTime::GetYear() const { SYSTEMTIME st; return GetAsSystemTime(st) ? st.wYear : -1; }
int COleDateTime::GetMonth() const { SYSTEMTIME st; return GetAsSystemTime(st) ? st.wMonth : -1; }
int COleDateTime::GetDay() const { SYSTEMTIME st; return GetAsSystemTime(st) ? st.wDay : -1; }
int COleDateTime::GetHour() const { SYSTEMTIME st; return GetAsSystemTime(st) ? st.wHour : -1; }
int COleDateTime::GetMinute() const { SYSTEMTIME st; return GetAsSystemTime(st) ? st.wMinute : -1; }
int COleDateTime::GetSecond() const { SYSTEMTIME st; return GetAsSystemTime(st) ? st.wSecond : -1; }
int COleDateTime::GetDayOfWeek() const { SYSTEMTIME st; return GetAsSystemTime(st) ? st.wDayOfWeek + 1 : -1; }

int COleDateTime::GetDayOfYear() const {
  SYSTEMTIME st;
  if (!GetAsSystemTime(st))
    return -1;
  return static_cast<int>(DaysFromCivil(st.wYear, st.wMonth, st.wDay) - DaysFromCivil(st.wYear, 1, 1)) + 1;
}

static CString InvalidText() { return CString(_T("Invalid DateTime")); }

// strftime over a tm built from the value, as the framework does it.
CString COleDateTime::Format(LPCWSTR format) const {
  if (m_status == null)
    return CString();
  SYSTEMTIME st;
  if (!GetAsSystemTime(st))
    return InvalidText();
  struct tm t = {};
  t.tm_year = st.wYear - 1900;
  t.tm_mon = st.wMonth - 1;
  t.tm_mday = st.wDay;
  t.tm_hour = st.wHour;
  t.tm_min = st.wMinute;
  t.tm_sec = st.wSecond;
  t.tm_wday = st.wDayOfWeek;
  t.tm_yday = GetDayOfYear() - 1;
  t.tm_isdst = 0;
#ifdef _WIN32
  wchar_t buf[256];
  size_t n = wcsftime(buf, 256, format ? format : L"", &t);
  return CString(buf, static_cast<int>(n));
#else
  std::string fmt = VnToUtf8(format ? format : _T(""));
  char buf[256 * 4];
  size_t n = fmt.empty() ? 0 : strftime(buf, sizeof buf, fmt.c_str(), &t);
  return VnFromUtf8(std::string(buf, n));
#endif
}

// On Windows the text is VarBstrFromDate's.  Natively the user's locale is
// taken as US English, the text the platform gives for LOCALE_USER_DEFAULT on
// a default installation: "1/14/2004 12:00:00 PM"; a date alone or a time
// alone when the value has only that.
CString COleDateTime::Format(DWORD flags, LCID locale) const {
  if (m_status == null)
    return CString();
  SYSTEMTIME st;
  if (!GetAsSystemTime(st))
    return InvalidText();
#ifdef _WIN32
  BSTR text = nullptr;
  if (FAILED(VarBstrFromDate(m_dt, locale, flags, &text)))
    return InvalidText();
  CString out(text);
  SysFreeString(text);
  return out;
#else
  const bool hasDate = std::trunc(m_dt) != 0.0;
  const bool hasTime = st.wHour || st.wMinute || st.wSecond;
  CString out;
  if (hasDate || !hasTime)
    out.Format(_T("%d/%d/%d"), st.wMonth, st.wDay, st.wYear);
  if (hasTime) {
    CString t;
    int h12 = st.wHour % 12 == 0 ? 12 : st.wHour % 12;
    t.Format(_T("%d:%02d:%02d %s"), h12, st.wMinute, st.wSecond, st.wHour < 12 ? _T("AM") : _T("PM"));
    out = out.IsEmpty() ? t : out + _T(" ") + t;
  }
  return out;
#endif
}
