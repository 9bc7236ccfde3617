#include "sync/AtomicLock.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <future>
#include <new>
#include <thread>
#include <vector>

namespace {

static_assert(sizeof(AtomicLock) == sizeof(long), "the lock is exactly its 32-bit word");
static_assert(sizeof(long) == 4, "");

// The lock's one member is its word; tests that must see the word read it
// through the object's layout.
volatile long* WordOf(AtomicLock& lock) {
    return reinterpret_cast<volatile long*>(&lock);
}

bool TryLockOnAnotherThread(AtomicLock& lock) {
    return std::async(std::launch::async, [&lock] { return lock.TryLock(); }).get();
}

// Runs `threads` threads that each call `body` `rounds` times.
template <class Body>
void RunConcurrently(int threads, int rounds, Body body) {
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([=] {
            for (int i = 0; i < rounds; ++i) {
                body(t);
            }
        });
    }
    for (auto& worker : workers) {
        worker.join();
    }
}

constexpr int kThreads = 4;
constexpr int kRounds = 20000;

TEST(AtomicLockTest, TryLockTakesAFreeLockOnlyOnceUntilReleased) {
    AtomicLock lock;
    EXPECT_EQ(*WordOf(lock), 0);
    EXPECT_TRUE(lock.TryLock());
    EXPECT_EQ(*WordOf(lock), 1);
    EXPECT_FALSE(lock.TryLock());  // not recursive
    EXPECT_FALSE(TryLockOnAnotherThread(lock));
    EXPECT_EQ(*WordOf(lock), 1);

    // No owner is recorded: another thread may release.
    std::thread([&lock] { lock.Release(); }).join();
    EXPECT_EQ(*WordOf(lock), 0);
    lock.Release();  // on a free lock: nothing changes
    EXPECT_EQ(*WordOf(lock), 0);
    EXPECT_TRUE(lock.TryLock());
    lock.Release();
}

TEST(AtomicLockTest, LockWaitsUntilTheHolderReleases) {
    AtomicLock lock;
    lock.Lock();
    std::atomic<bool> entered{false};
    std::thread waiter([&] {
        lock.Lock();
        entered = true;
        lock.Release();
    });
    Sleep(100);
    EXPECT_FALSE(entered);
    lock.Release();
    waiter.join();
    EXPECT_TRUE(entered);
    EXPECT_EQ(*WordOf(lock), 0);
}

TEST(AtomicLockTest, CopyOfAHeldLockIsHeldAndReleasesIndependently) {
    AtomicLock source;
    source.Lock();
    AtomicLock copy(source);
    EXPECT_FALSE(copy.TryLock());
    copy.Release();
    EXPECT_TRUE(copy.TryLock());
    EXPECT_FALSE(source.TryLock());  // releasing the copy left the source held

    AtomicLock assigned;
    assigned = source;
    EXPECT_FALSE(assigned.TryLock());
    source.Release();
    AtomicLock freeCopy(source);
    EXPECT_TRUE(freeCopy.TryLock());
}

TEST(AtomicLockTest, ZeroFilledStorageThatNoConstructorRanOnIsAFreeLock) {
    // As a static of the library would be before any of its code runs.
    alignas(AtomicLock) static unsigned char storage[sizeof(AtomicLock)];
    std::memset(storage, 0, sizeof storage);
    AtomicLock* lock = std::launder(reinterpret_cast<AtomicLock*>(storage));
    EXPECT_TRUE(lock->TryLock());
    EXPECT_FALSE(lock->TryLock());
    lock->Release();
    EXPECT_TRUE(lock->TryLock());
}

TEST(AtomicLockTest, BareWordFunctionsAndTheClassAgree) {
    AtomicLock lock;
    Atomic_Lock(WordOf(lock));
    EXPECT_FALSE(lock.TryLock());
    lock.Release();
    EXPECT_TRUE(Atomic_TryLock(WordOf(lock)));
    EXPECT_FALSE(Atomic_TryLock(WordOf(lock)));
    EXPECT_FALSE(lock.TryLock());
}

TEST(AtomicLockTest, ThreadsUnderTheLockLoseNoUpdate) {
    AtomicLock lock;
    long counter = 0;  // plain: only the lock orders the increments
    RunConcurrently(kThreads, kRounds, [&](int) {
        lock.Lock();
        counter = counter + 1;
        lock.Release();
    });
    EXPECT_EQ(counter, kThreads * kRounds);
    EXPECT_EQ(*WordOf(lock), 0);
}

TEST(AtomicLockTest, BareWordHoldersGiveItBackWithAnInterlockedWrite) {
    // The two ways the header documents: a compare-exchange 1 -> 0, as
    // AtomicLock::Release does, or an exchange with 0.
    volatile long word = 0;
    long counter = 0;
    RunConcurrently(kThreads, kRounds, [&](int thread) {
        Atomic_Lock(&word);
        counter = counter + 1;
        if (thread % 2 == 0) {
            InterlockedCompareExchange(&word, 0, 1);
        } else {
            InterlockedExchange(&word, 0);
        }
    });
    EXPECT_EQ(counter, kThreads * kRounds);
    EXPECT_EQ(word, 0);

    // Threads that act only when their one try succeeds exclude each other
    // too: the plain count under the word matches the successful tries.
    long taken = 0;
    std::atomic<long> successes{0};
    RunConcurrently(kThreads, kRounds, [&](int) {
        if (Atomic_TryLock(&word)) {
            taken = taken + 1;
            InterlockedExchange(&word, 0);
            ++successes;
        }
    });
    EXPECT_GT(taken, 0);
    EXPECT_EQ(taken, successes.load());
    EXPECT_EQ(word, 0);
}

}  // namespace
