#include "process/EnvironmentArray.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/Text.h"

namespace {

template <class Ch>
class EnvironmentArrayTest : public ::testing::Test {};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(EnvironmentArrayTest, Widths);

template <class Ch>
std::vector<String<Ch>> List(const std::vector<const char*>& items) {
    std::vector<String<Ch>> out;
    for (const char* item : items) {
        out.push_back(Text<Ch>(item));
    }
    return out;
}

TYPED_TEST(EnvironmentArrayTest, SplitAppendsNonEmptyElementsAndJoinKeepsEveryPlace) {
    using Ch = TypeParam;
    struct Case {
        const char* text;
        std::vector<const char*> elements;
    };
    for (const Case& c : std::vector<Case>{{"a;;b;", {"a", "b"}}, {";", {}}, {"", {}},
                                           {"one", {"one"}}, {" a ;b c", {" a ", "b c"}}}) {
        auto out = List<Ch>({"kept"});
        zrk::detail::SplitArray(Text<Ch>(c.text), &out);
        auto expected = List<Ch>({"kept"});
        for (const auto& element : List<Ch>(c.elements)) {
            expected.push_back(element);
        }
        EXPECT_EQ(out, expected) << c.text;
    }
    EXPECT_EQ(zrk::detail::JoinArray(List<Ch>({"a", "", "b;c"})), Text<Ch>("a;;b;c"));
    EXPECT_EQ(zrk::detail::JoinArray(List<Ch>({""})), String<Ch>());
}

}  // namespace
