#include "sync/CriticalSection.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>
#include <vector>

#include "support/ImportPatch.h"

namespace {

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

TYPED_TEST(CriticalSectionTest, HolderEntersAgainAndOthersWaitForItsLastRelease) {
    this->m_lock.Lock();
    this->m_lock.Lock();
    this->m_lock.Release();
    EXPECT_FALSE(this->TryLockOnAnotherThread());  // two Locks, one Release: held
    EXPECT_TRUE(this->m_lock.TryLock());            // the holder's own TryLock succeeds
    this->m_lock.Release();
    EXPECT_FALSE(this->TryLockOnAnotherThread());  // ... and needed its own Release
    std::atomic<bool> entered{false};
    std::thread waiter([&] {
        this->m_lock.Lock();
        entered = true;
        this->m_lock.Release();
    });
    Sleep(100);
    EXPECT_FALSE(entered);
    this->m_lock.Release();
    waiter.join();
    EXPECT_TRUE(entered);
    EXPECT_TRUE(this->TryLockOnAnotherThread());
}

TYPED_TEST(CriticalSectionTest, ThreadsUnderTheLockLoseNoUpdate) {
    long counter = 0;  // plain: only the lock orders the increments
    std::vector<std::thread> workers;
    for (int t = 0; t < 4; ++t) {
        workers.emplace_back([this, &counter] {
            for (int i = 0; i < 50000; ++i) {
                if (i % 2 == 0) {
                    this->m_lock.Lock();
                } else {
                    while (!this->m_lock.TryLock()) {
                    }
                }
                this->m_lock.Lock();  // nested, as recursive users do
                counter = counter + 1;
                this->m_lock.Release();
                this->m_lock.Release();
            }
        });
    }
    for (auto& worker : workers) {
        worker.join();
    }
    EXPECT_EQ(counter, 4 * 50000);
}

// What each class asks for: the platform may store a spin count differently.
DWORD g_requestedSpins = 0;
BOOL WINAPI RecordingInitialize(LPCRITICAL_SECTION section, DWORD spins) {
    g_requestedSpins = spins;
    return InitializeCriticalSectionAndSpinCount(section, spins);
}

TEST(CriticalSectionSpinTest, EachClassAsksForItsOwnSpinCount) {
    ImportPatch patch(CoreModule(), "KERNEL32.dll", "InitializeCriticalSectionAndSpinCount",
                      reinterpret_cast<void*>(&RecordingInitialize));
    ASSERT_TRUE(patch.Active());
    CriticalSection section;
    EXPECT_EQ(g_requestedSpins, 1024u);
    CriticalToken token;
    EXPECT_EQ(g_requestedSpins, 0xFFFFFFFFu);
}

}  // namespace
