#include "sync/CriticalSection.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>
#include <type_traits>
#include <vector>

#include "support/ImportPatch.h"

namespace {

static_assert(sizeof(CriticalSection) == sizeof(void*), "one pointer wide");
static_assert(sizeof(CriticalToken) == sizeof(void*), "one pointer wide");
static_assert(!std::is_copy_constructible<CriticalSection>::value &&
                  !std::is_copy_assignable<CriticalSection>::value &&
                  !std::is_move_constructible<CriticalSection>::value &&
                  !std::is_move_assignable<CriticalSection>::value,
              "a record has one owner");
static_assert(!std::is_copy_constructible<CriticalToken>::value &&
                  !std::is_copy_assignable<CriticalToken>::value &&
                  !std::is_move_constructible<CriticalToken>::value &&
                  !std::is_move_assignable<CriticalToken>::value,
              "a record has one owner");
static_assert(!std::is_base_of<CriticalSection, CriticalToken>::value &&
                  !std::is_base_of<CriticalToken, CriticalSection>::value,
              "two separate classes");

template <class Lock>
class CriticalSectionTest : public ::testing::Test {
protected:
    bool TryLockOnAnotherThread() {
        return std::async(std::launch::async, [this] {
                   const bool taken = m_lock.TryLock();
                   if (taken) {
                       m_lock.Release();
                   }
                   return taken;
               }).get();
    }

    Lock m_lock;
};

using LockTypes = ::testing::Types<CriticalSection, CriticalToken>;
TYPED_TEST_SUITE(CriticalSectionTest, LockTypes);

TYPED_TEST(CriticalSectionTest, HolderEntersAgainAndNeedsOneReleasePerEntry) {
    this->m_lock.Lock();
    this->m_lock.Lock();
    EXPECT_FALSE(this->TryLockOnAnotherThread());
    this->m_lock.Release();
    EXPECT_FALSE(this->TryLockOnAnotherThread());  // two Locks, one Release: held

    EXPECT_TRUE(this->m_lock.TryLock());  // the holder's own TryLock succeeds
    this->m_lock.Release();
    EXPECT_FALSE(this->TryLockOnAnotherThread());  // ... and needed its own Release
    this->m_lock.Release();
    EXPECT_TRUE(this->TryLockOnAnotherThread());
}

TYPED_TEST(CriticalSectionTest, LockWaitsForTheHoldingThread) {
    this->m_lock.Lock();
    std::atomic<bool> entered{false};
    std::thread waiter([this, &entered] {
        this->m_lock.Lock();
        entered = true;
        this->m_lock.Release();
    });
    Sleep(100);
    EXPECT_FALSE(entered);
    this->m_lock.Release();
    waiter.join();
    EXPECT_TRUE(entered);
}

TYPED_TEST(CriticalSectionTest, ThreadsUnderTheLockLoseNoUpdate) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 50000;
    long counter = 0;  // plain: only the lock orders the increments
    std::vector<std::thread> workers;
    for (int t = 0; t < kThreads; ++t) {
        workers.emplace_back([this, &counter] {
            for (int i = 0; i < kRounds; ++i) {
                if (i % 2 == 0) {
                    this->m_lock.Lock();
                } else {
                    while (!this->m_lock.TryLock()) {
                    }
                }
                // Nested entry on the way, as recursive users do.
                this->m_lock.Lock();
                counter = counter + 1;
                this->m_lock.Release();
                this->m_lock.Release();
            }
        });
    }
    for (auto& worker : workers) {
        worker.join();
    }
    EXPECT_EQ(counter, kThreads * kRounds);
    EXPECT_TRUE(this->TryLockOnAnotherThread());
}

// What each class asks of the platform is its spin count; the platform may
// store it differently (or not at all on one processor), so the test looks at
// the request itself and passes it on.
DWORD g_requestedSpins = 0;
BOOL WINAPI RecordingInitialize(LPCRITICAL_SECTION section, DWORD spins) {
    g_requestedSpins = spins;
    return InitializeCriticalSectionAndSpinCount(section, spins);
}

TEST(CriticalSectionSpinTest, EachClassAsksForItsOwnSpinCount) {
    ImportPatch patch(CoreModule(), "KERNEL32.dll", "InitializeCriticalSectionAndSpinCount",
                      reinterpret_cast<void*>(&RecordingInitialize));
    ASSERT_TRUE(patch.Active());
    {
        g_requestedSpins = 0;
        CriticalSection section;
        EXPECT_EQ(g_requestedSpins, 1024u);
        EXPECT_TRUE(section.TryLock());
        section.Release();
    }
    {
        g_requestedSpins = 0;
        CriticalToken token;
        EXPECT_EQ(g_requestedSpins, 0xFFFFFFFFu);
        EXPECT_TRUE(token.TryLock());
        token.Release();
    }
}

}  // namespace
