#pragma once

// The platform takes text as zero-terminated strings and reads only up to the
// first zero unit, so a caller's string that holds one of its own would reach
// the platform cut short and name another variable, file or key than the one
// the caller gave. Every entry that hands a caller's string to the platform
// therefore treats such a string as bad input and refuses it before any
// platform call, with the result that entry gives for other bad input.
// Pure logic over either width; no platform header.

#include <string>

namespace zrk {
namespace detail {

// True when `text` holds a zero unit anywhere, the end included.
template <class Ch>
bool HasEmbeddedNul(const std::basic_string<Ch>& text) {
    return text.find(Ch()) != std::basic_string<Ch>::npos;
}

}  // namespace detail
}  // namespace zrk
