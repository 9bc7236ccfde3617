#include "process/EnvironmentArray.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/Text.h"

namespace {

ZRK_TEST_SUITE_OVER_BOTH_WIDTHS(EnvironmentArrayTest);

TYPED_TEST(EnvironmentArrayTest, SplitAppendsNonEmptyElementsAndJoinKeepsEveryPlace) {
    using Ch = TypeParam;
    using List = std::vector<String<Ch>>;
    for (const auto& [text, elements] : std::vector<std::pair<const char*, List>>{
             {"a;;b;", {Text<Ch>("a"), Text<Ch>("b")}},
             {";", {}},
             {"", {}},
             {" a ;b c", {Text<Ch>(" a "), Text<Ch>("b c")}}}) {
        List out{Text<Ch>("kept")}, expected = out;
        expected.insert(expected.end(), elements.begin(), elements.end());
        zrk::detail::SplitArray(Text<Ch>(text), &out);
        EXPECT_EQ(out, expected) << text;
    }
    const List withEmpty{Text<Ch>("a"), {}, Text<Ch>("b;c")};
    EXPECT_EQ(zrk::detail::JoinArray(withEmpty), Text<Ch>("a;;b;c"));
    EXPECT_EQ(zrk::detail::JoinArray(List{{}}), String<Ch>());
}

}  // namespace
