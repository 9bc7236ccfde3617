#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

#include "support/ImportPatch.h"
#include "zrkCore.h"

namespace {

// The system's random source, redirected: always 5489, and counted. The
// reference MT19937 seeded with 5489 (init_genrand) first gives 3499211612,
// 581869302, 3890346734, 3586334585, 545404204, 4161255391, 3922919429,
// 949333985, 2715962298, 1323567403: all below the cut, so modulo 62 these.
int g_seeds = 0;
LONG WINAPI FixedSeed(void*, PUCHAR buffer, ULONG size, ULONG) {
    const unsigned int seed = 5489;
    ++g_seeds, std::memcpy(buffer, &seed, size);
    return 0;
}

TEST(TokenTest, EachCallSeedsOnceFromTheSystemSource) {
    {
        ImportPatch patch(CoreModule(), "bcrypt.dll", "BCryptGenRandom", (void*)&FixedSeed);
        EXPECT_TRUE(MakeTokenA(10) == "ykyD0R1TWL" && MakeTokenW(10) == L"ykyD0R1TWL" &&
                    MakeTokenA(0).empty() && g_seeds == 3);
    }
    const std::string symbols = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const std::string token = MakeTokenA(100000);
    EXPECT_TRUE(token.size() == 100000 && MakeTokenA(20) != MakeTokenA(20) &&
                std::set<char>(token.begin(), token.end()) ==
                    std::set<char>(symbols.begin(), symbols.end()));
}

}  // namespace
