#include "filesystem/PathNormalisation.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"

namespace {

template <class Ch>
struct FullPathEntry;
template <>
struct FullPathEntry<char> {
    static constexpr const char* kName = "GetFullPathNameA";
    using Fn = DWORD(WINAPI*)(const char*, DWORD, char*, char**);
};
template <>
struct FullPathEntry<wchar_t> {
    static constexpr const char* kName = "GetFullPathNameW";
    using Fn = DWORD(WINAPI*)(const wchar_t*, DWORD, wchar_t*, wchar_t**);
};

// GetFullPathName that passes the first call through and fails the second:
// the platform never does this on demand.
int g_fullPathCalls = 0;
void* g_fullPathOriginal = nullptr;
template <class Ch>
DWORD WINAPI FailSecondFullPath(const Ch* path, DWORD size, Ch* buffer, Ch** last) {
    if (++g_fullPathCalls == 2) {
        SetLastError(ERROR_INVALID_NAME);
        return 0;
    }
    return reinterpret_cast<typename FullPathEntry<Ch>::Fn>(g_fullPathOriginal)(path, size,
                                                                              buffer, last);
}

// Every case runs in a fresh temporary folder that is also the current
// folder, with the variables it uses restored afterwards.
template <class Ch>
class PathNormalisationTest : public ::testing::Test {
protected:
    using S = std::basic_string<Ch>;

    PathNormalisationTest() : m_cwd(m_temp.Path()) {
        SetVariable(L"ZRK_PATH_BASE", m_temp.Path());
    }

    static S T(const char* ascii) { return Text<Ch>(ascii); }
    // The temporary folder in this width, plus a relative tail.
    S Temp(const char* tail = "") const { return Text<Ch>((m_temp.PathA() + tail).c_str()); }
    bool Exists(const char* tail) const {
        return FolderExists(m_temp.Path() + Text<wchar_t>(tail));
    }
    void SetVariable(const std::wstring& name, const std::wstring& value) {
        m_variables.emplace_back(new ScopedEnvironmentVariable(name, value));
    }

    TempFolder m_temp;

private:
    ScopedCurrentDirectory m_cwd;
    std::vector<std::unique_ptr<ScopedEnvironmentVariable>> m_variables;
};

using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(PathNormalisationTest, Widths);

TYPED_TEST(PathNormalisationTest, RelativePathsResolveAgainstTheCurrentFolder) {
    typename TestFixture::S folder = this->T("data/logs");
    ASSERT_TRUE(EnsureFolderPath(folder));
    EXPECT_EQ(folder, this->Temp("\\data\\logs\\"));
    EXPECT_TRUE(this->Exists("\\data\\logs"));

    // As a file path only the folder above the last component is created.
    typename TestFixture::S file = this->T("other/logs");
    ASSERT_TRUE(EnsureFilePath(file));
    EXPECT_EQ(file, this->Temp("\\other\\logs"));
    EXPECT_TRUE(this->Exists("\\other"));
    EXPECT_FALSE(this->Exists("\\other\\logs"));
}

TYPED_TEST(PathNormalisationTest, SeparatorsDotsAndTrailingSeparatorsNormalise) {
    typename TestFixture::S a = this->Temp("/x//y/./z/../w");
    typename TestFixture::S b = this->Temp("\\x\\y\\w\\");
    ASSERT_TRUE(EnsureFolderPath(a));
    ASSERT_TRUE(EnsureFolderPath(b));
    EXPECT_EQ(a, this->Temp("\\x\\y\\w\\"));
    EXPECT_EQ(b, a);

    // A file path ending in a separator has no file name: the whole path is
    // the folder, and it keeps its trailing separator.
    typename TestFixture::S file = this->T("f1/f2/");
    ASSERT_TRUE(EnsureFilePath(file));
    EXPECT_EQ(file, this->Temp("\\f1\\f2\\"));
    EXPECT_TRUE(this->Exists("\\f1\\f2"));
}

TYPED_TEST(PathNormalisationTest, EmptyPathAndBareDriveGiveRoots) {
    typename TestFixture::S empty;
    EXPECT_FALSE(EnsureFilePath(empty));
    EXPECT_TRUE(empty.empty());

    // "/fake.file" alone is rooted: the result is a root, not the current
    // folder.
    ASSERT_TRUE(EnsureFolderPath(empty));
    ASSERT_EQ(empty.size(), 3u);
    EXPECT_EQ(empty.substr(1), this->T(":\\"));

    typename TestFixture::S drive = this->Temp().substr(0, 2);  // "C:"
    ASSERT_TRUE(EnsureFolderPath(drive));
    EXPECT_EQ(drive, this->Temp().substr(0, 2) + this->T("\\"));
}

TYPED_TEST(PathNormalisationTest, ExistingFoldersAndFilesAreFine) {
    ASSERT_TRUE(WriteTextFile(this->m_temp.Join(L"kept.txt"), "content"));
    typename TestFixture::S file = this->T("kept.txt");
    ASSERT_TRUE(EnsureFilePath(file));
    EXPECT_EQ(file, this->Temp("\\kept.txt"));
    EXPECT_TRUE(FileExists(this->m_temp.Join(L"kept.txt")));

    typename TestFixture::S folder = this->Temp();
    ASSERT_TRUE(EnsureFolderPath(folder));  // 183: it was there
    EXPECT_EQ(folder, this->Temp("\\"));
}

TYPED_TEST(PathNormalisationTest, FolderCreationFailureLeavesTheArgumentAlone) {
    ASSERT_TRUE(WriteTextFile(this->m_temp.Join(L"file"), "x"));
    const typename TestFixture::S belowFile = this->T("file/sub/dir");
    typename TestFixture::S path = belowFile;
    EXPECT_FALSE(EnsureFolderPath(path));
    EXPECT_EQ(path, belowFile);

    // A UNC-looking path is an ordinary path after the separator rewrite; a
    // share that does not exist cannot be created.
    const typename TestFixture::S unc = this->T("//zrk-no-such-host/share/dir");
    path = unc;
    EXPECT_FALSE(EnsureFolderPath(path));
    EXPECT_EQ(path, unc);
}

TYPED_TEST(PathNormalisationTest, FullPathFailingOnTheSecondCallChangesNothing) {
    g_fullPathCalls = 0;
    ImportPatch patch(CoreModule(), "KERNEL32.dll", FullPathEntry<TypeParam>::kName,
                      (void*)&FailSecondFullPath<TypeParam>);
    ASSERT_TRUE(patch.Active());
    g_fullPathOriginal = patch.Original<void*>();

    const typename TestFixture::S original = this->T("%ZRK_PATH_BASE%/never/made");
    typename TestFixture::S path = original;
    EXPECT_FALSE(EnsureFolderPath(path));
    EXPECT_EQ(g_fullPathCalls, 2);
    EXPECT_EQ(path, original);
    EXPECT_FALSE(this->Exists("\\never"));
}

TYPED_TEST(PathNormalisationTest, ReferencesExpandFromTheEnvironment) {
    this->SetVariable(L"ZRK_PATH_LEAF", L"leaf");
    this->SetVariable(L"ZRK_PATH_EMPTY", L"");
    // A value may carry references and "/" of its own.
    this->SetVariable(L"ZRK_PATH_OUTER", L"%ZRK_PATH_BASE%/outer");
    this->SetVariable(L"ZRK_PATH_Y", L"NOT-EXPANDED");
    SetEnvironmentVariableW(L"ZRK_PATH_UNDEFINED", nullptr);

    typename TestFixture::S path = this->T("%ZRK_PATH_OUTER%/%ZRK_PATH_LEAF%%ZRK_PATH_LEAF%");
    ASSERT_TRUE(EnsureFolderPath(path));
    EXPECT_EQ(path, this->Temp("\\outer\\leafleaf\\"));

    path = this->T("%ZRK_PATH_BASE%/a%ZRK_PATH_EMPTY%b");
    ASSERT_TRUE(EnsureFolderPath(path));
    EXPECT_EQ(path, this->Temp("\\ab\\"));

    // Unknown and empty names stay; the scan goes on behind them. In the
    // last one the single "%" after the unknown name ends the expansion.
    path = this->T("%ZRK_PATH_BASE%/%ZRK_PATH_UNDEFINED%/%%/50%ZRK_PATH_UNDEFINED%ZRK_PATH_Y%");
    ASSERT_TRUE(EnsureFolderPath(path));
    EXPECT_EQ(path, this->Temp("\\%ZRK_PATH_UNDEFINED%\\%%\\50%ZRK_PATH_UNDEFINED%ZRK_PATH_Y%\\"));
    EXPECT_TRUE(this->Exists("\\%ZRK_PATH_UNDEFINED%\\%%"));
}

TYPED_TEST(PathNormalisationTest, SelfReferringValuesFailWithinTheBound) {
    this->SetVariable(L"ZRK_PATH_SELF", L"%ZRK_PATH_SELF%");
    this->SetVariable(L"ZRK_PATH_A", L"%ZRK_PATH_B%a");
    this->SetVariable(L"ZRK_PATH_B", L"b%ZRK_PATH_A%");
    this->SetVariable(L"ZRK_PATH_TWICE", L"%ZRK_PATH_TWICE%%ZRK_PATH_TWICE%");
    for (const char* looping : {"%ZRK_PATH_BASE%/%ZRK_PATH_SELF%", "%ZRK_PATH_A%",
                                "x/%ZRK_PATH_TWICE%"}) {
        typename TestFixture::S path = this->T(looping);
        EXPECT_FALSE(EnsureFolderPath(path)) << looping;
        EXPECT_EQ(path, this->T(looping));
    }
}

TYPED_TEST(PathNormalisationTest, TheBoundAllows256ReplacementsAnd32767Characters) {
    this->SetVariable(L"ZRK_PATH_EMPTY", L"");
    std::string text = "%ZRK_PATH_BASE%/f";  // one replacement
    for (int i = 0; i < 255; ++i) {
        text += "%ZRK_PATH_EMPTY%";
    }
    typename TestFixture::S path = this->T(text.c_str());
    ASSERT_TRUE(EnsureFilePath(path));
    EXPECT_EQ(path, this->Temp("\\f"));

    text += "%ZRK_PATH_EMPTY%";  // the 257th
    path = this->T(text.c_str());
    EXPECT_FALSE(EnsureFilePath(path));
    EXPECT_EQ(path, this->T(text.c_str()));

    // Expanding past the longest path the platform takes fails as well.
    this->SetVariable(L"ZRK_PATH_LONG", std::wstring(20000, L'x'));
    path = this->T("%ZRK_PATH_LONG%%ZRK_PATH_LONG%");
    EXPECT_FALSE(EnsureFilePath(path));
    EXPECT_EQ(path, this->T("%ZRK_PATH_LONG%%ZRK_PATH_LONG%"));
}

TYPED_TEST(PathNormalisationTest, DeleteTakesThePathLiterally) {
    this->SetVariable(L"ZRK_PATH_LEAF", L"leaf");
    ASSERT_TRUE(WriteTextFile(this->m_temp.Join(L"%ZRK_PATH_LEAF%.txt"), "x"));
    ASSERT_TRUE(WriteTextFile(this->m_temp.Join(L"leaf.txt"), "x"));
    const typename TestFixture::S literal = this->T("%ZRK_PATH_LEAF%.txt");
    if constexpr (sizeof(TypeParam) == 1) {
        EXPECT_TRUE(zrkDeleteFileA(literal.c_str()));
        EXPECT_FALSE(zrkDeleteFileA(literal.c_str()));
    } else {
        EXPECT_TRUE(zrkDeleteFileW(literal.c_str()));
        EXPECT_FALSE(zrkDeleteFileW(literal.c_str()));
    }
    EXPECT_FALSE(FileExists(this->m_temp.Join(L"%ZRK_PATH_LEAF%.txt")));
    EXPECT_TRUE(FileExists(this->m_temp.Join(L"leaf.txt")));
}

TEST(PathNormalisationWide, CreatesFoldersNamedBeyondAscii) {
    TempFolder temp;
    std::wstring path = temp.Path() + L"/donn\u00E9es/\u65E5\u672C";
    ASSERT_TRUE(EnsureFolderPath(path));
    EXPECT_EQ(path, temp.Path() + L"\\donn\u00E9es\\\u65E5\u672C\\");
    EXPECT_TRUE(FolderExists(temp.Path() + L"\\donn\u00E9es\\\u65E5\u672C"));
}

}  // namespace
