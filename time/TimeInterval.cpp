#include "time/TimeInterval.h"

#include "time/IntervalText.h"

using zrk::detail::kDay;
using zrk::detail::kHour;
using zrk::detail::kMinute;
using zrk::detail::kWeek;
using zrk::detail::kYear;

TimeInterval::TimeInterval(long long seconds) : m_seconds(seconds) {}

TimeInterval TimeInterval::Zero() { return TimeInterval(0); }
TimeInterval TimeInterval::FromSeconds(long long seconds) { return TimeInterval(seconds); }
TimeInterval TimeInterval::FromMinutes(long long minutes) { return TimeInterval(minutes * kMinute); }
TimeInterval TimeInterval::FromHours(long long hours) { return TimeInterval(hours * kHour); }
TimeInterval TimeInterval::FromDays(long long days) { return TimeInterval(days * kDay); }
TimeInterval TimeInterval::FromWeeks(long long weeks) { return TimeInterval(weeks * kWeek); }
TimeInterval TimeInterval::FromYears(long long years) { return TimeInterval(years * kYear); }

TimeInterval TimeInterval::CreateFrom(long long years, long long weeks, long long days,
                                      long long hours, long long minutes, long long seconds) {
    return TimeInterval(zrk::detail::JoinInterval(years, weeks, days, hours, minutes, seconds));
}

void TimeInterval::AddSeconds(long long n) { m_seconds += n; }
void TimeInterval::AddMinutes(long long n) { m_seconds += n * kMinute; }
void TimeInterval::AddHours(long long n) { m_seconds += n * kHour; }
void TimeInterval::AddDays(long long n) { m_seconds += n * kDay; }
void TimeInterval::AddWeeks(long long n) { m_seconds += n * kWeek; }
void TimeInterval::AddYears(long long n) { m_seconds += n * kYear; }
void TimeInterval::SubtractSeconds(long long n) { m_seconds -= n; }
void TimeInterval::SubtractMinutes(long long n) { m_seconds -= n * kMinute; }
void TimeInterval::SubtractHours(long long n) { m_seconds -= n * kHour; }
void TimeInterval::SubtractDays(long long n) { m_seconds -= n * kDay; }
void TimeInterval::SubtractWeeks(long long n) { m_seconds -= n * kWeek; }
void TimeInterval::SubtractYears(long long n) { m_seconds -= n * kYear; }

TimeInterval TimeInterval::operator+(const TimeInterval& other) {
    return TimeInterval(m_seconds + other.m_seconds);
}
TimeInterval TimeInterval::operator-(const TimeInterval& other) {
    return TimeInterval(m_seconds - other.m_seconds);
}
TimeInterval& TimeInterval::operator+=(const TimeInterval& other) {
    m_seconds += other.m_seconds;
    return *this;
}
TimeInterval& TimeInterval::operator-=(const TimeInterval& other) {
    m_seconds -= other.m_seconds;
    return *this;
}
TimeInterval TimeInterval::operator*(long long factor) { return TimeInterval(m_seconds * factor); }
TimeInterval TimeInterval::operator/(long long divisor) { return TimeInterval(m_seconds / divisor); }
TimeInterval& TimeInterval::operator*=(long long factor) {
    m_seconds *= factor;
    return *this;
}
TimeInterval& TimeInterval::operator/=(long long divisor) {
    m_seconds /= divisor;
    return *this;
}
TimeInterval TimeInterval::operator-() { return TimeInterval(-m_seconds); }
TimeInterval TimeInterval::operator+() { return *this; }
TimeInterval& TimeInterval::operator=(const TimeInterval& other) {
    m_seconds = other.m_seconds;
    return *this;
}

bool TimeInterval::operator==(const TimeInterval& other) { return m_seconds == other.m_seconds; }
bool TimeInterval::operator!=(const TimeInterval& other) { return m_seconds != other.m_seconds; }
bool TimeInterval::operator<(const TimeInterval& other) { return m_seconds < other.m_seconds; }
bool TimeInterval::operator<=(const TimeInterval& other) { return m_seconds <= other.m_seconds; }
bool TimeInterval::operator>(const TimeInterval& other) { return m_seconds > other.m_seconds; }
bool TimeInterval::operator>=(const TimeInterval& other) { return m_seconds >= other.m_seconds; }

bool TimeInterval::CalcComponents(long long* years, long long* weeks, long long* days,
                                  long long* hours, long long* minutes,
                                  long long* seconds) const {
    return zrk::detail::SplitInterval(m_seconds, years, weeks, days, hours, minutes, seconds);
}

namespace {

// The pretty form through CalcComponents, for either width.
template <class Ch, class Split>
std::basic_string<Ch> PrettyText(Split split) {
    long long years, weeks, days, hours, minutes, seconds;
    const bool negative = split(&years, &weeks, &days, &hours, &minutes, &seconds);
    return zrk::detail::PrettyIntervalText<Ch>(negative, years, weeks, days, hours, minutes,
                                               seconds);
}

}  // namespace

std::string TimeInterval::ToStringA() const {
    return zrk::detail::PlainIntervalText<char>(m_seconds);
}
std::wstring TimeInterval::ToStringW() const {
    return zrk::detail::PlainIntervalText<wchar_t>(m_seconds);
}
std::string TimeInterval::ToPrettyStringA() const {
    return PrettyText<char>([this](auto... parts) { return CalcComponents(parts...); });
}
std::wstring TimeInterval::ToPrettyStringW() const {
    return PrettyText<wchar_t>([this](auto... parts) { return CalcComponents(parts...); });
}
