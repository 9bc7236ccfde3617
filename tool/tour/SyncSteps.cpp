// Tour steps: mutexes within and across processes, and signalled
// objects that threads wait for.
#include <zrkCore.h>

#include <cstdio>
#include <memory>
#include <thread>
#include <vector>

#include "tool/tour/TourSteps.h"

namespace {

const char* YesNo(bool value) {
    return value ? "true" : "false";
}

// What a TryLock on another thread answers; it gives back what it took.
template <class AnyMutex>
bool TakenElsewhere(AnyMutex& mutex) {
    bool taken = false;
    std::thread([&] {
        taken = mutex.TryLock();
        if (taken) {
            mutex.Release();
        }
    }).join();
    return taken;
}

}  // namespace

void TourMutexes() {
    std::printf("== Mutexes\n");
    Mutex mutex;
    mutex.Lock();
    std::printf("  Mutex held by this thread: its own TryLock -> %s, another thread's -> %s\n",
                YesNo(mutex.TryLock()), YesNo(TakenElsewhere(mutex)));
    mutex.Release();
    mutex.Release();
    std::printf("  after both Releases, another thread's TryLock -> %s\n",
                YesNo(TakenElsewhere(mutex)));

    std::thread([&] { mutex.Lock(); }).join();
    std::printf("  a thread ended owning it, so it is abandoned: TryLock here -> %s, and yet\n"
                "    this thread owns it now: another thread's TryLock -> %s\n",
                YesNo(mutex.TryLock()), YesNo(TakenElsewhere(mutex)));
    mutex.Release();

    GlobalMutex first(L"zrk.tour"), second(L"zrk.tour");
    first.Lock();
    std::printf("  two GlobalMutex(L\"zrk.tour\") are one mutex, \"Global\\zrk.tour\", for every"
                " process:\n    while the first is held, the second's TryLock elsewhere -> %s\n",
                YesNo(TakenElsewhere(second)));
    first.Release();
    GlobalMutex refused(L"a\\b");
    std::printf("  GlobalMutex(L\"a\\\\b\"): the platform refuses the name; TryLock -> %s\n",
                YesNo(refused.TryLock()));
}

void TourSignalledObjects() {
    std::printf("== Signalled objects\n");
    SignalledObject start;
    start.Pulse();
    std::printf("  Pulse with nobody waiting, then IsSet -> %s (nothing remembers it)\n",
                YesNo(start.IsSet()));

    // Four workers wait for the start flag, work for a while each, and raise
    // their own flag; the main thread waits for all four flags at once.
    std::vector<std::unique_ptr<SignalledObject>> done;
    std::vector<SignalledObject*> waitList;
    std::vector<std::thread> workers;
    for (int index = 0; index < 4; ++index) {
        done.push_back(std::make_unique<SignalledObject>());
        waitList.push_back(done.back().get());
        workers.emplace_back([&start, flag = waitList.back(), index] {
            start.WaitFor();
            zrkSleep(20 * (index + 1));
            flag->Set();
        });
    }
    Time::StaticInit();  // the clock converts only once it knows its frequency
    const unsigned long long began = Time::GetPerformanceTime();
    start.Set();
    SignalledObject::WaitFor(waitList);
    std::printf("  4 workers released by one Set; WaitFor(all 4 flags) returned after %.0f ms"
                " (the slowest works 80 ms)\n",
                Time::PerformanceTimeToMilliSeconds(Time::GetPerformanceTime() - began));
    Time::StaticShutdown();
    for (std::thread& worker : workers) {
        worker.join();
    }
    std::vector<SignalledObject*> none;
    SignalledObject::WaitFor(none);
    std::printf("  WaitFor(an empty vector) returns at once: the platform refuses the count\n");
}
