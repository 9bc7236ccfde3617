#include "text/TokenText.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <vector>

namespace {

using zrk::detail::DrawToken;

TEST(TokenTextTest, DropsTheTopFourValuesAndPicksByRemainder) {
    const std::vector<unsigned> values = {4294967292u, 4294967295u, 0, 61, 62, 4294967291u, 36};
    std::size_t next = 0;
    EXPECT_EQ(DrawToken<char>(5, [&] { return values[next++]; }), "0z0za");
    EXPECT_EQ(next, values.size());
    EXPECT_THAT([] { DrawToken<wchar_t>(~0ULL, [] { return ADD_FAILURE(), 0u; }); },
                testing::ThrowsMessage<std::length_error>(testing::StrEq("string too long")));
}

}  // namespace
