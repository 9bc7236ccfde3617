// Opening files by MIME type: through the real shell to RecordCommandLine.exe,
// and the fallback decisions with ShellExecute's answers under the test's control.
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <tuple>
#include <vector>

#include "shell/ShellRegistration.h"
#include "support/ImportPatch.h"

template <class Ch>
class OpenByMimeTypeTest : public ::testing::Test {};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(OpenByMimeTypeTest, Widths);

TYPED_TEST(OpenByMimeTypeTest, TheRegisteredProgramGetsTheFileInOnePairOfQuotes) {
    ShellRegistration registration;
    TempFolder folder;
    char self[MAX_PATH] = {};  // the helper lies beside this program
    std::string helper(self, GetModuleFileNameA(nullptr, self, MAX_PATH));
    helper = '"' + helper.substr(0, helper.rfind('\\')) + "\\Record Command Line.exe\"";
    const std::string record = folder.PathA() + "\\r", file = folder.PathA() + "\\%1 %l";
    ScopedEnvironmentVariable recordTo(L"ZRK_RECORD_FILE", Text<wchar_t>(record));
    ASSERT_TRUE(registration.SetCommand(Text<wchar_t>(helper + " %2 \"%1\" %L")));
    ASSERT_TRUE(Pick<TypeParam>(&zrkOpenFileByMimeTypeA, &zrkOpenFileByMimeTypeW)(
        Text<TypeParam>(registration.mimeType), Text<TypeParam>(file).c_str(), false));
    std::ifstream in;  // the launch is asynchronous: wait (at most 20 s) for the record
    for (int tries = 0; tries < 400 && !in.is_open(); ++tries, Sleep(50)) {
        in.open(record, std::ios::binary);
    }
    // Its own path quoted, one blank, the parameters; the file's own patterns stay as they are.
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}),
              helper + " %2 \"" + file + "\" \"" + file + '"');
}

// ShellExecute redirected: each launch is logged as "verb file[ parameters]" and
// answered from a planned list, then with 2 (file not found).
static std::vector<std::wstring> g_log;
static std::vector<std::uintptr_t> g_answers;

template <class Ch>
HINSTANCE WINAPI RecordLaunch(HWND owner, const Ch* verb, const Ch* file, const Ch* parameters,
                              const Ch* folder, INT show) {
    EXPECT_TRUE(owner == nullptr && folder == nullptr && show == SW_SHOWDEFAULT);
    const std::size_t call = g_log.size();
    g_log.push_back(Text<wchar_t>(verb) + L" " + Text<wchar_t>(file) +
                    (parameters ? L" " + Text<wchar_t>(parameters) : L""));
    return reinterpret_cast<HINSTANCE>(call < g_answers.size() ? g_answers[call] : 2);
}

TYPED_TEST(OpenByMimeTypeTest, FallsBackToTheShellOnlyWhereItShouldAndWithTheRightPath) {
    using Ch = TypeParam;
    ImportPatch patch(CoreModule(), "SHELL32.dll", Pick<Ch>("ShellExecuteA", "ShellExecuteW"),
                      reinterpret_cast<void*>(&RecordLaunch<Ch>));
    ASSERT_TRUE(patch.Active());
    ShellRegistration registration;
    const std::wstring none = L"x/none", known = registration.mimeType;
    // After a failed lookup the narrow form hands on the quoted path, the wide form its own.
    const std::wstring p = sizeof(Ch) == 1 ? L"\"a\"" : L"a";
    // MIME type, command set first unless null, shell fallback, answers, result, launches.
    using Case = std::tuple<std::wstring, const wchar_t*, bool, std::vector<std::uintptr_t>, bool,
                            std::vector<std::wstring>>;
    for (const auto& [mimeType, command, fallback, answers, result, log] : std::vector<Case>{
             // Only 31 and 5 go on to "openas"; the low 32 bits, read unsigned, above 32 pass.
             {none, nullptr, true, {5, 0xFFFFFFFF}, true, {L"open " + p, L"openas " + p}},
             {none, nullptr, true, {31, 33}, true, {L"open " + p, L"openas " + p}},
             {none, nullptr, true, {0x100000020, 42}, false, {L"open " + p}},
             {none, nullptr, false, {42}, false, {}},
             {known, nullptr, true, {42}, true, {L"open " + p}},  // no "open" command
             {known, L"\"C:\\v.exe %1", true, {42}, true, {L"open " + p}},
             // A failed launch of the registered program: the quoted path in both forms.
             {known, L"C:\\v.exe /p", true, {31, 5, 42}, true,
              {L"open C:\\v.exe /p \"a\"", L"open \"a\"", L"openas \"a\""}},
             {known + L'\0' + L"x", nullptr, true, {42}, false, {}},  // before any lookup
         }) {
        if (command != nullptr) {
            ASSERT_TRUE(registration.SetCommand(command));
        }
        g_log.clear();
        g_answers = answers;
        EXPECT_EQ(Pick<Ch>(&zrkOpenFileByMimeTypeA, &zrkOpenFileByMimeTypeW)(
                      Text<Ch>(mimeType), Text<Ch>("a").c_str(), fallback), result);
        EXPECT_EQ(g_log, log);
    }
    g_log.clear();  // without a second verb 31 ends it
    g_answers = {31, 42};
    EXPECT_FALSE(Pick<Ch>(&zrkShellExecuteA, &zrkShellExecuteW)(
        Text<Ch>("open").c_str(), Text<Ch>("a").c_str(), nullptr));
    EXPECT_EQ(g_log, std::vector<std::wstring>{L"open a"});
}
