#include "time/IntervalText.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

using namespace zrk::detail;

TEST(IntervalTextTest, PrintsBothFormsWithOneSignInFront) {
    const struct { long long seconds; std::string plain, pretty; } rows[] = {
        {0, "0 s", "0y 0w 0d 0h 0m 0s"},         {90, "90 s", "0y 0w 0d 0h 1m 30s"},
        {-90, "-90 s", "-0y 0w 0d 0h 1m 30s"},   {32230861, "32230861 s", "1y 1w 1d 1h 1m 1s"},
        {604799, "604799 s", "0y 0w 6d 23h 59m 59s"}, {604800, "604800 s", "0y 1w 0d 0h 0m 0s"},
        {31535999, "31535999 s", "0y 52w 0d 23h 59m 59s"},
        {31536000, "31536000 s", "1y 0w 0d 0h 0m 0s"},
        {-31622400, "-31622400 s", "-1y 0w 1d 0h 0m 0s"},
        {LLONG_MAX, "9223372036854775807 s", "292471208677y 27w 6d 15h 30m 7s"},
        {LLONG_MIN, "-9223372036854775808 s", "-292471208677y 27w 6d 15h 30m 8s"}};
    for (const auto& row : rows) {
        long long p[6];
        const bool minus = SplitInterval(row.seconds, &p[0], &p[1], &p[2], &p[3], &p[4], &p[5]);
        EXPECT_EQ(PrettyIntervalText<char>(minus, p[0], p[1], p[2], p[3], p[4], p[5]), row.pretty);
        EXPECT_EQ(PlainIntervalText<char>(row.seconds), row.plain);
    }
}

}  // namespace
