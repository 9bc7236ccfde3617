#include "shell/ArgumentSubstitution.h"

#include <gtest/gtest.h>

#include "support/Text.h"

ZRK_TEST_SUITE_OVER_BOTH_WIDTHS(ArgumentSubstitutionTest);

TYPED_TEST(ArgumentSubstitutionTest, QuotesAPathUnlessItOpensWithAQuote) {
    using Ch = TypeParam;
    EXPECT_EQ(zrk::detail::QuotePath(Text<Ch>(R"(C:\a b)").c_str()), Text<Ch>(R"("C:\a b")"));
    EXPECT_EQ(zrk::detail::QuotePath(Text<Ch>("").c_str()), Text<Ch>(R"("")"));
    EXPECT_EQ(zrk::detail::QuotePath(Text<Ch>(R"("C:\a)").c_str()), Text<Ch>(R"("C:\a)"));
}

TYPED_TEST(ArgumentSubstitutionTest, ReplacesTheTemplatesOwnPatternsInPassOrderOrAppendsThePath) {
    using Ch = TypeParam;
    // Arguments, quoted path, result with "#" for the quoted path. A quoted pattern may take
    // the closing quote of a path an earlier pass put in, but never its "%" or its letter.
    const char* const cases[][3] = {
        {R"("%1" %1 %1 "%L"x"%l" %l %L %i)", R"("C:\a b")", R"(# # # #x# # # %i)"},
        {R"(%1%L")", R"("C:\a b")", R"("C:\a b"C:\a b")"}, {"%2 %* /p", R"("a")", "%2 %* /p #"},
        {"", R"("")", " #"}, {"%%1", R"("a")", "%#"}, {"%1", R"("%1")", "#"},
        {R"("%1" %L)", R"("C:\%1 "%L" %l")", "# #"}, {"%1L", R"("C:\x%)", "#L"}};
    for (const auto& [arguments, quotedPath, result] : cases) {
        String<Ch> replaced = Text<Ch>(arguments), expected;
        zrk::detail::PutFileIntoArguments(replaced, Text<Ch>(quotedPath));
        for (const char* r = result; *r != 0; ++r) {
            expected += *r == '#' ? Text<Ch>(quotedPath) : String<Ch>(1, Ch(*r));
        }
        EXPECT_EQ(replaced, expected) << arguments;
    }
}
