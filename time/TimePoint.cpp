#include "time/TimePoint.h"

#include <stdexcept>

#include "text/Utf8.h"
#include "time/CalendarText.h"

TimePoint::TimePoint() : TimePoint(_time64(nullptr)) {}

// The records start zeroed, so that what a failing conversion leaves behind
// is never an uninitialised field.
TimePoint::TimePoint(long long seconds) : m_time(seconds), m_utc(), m_local() {
    RefreshTimes();
}

void TimePoint::RefreshTimes() {
    // A failure leaves its mark in the record; nothing here reports it.
    _gmtime64_s(&m_utc, &m_time);
    _localtime64_s(&m_local, &m_time);
}

long long TimePoint::MkGmTime(tm& fields) { return _mkgmtime64(&fields); }

TimePoint TimePoint::Now() { return TimePoint(); }
TimePoint TimePoint::Epoch() { return TimePoint(0); }

TimePoint TimePoint::UTCString(const std::string& text) {
    tm fields = {};
    if (!zrk::detail::ParseUtcText(text, &fields)) {
        throw std::runtime_error("time string expected in format: YYYY-MM-DD HH:MM:SS UTC");
    }
    return TimePoint(MkGmTime(fields));
}

TimePoint TimePoint::UTCString(const std::wstring& text) {
    return UTCString(zrk::detail::WideToUtf8(text));
}

int TimePoint::Year() const { return m_utc.tm_year + 1900; }
int TimePoint::Month() const { return m_utc.tm_mon + 1; }
int TimePoint::Day() const { return m_utc.tm_mday; }
int TimePoint::DayOfWeek() const { return m_utc.tm_wday; }
int TimePoint::Hour() const { return m_utc.tm_hour; }
int TimePoint::Minute() const { return m_utc.tm_min; }
int TimePoint::Second() const { return m_utc.tm_sec; }
int TimePoint::LocalYear() const { return m_local.tm_year + 1900; }
int TimePoint::LocalMonth() const { return m_local.tm_mon + 1; }
int TimePoint::LocalDay() const { return m_local.tm_mday; }
int TimePoint::LocalDayOfWeek() const { return m_local.tm_wday; }
int TimePoint::LocalHour() const { return m_local.tm_hour; }
int TimePoint::LocalMinute() const { return m_local.tm_min; }
int TimePoint::LocalSecond() const { return m_local.tm_sec; }

TimePoint TimePoint::operator+(const TimeInterval& interval) {
    return TimePoint(m_time + interval.m_seconds);
}
TimePoint TimePoint::operator-(const TimeInterval& interval) {
    return TimePoint(m_time - interval.m_seconds);
}
TimePoint TimePoint::operator+=(const TimeInterval& interval) {
    m_time += interval.m_seconds;
    RefreshTimes();
    return *this;
}
TimePoint TimePoint::operator-=(const TimeInterval& interval) {
    m_time -= interval.m_seconds;
    RefreshTimes();
    return *this;
}
TimeInterval TimePoint::operator-(const TimePoint& other) {
    return TimeInterval(m_time - other.m_time);
}
TimePoint& TimePoint::operator=(const TimePoint& other) {
    m_time = other.m_time;
    RefreshTimes();
    return *this;
}

bool TimePoint::operator==(const TimePoint& other) { return m_time == other.m_time; }
bool TimePoint::operator!=(const TimePoint& other) { return m_time != other.m_time; }
bool TimePoint::operator<(const TimePoint& other) { return m_time < other.m_time; }
bool TimePoint::operator<=(const TimePoint& other) { return m_time <= other.m_time; }
bool TimePoint::operator>(const TimePoint& other) { return m_time > other.m_time; }
bool TimePoint::operator>=(const TimePoint& other) { return m_time >= other.m_time; }

std::string TimePoint::ToStringA(bool noUtcMark) const {
    return zrk::detail::CalendarText<char>(m_utc, !noUtcMark);
}
std::wstring TimePoint::ToStringW(bool noUtcMark) const {
    return zrk::detail::CalendarText<wchar_t>(m_utc, !noUtcMark);
}
std::string TimePoint::ToLocalStringA() const {
    return zrk::detail::CalendarText<char>(m_local, false);
}
std::wstring TimePoint::ToLocalStringW() const {
    return zrk::detail::CalendarText<wchar_t>(m_local, false);
}
