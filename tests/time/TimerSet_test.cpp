#include <windows.h>

#include <gtest/gtest.h>

#include <utility>

#include "support/ImportPatch.h"
#include "zrkCore.h"

namespace {

// The counter, redirected: each reading 10 ticks after the one before.
LONGLONG g_now = 0;
BOOL WINAPI Stepping(LARGE_INTEGER* counter) { return counter->QuadPart = g_now += 10, TRUE; }

TEST(TimerSetTest, BooksFromTheOneStartMarkAndMovesLeaveTheTotal) {
    ImportPatch counter(CoreModule(), "KERNEL32.dll", "QueryPerformanceCounter", (void*)&Stepping);
    TimerSet set;
    EXPECT_TRUE(set.GetTimers().empty() && set.GetTotalTicks() == 0);
    set.StartTimer(), set.StartTimer();  // 10, then 20: the later mark holds
    set.StopTimer("a"), set.StopTimer("");  // 30 and 40: 10, then 20 from one mark
    set.StartTimer(), set.StopTimer("a");   // 50 to 60
    const auto& timers = set.GetTimers();
    EXPECT_TRUE(timers.at("a").ticks == 20 && timers.at("a").count == 2 &&
                timers.at("").ticks == 20 && timers.count("A") == 0 && set.GetTotalTicks() == 40);
    TimerSet moved(std::move(set));  // the source keeps its mark and total, not its entries
    EXPECT_TRUE(set.GetTimers().empty() && set.GetTotalTicks() == 40);
    set = std::move(moved);
    set = set;
    EXPECT_TRUE(moved.GetTimers().empty() && moved.GetTotalTicks() == 40 &&
                timers.at("a").count == 2 && set.GetTotalTicks() == 40);
}

}  // namespace
