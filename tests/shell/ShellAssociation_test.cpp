// The association lookups against the real registry and shell.
#include <gtest/gtest.h>
#include <shlwapi.h>

#include <vector>

#include "shell/ShellRegistration.h"
#include "support/ImportPatch.h"

template <class Ch>
class ShellAssociationTest : public ::testing::Test {};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(ShellAssociationTest, Widths);

TYPED_TEST(ShellAssociationTest, MimeLookupReadsAtMost260BytesOrLeavesItsOutput) {
    using Ch = TypeParam;
    const auto toExtension = Pick<Ch>(&zrkMimeTypeToExtensionA, &zrkMimeTypeToExtensionW);
    ShellRegistration registration;
    const String<Ch> mimeType = Text<Ch>(registration.mimeType), kept = Text<Ch>("kept");
    String<Ch> out = kept;
    // No key; no value (the database's own key); a zero that would cut it to the registered one.
    for (const String<Ch>& bad : {Text<Ch>("x/none"), String<Ch>(), mimeType + Ch() + kept}) {
        EXPECT_FALSE(toExtension(bad, &out));
    }
    EXPECT_EQ(out, kept);
    const std::size_t longest = sizeof(Ch) == 1 ? 259 : 129;  // 260 bytes with the terminator
    for (std::size_t length : {longest + 1, longest}) {
        ASSERT_TRUE(registration.mimeKey.SetString(L"", L"Extension", std::wstring(length, 'x')));
        EXPECT_EQ(toExtension(mimeType, &out), length == longest);
        EXPECT_EQ(out, length == longest ? String<Ch>(length, 'x') : kept);
    }
    const Ch binary[] = {'.', 'a', 0, 'c'};  // data of another type, cut at its zero
    ASSERT_TRUE(
        registration.mimeKey.SetValue(L"", L"Extension", REG_BINARY, binary, sizeof(binary)));
    EXPECT_TRUE(toExtension(mimeType, &out));
    EXPECT_EQ(out, Text<Ch>(".a"));
}

// The shell announces a command of 10 characters, then fails to deliver it.
static std::vector<DWORD> g_sizes;
template <class Ch>
HRESULT WINAPI AnnounceThenFail(ASSOCF, ASSOCSTR, const Ch*, const Ch*, Ch* out, DWORD* size) {
    g_sizes.push_back(*size);
    *size = 10;
    return out == nullptr ? S_FALSE : E_FAIL;
}

TYPED_TEST(ShellAssociationTest, CommandLookupGivesTheWholeCommandOrAnEmptyOne) {
    using Ch = TypeParam;
    const auto lookup =
        Pick<Ch>(&zrkOpenVerbTemplateFromExtensionA, &zrkOpenVerbTemplateFromExtensionW);
    ShellRegistration registration;
    const std::wstring command = L"C:\\v.exe " + std::wstring(1000, 'x');  // no length limit
    ASSERT_TRUE(registration.SetCommand(command));
    const String<Ch> extension = Text<Ch>(registration.extension);
    String<Ch> out;
    EXPECT_TRUE(lookup(extension, &out));
    EXPECT_EQ(out, Text<Ch>(command));
    // Unknown; a zero that would cut it to the registered one; announced, then not delivered.
    for (const String<Ch>& bad : {Text<Ch>(".none"), extension + Ch() + extension}) {
        out = extension;
        EXPECT_FALSE(lookup(bad, &out));
        EXPECT_TRUE(out.empty());
    }
    g_sizes.clear();
    ImportPatch patch(CoreModule(), "SHLWAPI.dll",
                      Pick<Ch>("AssocQueryStringA", "AssocQueryStringW"),
                      reinterpret_cast<void*>(&AnnounceThenFail<Ch>));
    ASSERT_TRUE(patch.Active());
    EXPECT_FALSE(lookup(extension, &(out = extension)));
    EXPECT_TRUE(out.empty());
    EXPECT_EQ(g_sizes, (std::vector<DWORD>{0, 10}));  // the second query gets the size announced
}
