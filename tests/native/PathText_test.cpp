#include "filesystem/PathText.h"

#include <gtest/gtest.h>

#include <map>

#include "support/Text.h"

namespace {

template <class Ch>
class PathTextTest : public ::testing::Test {};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(PathTextTest, Widths);

TYPED_TEST(PathTextTest, SeparatorsThenReferencesWithRescanFromTheStartAndBounds) {
    using Ch = TypeParam;
    const std::map<std::string, std::string> variables = {
        {"A", "1"}, {"E", ""}, {"N", "%A%/n"}, {"Y", "y"}, {"SELF", "%SELF%"}, {"P", "%Q%"},
        {"Q", "%P%"}, {"TWICE", "%TWICE%%TWICE%"}, {"LONG", std::string(32767, 'x')}};
    auto lookup = [&](const String<Ch>& name, String<Ch>* value) {
        const auto found = variables.find(Text<char>(name));
        if (found != variables.end()) {
            *value = Text<Ch>(found->second);
        }
        return found != variables.end();
    };
    std::string e256;  // 256 replacements are allowed, the 257th is not
    for (int i = 0; i < 256; ++i) {
        e256 += "%E%";
    }
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"//h/a//./../%A%x%A%", "\\\\h\\a\\\\.\\..\\1x1"}, {"a%E%b", "ab"}, {"%N%", "1/n"},
        {"%%A%", "%%A%"}, {"%U%%A%", "%U%1"}, {"50%U%Y%", "50%U%Y%"}, {"a%b", "a%b"},
        {"%%%A%", "%%1"}, {"%SELF%", "refused"}, {"x%P%", "refused"}, {"%TWICE%", "refused"},
        {e256, ""}, {e256 + "%E%", "refused"}, {"%LONG%", std::string(32767, 'x')},
        {"x%LONG%", "refused"}};
    for (const auto& c : cases) {
        String<Ch> text = Text<Ch>(c.first);
        zrk::detail::RewriteSeparators(text);
        if (!zrk::detail::ExpandReferences(text, lookup)) {
            text = Text<Ch>("refused");
        }
        EXPECT_EQ(text, Text<Ch>(c.second)) << c.first.substr(0, 24);
    }
}

TYPED_TEST(PathTextTest, TheFolderPartEndsBeforeTheFinalComponentOrIsTheWholePath) {
    using Ch = TypeParam;
    const String<Ch> full = Text<Ch>("C:\\a\\b");
    EXPECT_EQ(zrk::detail::FolderPart(full, 5), Text<Ch>("C:\\a\\"));
    EXPECT_EQ(zrk::detail::FolderPart(full, String<Ch>::npos), full);
}

}  // namespace
