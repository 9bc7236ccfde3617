#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>

#include "support/Threads.h"
#include "zrkCore.h"

namespace {

// What the pair printer beside this program prints, started with `arguments`.
std::string PairsOfChild(const std::wstring& arguments) {
    wchar_t self[MAX_PATH];
    std::wstring line(self, GetModuleFileNameW(nullptr, self, MAX_PATH));
    line = L"\"" + line.substr(0, line.rfind(L'\\')) + L"\\PrintCommandLinePairs.exe\" " + arguments;
    SECURITY_ATTRIBUTES inherit = {sizeof inherit, nullptr, TRUE};
    HANDLE read = nullptr, write = nullptr;
    CreatePipe(&read, &write, &inherit, 0);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup, startup.dwFlags = STARTF_USESTDHANDLES, startup.hStdOutput = write;
    PROCESS_INFORMATION child = {};
    const BOOL started = CreateProcessW(nullptr, &line[0], nullptr, nullptr, TRUE, 0, nullptr,
                                        nullptr, &startup, &child);
    CloseHandle(write);
    std::string output;
    char chunk[4096];
    for (DWORD got = 0; started && ReadFile(read, chunk, sizeof chunk, &got, nullptr) && got;) {
        output.append(chunk, got);
    }
    DWORD code = 1;
    WaitForSingleObject(child.hProcess, INFINITE);
    GetExitCodeProcess(child.hProcess, &code);
    CloseHandle(child.hProcess), CloseHandle(child.hThread), CloseHandle(read);
    return started && code == 0 ? output : "";
}

TEST(CommandLineTest, ChildProcessesSeeTheirArgumentsPaired) {
    const struct { const wchar_t* arguments; const char* pairs; } rows[] = {
        {L"", ""},
        {L"/key \"\" value \"/key with blanks\" \"a value\" /v", "key with blanks|a value\nkey|value\n"},
        {L"/Name 1 /NAME 2 /n\x00C4me 3 /n\x00E4me 4", "Name|2\nn\xC3\x84me|3\nn\xC3\xA4me|4\n"},
        {L"/x=1 \xD83D\xDE00 free", "x=1|\xED\xA0\xBD\xED\xB8\x80\n|free\n"},
        {L"/aaaaaaaaaaaaaaaaaaaa 1 /aaaaaaaaaaaaaaaaaaaZ 2",  // sampled alike: the same hash
         "aaaaaaaaaaaaaaaaaaaZ|2\naaaaaaaaaaaaaaaaaaaa|1\n"}};
    for (const auto& row : rows) {
        EXPECT_EQ(PairsOfChild(row.arguments), row.pairs);
    }
    EXPECT_EQ(CommandLine::KeyHash()("\xC3"), 18410401464820409052ULL);  // sign-widened byte
}

// Only the call that takes the count from 0 to 1 builds, only the one that
// takes it from 1 to 0 deletes; a shutdown without init counts below zero.
TEST(CommandLineTest, InitAndShutdownAreCountedAtomically) {
    CommandLine::StaticShutdown();
    CommandLine::StaticInit();
    EXPECT_EQ(CommandLine::Get(), nullptr);
    std::atomic<int> ready(0);
    RunOnThreads(8, [&](int) {
        for (++ready; ready < 8;) {  // all at once, for the most contention
        }
        for (int i = 0; i < 100000; ++i) {
            CommandLine::StaticInit();
        }
    });
    CommandLine* const instance = CommandLine::Get();
    for (int i = 1; i < 800000; ++i) {
        CommandLine::StaticShutdown();
    }
    EXPECT_TRUE(instance != nullptr && CommandLine::Get() == instance);
    CommandLine::StaticShutdown();
    EXPECT_EQ(CommandLine::Get(), nullptr);
}

}  // namespace
