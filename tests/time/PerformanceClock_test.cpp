#include <windows.h>

#include <gtest/gtest.h>

#include "support/ImportPatch.h"
#include "zrkCore.h"

namespace {

// The counter imports of zrkCore.dll, redirected: a frequency of 3579545 that
// counts its reads, and a counter that fails.
int g_frequencyReads = 0;
BOOL WINAPI FixedFrequency(LARGE_INTEGER* frequency) {
    return ++g_frequencyReads, frequency->QuadPart = 3579545, TRUE;
}
BOOL WINAPI FailingCounter(LARGE_INTEGER* counter) { return counter->QuadPart = 42, FALSE; }

TEST(PerformanceClockTest, ReadsTheFrequencyAtTheFirstInitAndConvertsInSinglePrecision) {
    const unsigned long long start = Time::GetPerformanceTime();  // no init needed
    ImportPatch frequency(CoreModule(), "KERNEL32.dll", "QueryPerformanceFrequency",
                          (void*)&FixedFrequency);
    Time::StaticInit(), Time::StaticInit(), Time::StaticShutdown(), Time::StaticShutdown();
    EXPECT_TRUE(g_frequencyReads == 1 && Time::GetFrequency() == 3579545);  // kept
    Time::StaticInit();  // from 0 to 1 again: read again
    EXPECT_EQ(g_frequencyReads, 2);
    EXPECT_EQ(Time::PerformanceTimeToSeconds(1789773), 1789773.0f / 3579545.0f);
    EXPECT_EQ(Time::PerformanceTimeToMilliSeconds(1789773), 1789773.0f / 3579545.0f * 1000.0f);
    EXPECT_EQ(Time::SecondsToTicks(2.7f), static_cast<unsigned long long>(3579545.0f * 2.7f));
    EXPECT_EQ(Time::MilliecondsToTicks(7.3f),
              static_cast<unsigned long long>(3579545.0f * 0.001f * 7.3f));
    Time::StaticShutdown();
    Sleep(1);
    EXPECT_GT(Time::GetPerformanceTime(), start);
    ImportPatch counter(CoreModule(), "KERNEL32.dll", "QueryPerformanceCounter",
                        (void*)&FailingCounter);
    EXPECT_EQ(Time::GetPerformanceTime(), 0u);
}

}  // namespace
