// UTF-8 to UTF-16 and back. Any bytes decode or are refused with the
// library's range_error, without reading out of bounds; any 16-bit text,
// lone surrogates included, encodes and decodes back to itself.
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "text/Utf8.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        zrk::detail::Utf8ToWide(std::string(reinterpret_cast<const char*>(data), size));
    } catch (const std::range_error&) {
        // refused as a whole: the documented answer to bad UTF-8
    }
    std::wstring units;
    for (std::size_t index = 0; index + 1 < size; index += 2) {
        units += static_cast<wchar_t>(data[index] | data[index + 1] << 8);
    }
    if (zrk::detail::Utf8ToWide(zrk::detail::WideToUtf8(units)) != units) {
        __builtin_trap();
    }
    return 0;
}
