// The UTC text parser: any text is taken or refused without reading out of
// bounds, and a taken one has its six fields in the digits it was given.
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string>

#include "time/CalendarText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::tm fields = {};
    if (zrk::detail::ParseUtcText(std::string(reinterpret_cast<const char*>(data), size),
                                  &fields)) {
        const bool inDigits = fields.tm_year >= -1900 && fields.tm_year <= 9999 - 1900 &&
                              fields.tm_mon >= -1 && fields.tm_mon <= 98 &&
                              fields.tm_mday >= 0 && fields.tm_mday <= 99 &&
                              fields.tm_hour <= 99 && fields.tm_min <= 99 && fields.tm_sec <= 99;
        if (!inDigits) {
            __builtin_trap();
        }
    }
    return 0;
}
