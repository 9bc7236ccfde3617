#include "time/ClockMath.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace zrk::detail;

// Frequency first, 0.001 as a float: other orders, or double precision, give
// 9999001, 332999 and 31920002.
TEST(ClockMathTest, EachStepInSinglePrecisionInTheOrderGiven) {
    const struct { unsigned long long frequency; float milliseconds; unsigned long long ticks; }
        rows[] = {{10000000, 1.0f, 10000}, {10000000, 999.9f, 9999000}, {10000000, 33.3f, 333000},
                  {2400000000, 13.3f, 31920000}};
    for (const auto& row : rows) {
        EXPECT_EQ(MillisecondsToTicksAt(row.milliseconds, row.frequency), row.ticks);
    }
    EXPECT_TRUE(TicksToSeconds(33554435, 16777217) > 2.0f &&  // 2.0f when divided in double
                TicksToSeconds(3579545, 3579545) == 1.0f &&
                TicksToMilliseconds(3579545, 3579545) == 1000.0f);
    EXPECT_TRUE(SecondsToTicksAt(-1.0f, 10) == 0 && SecondsToTicksAt(NAN, 10) == 0 &&
                SecondsToTicksAt(1e30f, 10) == 0 && MillisecondsToTicksAt(-1.0f, 10) == 0);
}

}  // namespace
