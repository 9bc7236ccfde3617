#include "time/TimerSet.h"

#include <utility>

#include "time/PerformanceClock.h"

TimerSet::TimerSet() : m_startTicks(0), m_totalTicks(0) {}

TimerSet::TimerSet(const TimerSet& other) = default;

TimerSet& TimerSet::operator=(const TimerSet& other) = default;

TimerSet::TimerSet(TimerSet&& other)
    : m_startTicks(other.m_startTicks),
      m_timers(std::move(other.m_timers)),
      m_totalTicks(other.m_totalTicks) {
    other.m_timers.clear();  // a moved-from map is only "valid"; this one is empty
}

TimerSet& TimerSet::operator=(TimerSet&& other) {
    if (this != &other) {
        m_startTicks = other.m_startTicks;
        m_timers = std::move(other.m_timers);
        other.m_timers.clear();
        m_totalTicks = other.m_totalTicks;
    }
    return *this;
}

TimerSet::~TimerSet() = default;

void TimerSet::StartTimer() { m_startTicks = Time::GetPerformanceTime(); }

void TimerSet::StopTimer(const std::string& name) {
    const unsigned long long elapsed = Time::GetPerformanceTime() - m_startTicks;
    const auto entry = m_timers.find(name);
    if (entry != m_timers.end()) {
        entry->second.ticks += elapsed;
        ++entry->second.count;
    } else {
        m_timers.emplace(name, Timer{elapsed, 1});
    }
    m_totalTicks += elapsed;
}

const std::unordered_map<std::string, TimerSet::Timer>& TimerSet::GetTimers() const {
    return m_timers;
}

unsigned long long TimerSet::GetTotalTicks() const { return m_totalTicks; }
