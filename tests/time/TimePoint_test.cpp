#include <gmock/gmock.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

#include "zrkCore.h"

namespace {

TEST(TimePointTest, EpochNowShiftsAndPrints) {
    TimePoint epoch = TimePoint::Epoch();
    EXPECT_TRUE(epoch.Year() == 1970 && epoch.Month() == 1 && epoch.Day() == 1 &&
                epoch.DayOfWeek() == 4 && epoch.Hour() + epoch.Minute() + epoch.Second() == 0);
    EXPECT_EQ(epoch.ToStringA(true), "1970-01-01 00:00:00");
    EXPECT_EQ(epoch.ToStringW(false), L"1970-01-01 00:00:00 UTC");
    const long long before = _time64(nullptr);
    TimeInterval sinceEpoch = TimePoint::Now() - epoch;
    EXPECT_TRUE(TimeInterval::FromSeconds(before) <= sinceEpoch &&
                sinceEpoch <= TimeInterval::FromSeconds(_time64(nullptr)));
    TimePoint next = epoch + TimeInterval::FromDays(1) - TimeInterval::FromSeconds(1);
    EXPECT_EQ(next.ToStringA(false), "1970-01-01 23:59:59 UTC");
    EXPECT_TRUE((next - epoch) == TimeInterval::FromSeconds(86399) &&
                (epoch - next) == TimeInterval::FromSeconds(-86399));
    TimePoint yielded = (epoch += TimeInterval::FromDays(365));
    EXPECT_EQ(yielded.ToStringA(true), "1971-01-01 00:00:00");
    yielded -= TimeInterval::FromDays(400);  // a copy: epoch stays
    EXPECT_EQ((epoch -= TimeInterval::FromSeconds(1)).ToStringA(false), "1970-12-31 23:59:59 UTC");
    EXPECT_TRUE(yielded < epoch && yielded <= epoch && epoch > yielded && epoch != yielded);
}

TEST(TimePointTest, LocalFieldsFollowTheZoneInForceWhenLastSet) {
    // The runtime takes its zone from TZ in its own form; without TZ, the system's.
    _putenv("TZ=JST-9"), _tzset();
    TimePoint point = TimePoint::Epoch() + TimeInterval::FromHours(15);
    EXPECT_EQ(point.ToLocalStringA(), "1970-01-02 00:00:00");
    EXPECT_TRUE(point.LocalYear() == 1970 && point.LocalMonth() == 1 && point.LocalDay() == 2 &&
                point.LocalDayOfWeek() == 5 && point.DayOfWeek() == 4 &&
                point.LocalHour() + point.LocalMinute() + point.LocalSecond() == 0);
    _putenv("TZ=IST-5:30"), _tzset();
    TimePoint copy(point), assigned = TimePoint::Now();
    assigned = point;  // works the fields out anew; the copy keeps them
    EXPECT_EQ(copy.ToLocalStringW(), L"1970-01-02 00:00:00");
    EXPECT_EQ(assigned.ToLocalStringW(), L"1970-01-01 20:30:00");
    EXPECT_TRUE(copy == assigned && TimePoint::UTCString("1970-01-01 15:00:00 UTC") == point);
    _putenv("TZ="), _tzset();
}

TEST(TimePointTest, ParsesItsOwnUtcTextAndLeavesRangesToTheRuntime) {
    EXPECT_TRUE(TimePoint::UTCString("2024/01.02 03:04:05 UTC") ==
                TimePoint::UTCString(L"2024-01-02 03:04:05 UTC"));
    EXPECT_EQ(TimePoint::UTCString("2024-13-45 03:04:05 UTC").ToStringA(false),
              "2025-02-14 03:04:05 UTC");
    EXPECT_EQ(TimePoint::UTCString("1960-01-01 00:00:00 UTC").Year(), 1899);  // -1: no fields
    std::srand(7);
    for (int i = 0; i < 3000; ++i) {  // before the year 3000, the runtime's limit
        const TimePoint point = TimePoint::Epoch() + TimeInterval::FromSeconds(
            ((static_cast<long long>(std::rand()) << 20) + std::rand()) % 32503680000);
        const std::string text = point.ToStringA(false);
        EXPECT_TRUE(TimePoint::UTCString(text) == point) << text;
    }
    // A text that is no time: narrow, and wide with U+0130 for a "0" (its low byte).
    const auto message = testing::ThrowsMessage<std::runtime_error>(
        testing::StrEq("time string expected in format: YYYY-MM-DD HH:MM:SS UTC"));
    EXPECT_THAT([] { TimePoint::UTCString(""); }, message);
    EXPECT_THAT([] { TimePoint::UTCString(L"1970-01-01 00:00:0\x0130 UTC"); }, message);
}

}  // namespace
