#include "filesystem/ProfileList.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/Text.h"

namespace {

template <class Ch>
class ProfileListTest : public ::testing::Test {};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(ProfileListTest, Widths);

// "|" stands for a zero unit. The walk ends at the first empty name and never
// reads at or past the end, even where a name runs up to it unterminated.
TYPED_TEST(ProfileListTest, VisitsNamesUpToTheFirstEmptyOneWithinTheBuffer) {
    using Ch = TypeParam;
    const std::vector<std::pair<const char*, std::vector<const char*>>> cases = {
        {"a|bc||", {"a", "bc"}}, {"||", {}}, {"", {}}, {"a||b|", {"a"}},
        {"a|b", {"a", "b"}},     {"ab", {"ab"}}};
    for (const auto& [list, names] : cases) {
        String<Ch> units = Text<Ch>(list);
        for (Ch& unit : units) {
            unit = unit == Ch('|') ? Ch(0) : unit;
        }
        // A buffer of exactly the list's size, so that reading past it is caught.
        std::vector<Ch> buffer(units.begin(), units.end());
        std::vector<String<Ch>> visited;
        zrk::detail::ForEachListName(buffer.data(), buffer.data() + buffer.size(),
                                     [&](const Ch* name, std::size_t length) {
                                         visited.emplace_back(name, length);
                                     });
        std::vector<String<Ch>> expected;
        for (const char* name : names) {
            expected.push_back(Text<Ch>(name));
        }
        EXPECT_EQ(visited, expected) << list;
    }
}

}  // namespace
