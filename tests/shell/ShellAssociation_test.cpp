// The association lookups against the real registry and shell.
#include <gtest/gtest.h>
#include <shlwapi.h>

#include "shell/ShellRegistration.h"
#include "support/ImportPatch.h"

ZRK_TEST_SUITE_OVER_BOTH_WIDTHS(ShellAssociationTest);

TYPED_TEST(ShellAssociationTest, MimeLookupReadsAtMost260BytesOrLeavesItsOutput) {
    using Ch = TypeParam;
    const auto toExtension = Pick<Ch>(&zrkMimeTypeToExtensionA, &zrkMimeTypeToExtensionW);
    ShellRegistration registration;
    const String<Ch> mimeType = Text<Ch>(registration.mimeType), kept = Text<Ch>("kept");
    String<Ch> out = kept;
    EXPECT_FALSE(toExtension(mimeType + Ch() + kept, &out));  // a zero: refused, not cut there
    EXPECT_EQ(out, kept);
    const std::size_t longest = sizeof(Ch) == 1 ? 259 : 129;  // 260 bytes with the terminator
    for (std::size_t length : {longest + 1, longest}) {
        const std::wstring value(length, 'x');
        ASSERT_TRUE(registration.Set(registration.mimeKey, L"Extension", value));
        EXPECT_EQ(toExtension(mimeType, &out), length == longest);
        EXPECT_EQ(out, length == longest ? String<Ch>(length, 'x') : kept);
    }
    const String<Ch> binary{'.', 'a', 0, 'c'};  // data of another type, cut at its zero
    ASSERT_TRUE(registration.Set(registration.mimeKey, L"Extension", binary, REG_BINARY));
    EXPECT_TRUE(toExtension(mimeType, &out));
    EXPECT_EQ(out, Text<Ch>(".a"));
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
    // Unknown; a zero that would cut it to the registered one.
    for (const String<Ch>& bad : {Text<Ch>(".none"), extension + Ch() + extension}) {
        out = extension;
        EXPECT_FALSE(lookup(bad, &out));
        EXPECT_TRUE(out.empty());
    }
    // The shell announces a command of 10 characters, then fails to deliver it.
    const auto announceThenFail = +[](ASSOCF, ASSOCSTR, const Ch*, const Ch*, Ch* out,
                                      DWORD* size) {
        EXPECT_EQ(*size, out == nullptr ? 0u : 10u);  // the second query offers what was announced
        *size = 10;
        return out == nullptr ? S_FALSE : E_FAIL;
    };
    ImportPatch patch(CoreModule(), "SHLWAPI.dll",
                      Pick<Ch>("AssocQueryStringA", "AssocQueryStringW"),
                      reinterpret_cast<void*>(announceThenFail));
    out = extension;
    EXPECT_FALSE(lookup(extension, &out));
    EXPECT_TRUE(out.empty());
}
