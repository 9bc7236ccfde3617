#include "shell/RegistryText.h"

#include <gtest/gtest.h>

#include "support/Text.h"

ZRK_TEST_SUITE_OVER_BOTH_WIDTHS(RegistryTextTest);

TYPED_TEST(RegistryTextTest, EndsAtTheFirstZeroOrWithTheLastWholeUnitDelivered) {
    using Ch = TypeParam;
    const Ch data[] = {'.', 'a', 0, 'b', 'c'};
    EXPECT_EQ(zrk::detail::RegistryValueText(data, sizeof(data)), Text<Ch>(".a"));
    EXPECT_EQ(zrk::detail::RegistryValueText(data, 2 * sizeof(Ch) - 1), Text<Ch>("."));
    EXPECT_EQ(zrk::detail::RegistryValueText(data + 3, 2 * sizeof(Ch)), Text<Ch>("bc"));
}
