// VnTime.cpp - tolerant comparison, zone shifts and text forms of CVnTime.
//
// The zone shift is the offset of local time from UTC at start-up in days,
// daylight saving included, positive east of Greenwich, rounded to ten
// decimals.  GetAdjustedLocalTime does better than a fixed shift: it takes
// the zone's standard offset (the shift less the daylight saving of
// start-up) and adds the daylight saving that applied at the moment asked
// about.
#include "foundation/VnTime.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {

const double kPrecision = 1.0 / 86400000.0;  // one millisecond, in days
const double kClockStep = 1.1574074074074074e-09;  // 0.1 ms
const double kOneHour = 1.0 / 24.0;

double g_lastClock = 0.0;

double Floor(double v) { return std::floor(v); }

}  // namespace

const CVnTime CVnTime::CurrentTime(0.0);
const CVnTime CVnTime::UnknownTime(0.0);
const CVnTime CVnTime::IgnoreTime(-1.0);
int CVnTime::m_bDaySavingsOn = 0;
double CVnTime::m_fZoneShift = CVnTime::InitZoneShift();

CVnTime::CVnTime(int year, int month, int day, int hour, int minute, int second) {
  SetDateTime(year, month, day, hour, minute, second);
}

CVnTime::CVnTime(const CVnTime& date, const CVnTime& time)
    : COleDateTime(Floor(date.m_dt) + (time.m_dt - Floor(time.m_dt))) {}

CVnTime& CVnTime::operator=(double value) {
  m_dt = value;
  m_status = valid;
  return *this;
}

bool CVnTime::operator==(const CVnTime& other) const {
  static const double PRECISION = kPrecision;
  return std::fabs(m_dt - other.m_dt) < PRECISION;
}

//===-- Parts of a value ---------------------------------------------------===//

const CVnTime CVnTime::GetDateOnly() const { return CVnTime(Floor(m_dt)); }
const CVnTime CVnTime::GetTimeOnly() const { return CVnTime(m_dt - Floor(m_dt)); }
const CVnTime CVnTime::GetLocalTime() const { return CVnTime(m_dt + m_fZoneShift); }
const CVnTime CVnTime::GetLocalDate() const { return CVnTime(Floor(m_dt + m_fZoneShift)); }
const CVnTime CVnTime::GetUTCTime() const { return CVnTime(m_dt - m_fZoneShift); }
const CVnTime CVnTime::GetUTCDate() const { return CVnTime(Floor(m_dt - m_fZoneShift)); }

// The zone's standard offset: the shift of start-up without its daylight saving.
static double StandardOffset(double shift, int dstOn) { return shift - dstOn / 24.0; }

const CVnTime CVnTime::GetAdjustedLocalTime() const {
  return CVnTime(m_dt + GetDaylightSavings() + StandardOffset(m_fZoneShift, m_bDaySavingsOn));
}

const CVnTime CVnTime::GetUTCTimeFromAdjustedLocalTime() const {
  CVnTime s(m_dt - StandardOffset(m_fZoneShift, m_bDaySavingsOn));
  return CVnTime(s.m_dt - s.GetDaylightSavings());
}

double CVnTime::GetDaylightSavings() const {
  static const CVnTime epoch(1970, 1, 1, 0, 0, 0);
  const double seconds = Floor((m_dt - epoch.m_dt) * 86400.0);
  if (!(std::fabs(seconds) < 9.0e15))
    return 0.0;  // NaN or far outside what time_t can say
  return vn::timezone::IsDaylightSavingAt(static_cast<long long>(seconds)) ? kOneHour : 0.0;
}

//===-- Dates --------------------------------------------------------------===//

long CVnTime::GetDateDifference(const CVnTime& other) const {
  return static_cast<long>(Floor(m_dt) - Floor(other.m_dt));
}

long CVnTime::GetLocalDateDifference(const CVnTime& other) const {
  return static_cast<long>(Floor(m_dt + m_fZoneShift) - Floor(other.m_dt + m_fZoneShift));
}

static int Sign(long v) { return v < 0 ? -1 : (v > 0 ? 1 : 0); }

int CVnTime::CompareDate(const CVnTime& other) const { return Sign(GetDateDifference(other)); }
int CVnTime::CompareLocalDate(const CVnTime& other) const { return Sign(GetLocalDateDifference(other)); }

//===-- Clock and zone -----------------------------------------------------===//

// A strictly rising clock: within one second the values step by 0.1 ms.
const CVnTime CVnTime::GetCurrentUTCTime() {
  SYSTEMTIME st;
  vn::timezone::UtcNow(st);
  st.wMilliseconds = 0;
  DATE value = 0.0;
  VnSystemTimeToVariantTime(st, value);
  if (!(value > g_lastClock))
    value = g_lastClock + kClockStep;
  g_lastClock = value;
  return CVnTime(value);
}

const CVnTime CVnTime::GetTickCount() {
  SYSTEMTIME st;
  DATE value = 0.0;
  if (vn::timezone::LocalNow(st))
    VnSystemTimeToVariantTime(st, value);
  return CVnTime(value);
}

double CVnTime::InitZoneShift() {
  const vn::timezone::ZoneInfo zone = vn::timezone::CurrentZone();
  m_bDaySavingsOn = zone.dstFlag > 0 ? 1 : 0;
  const double shift = (zone.minutesWest - m_bDaySavingsOn * 60.0) * -0.0006944444444444445;
  // Rounded to ten decimals through text, as the shift has always been kept.
  char text[64];
  snprintf(text, sizeof text, "%16.10f", shift);
  return strtod(text, nullptr);
}

void CVnTime::ResetZoneShift() { m_fZoneShift = InitZoneShift(); }

//===-- Text ---------------------------------------------------------------===//

// Whether the date and the time part of a value are there at all: a part
// equal to 0.0 (within the tolerance) counts as missing.
static void PresentParts(double value, bool& date, bool& time) {
  const double datePart = Floor(value);
  date = !(CVnTime(datePart) == CVnTime::CurrentTime);
  time = !(CVnTime(value - datePart) == CVnTime::CurrentTime);
}

const CString CVnTime::FormatUTC(const CString& separator, const CString& suffix, bool fileName) const {
  bool date, time;
  PresentParts(m_dt, date, time);
  if (!date && !time)
    return CString();
  CString format;
  if (date)
    format += _T("%Y-%m-%d");
  if (time) {
    if (!format.IsEmpty())
      format += separator;
    format += fileName ? _T("%H-%M-%S") : _T("%H:%M:%S");
  }
  format += suffix;
  return Format(format);
}

const CString CVnTime::FormatLocal() const {
  bool date, time;
  PresentParts(m_dt, date, time);
  if (!date && !time)
    return CString();
  if (!date)
    return GetTimeOnly().Format(0, LOCALE_USER_DEFAULT);
  if (!time)
    return GetDateOnly().Format(0, LOCALE_USER_DEFAULT);
  return GetAdjustedLocalTime().Format(0, LOCALE_USER_DEFAULT);
}

const CString CVnTime::FormatDateLocale(unsigned long flags) const {
  SYSTEMTIME st;
  if (m_status != valid || !VnVariantTimeToSystemTime(m_dt, st))
    return CString();
  return vn::timezone::LocaleDate(st, flags);
}

const CString CVnTime::FormatTimeLocale(unsigned long flags) const {
  SYSTEMTIME st;
  if (m_status != valid || !VnVariantTimeToSystemTime(m_dt, st))
    return CString();
  return vn::timezone::LocaleTime(st, flags);
}
