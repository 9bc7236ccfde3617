#include "sync/EventName.h"

#include <gtest/gtest.h>

namespace {

TEST(EventNameTest, EndsInTheAddressAsSixteenLowerCaseDigitsUpperHalfFirst) {
    EXPECT_EQ(zrk::detail::SignalledObjectName(0x00007FF6A1B2C3D4),
              "Local\\zrk.core.signalled.object.00007ff6a1b2c3d4");
}

}  // namespace
