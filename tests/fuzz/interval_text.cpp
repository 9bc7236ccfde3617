// Interval components and texts: any second count splits into components
// that join back to it and prints in both forms.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "time/IntervalText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    long long seconds = 0;
    std::memcpy(&seconds, data, size < sizeof seconds ? size : sizeof seconds);
    long long years, weeks, days, hours, minutes, rest;
    const bool negative =
        zrk::detail::SplitInterval(seconds, &years, &weeks, &days, &hours, &minutes, &rest);
    if (seconds != static_cast<long long>(0x8000000000000000ull)) {
        const long long magnitude =
            zrk::detail::JoinInterval(years, weeks, days, hours, minutes, rest);
        if ((negative ? -magnitude : magnitude) != seconds) {
            __builtin_trap();
        }
    }
    zrk::detail::PlainIntervalText<char>(seconds);
    zrk::detail::PrettyIntervalText<wchar_t>(negative, years, weeks, days, hours, minutes, rest);
    return 0;
}
