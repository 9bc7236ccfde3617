#include "filesystem/PathNormalisation.h"

#include <gtest/gtest.h>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"

// Narrow cases with one wide check; the text steps are tested natively.

namespace {

class PathNormalisationTest : public ::testing::Test {
protected:
    std::string Temp(const std::string& tail = "") const { return m_temp.PathA() + tail; }
    bool Exists(const std::string& tail) const { return FolderExists(Text<wchar_t>(Temp(tail))); }
    template <class S>  // `call` fails on `given` and leaves it as it was
    static void ExpectRefused(bool (*call)(S&), const S& given) {
        S path = given;
        EXPECT_TRUE(!call(path) && path == given) << Text<char>(given);
    }
    TempFolder m_temp;
    ScopedCurrentDirectory m_cwd{m_temp.Path()};
    ScopedEnvironmentVariable m_base{L"ZRK_PATH_BASE", m_temp.Path()};
};

TEST_F(PathNormalisationTest, PathsBecomeAbsoluteWithTheirFolderCreated) {
    ScopedEnvironmentVariable outer(L"ZRK_PATH_OUTER", L"%ZRK_PATH_BASE%/o"),
        empty(L"ZRK_PATH_EMPTY", L""), slash(L"ZRK_PATH/X", L"x"), wide(L"ZRK_PATH_W", L"\u00E9");
    // The "/" in the last name is a "\" by the time it is looked up.
    std::string folder = "%ZRK_PATH_OUTER%/a%ZRK_PATH_EMPTY%b//x/../%%/%ZRK_NO_SUCH%/%ZRK_PATH/X%";
    std::string file = "other/logs", bare = "f/g/", root;
    ASSERT_TRUE(EnsureFolderPath(folder) && EnsureFilePath(file) && EnsureFilePath(bare));
    EXPECT_EQ(folder, Temp("\\o\\ab\\%%\\%ZRK_NO_SUCH%\\%ZRK_PATH\\X%\\"));
    EXPECT_EQ(file, Temp("\\other\\logs"));  // only the file's folder is made
    EXPECT_EQ(bare, Temp("\\f\\g\\"));  // no file name: all of it is the folder
    EXPECT_TRUE(Exists(folder.substr(Temp().size())) && Exists("\\other") && Exists("\\f\\g"));
    EXPECT_FALSE(Exists("\\other\\logs"));
    std::wstring wideFolder = L"%ZRK_PATH_W%/\u65E5\u672C";
    ASSERT_TRUE(EnsureFolderPath(wideFolder));
    EXPECT_EQ(wideFolder, m_temp.Path() + L"\\\u00E9\\\u65E5\u672C\\");
    // An empty folder path is "/fake.file" alone: a root, which exists.
    ExpectRefused(&EnsureFilePath, root);
    ASSERT_TRUE(EnsureFolderPath(root));
    EXPECT_TRUE(root.size() == 3 && root.substr(1) == ":\\") << root;
}

TEST_F(PathNormalisationTest, FailuresLeaveTheArgumentAlone) {
    ScopedEnvironmentVariable self(L"ZRK_PATH_SELF", L"x%ZRK_PATH_SELF%");  // never settles
    ASSERT_TRUE(WriteTextFile(m_temp.Join(L"file"), "x"));
    ExpectRefused(&EnsureFolderPath, std::string("file/sub"));  // below a file
    ExpectRefused(&EnsureFolderPath, std::string("%ZRK_PATH_BASE%/%ZRK_PATH_SELF%"));
    // The second GetFullPathName is offered n characters; it writes but fails.
    static decltype(&GetFullPathNameA) original;
    static std::vector<DWORD> sizes, answers;
    ImportPatch patch(CoreModule(), "KERNEL32.dll", "GetFullPathNameA",
                      (void*)+[](LPCSTR path, DWORD size, LPSTR buffer, LPSTR* last) {
                          sizes.push_back(size);
                          answers.push_back(original(path, size, buffer, last));
                          return answers.size() == 2 ? 0 : answers.back();
                      });
    ASSERT_TRUE(patch.Active());
    original = patch.Original<decltype(original)>();
    ExpectRefused(&EnsureFolderPath, std::string("never/made"));
    EXPECT_EQ(sizes, (std::vector<DWORD>{0, answers.at(0)}));
}

TEST_F(PathNormalisationTest, TextHoldingAZeroIsRefusedBeforeAnyLookup) {
    static int lookups = 0;
    ImportPatch patch(CoreModule(), "KERNEL32.dll", "GetEnvironmentVariableA",
                      (void*)+[](LPCSTR, LPSTR, DWORD) { return ++lookups, DWORD(0); });
    ASSERT_TRUE(patch.Active());
    const std::string folder("%ZRK_PATH_BASE%/target\0", 23), file("%ZRK_PATH_BASE%/s\0/a", 20);
    ExpectRefused(&EnsureFolderPath, folder);
    ExpectRefused(&EnsureFilePath, file);
    ExpectRefused(&EnsureFolderPath, Text<wchar_t>(folder));
    ExpectRefused(&EnsureFilePath, Text<wchar_t>(file));
    EXPECT_EQ(lookups, 0);
}

}  // namespace
