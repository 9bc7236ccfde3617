#include "tool/Arguments.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace zrk::tool;

TEST(ArgumentsTest, SortsWordsIntoPositionalsAndKnownOptionsUntilTwoDashes) {
    const std::vector<KnownOption> known = {{"depth", true}, {"wide", false}};
    const ParsedArguments parsed =
        ParseArguments({"a", "--depth", "--wide", "-x", "--wide", "--", "--depth", "b"}, known);
    EXPECT_EQ(parsed.error, "");
    EXPECT_EQ(parsed.positional, (std::vector<std::string>{"a", "-x", "--depth", "b"}));
    EXPECT_TRUE(parsed.Value("depth") == "--wide" && parsed.Has("wide") && !parsed.Has("x"));
    const struct { std::vector<std::string> words; const char* error; } bad[] = {
        {{"--deep"}, "unknown option --deep"},
        {{"--wide", "--wide"}, "option --wide given twice"},
        {{"a", "--depth"}, "option --depth needs a value"}};
    for (const auto& row : bad) {
        EXPECT_EQ(ParseArguments(row.words, known).error, row.error);
    }
}

TEST(ArgumentsTest, NumbersTakeDigitsOnlyWithinTheirBounds) {
    unsigned long long count = 7;
    EXPECT_TRUE(ParseCount("18446744073709551615", ~0ull, &count) && count == ~0ull);
    for (const char* text : {"", "-1", "+1", "1 ", "0x10", "18446744073709551616", "11"}) {
        EXPECT_FALSE(ParseCount(text, 10, &count)) << text;
    }
    EXPECT_TRUE(ParseCount("10", 10, &count) && count == 10);
    unsigned long code = 0;
    EXPECT_TRUE(ParseHex32("0xc0000005", &code) && code == 0xC0000005);
    EXPECT_TRUE(ParseHex32("E0001234", &code) && code == 0xE0001234);
    for (const char* text : {"", "0x", "123456789", "G1", "0x-1"}) {
        EXPECT_FALSE(ParseHex32(text, &code)) << text;
    }
}

}  // namespace
