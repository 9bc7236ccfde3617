#include "shell/RegistryText.h"

#include <gtest/gtest.h>

#include "support/Text.h"

template <class Ch>
class RegistryTextTest : public ::testing::Test {};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(RegistryTextTest, Widths);

TYPED_TEST(RegistryTextTest, EndsAtTheFirstZeroOrWithTheLastWholeUnitDelivered) {
    using Ch = TypeParam;
    const Ch data[] = {'.', 'a', 0, 'b', 'c'};
    const auto text = [&](int from, std::size_t bytes) {
        return zrk::detail::RegistryValueText(data + from, bytes);
    };
    EXPECT_EQ(text(0, sizeof(data)), Text<Ch>(".a"));
    EXPECT_EQ(text(0, 0), String<Ch>());
    EXPECT_EQ(text(0, 2 * sizeof(Ch) - 1), Text<Ch>("."));
    EXPECT_EQ(text(3, 2 * sizeof(Ch)), Text<Ch>("bc"));
    EXPECT_EQ(text(3, sizeof(Ch)), Text<Ch>("b"));
}
