// The UTC text parser: any text is taken or refused without reading out of
// bounds, and a taken one has its six fields in the digits it was given.
#include <ctime>

#include "Fuzz.h"
#include "time/CalendarText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::tm f = {};
    if (zrk::detail::ParseUtcText(InputText(data, size), &f)) {
        Require(f.tm_year >= -1900 && f.tm_year <= 9999 - 1900 && f.tm_mon >= -1 &&
                f.tm_mon <= 98 && f.tm_mday >= 0 && f.tm_mday <= 99 && f.tm_hour <= 99 &&
                f.tm_min <= 99 && f.tm_sec <= 99);
    }
    return 0;
}
