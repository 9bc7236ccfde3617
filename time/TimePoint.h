#pragma once

#include <ctime>
#include <string>

#include "frame/Export.h"
#include "time/TimeInterval.h"

// An instant of the wall clock, to the second, with its calendar fields in
// UTC and in the machine's local zone worked out whenever the instant is set,
// so that reading a field costs nothing.
//
// The fields come from the C runtime (_gmtime64_s, _localtime64_s), whose
// local zone follows its TZ variable when set. For an instant the runtime
// cannot convert (msvcrt refuses any before 1970) nothing is raised: the
// fields hold what the runtime left, -1 in each under msvcrt.
//
// An ordinary copyable value owning nothing. A plain copy keeps the fields as
// they are; assignment works them out anew. Writes to one object need the
// caller's guard; different objects share nothing.
class ZRK_API TimePoint {
public:
    // The current time, from _time64.
    static TimePoint Now();
    // 1970-01-01 00:00:00 UTC.
    static TimePoint Epoch();
    // Parses "YYYY-MM-DD HH:MM:SS UTC", the text of ToStringA(false), matched
    // as a whole: each date separator may be "-", "/" or ".", every field
    // has its full width of ASCII digits, and the fields are not
    // range-tested: _mkgmtime64 decides what a month of 13 means (under
    // msvcrt a text before 1970 or after 3000 gives the instant -1, one
    // second before the epoch). Any other text throws std::runtime_error
    // with "time string expected in format: YYYY-MM-DD HH:MM:SS UTC". The
    // wide form parses the text's UTF-8 form and throws the same.
    static TimePoint UTCString(const std::string& text);
    static TimePoint UTCString(const std::wstring& text);

    // UTC fields: the year in full, the month from 1, the day of the week
    // from Sunday = 0.
    int Year() const;
    int Month() const;
    int Day() const;
    int DayOfWeek() const;
    int Hour() const;
    int Minute() const;
    int Second() const;
    // The same in the local zone in force when the instant was last set.
    int LocalYear() const;
    int LocalMonth() const;
    int LocalDay() const;
    int LocalDayOfWeek() const;
    int LocalHour() const;
    int LocalMinute() const;
    int LocalSecond() const;

    // A new point shifted by the interval; this one stays.
    TimePoint operator+(const TimeInterval& interval);
    TimePoint operator-(const TimeInterval& interval);
    // Shift this point and return a copy of it (not a reference).
    TimePoint operator+=(const TimeInterval& interval);
    TimePoint operator-=(const TimeInterval& interval);
    // This instant minus the other, in seconds.
    TimeInterval operator-(const TimePoint& other);
    // Takes the other's instant and works out both calendars anew.
    TimePoint& operator=(const TimePoint& other);
    TimePoint(const TimePoint& other) = default;

    // Signed comparison of the instants alone.
    bool operator==(const TimePoint& other);
    bool operator!=(const TimePoint& other);
    bool operator<(const TimePoint& other);
    bool operator<=(const TimePoint& other);
    bool operator>(const TimePoint& other);
    bool operator>=(const TimePoint& other);

    // "2024-01-02 03:04:05 UTC" from the UTC fields; with `noUtcMark` the
    // same text without " UTC" (still the UTC fields).
    std::string ToStringA(bool noUtcMark) const;
    std::wstring ToStringW(bool noUtcMark) const;
    // "2024-01-02 12:04:05" from the local fields, with no zone mark.
    std::string ToLocalStringA() const;
    std::wstring ToLocalStringW() const;

private:
    TimePoint();
    explicit TimePoint(long long seconds);

    // Works out m_utc and m_local from m_time.
    void RefreshTimes();
    static long long MkGmTime(tm& fields);

    long long m_time;  // seconds since 1970-01-01 00:00:00 UTC
    tm m_utc;
    tm m_local;
};
