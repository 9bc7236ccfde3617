#include "text/TokenText.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using zrk::detail::DrawToken;
using zrk::detail::TokenFromSeed;

TEST(TokenTextTest, DropsTheTopFourValuesAndPicksByRemainder) {
    const std::vector<std::uint32_t> values = {4294967292u, 4294967295u, 0, 61, 62, 4294967291u, 36};
    std::size_t next = 0;
    EXPECT_EQ(DrawToken<char>(5, [&] { return values[next++]; }), "0z0za");
    EXPECT_EQ(next, values.size());
    EXPECT_THAT([] { DrawToken<wchar_t>(~0ULL, [] { return ADD_FAILURE(), 0u; }); },
                testing::ThrowsMessage<std::length_error>(testing::StrEq("string too long")));
}

// The reference MT19937 seeded with 5489 (init_genrand) first gives 3499211612,
// 581869302, 3890346734, 3586334585, 545404204, 4161255391, 3922919429,
// 949333985, 2715962298, 1323567403: all below the cut, so modulo 62 these.
TEST(TokenTextTest, DrawsFromTheStandardGeneratorSeededOnce) {
    EXPECT_EQ(TokenFromSeed<char>(5489, 10), "ykyD0R1TWL");
    EXPECT_EQ(TokenFromSeed<wchar_t>(5489, 10), L"ykyD0R1TWL");
}

}  // namespace
