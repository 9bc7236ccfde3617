#pragma once

// The library's own conversions between wide text (16-bit UTF-16 code units)
// and narrow UTF-8 text. They work unit by unit, without the platform's code
// pages, and differ from a strict UTF-8 codec on purpose:
//
//  - WideToUtf8 encodes every unit alone. A surrogate pair therefore becomes
//    two three-byte groups (six bytes, where a strict encoder writes four),
//    and a lone surrogate passes as a three-byte group. It has no failing
//    input.
//  - Utf8ToWide reads sequences of one to six bytes, accepts overlong forms
//    and values in the surrogate range, and keeps only the low 16 bits of a
//    value above 0xFFFF (no surrogate pair is made). It rejects a stray
//    continuation byte, a lead byte followed by a byte outside 0x80..0xBF, a
//    text that ends inside a sequence, and a value above 0x10FFFF, by
//    throwing std::range_error("bad conversion"); nothing partial comes back.
//
// Both run on counted text: zero units inside convert like any other, and no
// byte order mark is written, read or skipped. Each unit is read as its low
// 16 bits, which on Windows is the whole wchar_t (where wchar_t is wider, as
// in a native Linux build, the upper bits are ignored).
//
// Internal to the library (not exported). Pure functions over their
// arguments, safe on any thread.

#include <cstdint>
#include <stdexcept>
#include <string>

namespace zrk {
namespace detail {

inline std::string WideToUtf8(std::wstring text) {
    std::string narrow;
    narrow.reserve(text.size());
    for (wchar_t unit : text) {
        const std::uint32_t u = static_cast<std::uint16_t>(unit);
        if (u < 0x80) {
            narrow += static_cast<char>(u);
        } else if (u < 0x800) {
            narrow += static_cast<char>(0xC0 | (u >> 6));
            narrow += static_cast<char>(0x80 | (u & 0x3F));
        } else {
            narrow += static_cast<char>(0xE0 | (u >> 12));
            narrow += static_cast<char>(0x80 | ((u >> 6) & 0x3F));
            narrow += static_cast<char>(0x80 | (u & 0x3F));
        }
    }
    return narrow;
}

inline std::wstring Utf8ToWide(std::string text) {
    const auto fail = [] { throw std::range_error("bad conversion"); };
    std::wstring wide;
    wide.reserve(text.size());
    std::size_t at = 0;
    while (at < text.size()) {
        const std::uint32_t lead = static_cast<unsigned char>(text[at]);
        // How many bytes follow the lead byte, and its payload bits.
        std::size_t following = 0;
        std::uint32_t value = lead;
        if (lead < 0x80) {
            following = 0;
        } else if (lead < 0xC0) {
            fail();
        } else if (lead < 0xE0) {
            following = 1;
            value = lead & 0x1F;
        } else if (lead < 0xF0) {
            following = 2;
            value = lead & 0x0F;
        } else if (lead < 0xF8) {
            following = 3;
            value = lead & 0x07;
        } else if (lead < 0xFC) {
            following = 4;
            value = lead & 0x03;
        } else {
            following = 5;
            value = lead & 0x03;
        }
        if (following > text.size() - at - 1) {
            fail();  // the text ends inside the sequence
        }
        for (std::size_t k = 1; k <= following; ++k) {
            const std::uint32_t next = static_cast<unsigned char>(text[at + k]);
            if ((next & 0xC0) != 0x80) {
                fail();
            }
            value = (value << 6) | (next & 0x3F);  // at most 2 + 5 * 6 = 32 bits
        }
        if (value > 0x10FFFF) {
            fail();
        }
        wide += static_cast<wchar_t>(value & 0xFFFF);
        at += 1 + following;
    }
    return wide;
}

}  // namespace detail
}  // namespace zrk
