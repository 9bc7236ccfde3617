// The association lookups against a real registry and the real shell, and
// the template parser's exact cuts.
#include <windows.h>
#include <shlwapi.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/ShellRegistration.h"
#include "support/ImportPatch.h"
#include "support/ScopedState.h"
#include "zrkCore.h"

namespace {

template <class Ch>
using String = std::basic_string<Ch>;

template <class Ch>
struct Width;
template <>
struct Width<char> {
    static constexpr auto ToExtension = &zrkMimeTypeToExtensionA;
    static constexpr auto Command = &zrkOpenVerbTemplateFromExtensionA;
    static constexpr auto Parse = &zrkParseCommandTemplateA;
    static String<char> Of(const std::wstring& ascii) { return Narrow(ascii); }
    static constexpr const char* kOpenKey = "RegOpenKeyExA";
    static constexpr const char* kAssocQuery = "AssocQueryStringA";
    // The characters of the longest value that fits into 260 bytes.
    static constexpr std::size_t kLongestValue = 259;
};
template <>
struct Width<wchar_t> {
    static constexpr auto ToExtension = &zrkMimeTypeToExtensionW;
    static constexpr auto Command = &zrkOpenVerbTemplateFromExtensionW;
    static constexpr auto Parse = &zrkParseCommandTemplateW;
    static String<wchar_t> Of(const std::wstring& ascii) { return ascii; }
    static constexpr const char* kOpenKey = "RegOpenKeyExW";
    static constexpr const char* kAssocQuery = "AssocQueryStringW";
    static constexpr std::size_t kLongestValue = 129;
};

template <class Ch>
class ShellAssociation : public ::testing::Test {
protected:
    ShellAssociation() : m_registration(L"association") {}
    String<Ch> MimeType() const { return Width<Ch>::Of(m_registration.MimeType()); }
    ShellRegistration m_registration;
};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(ShellAssociation, Widths);

TYPED_TEST(ShellAssociation, ParsesTemplatesExactlyAndLeavesOutputsAsTheyWere) {
    struct Case {
        const char *text, *program, *arguments;  // "=": the output keeps its old text
        bool result;
    };
    for (const Case& c : std::vector<Case>{
             {R"("C:\b c\v.exe" "%1")", R"("C:\b c\v.exe")", R"("%1")", true},
             {R"(C:\v.exe "%1")", R"(C:\v.exe)", R"("%1")", true},
             {R"(C:\b c\v.exe %1)", R"(C:\b)", R"(c\v.exe %1)", true},
             {R"(C:\v.exe)", R"(C:\v.exe)", "=", true},
             {R"("C:\v.exe")", R"("C:\v.exe")", "=", true},
             {R"("C:\v.exe)", "=", "=", false},
             {"", "", "=", true},
             {" ", " ", "=", true},
             {" a b", " a", "b", true},
             {R"("C:\v.exe" )", R"("C:\v.exe")", "=", true},
             {R"("C:\v.exe"-x)", R"("C:\v.exe")", "x", true},
             {R"(C:\a"b c"d)", R"(C:\a"b)", R"(c"d)", true},
         }) {
        String<TypeParam> program = Text<TypeParam>("="), arguments = Text<TypeParam>("=");
        EXPECT_EQ(Width<TypeParam>::Parse(Text<TypeParam>(c.text), &program, &arguments), c.result)
            << c.text;
        EXPECT_EQ(program, Text<TypeParam>(c.program)) << c.text;
        EXPECT_EQ(arguments, Text<TypeParam>(c.arguments)) << c.text;
    }
}

TYPED_TEST(ShellAssociation, ReadsTheExtensionOrLeavesTheOutputUnchanged) {
    using W = Width<TypeParam>;
    ASSERT_TRUE(this->m_registration.Valid());
    String<TypeParam> extension;
    EXPECT_TRUE(W::ToExtension(this->MimeType(), &extension));
    EXPECT_EQ(extension, W::Of(this->m_registration.Extension()));

    // No such key; and the database's own key (the empty type), which has no
    // value "Extension".
    extension = Text<TypeParam>("unchanged");
    EXPECT_FALSE(W::ToExtension(Text<TypeParam>("application/x-zrk-never-registered"),
                                &extension));
    EXPECT_FALSE(W::ToExtension(String<TypeParam>(), &extension));
    EXPECT_EQ(extension, Text<TypeParam>("unchanged"));

    // An empty value; data of another type ends at a zero or with the data.
    ASSERT_TRUE(this->m_registration.SetExtensionText(L""));
    EXPECT_TRUE(W::ToExtension(this->MimeType(), &extension));
    EXPECT_TRUE(extension.empty());
    const TypeParam binary[] = {'.', 'a', 'b', 0, 'c'};
    ASSERT_TRUE(this->m_registration.SetExtensionValue(REG_BINARY, binary, sizeof(binary)));
    EXPECT_TRUE(W::ToExtension(this->MimeType(), &extension));
    EXPECT_EQ(extension, Text<TypeParam>(".ab"));
    ASSERT_TRUE(this->m_registration.SetExtensionValue(REG_BINARY, binary, 2 * sizeof(TypeParam)));
    EXPECT_TRUE(W::ToExtension(this->MimeType(), &extension));
    EXPECT_EQ(extension, Text<TypeParam>(".a"));
}

TYPED_TEST(ShellAssociation, OffersTwoHundredSixtyBytesInBothForms) {
    using W = Width<TypeParam>;
    String<TypeParam> extension;
    ASSERT_TRUE(this->m_registration.SetExtensionText(std::wstring(W::kLongestValue, L'x')));
    EXPECT_TRUE(W::ToExtension(this->MimeType(), &extension));
    EXPECT_EQ(extension, String<TypeParam>(W::kLongestValue, 'x'));
    ASSERT_TRUE(this->m_registration.SetExtensionText(std::wstring(W::kLongestValue + 1, L'x')));
    extension = Text<TypeParam>("unchanged");
    EXPECT_FALSE(W::ToExtension(this->MimeType(), &extension));
    EXPECT_EQ(extension, Text<TypeParam>("unchanged"));
}

// Records what the registry is asked to open, on the way to the real call.
std::vector<std::wstring> g_opened;
void* g_original = nullptr;

template <class Ch>
LSTATUS WINAPI LogOpenKey(HKEY root, const Ch* path, DWORD options, REGSAM access, PHKEY key) {
    g_opened.push_back(std::wstring(root == HKEY_CLASSES_ROOT ? L"HKCR\\" : L"?\\") +
                       std::wstring(path, path + String<Ch>(path).size()) + L" " +
                       std::to_wstring(options) + L" " + std::to_wstring(access));
    using Open = LSTATUS(WINAPI*)(HKEY, const Ch*, DWORD, REGSAM, PHKEY);
    return reinterpret_cast<Open>(g_original)(root, path, options, access, key);
}

TYPED_TEST(ShellAssociation, OpensTheTypesKeyWithTheCallersCapitalsForReading) {
    ImportPatch patch(CoreModule(), "ADVAPI32.dll", Width<TypeParam>::kOpenKey,
                      reinterpret_cast<void*>(&LogOpenKey<TypeParam>));
    ASSERT_TRUE(patch.Active());
    g_original = patch.Original<void*>();
    g_opened.clear();
    String<TypeParam> mimeType = this->MimeType(), extension;
    mimeType[0] = 'A';  // the registry itself ignores case
    EXPECT_TRUE(Width<TypeParam>::ToExtension(mimeType, &extension));
    EXPECT_EQ(g_opened, std::vector<std::wstring>{L"HKCR\\Mime\\Database\\Content Type\\" +
                                                  std::wstring(mimeType.begin(), mimeType.end()) +
                                                  L" 0 131097"});
}

template <class Ch>
HRESULT WINAPI FailFilledQuery(ASSOCF flags, ASSOCSTR kind, const Ch* extension, const Ch* verb,
                               Ch* out, DWORD* size) {
    if (out != nullptr) {
        return E_FAIL;  // the command was announced but is not delivered
    }
    using Query = HRESULT(WINAPI*)(ASSOCF, ASSOCSTR, const Ch*, const Ch*, Ch*, DWORD*);
    return reinterpret_cast<Query>(g_original)(flags, kind, extension, verb, out, size);
}

TYPED_TEST(ShellAssociation, GivesTheOpenCommandOrEmptiesTheOutput) {
    using W = Width<TypeParam>;
    const std::wstring command = L"C:\\v.exe /p \"%1\" " + std::wstring(1000, L'x');
    ASSERT_TRUE(this->m_registration.SetCommand(command));
    const String<TypeParam> extension = W::Of(this->m_registration.Extension());
    String<TypeParam> commandTemplate = Text<TypeParam>("old");
    EXPECT_TRUE(W::Command(extension, &commandTemplate));
    EXPECT_EQ(commandTemplate, W::Of(command));

    commandTemplate = Text<TypeParam>("old");
    EXPECT_FALSE(W::Command(Text<TypeParam>(".zrk-never-registered"), &commandTemplate));
    EXPECT_TRUE(commandTemplate.empty());

    ImportPatch patch(CoreModule(), "SHLWAPI.dll", W::kAssocQuery,
                      reinterpret_cast<void*>(&FailFilledQuery<TypeParam>));
    ASSERT_TRUE(patch.Active());
    g_original = patch.Original<void*>();
    commandTemplate = Text<TypeParam>("old");
    EXPECT_FALSE(W::Command(extension, &commandTemplate));
    EXPECT_TRUE(commandTemplate.empty());
}

}  // namespace
