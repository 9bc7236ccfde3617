#pragma once

// The steps of a random token that need no platform: drawing its symbols
// from a source of 32-bit values, and the generator seeded from one value.
// Pure; no platform header.

#include <cstdint>
#include <random>
#include <stdexcept>
#include <string>

namespace zrk {
namespace detail {

// The 62 symbols, digits then upper- then lower-case Latin letters, in
// either width.
template <class Ch>
struct TokenSymbols;
template <>
struct TokenSymbols<char> {
    static constexpr const char* table =
        "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
};
template <>
struct TokenSymbols<wchar_t> {
    static constexpr const wchar_t* table =
        L"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
};

// `length` symbols from `draw`, which gives 32-bit values: a value of
// 4294967292 (the largest multiple of 62 below 2^32) or more is dropped, so
// that no symbol is favoured, and the rest pick symbol value % 62. A length
// the string cannot hold throws std::length_error("string too long") before
// anything is drawn; the result is allocated once.
template <class Ch, class Draw>
std::basic_string<Ch> DrawToken(unsigned long long length, Draw draw) {
    std::basic_string<Ch> token;
    if (length > token.max_size()) {
        throw std::length_error("string too long");
    }
    token.reserve(static_cast<std::size_t>(length));
    while (token.size() < length) {
        const std::uint32_t value = draw();
        if (value < 4294967292u) {
            token += TokenSymbols<Ch>::table[value % 62];
        }
    }
    return token;
}

// A token from MT19937 seeded with `seed` by the standard recurrence
// (std::mt19937's seeding), its outputs drawn in order.
template <class Ch>
std::basic_string<Ch> TokenFromSeed(std::uint32_t seed, unsigned long long length) {
    std::mt19937 generator(seed);
    return DrawToken<Ch>(length, [&generator] { return static_cast<std::uint32_t>(generator()); });
}

}  // namespace detail
}  // namespace zrk
