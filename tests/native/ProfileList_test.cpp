#include "filesystem/ProfileList.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// Never reading at or past the end, even where a name runs up to it unterminated.
TEST(ProfileListTest, VisitsNamesUpToTheFirstEmptyOneWithinTheBuffer) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {std::string("a\0bc\0\0", 6), "a,bc,"}, {std::string("\0\0", 2), ""}, {"", ""},
        {std::string("a\0\0b\0", 5), "a,"},     {std::string("a\0b", 3), "a,b,"}, {"ab", "ab,"}};
    for (const auto& [list, expected] : cases) {
        const std::vector<char> buffer(list.begin(), list.end());  // exact size, for ASan
        std::string visited;
        zrk::detail::ForEachListName(buffer.data(), buffer.data() + buffer.size(),
                                     [&](const char* name, std::size_t length) {
                                         visited += std::string(name, length) + ",";
                                     });
        EXPECT_EQ(visited, expected);  // each visited name followed by ","
    }
}

}  // namespace
