// The small exported items of the frame: inert diagnostics, endian texts and
// the thread helpers.
#include <windows.h>

#include <gtest/gtest.h>

#include <thread>

#include "zrkCore.h"

namespace {

Assert::FailBehavior NeverCalled(Assert::FailureType, const char*, const char*, const char*,
                                 int) {
    ADD_FAILURE() << "an assertion handler was called";
    return Assert::Halt;
}

TEST(Inert, AssertStoresNoHandler) {
    Assert::SetHandler(&NeverCalled);
    EXPECT_EQ(Assert::GetHandler(), nullptr);
}

TEST(Inert, ProfilingHasNoObjectEvenAfterStaticInit) {
    ProfilingSystem::StaticInit();
    ProfilingSystem::StaticInit(std::string("profile"));
    EXPECT_EQ(ProfilingSystem::Get(), nullptr);
    ProfilingSystem::StaticShutdown();
    EXPECT_EQ(ProfilingSystem::Get(), nullptr);
}

TEST(Inert, ConsoleNeverRequestsAStopAndReadsNoArguments) {
    EXPECT_FALSE(Console::ApplicationStopRequested());
    Console::StaticInit();
    EXPECT_FALSE(Console::ApplicationStopRequested());
    // Formats that ask for arguments that were never passed: reading them
    // would crash on the %s.
    Console::Info("%s %s %n");
    Console::Error(L"%s %d");
    Console::Warning(std::string("%s"));
    Console::Trace(std::wstring(L"%n"));
    Console::Debug(static_cast<const char*>(nullptr));
    Console::StaticShutdown();
    EXPECT_FALSE(Console::ApplicationStopRequested());
}

TEST(EndianType, TextsInBothWidths) {
    EXPECT_STREQ(eEndianType_ToStringA(UNDETERMINED), "UNDETERMINED");
    EXPECT_STREQ(eEndianType_ToStringA(LittleEndian), "LittleEndian");
    EXPECT_STREQ(eEndianType_ToStringA(BigEndian), "BigEndian");
    EXPECT_STREQ(eEndianType_ToStringW(UNDETERMINED), L"UNDETERMINED");
    EXPECT_STREQ(eEndianType_ToStringW(static_cast<eEndianType>(1)), L"LittleEndian");
    EXPECT_STREQ(eEndianType_ToStringW(BigEndian), L"BigEndian");
    // The texts are static: the same pointer every time.
    EXPECT_EQ(eEndianType_ToStringA(BigEndian), eEndianType_ToStringA(BigEndian));
}

TEST(EndianType, ValuesOutsideTheEnumerationGiveNull) {
    EXPECT_EQ(eEndianType_ToStringA(static_cast<eEndianType>(3)), nullptr);
    EXPECT_EQ(eEndianType_ToStringW(static_cast<eEndianType>(-1)), nullptr);
}

TEST(Thread, IdentifiesTheCallingThread) {
    const unsigned long mine = zrkGetCurrentThreadId();
    EXPECT_EQ(mine, GetCurrentThreadId());
    unsigned long other = 0;
    std::thread([&] { other = zrkGetCurrentThreadId(); }).join();
    EXPECT_NE(other, 0u);
    EXPECT_NE(other, mine);
}

TEST(Thread, SleepWaitsAtLeastTheGivenTime) {
    zrkSleep(0);
    const ULONGLONG before = GetTickCount64();
    zrkSleep(30);
    // The tick count has a granularity of up to ~16 ms.
    EXPECT_GE(GetTickCount64() - before, 14u);
}

}  // namespace
