// VnTime.h - a point in time, a date alone or a time of day alone.
//
// CVnTime is an automation date (days since 30 December 1899, the fraction
// being the part of the day) with a comparison that forgives less than one
// millisecond, three reserved values, conversions between universal and
// local time, and text forms.  The value does not say whether it is UTC or
// local: GetCurrentUTCTime gives UTC, GetLocalTime/GetAdjustedLocalTime/
// FormatLocal take the value as UTC, GetUTCTime and
// GetUTCTimeFromAdjustedLocalTime take it as local.
//
// The zone state (m_fZoneShift, m_bDaySavingsOn) is computed once at start-up
// and again only on ResetZoneShift; it and the clock's last value are shared
// statics without a lock.
#ifndef VN_FOUNDATION_VNTIME_H
#define VN_FOUNDATION_VNTIME_H

#include "afx/portable/COleDateTime.h"

class VN_API CVnTime : public COleDateTime {
public:
  CVnTime() : COleDateTime() {}
  CVnTime(const CVnTime& other) = default;
  CVnTime(double value) : COleDateTime(value) {}
  CVnTime(int year, int month, int day, int hour, int minute, int second);
  // The whole part of `date` plus the fraction of `time`.
  CVnTime(const CVnTime& date, const CVnTime& time);

  CVnTime& operator=(const CVnTime& other) = default;
  CVnTime& operator=(double value);

  // Equality forgives less than PRECISION (one millisecond); the order
  // operators compare the plain values, so values half a millisecond apart
  // are both == and <.
  bool operator==(const CVnTime& other) const;
  bool operator!=(const CVnTime& other) const { return !(*this == other); }
  bool operator<(const CVnTime& other) const { return m_dt < other.m_dt; }
  bool operator>(const CVnTime& other) const { return m_dt > other.m_dt; }
  bool operator<=(const CVnTime& other) const { return *this < other || *this == other; }
  bool operator>=(const CVnTime& other) const { return *this > other || *this == other; }

  int IsCurrent() const { return *this == CurrentTime; }
  int IsUnknown() const { return *this == UnknownTime; }
  int IsIgnore() const { return *this == IgnoreTime; }

  const CVnTime GetDateOnly() const;
  const CVnTime GetTimeOnly() const;
  const CVnTime GetLocalTime() const;
  const CVnTime GetLocalDate() const;
  const CVnTime GetUTCTime() const;
  const CVnTime GetUTCDate() const;
  const CVnTime GetAdjustedLocalTime() const;
  const CVnTime GetUTCTimeFromAdjustedLocalTime() const;

  void Add(int days) { m_dt += days; }
  long GetDateDifference(const CVnTime& other) const;
  long GetLocalDateDifference(const CVnTime& other) const;
  int CompareDate(const CVnTime& other) const;
  int CompareLocalDate(const CVnTime& other) const;

  const CString FormatUTC(const CString& separator, const CString& suffix, bool fileName) const;
  const CString FormatLocal() const;
  const CString FormatDateLocale(unsigned long flags) const;
  const CString FormatTimeLocale(unsigned long flags) const;

  static const CVnTime GetCurrentUTCTime();
  static const CVnTime GetTickCount();
  static double GetZoneShift() { return m_fZoneShift; }
  static void ResetZoneShift();

  static const CVnTime CurrentTime;
  static const CVnTime UnknownTime;
  static const CVnTime IgnoreTime;

protected:
  static double InitZoneShift();
  // 1/24 when daylight saving applied at the moment of this (UTC) value.
  double GetDaylightSavings() const;

  static double m_fZoneShift;
  static int m_bDaySavingsOn;
};

namespace vn {
namespace timezone {
// The platform's answers that CVnTime stands on; VnTimePosix.cpp and
// VnTimeWin32.cpp give them.
struct ZoneInfo {
  long minutesWest;  // of Greenwich, standard time
  int dstFlag;       // > 0 when daylight saving is in force now
};
ZoneInfo CurrentZone();
// Whether daylight saving applies at `t` seconds since 1970 (UTC); false when
// the C library has no answer for it (any moment before 1970).
bool IsDaylightSavingAt(long long t);
// Local time now, whole seconds.
bool LocalNow(SYSTEMTIME& st);
// UTC now.
void UtcNow(SYSTEMTIME& st);
// The locale's short date or time text of a SYSTEMTIME; empty when it has none.
CString LocaleDate(const SYSTEMTIME& st, unsigned long flags);
CString LocaleTime(const SYSTEMTIME& st, unsigned long flags);
}  // namespace timezone
}  // namespace vn

#endif  // VN_FOUNDATION_VNTIME_H
