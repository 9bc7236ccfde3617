#pragma once

// The steps of TimeInterval that need no platform: taking a count of seconds
// apart into years of 365 days, weeks, days, hours, minutes and seconds and
// putting it back together, and the two text forms. Pure functions, either character width.

#include <string>

#include "frame/FormatText.h"

namespace zrk {
namespace detail {

// Seconds per unit; a year is always 365 days.
constexpr long long kMinute = 60;
constexpr long long kHour = 60 * kMinute;
constexpr long long kDay = 24 * kHour;
constexpr long long kWeek = 7 * kDay;
constexpr long long kYear = 365 * kDay;

// The magnitude of a second count, exact for every value: the most negative
// count has no magnitude of its own width, so it is taken unsigned.
inline unsigned long long IntervalMagnitude(long long seconds) {
    const unsigned long long bits = static_cast<unsigned long long>(seconds);
    return seconds < 0 ? 0 - bits : bits;
}

// Fills the six components of the magnitude of `seconds`, each in its range
// (weeks 0..52, days 0..6, hours 0..23, minutes and seconds 0..59, years
// unlimited), and answers whether `seconds` is negative. The components,
// summed with their units, give the magnitude back; for the most negative
// count they are those of 2^63.
inline bool SplitInterval(long long seconds, long long* years, long long* weeks,
                          long long* days, long long* hours, long long* minutes,
                          long long* rest) {
    static constexpr unsigned long long kUnits[] = {kYear, kWeek, kDay, kHour, kMinute};
    long long* const parts[] = {years, weeks, days, hours, minutes};
    unsigned long long remainder = IntervalMagnitude(seconds);
    for (int i = 0; i < 5; ++i) {
        *parts[i] = static_cast<long long>(remainder / kUnits[i]);
        remainder %= kUnits[i];
    }
    *rest = static_cast<long long>(remainder);
    return seconds < 0;
}

// The second count of the given components, each with its unit; the inverse
// of SplitInterval. Components may be negative or beyond their range; the
// caller keeps the total within a signed 64-bit count.
inline long long JoinInterval(long long years, long long weeks, long long days, long long hours,
                              long long minutes, long long seconds) {
    return years * kYear + weeks * kWeek + days * kDay + hours * kHour + minutes * kMinute +
           seconds;
}

// The formats and sign texts, per width. The magnitude is printed unsigned,
// which for every count but the most negative is the same text as signed.
template <class Ch>
struct IntervalFormat;
template <>
struct IntervalFormat<char> {
    static constexpr const char* plain = "%s%llu s";
    static constexpr const char* pretty = "%s%lldy %lldw %lldd %lldh %lldm %llds";
    static constexpr const char* minus = "-";
    static constexpr const char* none = "";
};
template <>
struct IntervalFormat<wchar_t> {
    static constexpr const wchar_t* plain = L"%ls%llu s";
    static constexpr const wchar_t* pretty = L"%ls%lldy %lldw %lldd %lldh %lldm %llds";
    static constexpr const wchar_t* minus = L"-";
    static constexpr const wchar_t* none = L"";
};

// "-90 s", "0 s": one minus sign at most, then the magnitude.
template <class Ch>
std::basic_string<Ch> PlainIntervalText(long long seconds) {
    using F = IntervalFormat<Ch>;
    return FormatText<Ch>(F::plain, seconds < 0 ? F::minus : F::none, IntervalMagnitude(seconds));
}

// "-0y 0w 0d 0h 1m 30s": every component shown, the sign once in front.
template <class Ch>
std::basic_string<Ch> PrettyIntervalText(bool negative, long long years, long long weeks,
                                         long long days, long long hours, long long minutes,
                                         long long seconds) {
    using F = IntervalFormat<Ch>;
    return FormatText<Ch>(F::pretty, negative ? F::minus : F::none, years, weeks, days, hours,
                          minutes, seconds);
}

}  // namespace detail
}  // namespace zrk
