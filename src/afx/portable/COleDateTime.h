// COleDateTime.h - a point in time as an OLE automation date.
//
// The value counts days since midnight of 30 December 1899; the fraction is
// the part of the day (0.5 is noon).  For negative values the whole part
// counts days back and the fraction still runs forward from midnight, which
// is how automation dates are defined.  The calendar arithmetic is done here
// on both platforms (proleptic Gregorian, years 100 to 9999), so that the
// conversions give the same answer natively and under Windows.
#ifndef VN_AFX_COLEDATETIME_H
#define VN_AFX_COLEDATETIME_H

#include "afx/portable/CString.h"

#ifdef _WIN32
#include <oleauto.h>  // DATE: WIN32_LEAN_AND_MEAN leaves it out
#endif

#ifndef _WIN32
typedef double DATE;
typedef DWORD LCID;
#define LOCALE_USER_DEFAULT 0x0400u
#define LANG_USER_DEFAULT 0x0400u
#endif

class VN_API COleDateTime {
public:
  enum DateTimeStatus { valid = 0, invalid = 1, null = 2 };

  COleDateTime() : m_dt(0.0), m_status(valid) {}
  COleDateTime(DATE value) : m_dt(value), m_status(valid) {}
  COleDateTime(int year, int month, int day, int hour, int minute, int second);

  // 0 when the parts make a date, else 1 with the status invalid.
  int SetDateTime(int year, int month, int day, int hour, int minute, int second);
  DateTimeStatus GetStatus() const { return m_status; }
  void SetStatus(DateTimeStatus status) { m_status = status; }

  // The parts of a valid date; -1 when the status or the value is invalid.
  int GetYear() const;
  int GetMonth() const;
  int GetDay() const;
  int GetHour() const;
  int GetMinute() const;
  int GetSecond() const;
  int GetDayOfWeek() const;  // 1 = Sunday
  int GetDayOfYear() const;  // 1 = 1 January
  bool GetAsSystemTime(SYSTEMTIME& st) const;

  // strftime-style text; "Invalid DateTime" for an invalid value, empty for null.
  CString Format(LPCWSTR format) const;
  // The locale's text for the value (date, time or both, as the value has them).
  CString Format(DWORD flags = 0, LCID locale = LANG_USER_DEFAULT) const;

  DATE m_dt;
  DateTimeStatus m_status;
};

// The calendar conversions, as SystemTimeToVariantTime and
// VariantTimeToSystemTime define them (milliseconds are dropped and rounded
// to the nearest second on the way back).
VN_API bool VnSystemTimeToVariantTime(const SYSTEMTIME& st, DATE& value);
VN_API bool VnVariantTimeToSystemTime(DATE value, SYSTEMTIME& st);

#endif  // VN_AFX_COLEDATETIME_H
