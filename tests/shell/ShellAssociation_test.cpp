// The association lookups against a real registry and the real shell, and
// the template parser's exact cuts.
#include <windows.h>
#include <shlwapi.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/ShellRegistration.h"
#include "support/ImportPatch.h"

namespace {

template <class Ch>
class ShellAssociation : public ::testing::Test {};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(ShellAssociation, Widths);

TYPED_TEST(ShellAssociation, ParsesTemplatesExactlyAndLeavesOutputsAsTheyWere) {
    struct Case {
        const char *text, *program, *arguments;  // "=": the output keeps its old text
        bool result;
    };
    const auto parse = Pick<TypeParam>(&zrkParseCommandTemplateA, &zrkParseCommandTemplateW);
    for (const Case& c : std::vector<Case>{
             {R"("C:\b c\v.exe" "%1")", R"("C:\b c\v.exe")", R"("%1")", true},
             {R"(C:\v.exe "%1")", R"(C:\v.exe)", R"("%1")", true},
             {R"(C:\b c\v.exe %1)", R"(C:\b)", R"(c\v.exe %1)", true},
             {R"(C:\v.exe)", R"(C:\v.exe)", "=", true},
             {R"("C:\v.exe")", R"("C:\v.exe")", "=", true}, {R"("C:\v.exe)", "=", "=", false},
             {"", "", "=", true}, {" ", " ", "=", true}, {" a b", " a", "b", true},
             {R"("C:\v.exe" )", R"("C:\v.exe")", "=", true},
             {R"("C:\v.exe"-x)", R"("C:\v.exe")", "x", true},
             {R"(C:\a"b c"d)", R"(C:\a"b)", R"(c"d)", true},
         }) {
        String<TypeParam> program = Text<TypeParam>("="), arguments = program;
        EXPECT_EQ(parse(Text<TypeParam>(c.text), &program, &arguments), c.result) << c.text;
        EXPECT_EQ(program, Text<TypeParam>(c.program)) << c.text;
        EXPECT_EQ(arguments, Text<TypeParam>(c.arguments)) << c.text;
    }
}

TYPED_TEST(ShellAssociation, LookupsGiveTheRegisteredValuesOrLeaveTheirOutputsAsPromised) {
    using Ch = TypeParam;
    const auto toExtension = Pick<Ch>(&zrkMimeTypeToExtensionA, &zrkMimeTypeToExtensionW);
    ShellRegistration registration;
    const String<Ch> mimeType = Text<Ch>(registration.mimeType), unchanged = Text<Ch>("unchanged");
    String<Ch> extension;
    EXPECT_TRUE(toExtension(mimeType, &extension));
    EXPECT_EQ(extension, Text<Ch>(registration.extension));

    // The empty type names the database's own key, which has no "Extension".
    extension = unchanged;
    EXPECT_FALSE(toExtension(Text<Ch>("application/x-zrk-never-registered"), &extension));
    EXPECT_FALSE(toExtension(String<Ch>(), &extension));
    // 260 bytes with the terminator: 259 narrow characters, 129 wide ones.
    const std::size_t longest = sizeof(Ch) == 1 ? 259 : 129;
    auto setExtension = [&](const std::wstring& text) {
        return registration.mimeKey.SetString(L"", L"Extension", text);
    };
    ASSERT_TRUE(setExtension(std::wstring(longest + 1, L'x')));
    EXPECT_FALSE(toExtension(mimeType, &extension));
    EXPECT_EQ(extension, unchanged);
    ASSERT_TRUE(setExtension(std::wstring(longest, L'x')));
    EXPECT_TRUE(toExtension(mimeType, &extension));
    EXPECT_EQ(extension, String<Ch>(longest, 'x'));

    // An empty value; data of another type ends at its first zero.
    ASSERT_TRUE(setExtension(L""));
    EXPECT_TRUE(toExtension(mimeType, &extension));
    EXPECT_TRUE(extension.empty());
    const Ch binary[] = {'.', 'a', 'b', 0, 'c'};
    ASSERT_TRUE(registration.mimeKey.SetValue(L"Extension", REG_BINARY, binary, sizeof(binary)));
    EXPECT_TRUE(toExtension(mimeType, &extension));
    EXPECT_EQ(extension, Text<Ch>(".ab"));

    // The "open" command lookup empties its output when there is none.
    String<Ch> command = Text<Ch>("old");
    EXPECT_FALSE(Pick<Ch>(&zrkOpenVerbTemplateFromExtensionA, &zrkOpenVerbTemplateFromExtensionW)(
        Text<Ch>(".zrk-never-registered"), &command));
    EXPECT_TRUE(command.empty());
}


// The shell announces a command (size 10) and then fails to deliver it; the
// second query must get the announced size, and the output ends up empty.
std::vector<DWORD> g_assocSizes;
HRESULT WINAPI AnnounceThenFail(ASSOCF, ASSOCSTR, const char*, const char*, char* out,
                                DWORD* size) {
    g_assocSizes.push_back(*size);
    if (out == nullptr) {
        *size = 10;
        return S_FALSE;
    }
    return E_FAIL;
}

TEST(ShellAssociationCommand, ASecondQueryThatFailsEmptiesTheOutput) {
    ImportPatch patch(CoreModule(), "SHLWAPI.dll", "AssocQueryStringA", (void*)&AnnounceThenFail);
    ASSERT_TRUE(patch.Active());
    std::string command = "old";
    EXPECT_FALSE(zrkOpenVerbTemplateFromExtensionA(".txt", &command));
    EXPECT_TRUE(command.empty());
    EXPECT_EQ(g_assocSizes, (std::vector<DWORD>{0, 10}));
}

}  // namespace
