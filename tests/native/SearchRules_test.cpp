#include "filesystem/SearchRules.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

using namespace zrk::detail;

TEST(SearchRulesTest, DepthZeroMeansNoLimitAndOnlyAnAnswerOfOneEndsAListing) {
    EXPECT_FALSE(BeyondDepthLimit(1000, 0) || BeyondDepthLimit(2, 2));
    EXPECT_TRUE(BeyondDepthLimit(3, 2));
    EXPECT_TRUE(EndsListing(1));
    EXPECT_FALSE(EndsListing(0) || EndsListing(2) || EndsListing(-1));
}

// Name, folder bit; reported by the narrow search, by the wide one; descended into.
TEST(SearchRulesTest, DotNamesAndTheFolderBitDecideReportsAndDescents) {
    using Case = std::tuple<const char*, bool, bool, bool, bool>;
    const Case cases[] = {
        {"a", false, true, true, false},   {"a", true, false, true, true},
        {".", true, false, false, false},  {"..", true, false, false, false},
        {"...", true, false, true, false}, {".git", true, false, true, false},
        {".a", false, true, true, false}};
    for (const auto& [name, isFolder, narrow, wide, descend] : cases) {
        EXPECT_EQ(ReportsEntry(name, isFolder, false), narrow) << name;
        EXPECT_EQ(ReportsEntry(name, isFolder, true), wide) << name;
        EXPECT_EQ(DescendsInto(name, isFolder), descend) << name;
    }
}

}  // namespace
