#include "diagnostics/FileVersion.h"

#include <gtest/gtest.h>

namespace {

using zrk::detail::FileVersionNumbers;

TEST(FileVersionTest, ReadsTheFileVersionOnlyFromANonEmptyBlockWithTheSignature) {
    std::uint32_t block[13] = {0xFEEF04BD, 0x00010000, 0x00010002, 0x00030004, 0x00050006};
    EXPECT_EQ(FileVersionNumbers(block, sizeof block), (std::array<std::uint16_t, 4>{1, 2, 3, 4}));
    EXPECT_FALSE(FileVersionNumbers(nullptr, 0));  // an empty block is not read
    block[0] ^= 1;
    EXPECT_FALSE(FileVersionNumbers(block, sizeof block));
}

}  // namespace
