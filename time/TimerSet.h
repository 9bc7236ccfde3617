#pragma once

#include <string>
#include <unordered_map>

#include "frame/Export.h"

// Time booked under names, in ticks of the performance counter (see Time for
// converting them): StartTimer sets the set's one start mark, and each
// StopTimer books the ticks since that mark under the name it is given
// (names compare exactly, case included; "" is a name too). StopTimer leaves
// the mark where it is, so two stops after one start both measure from it
// and the total counts the shared span twice: start again before each
// stretch to measure consecutive ones. A counter query that fails reads as
// 0 and the unsigned span wraps. A new set's mark is 0.
//
// Copies are independent. A move takes the source's entries and copies its
// mark and total, so the source is left with no entries but its old total.
// Assigning a set to itself changes nothing.
//
// Threads: no lock; one thread at a time per set.
class ZRK_API TimerSet {
public:
    struct Timer {
        unsigned long long ticks;  // all booked under the name
        unsigned int count;        // stops booked under the name
    };

    TimerSet();
    TimerSet(const TimerSet& other);
    TimerSet& operator=(const TimerSet& other);
    TimerSet(TimerSet&& other);
    TimerSet& operator=(TimerSet&& other);
    ~TimerSet();

    void StartTimer();
    // Reads the counter first, then books the span under `name`, making the
    // entry if it is the name's first stop.
    void StopTimer(const std::string& name);

    // One entry per name stopped so far; live for as long as the set.
    const std::unordered_map<std::string, Timer>& GetTimers() const;
    // Everything ever booked, under whatever name.
    unsigned long long GetTotalTicks() const;

private:
    unsigned long long m_startTicks;
    std::unordered_map<std::string, Timer> m_timers;
    unsigned long long m_totalTicks;
};
