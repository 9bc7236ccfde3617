#include "process/EnvironmentArray.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Strings = std::vector<std::string>;

// The wide separator is checked under Wine, where GetArrayW splits a value.
TEST(EnvironmentArrayTest, SplitAppendsNonEmptyElementsAndJoinKeepsEveryPlace) {
    for (const auto& [text, elements] : std::vector<std::pair<std::string, Strings>>{
             {"a;;b;", {"a", "b"}}, {";", {}}, {"", {}}, {" a ;b c", {" a ", "b c"}}}) {
        Strings out{"kept"}, expected = out;
        expected.insert(expected.end(), elements.begin(), elements.end());
        zrk::detail::SplitArray(text, &out);
        EXPECT_EQ(out, expected) << text;
    }
    EXPECT_EQ(zrk::detail::JoinArray(Strings{"a", "", "b;c"}), "a;;b;c");
    EXPECT_EQ(zrk::detail::JoinArray(Strings{""}), "");
}

}  // namespace
