#pragma once

#include <cstdint>
#include <string>

#include "frame/FormatText.h"

// The name of the event behind a SignalledObject. Pure; no platform header.
namespace zrk {
namespace detail {

// "Local\zrk.core.signalled.object." followed by `address` (the object's heap
// record) as 16 lower-case hexadecimal digits, upper half first: 48
// characters, unique among the live objects of one process.
inline std::string SignalledObjectName(std::uint64_t address) {
    return FormatText<char>("Local\\zrk.core.signalled.object.%08x%08x",
                            static_cast<unsigned int>(address >> 32),
                            static_cast<unsigned int>(address & 0xFFFFFFFFu));
}

}  // namespace detail
}  // namespace zrk
