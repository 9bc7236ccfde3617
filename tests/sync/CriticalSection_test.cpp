#include "sync/CriticalSection.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>

#include "support/ImportPatch.h"
#include "support/Threads.h"

template <class Lock>
class CriticalSectionTest : public ::testing::Test {};
using LockTypes = ::testing::Types<CriticalSection, CriticalToken>;
TYPED_TEST_SUITE(CriticalSectionTest, LockTypes);

// The holder enters three times; the other thread must get in after the third Release.
TYPED_TEST(CriticalSectionTest, OthersGetInOnlyAfterTheHoldersLastRelease) {
    TypeParam lock;
    std::atomic<int> releases{-1};  // -1 until the holder holds, 4 once the other is in
    RunOnThreads(2, [&](int index) {
        if (index == 1) {
            while (releases < 0) Sleep(1);
            EXPECT_FALSE(lock.TryLock());
            lock.Lock();
            EXPECT_EQ(releases.exchange(4), 3) << "in before the holder's last Release";
            return lock.Release();
        }
        lock.Lock();
        lock.Lock();
        EXPECT_TRUE(lock.TryLock());  // the holder's own TryLock enters again
        for (releases = 0; releases < 3; lock.Release()) {
            Sleep(30);
            ++releases;
        }
        for (int i = 0; i < 500 && releases == 3; ++i) Sleep(10);
        if (releases == 3) {  // leave the one-pointer object's record by hand rather than hang
            ADD_FAILURE() << "the other thread still waits 5 s after the last Release";
            auto* record = *reinterpret_cast<CRITICAL_SECTION**>(&lock);
            for (int i = 0; i < 3; ++i) LeaveCriticalSection(record);
        }
    });
}

static DWORD g_requestedSpins = 0;  // as asked for: the platform may keep another count
TEST(CriticalSectionTest, EachClassAsksForItsOwnSpinCount) {
    ImportPatch patch(CoreModule(), "KERNEL32.dll", "InitializeCriticalSectionAndSpinCount",
                      reinterpret_cast<void*>(+[](LPCRITICAL_SECTION section, DWORD spins) {
                          g_requestedSpins = spins;
                          return InitializeCriticalSectionAndSpinCount(section, spins);
                      }));
    CriticalSection section;
    EXPECT_EQ(g_requestedSpins, 1024u);
    CriticalToken token;
    EXPECT_EQ(g_requestedSpins, 0xFFFFFFFFu);
}
