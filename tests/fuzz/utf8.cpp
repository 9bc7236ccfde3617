// UTF-8 to UTF-16 and back. Any bytes decode exactly as a plain one-sequence-
// at-a-time reference decodes them, or are refused with the library's
// range_error as the reference refuses them, without reading out of bounds;
// any 16-bit text, lone surrogates included, encodes and decodes back to
// itself.
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "text/Utf8.h"

namespace {

// The decoding rules written out simply: false where the library must throw.
bool Reference(const std::uint8_t* data, std::size_t size, std::wstring* wide) {
    for (std::size_t at = 0; at < size;) {
        const unsigned lead = data[at];
        int ones = 0;
        while (ones < 6 && (lead & (0x80u >> ones)) != 0) {
            ++ones;
        }
        if (ones == 1) {
            return false;
        }
        const std::size_t length = ones == 0 ? 1 : static_cast<std::size_t>(ones);
        std::uint64_t value = ones == 0 ? lead : lead & (ones >= 5 ? 0x03u : 0x7Fu >> ones);
        if (length > size - at) {
            return false;
        }
        for (std::size_t k = 1; k < length; ++k) {
            if ((data[at + k] & 0xC0) != 0x80) {
                return false;
            }
            value = value << 6 | (data[at + k] & 0x3F);
        }
        if (value > 0x10FFFF) {
            return false;
        }
        *wide += static_cast<wchar_t>(value & 0xFFFF);
        at += length;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::wstring expected;
    const bool valid = Reference(data, size, &expected);
    try {
        const std::wstring wide =
            zrk::detail::Utf8ToWide(std::string(reinterpret_cast<const char*>(data), size));
        if (!valid || wide != expected) {
            __builtin_trap();
        }
    } catch (const std::range_error&) {
        if (valid) {
            __builtin_trap();
        }
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
