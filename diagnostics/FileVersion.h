#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <optional>

// Reading a file version out of the fixed block of a version resource. Pure;
// no platform header.
namespace zrk {
namespace detail {

// The value that opens every genuine fixed block.
constexpr std::uint32_t kFixedBlockSignature = 0xFEEF04BD;

// The four numbers major.minor.build.revision of the fixed block of `length`
// bytes at `block`, as the platform lays it out: 32-bit words holding the
// signature, the structure version, then the file version's upper and lower
// halves, each half a high and a low 16-bit number. None for an empty block
// (which is not read) or one that opens with another value.
inline std::optional<std::array<std::uint16_t, 4>> FileVersionNumbers(const void* block,
                                                                      unsigned int length) {
    if (length == 0) {
        return std::nullopt;
    }
    std::uint32_t words[4];
    std::memcpy(words, block, sizeof words);
    if (words[0] != kFixedBlockSignature) {
        return std::nullopt;
    }
    return std::array<std::uint16_t, 4>{
        static_cast<std::uint16_t>(words[2] >> 16), static_cast<std::uint16_t>(words[2] & 0xFFFF),
        static_cast<std::uint16_t>(words[3] >> 16), static_cast<std::uint16_t>(words[3] & 0xFFFF)};
}

}  // namespace detail
}  // namespace zrk
