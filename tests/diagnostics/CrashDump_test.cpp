#include <windows.h>

#include <dbghelp.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <vector>

#include "support/ChildProcess.h"
#include "support/ImportPatch.h"
#include "support/ScopedState.h"
#include "zrkCore.h"

namespace {

namespace fs = std::filesystem;

// The codes of the dumps asked for. The type and thread show in the real
// dumps of the test below.
std::vector<DWORD> g_dumped;
BOOL WINAPI RecordDump(HANDLE process, DWORD id, HANDLE file, MINIDUMP_TYPE,
                       PMINIDUMP_EXCEPTION_INFORMATION exception,
                       PMINIDUMP_USER_STREAM_INFORMATION, PMINIDUMP_CALLBACK_INFORMATION) {
    EXPECT_TRUE(process == GetCurrentProcess() && id == GetCurrentProcessId());
    EXPECT_EQ(file != INVALID_HANDLE_VALUE, g_dumped.empty());  // created new: one a second
    g_dumped.push_back(exception->ExceptionPointers->ExceptionRecord->ExceptionCode);
    return TRUE;
}
// 2024-01-02 03:04:05 UTC.
__time64_t __cdecl FixedTime(__time64_t* out) { return out ? *out = 1704164645 : 1704164645; }

// The filter's decisions, in this process and without dumps being written.
// The folder is set for the process's life: the first call here has none.
TEST(CrashDumpTest, FilterDumpsTheTableCodesOnlyNamedByUtcTime) {
    TempFolder folder;
    ScopedCurrentDirectory here(folder.Path());
    _putenv("TZ=JST-9"), _tzset();  // local time plays no part in the name
    ImportPatch dump(CoreModule(), "dbghelp.dll", "MiniDumpWriteDump", (void*)&RecordDump);
    ImportPatch time(CoreModule(), "msvcrt.dll", "_time64", (void*)&FixedTime);
    SystemUtils::CrashDump::InitializeSystem();
    const LPTOP_LEVEL_EXCEPTION_FILTER filter = SetUnhandledExceptionFilter(nullptr);
    EXCEPTION_RECORD record = {};
    EXCEPTION_POINTERS pointers = {&record, nullptr};
    for (DWORD low = 0; low <= 0x500; ++low) {
        for (DWORD high : {0u, 0x40000000u, 0x80000000u, 0xC0000000u, 0xE0000000u}) {
            record.ExceptionCode = high + low;
            EXPECT_EQ(filter(&pointers), EXCEPTION_EXECUTE_HANDLER);
        }
    }
    std::sort(g_dumped.begin(), g_dumped.end());
    EXPECT_EQ(g_dumped, (std::vector<DWORD>{
        0x80000001, 0x80000002, 0x80000003, 0x80000004, 0xC0000005, 0xC0000006, 0xC0000008,
        0xC000001D, 0xC0000025, 0xC0000026, 0xC000008C, 0xC000008D, 0xC000008E, 0xC000008F,
        0xC0000090, 0xC0000091, 0xC0000092, 0xC0000093, 0xC0000094, 0xC0000095, 0xC0000096,
        0xC00000FD}));
    EXPECT_TRUE(fs::exists(folder.Join(L"Dump\\CrashDump_2024.01.02.03.04.05.dmp")));
    // A folder that can't be made leaves the one before, and the filter goes in.
    SystemUtils::CrashDump::InitializeSystem("set"), SystemUtils::CrashDump::InitializeSystem("|");
    EXPECT_EQ(SetUnhandledExceptionFilter(nullptr), filter);
    g_dumped.clear(), record.ExceptionCode = EXCEPTION_ACCESS_VIOLATION, filter(&pointers);
    EXPECT_TRUE(fs::exists(folder.Join(L"set\\Dump\\CrashDump_2024.01.02.03.04.05.dmp")));
}

// A real crash, in a child: a dump is some 150 MB and takes seconds to write.
// The breakpoint and the current folder as the default are proven above.
TEST(CrashDumpTest, CrashingChildLeavesAFullDumpOfItsExceptionAndOwnCodesNone) {
    TempFolder folder;
    ScopedEnvironmentVariable root(L"ZRK_CRASH_ROOT", folder.Path());
    const ChildRun crashed = RunChild(L"CrashingChild.exe access %ZRK_CRASH_ROOT%/named");
    const fs::path path = fs::directory_iterator(folder.Join(L"named\\Dump"))->path();
    std::vector<char> dump(fs::file_size(path));
    std::ifstream(path, std::ios::binary).read(dump.data(), dump.size());
    const auto* header = reinterpret_cast<const MINIDUMP_HEADER*>(dump.data());
    MINIDUMP_EXCEPTION_STREAM* stream = nullptr;
    ASSERT_TRUE(MiniDumpReadDumpStream(dump.data(), ExceptionStream, nullptr,
                                       reinterpret_cast<void**>(&stream), nullptr));
    EXPECT_TRUE(crashed.exitCode == EXCEPTION_ACCESS_VIOLATION && header->Flags == 0x1802 &&
                header->Signature == 0x504D444D /* "MDMP" */ && stream->ThreadId == crashed.threadId &&
                stream->ExceptionRecord.ExceptionCode == EXCEPTION_ACCESS_VIOLATION);
    EXPECT_EQ(RunChild(L"CrashingChild.exe raise", folder.Path()).exitCode, 0xE0001234);
    EXPECT_FALSE(fs::exists(folder.Join(L"Dump")));  // no file, not even its folder
}

}  // namespace
