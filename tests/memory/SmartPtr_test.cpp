#include "memory/SmartPtr.h"

#include <gtest/gtest.h>

#include <atomic>
#include <vector>

#include "support/Threads.h"

template <class Base>
struct Probe : Base {  // counts the deaths of its kind; each kind serves one test
    static inline std::atomic<int> deaths{0};
    ~Probe() override { ++deaths; }
};

TEST(SmartPtrTest, EveryHolderCountsAndTheLastOneDeletesOnce) {
    using Target = Probe<SmartPtrTarget>;  // the holder code is the same for both kinds of target
    SmartPtr<Target> first(new Target), none(static_cast<Target*>(nullptr));
    {
        SmartPtr<Target> copy(first), fromRaw(first.get()), other(new Target);
        SmartPtr<SmartPtrTarget> base(copy);
        swap(copy, other);  // no count changes: other's object has copy as its one holder
        EXPECT_TRUE(other == first && copy != first && !none && first);
    }
    EXPECT_EQ(Target::deaths.load(), 1);
    // first is the one holder now: handed around, to itself too, it neither dies nor leaks
    first = first;
    first = std::move(first);
    first.reset(first.get());
    SmartPtr<Target> moved(std::move(first));
    SmartPtr<SmartPtrTarget> base(std::move(moved));
    EXPECT_TRUE(Target::deaths == 1 && first == nullptr && moved == nullptr && base != nullptr);
    base = nullptr;
    EXPECT_EQ(Target::deaths.load(), 2);
}

TEST(SmartPtrTest, ConcurrentClaimsThenConcurrentReleasesKeepTheCountExact) {
    using Target = Probe<SmartPtrTarget_ts>;
    SmartPtr<Target> held(new Target);
    std::vector<SmartPtr<Target>> copies[4];
    // Claims only, then releases only: lost updates of the two kinds cannot cancel out.
    RunOnThreads(4, [&](int index) { copies[index].assign(1000000, held); });
    RunOnThreads(4, [&](int index) { copies[index].clear(); });
    EXPECT_EQ(Target::deaths.load(), 0);  // a lost claim ends the object early
    held.reset();
    EXPECT_EQ(Target::deaths.load(), 1);  // a lost release keeps it for ever
}
