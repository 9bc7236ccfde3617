#include "time/CalendarText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using zrk::detail::ParseUtcText;

TEST(CalendarTextTest, AcceptsEachSeparatorPairAndDigitsUntested) {
    for (const std::string pair : {"--", "-/", "-.", "/-", "//", "/.", ".-", "./", ".."}) {
        std::tm fields = {};
        ASSERT_TRUE(ParseUtcText("2024" + pair.substr(0, 1) + "13" + pair[1] + "45 23:59:60 UTC",
                                 &fields));
        EXPECT_TRUE(fields.tm_year == 124 && fields.tm_mon == 12 && fields.tm_mday == 45 &&
                    fields.tm_hour == 23 && fields.tm_min == 59 && fields.tm_sec == 60 &&
                    fields.tm_isdst == -1);
    }
}

TEST(CalendarTextTest, RejectsAnyOtherShapeAndLeavesTheFields) {
    const std::string bad[] = {
        "", "2024-01-02 03:04:05", "2024-01-02 03:04:05 utc", " 2024-01-02 03:04:05 UTC",
        "2024-01-02 03:04:05 UTC ", "2024-1-2 03:04:05 UTC", "2024-01-02  03:04:05 UTC",
        "2024-01-02T03:04:05 UTC", "2024_01-02 03:04:05 UTC", "2024-01-02 03.04.05 UTC",
        "20240-01-02 03:04:05 UTC", "2024-01-02 03:04:05 UTC\n", "2024-01-02 03:04:\xD9\xA5 UTC",
        std::string("2024-01-02 03:04:05 UTC\0", 24)};
    for (const std::string& text : bad) {
        std::tm fields = {};
        EXPECT_FALSE(ParseUtcText(text, &fields)) << text;
        EXPECT_EQ(fields.tm_year + fields.tm_mon + fields.tm_isdst, 0) << text;
    }
}

}  // namespace
