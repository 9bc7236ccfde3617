#include "sync/Mutex.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <future>
#include <string>
#include <thread>

#include "support/ChildProcess.h"

namespace {

// Whether another thread's TryLock takes the mutex; it gives back what it took.
template <class AnyMutex>
bool TakenElsewhere(AnyMutex& m) {
    return std::async(std::launch::async, [&] { return m.TryLock() && (m.Release(), true); }).get();
}

const std::wstring g_name = L"zrk.test.mutex." + std::to_wstring(GetCurrentProcessId());

// A name is the mutex "Global\" + name, one for every process. A backslash
// after the prefix is refused by the platform, and a zero character would cut
// the name short: no mutex then, not even a free one that TryLock would take.
TEST(GlobalMutexTest, OneNameIsOneMutexForEveryProcessAndARefusedOneNone) {
    GlobalMutex mutex(g_name);
    HANDLE opened = OpenMutexW(SYNCHRONIZE, FALSE, (L"Global\\" + g_name).c_str());
    EXPECT_NE(opened, nullptr);
    CloseHandle(opened);
    mutex.Lock();
    EXPECT_EQ(RunChild(L"MutexChild.exe " + g_name).exitCode, 1u);
    mutex.Release();
    EXPECT_EQ(RunChild(L"MutexChild.exe " + g_name).exitCode, 0u);
    for (const std::wstring& name : {std::wstring(L"a\\b"), g_name + L'\0' + L"tail"}) {
        GlobalMutex refused(name);
        refused.Lock();  // returns at once
        EXPECT_FALSE(refused.TryLock());
        refused.Release();
    }
}

// A thread that ends owning the mutex abandons it: TryLock then takes it but
// answers false. Unnamed mutexes are each one of their own.
TEST(MutexTest, TryLockAnswersFalseForAnAbandonedMutexItNowOwns) {
    Mutex mutex, other;
    std::thread([&] { mutex.Lock(); }).join();
    EXPECT_FALSE(mutex.TryLock());
    EXPECT_FALSE(TakenElsewhere(mutex));
    EXPECT_TRUE(TakenElsewhere(other));
}

}  // namespace
