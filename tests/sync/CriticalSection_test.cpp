#include "sync/CriticalSection.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "support/ImportPatch.h"

template <class Lock>
class CriticalSectionTest : public ::testing::Test {};
using LockTypes = ::testing::Types<CriticalSection, CriticalToken>;
TYPED_TEST_SUITE(CriticalSectionTest, LockTypes);

TYPED_TEST(CriticalSectionTest, OthersGetInOnlyAfterTheHoldersLastRelease) {
    TypeParam lock;
    lock.Lock();
    lock.Lock();
    EXPECT_TRUE(lock.TryLock());  // the holder's own TryLock enters again
    std::atomic<int> releases{0};  // set to 4 by the other thread once it is in
    std::thread other([&] {
        lock.Lock();
        EXPECT_EQ(releases.exchange(4), 3) << "in before the holder's last Release";
        lock.Release();
    });
    while (releases < 3) {
        Sleep(50);
        ++releases;
        lock.Release();
    }
    auto* record = *reinterpret_cast<CRITICAL_SECTION**>(&lock);  // the object's one pointer
    while (HandleToULong(record->OwningThread) == GetCurrentThreadId()) {  // leave it, not hang
        ADD_FAILURE() << "still held after as many Releases as entries";
        LeaveCriticalSection(record);
    }
    other.join();
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
