#include "sync/AtomicLock.h"

#include <gtest/gtest.h>

#include "support/ImportPatch.h"

TEST(AtomicLockTest, TheWordIsTheWholeStateAndCopiesTakeItAsItIs) {
    AtomicLock lock, assigned;
    EXPECT_TRUE(lock.TryLock());
    AtomicLock copy(lock);
    assigned = lock;
    EXPECT_FALSE(copy.TryLock() || assigned.TryLock());  // copies of a held lock are held
    lock.Release();
    lock.Release();  // a free lock stays free
    EXPECT_EQ(*reinterpret_cast<volatile long*>(&lock), 0);
}

static volatile long g_word = 1, g_yields = 0;  // a held bare word; the Sleep calls made

// The redirected Sleep plays another thread that frees the word during the third yield.
TEST(AtomicLockTest, LockYieldsAfterEveryFailedTryUntilTheWordIsFree) {
    ImportPatch patch(CoreModule(), "KERNEL32.dll", "Sleep",
                      reinterpret_cast<void*>(+[](DWORD) { g_word = ++g_yields < 3; }));
    Atomic_Lock(&g_word);
    EXPECT_TRUE(g_yields == 3 && g_word == 1);
}
