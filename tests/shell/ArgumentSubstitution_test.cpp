// The file's place in a command's arguments (pure logic): quoting, the six
// passes, and paths that hold patterns of their own.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/ArgumentSubstitution.h"
#include "support/ScopedState.h"

namespace {

template <class Ch>
std::basic_string<Ch> Put(const char* arguments, const std::string& path) {
    std::basic_string<Ch> text = Text<Ch>(arguments);
    zrk::detail::PutFileIntoArguments(text, zrk::detail::QuotePath(Text<Ch>(path.c_str()).c_str()));
    return text;
}

template <class Ch>
class ArgumentSubstitution : public ::testing::Test {};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(ArgumentSubstitution, Widths);

TYPED_TEST(ArgumentSubstitution, ReplacesEveryPatternInPassOrderOrAppendsThePath) {
    struct Case {
        const char *arguments, *path, *expected;
    };
    for (const Case& c : std::vector<Case>{
             {R"(%1 %1 "%L"x"%l" %l)", R"(C:\a b)", R"("C:\a b" "C:\a b" "C:\a b"x"C:\a b" "C:\a b")"},
             {R"(%2 %* %D /p)", R"(C:\a b)", R"(%2 %* %D /p "C:\a b")"},
             {R"(%%1)", R"(C:\a b)", R"(%"C:\a b")"},
             {"", R"(C:\a b)", R"( "C:\a b")"},
             {"%1", R"("C:\a b")", R"("C:\a b")"},
             {"%1", R"("C:\a)", R"("C:\a)"},
             {"%1", "", R"("")"},
             // A quoted pattern may take the closing quote of a path that an
             // earlier pass put in, as the plain passes would.
             {R"(%1%L")", R"(C:\a b)", R"("C:\a b"C:\a b")"},
             // A path's own patterns are never replaced again.
             {R"("%1" %L)", R"(C:\%1 "%L" %l)", R"("C:\%1 "%L" %l" "C:\%1 "%L" %l")"},
             {R"(/p)", R"(C:\%1)", R"(/p "C:\%1")"},
         }) {
        EXPECT_EQ(Put<TypeParam>(c.arguments, c.path), Text<TypeParam>(c.expected)) << c.arguments;
    }
}

TYPED_TEST(ArgumentSubstitution, APathOfPatternsGrowsTheArgumentsOnlyOncePerPattern) {
    std::string path = "%1%L%l";
    for (int i = 0; i < 10; ++i) {
        path += path;
    }
    EXPECT_EQ(Put<TypeParam>("%1 %L %l", path).size(), 3 * (path.size() + 2) + 2);
}

}  // namespace
