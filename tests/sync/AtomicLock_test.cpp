#include "sync/AtomicLock.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <new>
#include <thread>
#include <vector>

namespace {

// The lock's one member is its word (0 free, 1 held).
volatile long* WordOf(AtomicLock& lock) {
    return reinterpret_cast<volatile long*>(&lock);
}

TEST(AtomicLockTest, TryLockTakesOnlyAFreeLockAndLockWaitsForWhoeverReleases) {
    AtomicLock lock;
    EXPECT_TRUE(lock.TryLock());
    EXPECT_FALSE(lock.TryLock());  // not recursive
    EXPECT_FALSE(Atomic_TryLock(WordOf(lock)));
    std::atomic<bool> entered{false};
    std::thread waiter([&] {
        lock.Lock();
        entered = true;
    });
    Sleep(100);
    EXPECT_FALSE(entered);
    lock.Release();
    waiter.join();
    EXPECT_TRUE(entered);
    lock.Release();  // no owner is recorded: the waiter's hold is given back here
    EXPECT_EQ(*WordOf(lock), 0);
    lock.Release();  // a free lock stays free
    EXPECT_EQ(*WordOf(lock), 0);
}

TEST(AtomicLockTest, CopiesTakeTheWordAsItIsAndZeroBytesAreAFreeLock) {
    AtomicLock source;
    source.Lock();
    AtomicLock copy(source);
    AtomicLock assigned;
    assigned = source;
    EXPECT_FALSE(copy.TryLock());
    EXPECT_FALSE(assigned.TryLock());
    copy.Release();
    EXPECT_TRUE(copy.TryLock());
    EXPECT_FALSE(source.TryLock());  // releasing the copy left the source held
    source.Release();
    AtomicLock freeCopy(source);
    EXPECT_TRUE(freeCopy.TryLock());

    // Zero bytes no constructor ran on, as a static before any code runs.
    alignas(AtomicLock) static unsigned char storage[sizeof(AtomicLock)];
    std::memset(storage, 0, sizeof storage);
    AtomicLock* lock = std::launder(reinterpret_cast<AtomicLock*>(storage));
    EXPECT_TRUE(lock->TryLock());
    EXPECT_FALSE(lock->TryLock());
}

template <class Body>
void OnThreads(int threads, Body body) {
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back(body, t);
    }
    for (auto& worker : workers) {
        worker.join();
    }
}

TEST(AtomicLockTest, ThreadsUnderTheLockLoseNoUpdate) {
    constexpr int kRounds = 20000;
    AtomicLock lock;
    volatile long* word = WordOf(lock);
    long counter = 0;  // plain: only the lock orders the increments
    // Through the class, or as holders of the bare word giving it back either
    // way the header documents: a compare-exchange 1 -> 0, or an exchange with 0.
    OnThreads(6, [&](int t) {
        for (int i = 0; i < kRounds; ++i) {
            if (t % 3 == 0) {
                lock.Lock();
            } else {
                Atomic_Lock(word);
            }
            counter = counter + 1;
            if (t % 3 == 0) {
                lock.Release();
            } else if (t % 3 == 1) {
                InterlockedCompareExchange(word, 0, 1);
            } else {
                InterlockedExchange(word, 0);
            }
        }
    });
    EXPECT_EQ(counter, 6 * kRounds);

    // Threads that act only when their one try succeeds race the tries
    // hardest: the plain count must match the successful tries.
    counter = 0;
    std::atomic<long> successes{0};
    OnThreads(4, [&](int t) {
        for (int i = 0; i < 25 * kRounds; ++i) {
            if (t % 2 == 0 ? lock.TryLock() : Atomic_TryLock(word)) {
                counter = counter + 1;
                lock.Release();
                ++successes;
            }
        }
    });
    EXPECT_EQ(counter, successes.load());
    EXPECT_EQ(*word, 0);
}

}  // namespace
