#include "filesystem/SearchRules.h"

#include <gtest/gtest.h>

#include "support/Text.h"

namespace {

using namespace zrk::detail;

TEST(SearchRulesTest, DepthZeroMeansNoLimitAndOnlyAnAnswerOfOneEndsAListing) {
    EXPECT_FALSE(BeyondDepthLimit(1000, 0));
    EXPECT_FALSE(BeyondDepthLimit(2, 2));
    EXPECT_TRUE(BeyondDepthLimit(3, 2));
    EXPECT_TRUE(EndsListing(1));
    EXPECT_FALSE(EndsListing(0) || EndsListing(2) || EndsListing(-1));
}

template <class Ch>
class SearchRulesWidthTest : public ::testing::Test {};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(SearchRulesWidthTest, Widths);

// Name, folder bit; reported by the narrow search, by the wide one; descended into.
TYPED_TEST(SearchRulesWidthTest, DotNamesAndTheFolderBitDecideReportsAndDescents) {
    struct Case {
        const char* name;
        bool isFolder, narrow, wide, descend;
    };
    for (const Case& c : {Case{"a", false, true, true, false}, Case{"a", true, false, true, true},
                          Case{".", true, false, false, false}, Case{"..", true, false, false, false},
                          Case{"...", true, false, true, false}, Case{".git", true, false, true, false},
                          Case{".a", false, true, true, false}}) {
        const auto name = Text<TypeParam>(c.name);
        EXPECT_EQ(ReportsEntry(name.c_str(), c.isFolder, false), c.narrow) << c.name;
        EXPECT_EQ(ReportsEntry(name.c_str(), c.isFolder, true), c.wide) << c.name;
        EXPECT_EQ(DescendsInto(name.c_str(), c.isFolder), c.descend) << c.name;
    }
}

}  // namespace
