#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/ChildProcess.h"
#include "support/ScopedState.h"

namespace {

// zrk.exe run with `words`, its output (standard output and error together)
// with the line ends made "\n".
ChildRun Zrk(const std::wstring& words) {
    ChildRun run = RunChild(L"zrk.exe " + words);
    run.output.erase(std::remove(run.output.begin(), run.output.end(), '\r'), run.output.end());
    return run;
}

TEST(ToolTest, CommandsPrintOneItemALineAndFailWithACodeAndAMessage) {
    TempFolder folder;
    ASSERT_TRUE(
        WriteTextFile(folder.Join(L"a.ini"), "[s]\r\nd=4\r\nb=2\r\na=1\r\nc=3\r\n[r]\r\n[q]\r\n"));
    ScopedEnvironmentVariable variable(L"ZRK_TOOL", L"x;;y");
    const std::string path = folder.PathA();
    const struct {
        std::wstring words;
        unsigned long exitCode;
        std::string output;
    } rows[] = {
        {L"env get ZRK_TOOL", 0, "x;;y\n"},
        {L"env array ZRK_TOOL", 0, "x\ny\n"},
        {L"env get ZRK_TOOL_NONE", 1, "zrk env: no variable ZRK_TOOL_NONE\n"},
        {L"env set ZRK_TOOL_NONE v", 1,
         "zrk env: can't set ZRK_TOOL_NONE (it doesn't exist: --create)\n"},
        {L"env set ZRK_TOOL_NONE v --create", 0, ""},
        {L"ini " + folder.Join(L"a.ini"), 0, "[q]\n[r]\n[s]\na=1\nb=2\nc=3\nd=4\n"},
        {L"ini " + folder.Join(L"a.ini") + L" s b", 0, "2\n"},
        {L"ini " + folder.Join(L"a.ini") + L" p", 1,
         "zrk ini: no section [p] in " + path + "\\a.ini\n"},
        {L"path folder " + folder.Path() + L"/new/sub", 0, path + "\\new\\sub\\\n"},
        {L"find " + folder.Path() + L" *.ini --depth 1", 0, path + "\\a.ini\n"},
        {L"filename p e --module", 0, "p.zrk.exe.e\n"},
        {L"guid parse 01234567-89ab-cdef-0123-456789abcdef --upper", 0,
         "01234567-89AB-CDEF-0123-456789ABCDEF\n"},
        {L"interval 90061", 0, "90061 s\n0y 0w 1d 1h 1m 1s\n"},
        {L"time parse \"1970-01-02 00:00:00 UTC\"", 0,
         "1970-01-02 00:00:00 UTC\n1970-01-02 00:00:00 local\n0y 0w 1d 0h 0m 0s since 1970\n"},
        {L"args /Key value", 0, "\targs\nKey\tvalue\n"},
        {L"crash " + folder.Path() + L" --code E0001234", 1,
         "exit code\t0xE0001234\nzrk crash: the child left no dump (its code is not one the "
         "filter dumps)\n"},
        {L"nothing", 2, "zrk: unknown command \"nothing\"; \"zrk\" lists them\n"},
        {L"token", 2, "zrk token: missing arguments\nusage: zrk token LENGTH\n"},
        {L"token 1048577", 2,
         "zrk token: LENGTH is a whole number from 0 to 1048576\nusage: zrk token LENGTH\n"},
        {L"find a b --depth", 2,
         "zrk find: option --depth needs a value\nusage: zrk find ROOT PATTERN [--depth N] "
         "[--wide]\n"},
    };
    for (const auto& row : rows) {
        const ChildRun run = Zrk(row.words);
        EXPECT_EQ(run.exitCode, row.exitCode) << std::string(row.words.begin(), row.words.end());
        EXPECT_EQ(run.output, row.output) << std::string(row.words.begin(), row.words.end());
    }
}

TEST(ToolTest, ListsTablesAndRandomTextInTheirShapes) {
    const ChildRun list = Zrk(L""), modules = Zrk(L"modules --tsv"), token = Zrk(L"token 40");
    EXPECT_EQ(list.exitCode, 0u);
    EXPECT_NE(list.output.find("\n  tour       a guided tour"), std::string::npos) << list.output;
    EXPECT_NE(modules.output.find("\nzrkCore.dll\t1.0.0.0\t"), std::string::npos);
    EXPECT_EQ(modules.output.find("zrk.exe\tno version\t"), 0u) << modules.output;
    EXPECT_TRUE(token.output.size() == 41 &&
                token.output.find_first_not_of("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                               "abcdefghijklmnopqrstuvwxyz") == 40);
    EXPECT_NE(Zrk(L"env --help").output.find("usage: zrk env get NAME"), std::string::npos);
}

// The whole tour, its crash dump included (some seconds under Wine).
TEST(ToolTest, TheTourRunsToItsEndAndRemovesItsFolder) {
    const ChildRun tour = Zrk(L"tour /mode draft");
    EXPECT_EQ(tour.exitCode, 0u);
    EXPECT_NE(tour.output.find("  /mode -> \"draft\""), std::string::npos);
    EXPECT_NE(tour.output.find("with 0xC0000005; in "), std::string::npos);
    EXPECT_NE(tour.output.find("\\crash\\Dump:\n    CrashDump_"), std::string::npos);
    const std::size_t end = tour.output.find("== End of the tour: ");
    ASSERT_NE(end, std::string::npos) << tour.output;
    const std::size_t start = end + 20;  // after "== End of the tour: "
    const std::string folder = tour.output.substr(start, tour.output.find(" removed", end) - start);
    EXPECT_EQ(GetFileAttributesA(folder.c_str()), INVALID_FILE_ATTRIBUTES) << folder;
}

}  // namespace
