#include "filesystem/PathNormalisation.h"

#include <gtest/gtest.h>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"

namespace {

template <class S>  // `call` fails on `given` and leaves it as it was
void ExpectRefused(bool (*call)(S&), const S& given) {
    S path = given;
    EXPECT_TRUE(!call(path) && path == given) << Text<char>(given);
}

TEST(PathNormalisationTest, PathsBecomeAbsoluteWithTheirFolderCreatedOrStayAsTheyWere) {
    TempFolder temp;
    ScopedCurrentDirectory current(temp.Path());
    ScopedEnvironmentVariable narrow(L"ZRK_PATH_N", L"a/b"), slash(L"ZRK_PATH/X", L"x"),
        wide(L"ZRK_PATH_W", L"\u65E5\u672C"), self(L"ZRK_PATH_SELF", L"x%ZRK_PATH_SELF%");
    // The "/" in the last reference is a "\" by the time it is looked up.
    std::string folder = "%ZRK_PATH_N%/../%ZRK_PATH/X%", file = "log", bare = "c/d/";
    std::wstring wideFolder = L"%ZRK_PATH_W%/e";
    ASSERT_TRUE(EnsureFolderPath(folder) && EnsureFilePath(file) && EnsureFilePath(bare));
    ASSERT_TRUE(EnsureFolderPath(wideFolder));
    EXPECT_EQ(folder, temp.PathA() + "\\a\\%ZRK_PATH\\X%\\");
    EXPECT_EQ(file, temp.PathA() + "\\log");  // its folder exists already
    EXPECT_EQ(bare, temp.PathA() + "\\c\\d\\");  // no file name: all of it is the folder
    EXPECT_EQ(wideFolder, temp.Path() + L"\\\u65E5\u672C\\e\\");
    for (const std::wstring& made : {Text<wchar_t>(folder), Text<wchar_t>(bare), wideFolder}) {
        EXPECT_TRUE(std::filesystem::is_directory(made)) << made;
    }
    EXPECT_FALSE(std::filesystem::exists(Text<wchar_t>(file)));
    // Failures leave the argument alone; text holding a zero unit is refused
    // before any environment lookup of either width.
    ASSERT_TRUE(WriteTextFile(temp.Join(L"file"), "x"));
    ExpectRefused(&EnsureFolderPath, std::string("file/sub"));  // below a file
    ExpectRefused(&EnsureFolderPath, std::string("%ZRK_PATH_SELF%"));  // never settles
    static int lookups = 0;
    static decltype(&GetFullPathNameA) original;
    static std::vector<DWORD> sizes, answers;
    auto count = +[](const void*, void*, DWORD) {
        ++lookups;
        return DWORD(0);
    };
    auto failSecond = +[](LPCSTR path, DWORD size, LPSTR buffer, LPSTR* last) {
        sizes.push_back(size);
        answers.push_back(original(path, size, buffer, last));
        return answers.size() == 2 ? 0 : answers.back();  // the second call writes, but fails
    };
    ImportPatch lookupA(CoreModule(), "KERNEL32.dll", "GetEnvironmentVariableA", (void*)count);
    ImportPatch lookupW(CoreModule(), "KERNEL32.dll", "GetEnvironmentVariableW", (void*)count);
    ImportPatch fullPath(CoreModule(), "KERNEL32.dll", "GetFullPathNameA", (void*)failSecond);
    original = fullPath.Original<decltype(original)>();
    const std::string zeroFolder("%ZRK_PATH%/target\0", 18), zeroFile("%ZRK_PATH%/s\0/a", 15);
    ExpectRefused(&EnsureFolderPath, zeroFolder);
    ExpectRefused(&EnsureFilePath, zeroFile);
    ExpectRefused(&EnsureFolderPath, Text<wchar_t>(zeroFolder));
    ExpectRefused(&EnsureFilePath, Text<wchar_t>(zeroFile));
    EXPECT_EQ(lookups, 0);
    ExpectRefused(&EnsureFolderPath, std::string("never/made"));  // the second call is offered n
    EXPECT_EQ(sizes, (std::vector<DWORD>{0, answers.at(0)}));
}

}  // namespace
