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

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace zrk {
namespace detail {

// ASCII text is by far the most common input, so both conversions move runs
// of it a block at a time: a block whose units are all below 0x80 is copied
// unit for unit in one fixed-length loop that the compiler turns into vector
// code. After a block that holds any other unit, and for the short tail, a
// block's length of text goes through the unit-by-unit steps before blocks
// are tried again, so the results are those of the plain steps alone and
// mixed text pays at most one failed try per block.
constexpr std::size_t kAsciiBlock = 16;

// Copies the whole ASCII blocks at the start of [in, in + size) to out, each
// source unit narrowed or widened to the destination type; returns how many
// units it copied (a multiple of kAsciiBlock, 0 if the first block holds a
// unit at or above 0x80).
template <class Unit, class Out>
std::size_t CopyAsciiBlocks(const Unit* in, std::size_t size, Out* out) {
    using Code = std::make_unsigned_t<Unit>;
    std::size_t done = 0;
    for (; size - done >= kAsciiBlock; done += kAsciiBlock) {
        // Worked on in local arrays: stores through out could otherwise
        // alias in (char aliases everything), which keeps the compiler from
        // vectorising.
        Code block[kAsciiBlock];
        std::memcpy(block, in + done, sizeof block);
        Code any = 0;
        for (const Code unit : block) {
            any |= unit;
        }
        if ((any & ~static_cast<Code>(0x7F)) != 0) {
            break;
        }
        Out converted[kAsciiBlock];
        for (std::size_t k = 0; k < kAsciiBlock; ++k) {
            converted[k] = static_cast<Out>(block[k]);
        }
        std::memcpy(out + done, converted, sizeof converted);
    }
    return done;
}

// Units counted per 32-bit sum: at most two extra bytes each.
constexpr std::size_t kCountStretch = std::size_t{1} << 30;

inline std::string WideToUtf8(std::wstring text) {
    // Each unit takes one, two or three bytes; count them first so the result
    // is allocated once and written through a pointer.
    // The extra bytes are summed in 32 bits a stretch at a time, which the
    // compiler vectorises far better than a 64-bit sum.
    std::size_t bytes = text.size();
    for (std::size_t start = 0; start < text.size(); start += kCountStretch) {
        const std::size_t stop = std::min(text.size(), start + kCountStretch);
        std::uint32_t extra = 0;
        for (std::size_t at = start; at < stop; ++at) {
            const std::uint32_t u = static_cast<std::uint16_t>(text[at]);
            extra += (u >= 0x80) + (u >= 0x800);
        }
        bytes += extra;
    }
    std::string narrow(bytes, '\0');
    char* out = &narrow[0];
    const wchar_t* const in = text.data();
    const std::size_t size = text.size();
    std::size_t at = 0;
    while (at < size) {
        const std::size_t copied = CopyAsciiBlocks(in + at, size - at, out);
        at += copied, out += copied;
        for (const std::size_t stop = std::min(size, at + kAsciiBlock); at < stop;) {
            const std::uint32_t u = static_cast<std::uint16_t>(in[at++]);
            if (u < 0x80) {
                *out++ = static_cast<char>(u);
                continue;
            }
            if (u < 0x800) {
                *out++ = static_cast<char>(0xC0 | (u >> 6));
            } else {
                *out++ = static_cast<char>(0xE0 | (u >> 12));
                *out++ = static_cast<char>(0x80 | ((u >> 6) & 0x3F));
            }
            *out++ = static_cast<char>(0x80 | (u & 0x3F));
        }
    }
    return narrow;
}

// Decodes the sequence at the start of [in, in + size), size > 0: stores its
// unit and returns its length in bytes. A bad sequence throws range_error.
inline std::size_t DecodeSequence(const char* in, std::size_t size, wchar_t* unit) {
    const auto fail = [] { throw std::range_error("bad conversion"); };
    const std::uint32_t lead = static_cast<unsigned char>(in[0]);
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
    if (following > size - 1) {
        fail();  // the text ends inside the sequence
    }
    for (std::size_t k = 1; k <= following; ++k) {
        const std::uint32_t next = static_cast<unsigned char>(in[k]);
        if ((next & 0xC0) != 0x80) {
            fail();
        }
        value = (value << 6) | (next & 0x3F);  // at most 2 + 5 * 6 = 32 bits
    }
    if (value > 0x10FFFF) {
        fail();
    }
    *unit = static_cast<wchar_t>(value & 0xFFFF);
    return 1 + following;
}

inline std::wstring Utf8ToWide(std::string text) {
    // No sequence gives more than one unit, so the text's length bounds the
    // result; it is cut to the units written at the end.
    std::wstring wide(text.size(), L'\0');
    wchar_t* const out = &wide[0];
    const char* const in = text.data();
    const std::size_t size = text.size();
    std::size_t at = 0;
    std::size_t written = 0;
    while (at < size) {
        const std::size_t copied = CopyAsciiBlocks(in + at, size - at, out + written);
        at += copied, written += copied;
        for (const std::size_t stop = std::min(size, at + kAsciiBlock); at < stop;) {
            at += DecodeSequence(in + at, size - at, out + written++);
        }
    }
    wide.resize(written);
    return wide;
}

}  // namespace detail
}  // namespace zrk
