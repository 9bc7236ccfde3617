#include "sync/Mutex.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "support/ChildProcess.h"

namespace {

// Whether another thread's TryLock takes the mutex; it gives back what it took.
template <class AnyMutex>
bool TakenByOtherThread(AnyMutex& mutex) {
    bool taken = false;
    std::thread([&] {
        taken = mutex.TryLock();
        if (taken) {
            mutex.Release();
        }
    }).join();
    return taken;
}

std::wstring UniqueName() {
    return L"zrk.test.mutex." + std::to_wstring(GetCurrentProcessId());
}

}  // namespace

TEST(MutexTest, TheOwnerReentersAndOthersGetInAfterItsLastRelease) {
    Mutex mutex;
    mutex.Lock();
    EXPECT_TRUE(mutex.TryLock());
    mutex.Release();
    EXPECT_FALSE(TakenByOtherThread(mutex));
    mutex.Release();
    EXPECT_TRUE(TakenByOtherThread(mutex));
}

TEST(GlobalMutexTest, AnEmptyNameGivesAPrivateMutexOfItsOwn) {
    GlobalMutex first(L""), second(L"");
    first.Lock();
    EXPECT_TRUE(TakenByOtherThread(second));
    first.Release();
}

TEST(GlobalMutexTest, OneNameIsOneMutexInTheMachineWideNamespace) {
    GlobalMutex first(L"Z"), second(L"Z");
    HANDLE opened = OpenMutexW(SYNCHRONIZE, FALSE, L"Global\\Z");
    EXPECT_NE(opened, nullptr);
    CloseHandle(opened);
    first.Lock();
    EXPECT_FALSE(TakenByOtherThread(second));
    first.Release();
    EXPECT_TRUE(TakenByOtherThread(second));
}

TEST(GlobalMutexTest, IsSharedWithAnotherProcessThatMayAbandonIt) {
    const std::wstring name = UniqueName();
    GlobalMutex mutex(name);
    mutex.Lock();
    EXPECT_EQ(RunChild(L"MutexChild.exe try " + name).exitCode, 1u);
    mutex.Release();
    EXPECT_EQ(RunChild(L"MutexChild.exe try " + name).exitCode, 0u);

    // The child ends owning it: this thread's TryLock then takes it but
    // answers false.
    ASSERT_EQ(RunChild(L"MutexChild.exe abandon " + name).exitCode, 0u);
    EXPECT_FALSE(mutex.TryLock());
    EXPECT_FALSE(TakenByOtherThread(mutex));
    mutex.Release();
    EXPECT_TRUE(TakenByOtherThread(mutex));
}

// A backslash after the prefix is refused by the platform; a zero character
// would cut the name short to another one, "Global\zrk.test.mutex.<pid>".
TEST(GlobalMutexTest, ARefusedNameGivesAnObjectThatHoldsNothing) {
    const std::wstring cut = UniqueName() + L'\0' + L"tail";
    GlobalMutex shortName(UniqueName());
    for (const std::wstring& name : {std::wstring(L"a\\b"), cut}) {
        GlobalMutex mutex(name);
        mutex.Lock();  // returns at once
        EXPECT_FALSE(mutex.TryLock());
        mutex.Release();
    }
    EXPECT_TRUE(TakenByOtherThread(shortName));
}
