#pragma once

// The text of a registry value as the platform delivered it into a buffer.
// Pure logic over either character width; nothing here calls the platform.

#include <cstddef>
#include <string>

namespace zrk {
namespace detail {

// The text that starts at `data` and ends at its first zero unit, and no
// further than the `deliveredBytes` the platform reported: a value stored
// without a terminator, or of a type other than a string, ends with its data.
// The size is counted in bytes and taken in whole units of the width, so a
// trailing odd byte of a wide value is not part of the text. Nothing at or
// past data + deliveredBytes / sizeof(Ch) is read.
template <class Ch>
std::basic_string<Ch> RegistryValueText(const Ch* data, std::size_t deliveredBytes) {
    const std::size_t delivered = deliveredBytes / sizeof(Ch);
    std::size_t length = 0;
    while (length < delivered && data[length] != Ch()) {
        ++length;
    }
    return std::basic_string<Ch>(data, length);
}

}  // namespace detail
}  // namespace zrk
