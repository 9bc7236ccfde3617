#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "support/Threads.h"
#include "zrkCore.h"

namespace {

// What the pair printer beside this program prints, started with `arguments`.
std::string PairsOfChild(const std::wstring& arguments) {
    std::wstring line = L"PrintCommandLinePairs.exe " + arguments;  // found beside this program
    SECURITY_ATTRIBUTES inherit = {sizeof inherit, nullptr, TRUE};
    HANDLE read = nullptr, write = nullptr;
    CreatePipe(&read, &write, &inherit, 0);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup, startup.dwFlags = STARTF_USESTDHANDLES, startup.hStdOutput = write;
    PROCESS_INFORMATION child = {};
    const BOOL started = CreateProcessW(nullptr, &line[0], nullptr, nullptr, TRUE, 0, nullptr,
                                        nullptr, &startup, &child);
    CloseHandle(write);
    std::string output = started ? "" : "not started";
    char chunk[4096];
    for (DWORD got = 0; started && ReadFile(read, chunk, sizeof chunk, &got, nullptr) && got;) {
        output.append(chunk, got);
    }
    CloseHandle(child.hProcess), CloseHandle(child.hThread), CloseHandle(read);
    return output;
}

TEST(CommandLineTest, ChildProcessesSeeTheirArgumentsPaired) {
    const struct { const wchar_t* arguments; const char* pairs; } rows[] = {
        {L"/key \"\" value \"/key with blanks\" \"a value\" /v", "key with blanks|a value;key|value;"},
        {L"/Name 1 /NAME 2 /n\x00C4me 3 /n\x00E4me 4", "Name|2;n\xC3\x84me|3;n\xC3\xA4me|4;"},
        {L"/x=1 \xD83D\xDE00 free", "x=1|\xED\xA0\xBD\xED\xB8\x80;|free;"},
        {L"/aaaaaaaaaaaaaaaaaaaa 1 /aaaaaaaaaaaaaaaaaaaZ 2",  // sampled alike: the same hash
         "aaaaaaaaaaaaaaaaaaaZ|2;aaaaaaaaaaaaaaaaaaaa|1;"}};
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
    const auto onEightThreads = [](void (*call)()) {
        RunOnThreads(8, [call](int) {
            for (int i = 0; i < 1000000; ++i) {
                call();
            }
        });
    };
    onEightThreads(&CommandLine::StaticInit);
    CommandLine* const instance = CommandLine::Get();
    CommandLine::StaticInit();  // so that the threads' shutdowns leave one
    onEightThreads(&CommandLine::StaticShutdown);
    EXPECT_TRUE(instance != nullptr && CommandLine::Get() == instance);
    CommandLine::StaticShutdown();
    EXPECT_EQ(CommandLine::Get(), nullptr);
}

}  // namespace
