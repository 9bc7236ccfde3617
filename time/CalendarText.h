#pragma once

// The text side of TimePoint that needs no platform: printing calendar fields
// and reading the one text form that TimePoint parses. Pure functions.

#include <cstdlib>
#include <ctime>
#include <regex>
#include <string>

#include "frame/FormatText.h"

namespace zrk {
namespace detail {

// The format and the suffix, per width.
template <class Ch>
struct CalendarFormat;
template <>
struct CalendarFormat<char> {
    static constexpr const char* format = "%04d-%02d-%02d %02d:%02d:%02d%s";
    static constexpr const char* utcMark = " UTC";
    static constexpr const char* none = "";
};
template <>
struct CalendarFormat<wchar_t> {
    static constexpr const wchar_t* format = L"%04d-%02d-%02d %02d:%02d:%02d%ls";
    static constexpr const wchar_t* utcMark = L" UTC";
    static constexpr const wchar_t* none = L"";
};

// The fields of `fields` as TimePoint prints them (the year in full, the
// month from 1), with " UTC" behind when `utcMark` is set.
template <class Ch>
std::basic_string<Ch> CalendarText(const std::tm& fields, bool utcMark) {
    using F = CalendarFormat<Ch>;
    return FormatText<Ch>(F::format, fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday,
                          fields.tm_hour, fields.tm_min, fields.tm_sec,
                          utcMark ? F::utcMark : F::none);
}

// Reads "YYYY-MM-DD HH:MM:SS UTC" into the fields of `fields` (month from 0,
// year from 1900, daylight flag -1; the day of the week and of the year stay
// as they were) and answers true. The whole text must match; each of the two
// date separators may be "-", "/" or ".", independently; every field has its
// full width of ASCII digits, which are not range-tested. On false `fields`
// is unchanged. The pattern is compiled on each call and shared with nothing.
inline bool ParseUtcText(const std::string& text, std::tm* fields) {
    const std::regex pattern(
        "([0-9]{4})[-/\\.]([0-9]{2})[-/\\.]([0-9]{2}) ([0-9]{2}):([0-9]{2}):([0-9]{2}) UTC",
        std::regex::ECMAScript);
    std::smatch groups;
    if (!std::regex_match(text, groups, pattern)) {
        return false;
    }
    const auto field = [&](int group) { return std::atoi(groups.str(group).c_str()); };
    fields->tm_year = field(1) - 1900;
    fields->tm_mon = field(2) - 1;
    fields->tm_mday = field(3);
    fields->tm_hour = field(4);
    fields->tm_min = field(5);
    fields->tm_sec = field(6);
    fields->tm_isdst = -1;
    return true;
}

}  // namespace detail
}  // namespace zrk
