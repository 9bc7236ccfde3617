#include "shell/RegistryText.h"

#include <gtest/gtest.h>

#include "support/Text.h"

ZRK_TEST_SUITE_OVER_BOTH_WIDTHS(RegistryTextTest);

TYPED_TEST(RegistryTextTest, EndsAtTheFirstZeroOrWithTheLastWholeUnitDelivered) {
    using Ch = TypeParam;
    using zrk::detail::RegistryValueText;
    const Ch data[] = {'.', 'a', 0, 'b', 'c'};
    EXPECT_EQ(RegistryValueText(data, sizeof(data)), Text<Ch>(".a"));
    EXPECT_EQ(RegistryValueText(data, 0), String<Ch>());
    EXPECT_EQ(RegistryValueText(data, 2 * sizeof(Ch) - 1), Text<Ch>("."));
    EXPECT_EQ(RegistryValueText(data + 3, 2 * sizeof(Ch)), Text<Ch>("bc"));
    EXPECT_EQ(RegistryValueText(data + 3, sizeof(Ch)), Text<Ch>("b"));
}
