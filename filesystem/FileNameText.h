#pragma once

// The text steps of a generated file name: its parts joined by "." and the
// UTC time stamp. Pure; no platform header.

#include <ctime>
#include <string>

#include "frame/FormatText.h"

namespace zrk {
namespace detail {

// Appends `part` to `name`, after a "." if `name` already holds something.
template <class Ch>
void AppendFileNamePart(std::basic_string<Ch>* name, const std::basic_string<Ch>& part) {
    if (!name->empty()) {
        *name += Ch('.');
    }
    *name += part;
}

// What follows the last "\" of `path`, or all of it if there is none.
template <class Ch>
std::basic_string<Ch> AfterLastBackslash(const std::basic_string<Ch>& path) {
    return path.substr(path.find_last_of(Ch('\\')) + 1);
}

// "2026-11-19 04-47-39" from a UTC calendar record (year counted from 1900,
// month from 0): a blank between date and time, "-" where a clock has ":".
inline std::string FileNameStamp(const std::tm& utc) {
    return FormatText<char>("%04d-%02d-%02d %02d-%02d-%02d", utc.tm_year + 1900, utc.tm_mon + 1,
                            utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec);
}

}  // namespace detail
}  // namespace zrk
