// Tour steps: calendar time, intervals, text conversion, the
// command line, the performance clock, file names and random tokens.
#include <zrkCore.h>

#include <cstdio>
#include <stdexcept>
#include <string>

#include "tool/tour/TourSteps.h"

void TourTime() {
    std::printf("== Time points and intervals\n");
    TimePoint now = TimePoint::Now();
    std::printf("  now: %s, local %s\n", now.ToStringA(false).c_str(),
                now.ToLocalStringA().c_str());
    const TimePoint release = TimePoint::UTCString("2026/11.24 09:30:00 UTC");
    std::printf("  UTCString(\"2026/11.24 09:30:00 UTC\") -> %s\n",
                release.ToStringA(false).c_str());
    TimeInterval since = now - release;
    std::printf("  now - that: %s = %s\n", since.ToStringA().c_str(),
                since.ToPrettyStringA().c_str());
    TimeInterval span = TimeInterval::CreateFrom(1, 1, 1, 1, 1, 1);
    std::printf("  CreateFrom(1, 1, 1, 1, 1, 1): %s = %s; negated: %s\n", span.ToStringA().c_str(),
                span.ToPrettyStringA().c_str(), (-span).ToPrettyStringA().c_str());
    try {
        TimePoint::UTCString("2026-11-24 09:30:00");
    } catch (const std::runtime_error& error) {
        std::printf("  UTCString(\"2026-11-24 09:30:00\") throws: %s\n", error.what());
    }
}

void TourTextConversion() {
    std::printf("== Text conversion\n");
    const std::wstring wide = ConvertString_UTF8_to_UTF16("caf\xC3\xA9 \xF0\x9F\x98\x80");
    std::printf("  UTF-8 \"caf\xC3\xA9 \xF0\x9F\x98\x80\" -> %zu UTF-16 units -> back: %s\n",
                wide.size(), ConvertString_UTF16_to_UTF8(wide).c_str());
    std::printf("  Latin-1 byte 0xE9 -> unit 0x%04X;"
                " a lone 0xFF as UTF-8 -> %zu units (rejected)\n",
                static_cast<unsigned>(ConvertString_LATIN1_to_UTF8("\xE9")[0]),
                ConvertString_UTF8_to_UTF16("\xFF").size());
}

void TourCommandLine() {
    std::printf("== Command line (pairs in the map's own order)\n");
    CommandLine::StaticInit();
    const CommandLine* line = CommandLine::Get();
    for (auto pair = line->Begin(); pair != line->End(); ++pair) {
        std::printf("  /%s -> \"%s\"\n", pair->first.c_str(), pair->second.c_str());
    }
    if (line->Begin() == line->End()) {
        std::printf("  no pairs (try: zrk tour /key value)\n");
    }
    CommandLine::StaticShutdown();
}

void TourClock() {
    std::printf("== Performance clock and timer sets\n");
    Time::StaticInit();
    std::printf("  counter frequency %llu ticks/s; 1.5 s -> %llu ticks; 250 ms -> %llu ticks\n",
                Time::GetFrequency(), Time::SecondsToTicks(1.5f), Time::MilliecondsToTicks(250.0f));
    TimerSet timers;
    for (int round = 0; round < 3; ++round) {
        timers.StartTimer();
        zrkSleep(10);
        timers.StopTimer("sleep 10 ms");
        timers.StartTimer();
        zrkSleep(30);
        timers.StopTimer("sleep 30 ms");
    }
    for (const auto& [name, timer] : timers.GetTimers()) {
        std::printf("  timer \"%s\": %u stops, %.1f ms in all\n", name.c_str(), timer.count,
                    Time::PerformanceTimeToMilliSeconds(timer.ticks));
    }
    std::printf("  total %.1f ms\n", Time::PerformanceTimeToMilliSeconds(timers.GetTotalTicks()));
    Time::StaticShutdown();
}

void TourNamesAndTokens() {
    std::printf("== Generated file names and random tokens\n");
    std::printf("  GenerateFileNameA(\"log\", \"txt\", true, true) -> \"%s\"\n",
                GenerateFileNameA("log", "txt", true, true).c_str());
    std::printf("  GenerateFileNameW(L\"trace\", L\"etl\", false, false) -> L\"%ls\"\n",
                GenerateFileNameW(L"trace", L"etl", false, false).c_str());
    for (unsigned long long length : {0ull, 8ull, 32ull}) {
        std::printf("  MakeTokenA(%llu) -> \"%s\"\n", length, MakeTokenA(length).c_str());
    }
    std::printf("  MakeTokenW(12) -> L\"%ls\"\n", MakeTokenW(12).c_str());
}
