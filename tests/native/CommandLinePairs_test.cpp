#include "process/CommandLinePairs.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace {

using zrk::detail::CommandLineKeyHash;
using Pairs = std::map<std::string, std::string>;

TEST(CommandLinePairsTest, PairsKeysWithTheNextValue) {
    const struct { std::vector<const wchar_t*> arguments; Pairs pairs; } rows[] = {
        {{L"/in", L"a.txt", L"/out", L"b.txt"}, {{"in", "a.txt"}, {"out", "b.txt"}}},
        {{L"a.txt", L"b.txt"}, {{"", "b.txt"}}}, {{L"/v"}, {}}, {{L"/x=1"}, {}},
        {{L"/v", L"/in", L"a.txt"}, {{"in", "a.txt"}}},
        {{L"/in", L"a.txt", L"b.txt"}, {{"in", "a.txt"}, {"", "b.txt"}}},
        {{L"-v", L"a.txt"}, {{"", "a.txt"}}}, {{L"/", L"a.txt"}, {{"", "a.txt"}}},
        {{L"/k", L"", nullptr, L"v"}, {{"k", "v"}}}};
    for (const auto& row : rows) {
        std::vector<const wchar_t*> arguments = {L"program.exe"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        Pairs pairs;
        zrk::detail::PairArguments(arguments.data(), static_cast<int>(arguments.size()), &pairs);
        EXPECT_EQ(pairs, row.pairs);
    }
}

TEST(CommandLinePairsTest, HashSamplesTenFoldedBytesAtMost) {
    EXPECT_EQ(CommandLineKeyHash("a"), 36342608889142654ULL);  // multiply, then XOR
    EXPECT_EQ(CommandLineKeyHash("KeyName"), CommandLineKeyHash("keyNAME"));
    // 20 bytes: stride 3 reads indices 0, 3, ..., 18, so 19 is never read.
    const unsigned long long twenty = CommandLineKeyHash("aaaaaaaaaaaaaaaaaaaa");
    EXPECT_EQ(twenty, CommandLineKeyHash("aaaaaaaaaaaaaaaaaaaZ"));
    EXPECT_NE(twenty, CommandLineKeyHash("aaaaaaaaaaaaaaaaaaZa"));
}

}  // namespace
