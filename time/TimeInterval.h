#pragma once

#include <string>

#include "frame/Export.h"

class TimePoint;

// A signed span of whole seconds: arithmetic, comparison and two text forms.
// It knows no calendar: a year is always 365 days and there are no months.
// Negative values are spans backwards; there is no invalid value.
//
// An ordinary value of one 64-bit field, owning nothing. No operation checks
// for overflow of the count (keeping results in range is the caller's
// duty), and no operation throws, apart from allocating a returned string.
// Concurrent reads of one object are safe; writes need the caller's guard.
class ZRK_API TimeInterval {
public:
    // Intervals come from these creators; there is no public constructor
    // from a number.
    static TimeInterval Zero();
    static TimeInterval FromSeconds(long long seconds);
    static TimeInterval FromMinutes(long long minutes);
    static TimeInterval FromHours(long long hours);
    static TimeInterval FromDays(long long days);
    static TimeInterval FromWeeks(long long weeks);
    static TimeInterval FromYears(long long years);
    // The sum of all six counts with their units. Any count may be negative
    // or exceed the next unit: CreateFrom(0, 0, 0, 0, 1, 30) equals
    // CreateFrom(0, 0, 0, 0, 0, 90).
    static TimeInterval CreateFrom(long long years, long long weeks, long long days,
                                   long long hours, long long minutes, long long seconds);

    // Grow or shrink the value in place by n units.
    void AddSeconds(long long n);
    void AddMinutes(long long n);
    void AddHours(long long n);
    void AddDays(long long n);
    void AddWeeks(long long n);
    void AddYears(long long n);
    void SubtractSeconds(long long n);
    void SubtractMinutes(long long n);
    void SubtractHours(long long n);
    void SubtractDays(long long n);
    void SubtractWeeks(long long n);
    void SubtractYears(long long n);

    // Binary operators give a new interval; compound ones change this one and
    // return it. Division truncates toward zero (-7 / 2 is -3); a divisor of
    // 0, and the most negative count divided by -1, are the caller's to
    // avoid.
    TimeInterval operator+(const TimeInterval& other);
    TimeInterval operator-(const TimeInterval& other);
    TimeInterval& operator+=(const TimeInterval& other);
    TimeInterval& operator-=(const TimeInterval& other);
    TimeInterval operator*(long long factor);
    TimeInterval operator/(long long divisor);
    TimeInterval& operator*=(long long factor);
    TimeInterval& operator/=(long long divisor);
    TimeInterval operator-();
    TimeInterval operator+();
    TimeInterval& operator=(const TimeInterval& other);
    TimeInterval(const TimeInterval& other) = default;

    // Signed comparison of the two second counts.
    bool operator==(const TimeInterval& other);
    bool operator!=(const TimeInterval& other);
    bool operator<(const TimeInterval& other);
    bool operator<=(const TimeInterval& other);
    bool operator>(const TimeInterval& other);
    bool operator>=(const TimeInterval& other);

    // "-90 s": a minus sign for a negative span, then the magnitude.
    std::string ToStringA() const;
    std::wstring ToStringW() const;
    // "-0y 0w 0d 0h 1m 30s": all six components of the magnitude, zeros
    // included, the minus sign once in front. The most negative count prints
    // as what it is, -2^63 seconds ("-9223372036854775808 s" and
    // "-292471208677y 27w 6d 15h 30m 8s").
    std::string ToPrettyStringA() const;
    std::wstring ToPrettyStringW() const;

private:
    friend class TimePoint;  // shifts its instant by m_seconds

    explicit TimeInterval(long long seconds);

    // Fills the six components of the magnitude (weeks 0..52, days 0..6,
    // hours 0..23, minutes and seconds 0..59) and answers true for a negative
    // interval. All six pointers are required.
    bool CalcComponents(long long* years, long long* weeks, long long* days,
                        long long* hours, long long* minutes, long long* seconds) const;

    long long m_seconds;
};
