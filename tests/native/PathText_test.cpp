#include "filesystem/PathText.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace zrk::detail;

TEST(PathTextTest, SeparatorsThenReferencesWithRescanFromTheStartAndBounds) {
    const std::map<std::string, std::string> variables = {
        {"A", "1"}, {"E", ""}, {"N", "%A%/n"}, {"Y", "y"}, {"SELF", "%SELF%"}, {"P", "%Q%"},
        {"Q", "%P%"}, {"TWICE", "%TWICE%%TWICE%"}, {"LONG", std::string(32767, 'x')}};
    auto lookup = [&](const std::string& name, std::string* value) {
        if (variables.count(name) != 0) {
            *value = variables.at(name);
        }
        return variables.count(name) != 0;
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
    for (const auto& [given, expected] : cases) {
        std::string text = given;
        RewriteSeparators(text);
        EXPECT_EQ(ExpandReferences(text, lookup) ? text : "refused", expected) << given.size();
    }
}

TEST(PathTextTest, TheFolderPartEndsBeforeTheFinalComponentOrIsTheWholePath) {
    EXPECT_EQ(FolderPart(std::string("C:\\a\\b"), 5), "C:\\a\\");
    EXPECT_EQ(FolderPart(std::string("C:\\a\\b"), std::string::npos), "C:\\a\\b");
}

}  // namespace
