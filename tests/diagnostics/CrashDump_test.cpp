#include <windows.h>

#include <dbghelp.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <vector>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"
#include "zrkCore.h"

namespace {

namespace fs = std::filesystem;

// The codes of the dumps asked for; the other arguments are checked on the way.
std::vector<DWORD> g_dumped;
BOOL WINAPI RecordDump(HANDLE process, DWORD id, HANDLE file, MINIDUMP_TYPE type,
                       PMINIDUMP_EXCEPTION_INFORMATION exception,
                       PMINIDUMP_USER_STREAM_INFORMATION user,
                       PMINIDUMP_CALLBACK_INFORMATION callback) {
    EXPECT_TRUE(process == GetCurrentProcess() && id == GetCurrentProcessId() && type == 0x1802 &&
                exception->ThreadId == GetCurrentThreadId() && !exception->ClientPointers &&
                !user && !callback);
    EXPECT_EQ(file != INVALID_HANDLE_VALUE, g_dumped.empty());  // created new: one a second
    g_dumped.push_back(exception->ExceptionPointers->ExceptionRecord->ExceptionCode);
    return TRUE;
}
__time64_t __cdecl FixedTime(__time64_t* out) {  // 2024-01-02 03:04:05 UTC
    return out ? *out = 1704164645 : 1704164645;
}

// The filter's decisions, in this process and without dumps being written.
// The folder is set for the process's life: the first call here has none.
TEST(CrashDumpTest, FilterDumpsTheTableCodesOnlyNamedByUtcTime) {
    TempFolder folder;
    ScopedCurrentDirectory here(folder.Path());
    ImportPatch dump(CoreModule(), "dbghelp.dll", "MiniDumpWriteDump", (void*)&RecordDump);
    ImportPatch time(CoreModule(), "msvcrt.dll", "_time64", (void*)&FixedTime);
    ASSERT_TRUE(dump.Active() && time.Active());
    SystemUtils::CrashDump::InitializeSystem();
    const LPTOP_LEVEL_EXCEPTION_FILTER filter = SetUnhandledExceptionFilter(nullptr);
    EXCEPTION_RECORD record = {};
    EXCEPTION_POINTERS pointers = {&record, nullptr};
    for (DWORD low = 0; low <= 0x100; ++low) {
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
    SystemUtils::CrashDump::InitializeSystem("set");
    SystemUtils::CrashDump::InitializeSystem("|cannot be made");
    EXPECT_EQ(SetUnhandledExceptionFilter(nullptr), filter);
    g_dumped.clear(), record.ExceptionCode = EXCEPTION_ACCESS_VIOLATION, filter(&pointers);
    EXPECT_TRUE(fs::exists(folder.Join(L"set\\Dump\\CrashDump_2024.01.02.03.04.05.dmp")));
}

PROCESS_INFORMATION StartChild(std::wstring arguments, const std::wstring& folder) {
    arguments = L"CrashingChild.exe " + arguments;  // found beside this program
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION child = {};
    CreateProcessW(nullptr, &arguments[0], nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(),
                   &startup, &child);
    return child;
}

// The header of the one dump in `folder`\Dump and its exception stream.
std::pair<MINIDUMP_HEADER, MINIDUMP_EXCEPTION_STREAM> DumpIn(const std::wstring& folder) {
    std::ifstream in(fs::directory_iterator(folder + L"\\Dump")->path(), std::ios::binary);
    std::pair<MINIDUMP_HEADER, MINIDUMP_EXCEPTION_STREAM> dump = {};
    in.read(reinterpret_cast<char*>(&dump.first), sizeof dump.first);
    std::vector<MINIDUMP_DIRECTORY> streams(dump.first.NumberOfStreams);
    in.seekg(dump.first.StreamDirectoryRva);
    in.read(reinterpret_cast<char*>(streams.data()), streams.size() * sizeof streams[0]);
    for (const MINIDUMP_DIRECTORY& stream : streams) {
        if (stream.StreamType == ExceptionStream) {
            in.seekg(stream.Location.Rva);
            in.read(reinterpret_cast<char*>(&dump.second), sizeof dump.second);
        }
    }
    return dump;
}

// Real crashes, at once: a dump is some 150 MB and takes seconds to write.
TEST(CrashDumpTest, CrashingChildrenLeaveFullDumpsOfTheirExceptionForTableCodesOnly) {
    TempFolder folder;
    ScopedEnvironmentVariable root(L"ZRK_CRASH_ROOT", folder.Path());
    fs::create_directory(folder.Join(L"current")), fs::create_directory(folder.Join(L"raised"));
    const PROCESS_INFORMATION children[] = {
        StartChild(L"access %ZRK_CRASH_ROOT%/named", folder.Path()),
        StartChild(L"breakpoint", folder.Join(L"current")),  // no folder: the current one
        StartChild(L"raise", folder.Join(L"raised"))};
    const DWORD codes[] = {EXCEPTION_ACCESS_VIOLATION, EXCEPTION_BREAKPOINT, 0xE0001234};
    for (int i = 0; i < 3; ++i) {
        DWORD code = 0;
        WaitForSingleObject(children[i].hProcess, INFINITE);
        EXPECT_TRUE(GetExitCodeProcess(children[i].hProcess, &code) && code == codes[i]) << i;
        CloseHandle(children[i].hProcess), CloseHandle(children[i].hThread);
    }
    const wchar_t* const folders[] = {L"named", L"current"};
    for (int i = 0; i < 2; ++i) {
        const auto dump = DumpIn(folder.Join(folders[i]));
        EXPECT_TRUE(dump.first.Signature == 0x504D444D /* "MDMP" */ && dump.first.Flags == 0x1802 &&
                    dump.second.ExceptionRecord.ExceptionCode == codes[i] &&
                    dump.second.ThreadId == children[i].dwThreadId) << i;
    }
    EXPECT_TRUE(fs::is_empty(folder.Join(L"raised")));  // not even a Dump folder
}

}  // namespace
