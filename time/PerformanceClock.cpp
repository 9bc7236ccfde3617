#include "time/PerformanceClock.h"

#include <windows.h>

#include "time/ClockMath.h"

void Time::StaticInit() {
    if (InterlockedIncrement(&s_initialised) == 1) {
        LARGE_INTEGER frequency;
        if (QueryPerformanceFrequency(&frequency) == 1) {  // otherwise the frequency stays
            s_frequency = static_cast<unsigned long long>(frequency.QuadPart);
        }
    }
}

void Time::StaticShutdown() { InterlockedDecrement(&s_initialised); }

unsigned long long Time::GetPerformanceTime() {
    LARGE_INTEGER counter;
    if (QueryPerformanceCounter(&counter) != 1) {
        return 0;
    }
    return static_cast<unsigned long long>(counter.QuadPart);
}

unsigned long long Time::GetFrequency() { return s_frequency; }

float Time::PerformanceTimeToSeconds(unsigned long long ticks) {
    return zrk::detail::TicksToSeconds(ticks, s_frequency);
}

float Time::PerformanceTimeToMilliSeconds(unsigned long long ticks) {
    return zrk::detail::TicksToMilliseconds(ticks, s_frequency);
}

unsigned long long Time::SecondsToTicks(float seconds) {
    return zrk::detail::SecondsToTicksAt(seconds, s_frequency);
}

unsigned long long Time::MilliecondsToTicks(float milliseconds) {
    return zrk::detail::MillisecondsToTicksAt(milliseconds, s_frequency);
}

Time& Time::operator=(const Time&) { return *this; }
Time& Time::operator=(Time&&) { return *this; }
