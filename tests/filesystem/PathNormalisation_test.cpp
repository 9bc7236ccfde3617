#include "filesystem/PathNormalisation.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"

// The narrow overloads carry the cases; both widths run one implementation,
// so the wide overloads need only to show that they reach the wide platform
// entries and the wide environment lookup.

namespace {

// GetFullPathNameA that passes the first call through and fails the second:
// the platform never does this on demand.
int g_fullPathCalls = 0;
decltype(&GetFullPathNameA) g_fullPathOriginal = nullptr;
DWORD WINAPI FailSecondFullPath(const char* path, DWORD size, char* buffer, char** last) {
    if (++g_fullPathCalls == 2) {
        return 0;
    }
    return g_fullPathOriginal(path, size, buffer, last);
}

// Every case runs in a fresh temporary folder that is also the current
// folder, with the variables it sets restored afterwards.
class PathNormalisationTest : public ::testing::Test {
protected:
    PathNormalisationTest() { Set(L"ZRK_PATH_BASE", m_temp.Path()); }

    // The temporary folder plus a tail.
    std::string Temp(const std::string& tail = "") const { return m_temp.PathA() + tail; }
    bool Exists(const std::string& tail) const { return FolderExists(m_temp.Path() + Text<wchar_t>(tail.c_str())); }
    void Set(const std::wstring& name, const std::wstring& value) {
        m_variables.emplace_back(new ScopedEnvironmentVariable(name, value));
    }
    // Expects `call` to fail on `given` and leave it as it was.
    void ExpectRefused(bool (*call)(std::string&), const std::string& given) {
        std::string path = given;
        EXPECT_FALSE(call(path)) << given;
        EXPECT_EQ(path, given);
    }

    TempFolder m_temp;

private:
    ScopedCurrentDirectory m_cwd{m_temp.Path()};
    std::vector<std::unique_ptr<ScopedEnvironmentVariable>> m_variables;
};

TEST_F(PathNormalisationTest, RelativeAndSlashedPathsBecomeAbsoluteFolders) {
    std::string folder = "data/logs";
    ASSERT_TRUE(EnsureFolderPath(folder));
    EXPECT_EQ(folder, Temp("\\data\\logs\\"));
    EXPECT_TRUE(Exists("\\data\\logs"));

    // As a file path only the folder above the last component is created.
    std::string file = "other/logs";
    ASSERT_TRUE(EnsureFilePath(file));
    EXPECT_EQ(file, Temp("\\other\\logs"));
    EXPECT_TRUE(Exists("\\other"));
    EXPECT_FALSE(Exists("\\other\\logs"));

    // Doubled separators, "." and ".." go; a trailing separator changes
    // nothing for a folder, and leaves a file path without a file name.
    std::string messy = Temp("/x//y/./z/../w"), clean = Temp("\\x\\y\\w\\");
    ASSERT_TRUE(EnsureFolderPath(messy) && EnsureFolderPath(clean));
    EXPECT_EQ(messy, Temp("\\x\\y\\w\\"));
    EXPECT_EQ(clean, messy);
    std::string trailing = "f1/f2/";
    ASSERT_TRUE(EnsureFilePath(trailing));
    EXPECT_EQ(trailing, Temp("\\f1\\f2\\"));
    EXPECT_TRUE(Exists("\\f1\\f2"));

    // An existing folder (183) and an existing file are fine; the file is
    // never touched.
    ASSERT_TRUE(WriteTextFile(m_temp.Join(L"kept.txt"), "content"));
    file = "kept.txt";
    ASSERT_TRUE(EnsureFilePath(file));
    EXPECT_EQ(file, Temp("\\kept.txt"));
    EXPECT_TRUE(FileExists(m_temp.Join(L"kept.txt")));
    folder = Temp();
    ASSERT_TRUE(EnsureFolderPath(folder));
    EXPECT_EQ(folder, Temp("\\"));
}

TEST_F(PathNormalisationTest, EmptyPathAndBareDriveGiveRoots) {
    ExpectRefused(&EnsureFilePath, "");
    // "/fake.file" alone is rooted: a root, not the current folder.
    std::string path;
    ASSERT_TRUE(EnsureFolderPath(path));
    ASSERT_EQ(path.size(), 3u);
    EXPECT_EQ(path.substr(1), ":\\");
    path = Temp().substr(0, 2);  // "C:"
    ASSERT_TRUE(EnsureFolderPath(path));
    EXPECT_EQ(path, Temp().substr(0, 2) + "\\");
}

TEST_F(PathNormalisationTest, FailuresLeaveTheArgumentAlone) {
    // Below a file, and a UNC-looking share that does not exist: the folder
    // cannot be created.
    ASSERT_TRUE(WriteTextFile(m_temp.Join(L"file"), "x"));
    ExpectRefused(&EnsureFolderPath, "file/sub/dir");
    ExpectRefused(&EnsureFolderPath, "//zrk-no-such-host/share/dir");

    g_fullPathCalls = 0;
    ImportPatch patch(CoreModule(), "KERNEL32.dll", "GetFullPathNameA",
                      (void*)&FailSecondFullPath);
    ASSERT_TRUE(patch.Active());
    g_fullPathOriginal = patch.Original<decltype(&GetFullPathNameA)>();
    ExpectRefused(&EnsureFolderPath, "%ZRK_PATH_BASE%/never/made");
    EXPECT_EQ(g_fullPathCalls, 2);
    EXPECT_FALSE(Exists("\\never"));
}

TEST_F(PathNormalisationTest, ReferencesExpandFromTheEnvironment) {
    Set(L"ZRK_PATH_LEAF", L"leaf");
    Set(L"ZRK_PATH_EMPTY", L"");
    Set(L"ZRK_PATH_OUTER", L"%ZRK_PATH_BASE%/outer");  // a reference and a "/"
    Set(L"ZRK_PATH_Y", L"NOT-EXPANDED");
    SetEnvironmentVariableW(L"ZRK_PATH_UNDEFINED", nullptr);

    std::string path = "%ZRK_PATH_OUTER%/%ZRK_PATH_LEAF%%ZRK_PATH_LEAF%";
    ASSERT_TRUE(EnsureFolderPath(path));
    EXPECT_EQ(path, Temp("\\outer\\leafleaf\\"));
    path = "%ZRK_PATH_BASE%/a%ZRK_PATH_EMPTY%b";
    ASSERT_TRUE(EnsureFolderPath(path));
    EXPECT_EQ(path, Temp("\\ab\\"));

    // Unknown and empty names stay and the scan goes on behind them; in the
    // last part the single "%" after the unknown name ends the expansion.
    path = "%ZRK_PATH_BASE%/%ZRK_PATH_UNDEFINED%/%%/50%ZRK_PATH_UNDEFINED%ZRK_PATH_Y%";
    ASSERT_TRUE(EnsureFolderPath(path));
    EXPECT_EQ(path, Temp("\\%ZRK_PATH_UNDEFINED%\\%%\\50%ZRK_PATH_UNDEFINED%ZRK_PATH_Y%\\"));
    EXPECT_TRUE(Exists("\\%ZRK_PATH_UNDEFINED%\\%%"));
}

TEST_F(PathNormalisationTest, ExpansionStopsAt256ReplacementsOr32767Characters) {
    Set(L"ZRK_PATH_SELF", L"%ZRK_PATH_SELF%");
    Set(L"ZRK_PATH_A", L"%ZRK_PATH_B%a");
    Set(L"ZRK_PATH_B", L"b%ZRK_PATH_A%");
    Set(L"ZRK_PATH_TWICE", L"%ZRK_PATH_TWICE%%ZRK_PATH_TWICE%");
    Set(L"ZRK_PATH_LONG", std::wstring(20000, L'x'));
    Set(L"ZRK_PATH_EMPTY", L"");
    for (const char* looping : {"%ZRK_PATH_BASE%/%ZRK_PATH_SELF%", "%ZRK_PATH_A%",
                                "x/%ZRK_PATH_TWICE%", "%ZRK_PATH_LONG%%ZRK_PATH_LONG%"}) {
        ExpectRefused(&EnsureFolderPath, looping);
    }

    std::string text = "%ZRK_PATH_BASE%/f";  // one replacement, and 255 more
    for (int i = 0; i < 255; ++i) {
        text += "%ZRK_PATH_EMPTY%";
    }
    std::string path = text;
    ASSERT_TRUE(EnsureFilePath(path));
    EXPECT_EQ(path, Temp("\\f"));
    ExpectRefused(&EnsureFilePath, text + "%ZRK_PATH_EMPTY%");
}

TEST_F(PathNormalisationTest, DeleteTakesThePathLiterally) {
    Set(L"ZRK_PATH_LEAF", L"leaf");
    ASSERT_TRUE(WriteTextFile(m_temp.Join(L"%ZRK_PATH_LEAF%.txt"), "x"));
    ASSERT_TRUE(WriteTextFile(m_temp.Join(L"leaf.txt"), "x"));
    ASSERT_TRUE(WriteTextFile(m_temp.Join(L"wide.txt"), "x"));
    EXPECT_TRUE(zrkDeleteFileA("%ZRK_PATH_LEAF%.txt"));
    EXPECT_FALSE(zrkDeleteFileA("%ZRK_PATH_LEAF%.txt"));
    EXPECT_TRUE(FileExists(m_temp.Join(L"leaf.txt")));
    EXPECT_TRUE(zrkDeleteFileW(L"wide.txt"));
    EXPECT_FALSE(zrkDeleteFileW(L"wide.txt"));
}

TEST_F(PathNormalisationTest, WideOverloadsUseTheWideEntries) {
    Set(L"ZRK_PATH_WIDE", L"donn\u00E9es");
    std::wstring folder = L"%ZRK_PATH_WIDE%/\u65E5\u672C";
    ASSERT_TRUE(EnsureFolderPath(folder));
    EXPECT_EQ(folder, m_temp.Path() + L"\\donn\u00E9es\\\u65E5\u672C\\");
    EXPECT_TRUE(FolderExists(m_temp.Path() + L"\\donn\u00E9es\\\u65E5\u672C"));
    std::wstring file = L"\u00E9t\u00E9/notes.txt";
    ASSERT_TRUE(EnsureFilePath(file));
    EXPECT_EQ(file, m_temp.Path() + L"\\\u00E9t\u00E9\\notes.txt");

    std::wstring belowFile = L"notes/x";
    ASSERT_TRUE(WriteTextFile(m_temp.Join(L"notes"), "x"));
    EXPECT_FALSE(EnsureFolderPath(belowFile));
    EXPECT_EQ(belowFile, L"notes/x");
}

}  // namespace
