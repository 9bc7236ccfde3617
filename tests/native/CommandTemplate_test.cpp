#include "shell/CommandTemplate.h"

#include <gtest/gtest.h>

#include "support/Text.h"

ZRK_TEST_SUITE_OVER_BOTH_WIDTHS(CommandTemplateTest);

TYPED_TEST(CommandTemplateTest, CutsBehindTheProgramAndLeavesUnfilledOutputsAsTheyWere) {
    using Ch = TypeParam;
    // "=": the output keeps its old text. Only the unclosed quote gives false, keeping both.
    const char* const cases[][3] = {
        {R"("C:\b c\v.exe" "%1")", R"("C:\b c\v.exe")", R"("%1")"}, {R"("C:\v.exe)", "=", "="},
        {R"(C:\b c\v.exe %1)", R"(C:\b)", R"(c\v.exe %1)"}, {R"(C:\v.exe)", R"(C:\v.exe)", "="},
        {R"("C:\v.exe")", R"("C:\v.exe")", "="}, {R"("C:\v.exe" )", R"("C:\v.exe")", "="},
        {R"("C:\v.exe"-x)", R"("C:\v.exe")", "x"}, {R"(C:\a"b c"d)", R"(C:\a"b)", R"(c"d)"},
        {"", "", "="}, {" ", " ", "="}, {" a b", " a", "b"}};
    for (const auto& [text, program, arguments] : cases) {
        String<Ch> cutProgram = Text<Ch>("="), cutArguments = cutProgram;
        EXPECT_EQ(zrk::detail::ParseCommandTemplate(Text<Ch>(text), &cutProgram, &cutArguments),
                  program[0] != '=') << text;
        EXPECT_EQ(cutProgram, Text<Ch>(program)) << text;
        EXPECT_EQ(cutArguments, Text<Ch>(arguments)) << text;
    }
}
