#pragma once

// printf-style formatting into a standard string of either width, through a
// fixed buffer of 256 units. Every caller's longest text stays well below
// that; a longer one would be cut to 255 units. A text argument of a wide
// format is spelled %ls, which every printf family (msvcrt's and the ISO one)
// reads as wide text. Pure; no platform header.

#include <algorithm>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cwchar>
#include <string>

namespace zrk {
namespace detail {

inline int PrintInto(char* buffer, std::size_t size, const char* format, ...) {
    va_list args;
    va_start(args, format);
    const int length = std::vsnprintf(buffer, size, format, args);
    va_end(args);
    return length;
}
inline int PrintInto(wchar_t* buffer, std::size_t size, const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    const int length = std::vswprintf(buffer, size, format, args);
    va_end(args);
    return length;
}

template <class Ch, class... Args>
std::basic_string<Ch> FormatText(const Ch* format, Args... args) {
    constexpr std::size_t kBufferUnits = 256;
    Ch buffer[kBufferUnits];
    const int length = PrintInto(buffer, kBufferUnits, format, args...);
    if (length < 0) {
        return std::basic_string<Ch>();
    }
    return std::basic_string<Ch>(
        buffer, std::min(static_cast<std::size_t>(length), kBufferUnits - 1));
}

}  // namespace detail
}  // namespace zrk
