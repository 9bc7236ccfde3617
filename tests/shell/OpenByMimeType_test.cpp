// Opening files by MIME type: one launch through the real shell, and the fallback decisions.
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <vector>

#include "shell/ShellRegistration.h"
#include "support/ImportPatch.h"

ZRK_TEST_SUITE_OVER_BOTH_WIDTHS(OpenByMimeTypeTest);

TEST(OpenByMimeTypeTest, TheRegisteredProgramGetsTheFileInOnePairOfQuotes) {
    ShellRegistration registration;
    TempFolder folder;
    char self[MAX_PATH] = {};  // the helper lies beside this program
    std::string helper(self, GetModuleFileNameA(nullptr, self, MAX_PATH));
    helper = '"' + helper.substr(0, helper.rfind('\\')) + "\\Record Command Line.exe\"";
    const std::string file = folder.PathA() + "\\a b";  // the helper writes its command line there
    ASSERT_TRUE(registration.SetCommand(Text<wchar_t>(helper + " /p \"%1\"")));
    ASSERT_TRUE(zrkOpenFileByMimeTypeA(Text<char>(registration.mimeType), file.c_str(), false));
    std::ifstream in;  // the launch is asynchronous: wait (at most 20 s) for the record
    for (int tries = 0; tries < 400 && !in.is_open(); ++tries) {
        Sleep(50);
        in.open(file, std::ios::binary);
    }
    // Its own path quoted, one blank, the parameters.
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), helper + " /p \"" + file + '"');
}

// ShellExecute's launches as "verb file[ parameters]", and its planned answers, then 2.
static std::vector<std::wstring> g_log;
static std::vector<std::uintptr_t> g_answers;

TYPED_TEST(OpenByMimeTypeTest, FallsBackToTheShellOnlyWhereItShouldAndWithTheRightPath) {
    using Ch = TypeParam;
    const auto recordLaunch = +[](HWND owner, const Ch* verb, const Ch* file, const Ch* parameters,
                                  const Ch* folder, INT show) {
        EXPECT_TRUE(owner == nullptr && folder == nullptr && show == SW_SHOWDEFAULT);
        const std::size_t call = g_log.size();
        g_log.push_back(Text<wchar_t>(verb) + L" " + Text<wchar_t>(file) +
                        (parameters ? L" " + Text<wchar_t>(parameters) : L""));
        return reinterpret_cast<HINSTANCE>(call < g_answers.size() ? g_answers[call] : 2);
    };
    ImportPatch patch(CoreModule(), "SHELL32.dll", Pick<Ch>("ShellExecuteA", "ShellExecuteW"),
                      reinterpret_cast<void*>(recordLaunch));
    ShellRegistration registration;
    const std::wstring none = L"x/none", known = registration.mimeType;
    // Opens "a" as `mimeType` with ShellExecute answering `answers`: the launches, then the result.
    const auto open = [](const std::wstring& mimeType, bool fallback,
                         std::vector<std::uintptr_t> answers) {
        g_log.clear();
        g_answers = answers;
        const bool opened = Pick<Ch>(&zrkOpenFileByMimeTypeA, &zrkOpenFileByMimeTypeW)(
            Text<Ch>(mimeType), Text<Ch>("a").c_str(), fallback);
        g_log.push_back(opened ? L"true" : L"false");
        return g_log;
    };
    using Log = std::vector<std::wstring>;
    // After a failed lookup the narrow form hands on the quoted path, the wide form its own.
    const std::wstring p = sizeof(Ch) == 1 ? L"\"a\"" : L"a";
    // Only 31 and 5 go on to "openas"; the low 32 bits, read unsigned, above 32 pass.
    EXPECT_EQ(open(none, true, {31, 0xFFFFFFFF}), (Log{L"open " + p, L"openas " + p, L"true"}));
    EXPECT_EQ(open(none, true, {0x100000020, 42}), (Log{L"open " + p, L"false"}));
    EXPECT_EQ(open(none, false, {33}), Log{L"false"});
    EXPECT_EQ(open(known, true, {33}), (Log{L"open " + p, L"true"}));  // no "open" command
    ASSERT_TRUE(registration.SetCommand(L"\"C:\\v.exe %1"));  // a quote that nothing closes
    EXPECT_EQ(open(known, true, {42}), (Log{L"open " + p, L"true"}));
    // A failed launch of the registered program: the quoted path in both forms.
    ASSERT_TRUE(registration.SetCommand(L"C:\\v.exe /p"));
    EXPECT_EQ(open(known, true, {31, 5, 42}),
              (Log{L"open C:\\v.exe /p \"a\"", L"open \"a\"", L"openas \"a\"", L"true"}));
    EXPECT_EQ(open(known + L'\0' + L"x", true, {42}), Log{L"false"});  // refused before any lookup
    g_log.clear();  // without a second verb 31 ends it
    g_answers = {31, 42};
    EXPECT_FALSE(Pick<Ch>(&zrkShellExecuteA, &zrkShellExecuteW)(
        Text<Ch>("open").c_str(), Text<Ch>("a").c_str(), nullptr));
    EXPECT_EQ(g_log, Log{L"open a"});
}
