// Interval components and texts: any second count splits into components
// within their units that join back to it, and prints in both forms.
#include <cstring>

#include "Fuzz.h"
#include "time/IntervalText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    long long seconds = 0;
    std::memcpy(&seconds, data, size < sizeof seconds ? size : sizeof seconds);
    long long c[6];
    const bool negative =
        zrk::detail::SplitInterval(seconds, &c[0], &c[1], &c[2], &c[3], &c[4], &c[5]);
    Require(negative == (seconds < 0) && c[1] < 53 && c[2] < 7 && c[3] < 24 && c[4] < 60 &&
            c[5] < 60);
    if (seconds != static_cast<long long>(0x8000000000000000ull)) {  // no positive twin
        const long long magnitude = zrk::detail::JoinInterval(c[0], c[1], c[2], c[3], c[4], c[5]);
        Require((negative ? -magnitude : magnitude) == seconds);
    }
    zrk::detail::PlainIntervalText<char>(seconds);
    zrk::detail::PrettyIntervalText<wchar_t>(negative, c[0], c[1], c[2], c[3], c[4], c[5]);
    return 0;
}
