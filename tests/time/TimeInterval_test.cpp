#include <gtest/gtest.h>

#include "zrkCore.h"

namespace {

TimeInterval Seconds(long long n) { return TimeInterval::FromSeconds(n); }

TEST(TimeIntervalTest, UnitsAndOperators) {
    TimeInterval t = TimeInterval::FromYears(1);
    t.AddWeeks(1), t.AddDays(1), t.AddHours(1), t.AddMinutes(1), t.AddSeconds(1);
    EXPECT_TRUE(t.ToPrettyStringW() == L"1y 1w 1d 1h 1m 1s" && t.ToStringW() == L"32230861 s");
    EXPECT_TRUE((-t).ToPrettyStringA() == "-1y 1w 1d 1h 1m 1s" &&
                (-t).ToStringA() == "-32230861 s");
    t.SubtractYears(1), t.SubtractWeeks(1), t.SubtractDays(1), t.SubtractHours(1);
    t.SubtractMinutes(2), t.SubtractSeconds(1);
    EXPECT_TRUE(t == Seconds(-60) && TimeInterval::FromWeeks(1) == TimeInterval::FromDays(7) &&
                TimeInterval::CreateFrom(1, -1, 0, 0, 0, 0) == Seconds(30931200));
    TimeInterval seven = Seconds(7), one = Seconds(1), minus = -one;
    EXPECT_TRUE(seven / 2 == Seconds(3) && (-seven) / 2 == Seconds(-3) &&
                seven * 3 - seven == Seconds(14) && +seven == Seconds(7) && seven == Seconds(7));
    TimeInterval& same = (((seven *= 4) /= 3) += one) -= Seconds(2);  // 28 / 3 + 1 - 2
    EXPECT_TRUE(&same == &seven && &(seven = same) == &seven && seven == Seconds(8));
    EXPECT_TRUE(minus < one && minus <= one && one > minus && one >= minus && minus != one);
    EXPECT_FALSE(one < minus || one <= minus || minus > one || minus >= one || one != one);
}

}  // namespace
