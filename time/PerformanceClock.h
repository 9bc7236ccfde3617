#pragma once

#include "frame/Export.h"

// The platform's high-resolution counter: a reading in ticks, the ticks in a
// second, and conversions between ticks and seconds or milliseconds in
// single precision (a float holds 24 significant bits, so large tick counts
// lose their low bits). For measuring how long something took; calendar time
// is TimePoint's.
//
// The frequency is read by the StaticInit that takes the count of users from
// 0 to 1 and kept until that happens again; StaticShutdown only counts down
// (below zero too). Until the first StaticInit the frequency is 0: the tick
// conversions then give 0 and the time conversions an infinity or a NaN.
// A conversion to ticks whose product is negative, not a number or 2^64 and
// beyond gives 0.
//
// Threads: the count changes atomically, from any thread. The frequency is
// written without a guard, so finish the first StaticInit before other
// threads convert. GetPerformanceTime needs no StaticInit.
class ZRK_API Time {
public:
    static void StaticInit();
    static void StaticShutdown();

    // The counter now; 0 if the platform's query fails.
    static unsigned long long GetPerformanceTime();
    // Ticks per second, as read when the count of users last went from 0 to 1.
    static unsigned long long GetFrequency();

    static float PerformanceTimeToSeconds(unsigned long long ticks);
    static float PerformanceTimeToMilliSeconds(unsigned long long ticks);
    static unsigned long long SecondsToTicks(float seconds);
    // Spelled so (no "s" after "Milli"): the name callers link against.
    static unsigned long long MilliecondsToTicks(float milliseconds);

    // No state in the objects: assignment does nothing.
    Time& operator=(const Time& other);
    Time& operator=(Time&& other);

private:
    static long s_initialised;
    static unsigned long long s_frequency;
};
