#pragma once

// The performance clock's conversions for a given frequency (ticks per
// second), every step in single precision in the order written, with no
// rounding to nearest at the end. Pure; no platform header.

namespace zrk {
namespace detail {

inline float TicksToSeconds(unsigned long long ticks, unsigned long long frequency) {
    return static_cast<float>(ticks) / static_cast<float>(frequency);
}

inline float TicksToMilliseconds(unsigned long long ticks, unsigned long long frequency) {
    return (static_cast<float>(ticks) / static_cast<float>(frequency)) * 1000.0f;
}

// Truncated toward zero. A product that is negative, not a number or 2^64
// and beyond has no tick count; it gives 0.
inline unsigned long long TruncatedTicks(float product) {
    return product >= 0.0f && product < 18446744073709551616.0f
               ? static_cast<unsigned long long>(product)
               : 0;
}

inline unsigned long long SecondsToTicksAt(float seconds, unsigned long long frequency) {
    return TruncatedTicks(static_cast<float>(frequency) * seconds);
}

// The frequency is scaled first, by 0.001 as the nearest float, then the
// argument.
inline unsigned long long MillisecondsToTicksAt(float milliseconds, unsigned long long frequency) {
    return TruncatedTicks((static_cast<float>(frequency) * 0.001f) * milliseconds);
}

}  // namespace detail
}  // namespace zrk
