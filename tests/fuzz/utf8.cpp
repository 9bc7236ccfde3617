// UTF-8 to UTF-16 and back: any bytes decode, or are refused, exactly as a
// plain reference decoder says; any 16-bit text encodes and decodes back.
#include <stdexcept>

#include "Fuzz.h"
#include "text/Utf8.h"

namespace {

// The decoding rules written out simply: false where the library must throw.
bool Reference(const std::uint8_t* data, std::size_t size, std::wstring* wide) {
    for (std::size_t at = 0, length = 1; at < size; at += length) {
        int ones = 0;
        while (ones < 6 && (data[at] & (0x80u >> ones)) != 0) {
            ++ones;
        }
        length = ones == 0 ? 1 : static_cast<std::size_t>(ones);
        std::uint64_t value = ones == 0 ? data[at] : data[at] & (ones >= 5 ? 0x03u : 0x7Fu >> ones);
        if (ones == 1 || length > size - at) {
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
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::wstring expected;
    const bool valid = Reference(data, size, &expected);
    try {
        const std::wstring wide = zrk::detail::Utf8ToWide(InputText(data, size));
        Require(valid && wide == expected);
    } catch (const std::range_error&) {
        Require(!valid);
    }
    std::wstring units;
    for (std::size_t index = 0; index + 1 < size; index += 2) {
        units += static_cast<wchar_t>(data[index] | data[index + 1] << 8);
    }
    Require(zrk::detail::Utf8ToWide(zrk::detail::WideToUtf8(units)) == units);
    return 0;
}
