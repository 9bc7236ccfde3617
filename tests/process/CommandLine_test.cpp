#include <gtest/gtest.h>

#include <string>

#include "support/ChildProcess.h"
#include "support/Threads.h"
#include "zrkCore.h"

namespace {

TEST(CommandLineTest, ChildProcessesSeeTheirArgumentsPaired) {
    const struct { const wchar_t* arguments; const char* pairs; } rows[] = {
        {L"/key \"\" value \"/key with blanks\" \"a value\" /v", "key with blanks|a value;key|value;"},
        {L"/Name 1 /NAME 2 /n\x00C4me 3 /n\x00E4me 4", "Name|2;n\xC3\x84me|3;n\xC3\xA4me|4;"},
        {L"/x=1 \xD83D\xDE00 free", "x=1|\xED\xA0\xBD\xED\xB8\x80;|free;"},
        {L"/aaaaaaaaaaaaaaaaaaaa 1 /aaaaaaaaaaaaaaaaaaaZ 2",  // sampled alike: the same hash
         "aaaaaaaaaaaaaaaaaaaZ|2;aaaaaaaaaaaaaaaaaaaa|1;"}};
    for (const auto& row : rows) {
        EXPECT_EQ(RunChild(L"PrintCommandLinePairs.exe " + std::wstring(row.arguments)).output,
                  row.pairs);
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
