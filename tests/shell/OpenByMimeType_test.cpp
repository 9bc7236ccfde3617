// Opening files by MIME type: end to end through the real shell, with a
// registered command that starts RecordCommandLine.exe; and the fallback
// decisions, with ShellExecute's answers under the test's control.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "shell/ShellRegistration.h"
#include "support/ImportPatch.h"

namespace {

template <class Ch>
class OpenByMimeType : public ::testing::Test {};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(OpenByMimeType, Widths);

// The open of width Ch, to be called later.
template <class Ch>
auto Open(const std::wstring& mimeType, const std::wstring& path, bool fallback) {
    return [=] {
        return Pick<Ch>(&zrkOpenFileByMimeTypeA, &zrkOpenFileByMimeTypeW)(
            Text<Ch>(mimeType), Text<Ch>(path).c_str(), fallback);
    };
}

std::wstring Quoted(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

// The launch is asynchronous: waits (at most 20 s) until the helper has
// written and closed its record.
std::wstring AwaitRecord(const std::wstring& record) {
    std::ifstream in;
    for (int waited = 0; waited < 20000 && !in.is_open(); waited += 50, Sleep(50)) {
        in.open(std::filesystem::path(record), std::ios::binary);
    }
    const std::string bytes((std::istreambuf_iterator<char>(in)), {});
    return std::wstring(reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / 2);
}

TYPED_TEST(OpenByMimeType, TheRegisteredProgramGetsTheFileInOnePairOfQuotes) {
    ShellRegistration registration;
    TempFolder folder;
    const std::wstring record = folder.Join(L"record.txt");
    ScopedEnvironmentVariable recordTo(L"ZRK_RECORD_FILE", record);
    std::wstring helper(MAX_PATH, L'\0');  // the helper lies beside this program
    helper.resize(GetModuleFileNameW(nullptr, &helper[0], MAX_PATH));
    helper = helper.substr(0, helper.rfind(L'\\')) + L"\\RecordCommandLine.exe";
    const std::wstring spaced = folder.Join(L"with blank.exe");
    ASSERT_TRUE(CopyFileW(helper.c_str(), spaced.c_str(), FALSE));
    const std::wstring file = folder.Join(L"my file.txt"), quoted = Quoted(file);
    const std::wstring patterned = folder.Join(L"%1 %L %l.txt"), longText(1000, L'x');
    struct Case {
        std::wstring program, arguments, path, parameters;
    };
    for (const Case& c : std::vector<Case>{
             {Quoted(helper), L"\"%1\"", file, quoted},
             {helper, L"%1 %L", file, quoted + L" " + quoted},
             {helper, L"/p" + longText, file, L"/p" + longText + L" " + quoted},  // no limit
             {Quoted(spaced), L"%l", file, quoted},
             // A path holding patterns is put in as it is, and only once.
             {helper, L"%2 \"%1\" %L", patterned,
              L"%2 " + Quoted(patterned) + L" " + Quoted(patterned)},
         }) {
        const std::wstring command = c.program + L" " + c.arguments;
        ASSERT_TRUE(registration.SetCommand(command));
        DeleteFileW(record.c_str());
        ASSERT_TRUE(Open<TypeParam>(registration.mimeType, c.path, false)()) << command;
        // The program sees its own path quoted, one blank, then the
        // parameters exactly as they were passed.
        EXPECT_EQ(AwaitRecord(record),
                  (c.program[0] == L'"' ? c.program : Quoted(c.program)) + L" " + c.parameters)
            << command;
    }
}

// ShellExecute redirected to a recorder that answers from a planned list,
// and 2 (file not found) once the list is used up.
using Launches = std::vector<std::wstring>;  // "verb|file|parameters"
Launches g_launches;
std::vector<std::uintptr_t> g_answers;

template <class Ch>
std::wstring Logged(const Ch* text) {
    return text == nullptr ? L"<null>" : std::wstring(text, text + String<Ch>(text).size());
}

template <class Ch>
HINSTANCE WINAPI RecordLaunch(HWND owner, const Ch* verb, const Ch* file, const Ch* parameters,
                              const Ch* directory, INT show) {
    EXPECT_TRUE(owner == nullptr && directory == nullptr && show == SW_SHOWDEFAULT);
    const std::size_t call = g_launches.size();
    g_launches.push_back(Logged(verb) + L"|" + Logged(file) + L"|" + Logged(parameters));
    return reinterpret_cast<HINSTANCE>(call < g_answers.size() ? g_answers[call] : 2);
}

// Runs `call` with ShellExecute answering `answers`; checks its result, returns the launches.
template <class Call>
Launches Run(std::vector<std::uintptr_t> answers, Call call, bool result) {
    g_launches.clear();
    g_answers = answers;
    EXPECT_EQ(call(), result);
    return g_launches;
}

TYPED_TEST(OpenByMimeType, HandsTheShellTheRightCallsAndFallsBackOnlyWhereItShould) {
    using Ch = TypeParam;
    ImportPatch patch(CoreModule(), "SHELL32.dll", Pick<Ch>("ShellExecuteA", "ShellExecuteW"),
                      reinterpret_cast<void*>(&RecordLaunch<Ch>));
    ASSERT_TRUE(patch.Active());
    ShellRegistration registration;
    const std::wstring path = L"C:\\d\\a.txt", quoted = Quoted(path);
    const std::wstring unknown = L"application/x-zrk-unknown", mimeType = registration.mimeType;
    // 31 (no association) and 5 (access denied) go on to "openas"; above 32 is accepted.
    const auto openUnknown = Open<Ch>(unknown, path, true);
    EXPECT_EQ(Run({5, 2}, openUnknown, false).size(), 2u);
    EXPECT_EQ(Run({2, 42}, openUnknown, false).size(), 1u);
    EXPECT_EQ(Run({32}, openUnknown, false).size(), 1u);
    EXPECT_EQ(Run({33}, openUnknown, true).size(), 1u);
    const auto withoutSecondVerb = [] {
        return Pick<Ch>(&zrkShellExecuteA, &zrkShellExecuteW)(
            Text<Ch>("open").c_str(), Text<Ch>("C:\\a.txt").c_str(), nullptr);
    };
    EXPECT_EQ(Run({31, 42}, withoutSecondVerb, false), Launches{L"open|C:\\a.txt|<null>"});

    // A failed lookup (no extension; no "open" command; an unclosed quote):
    // the narrow form hands on the quoted path, the wide form the caller's.
    const std::wstring early = sizeof(Ch) == 1 ? quoted : path;
    const Launches earlyOpen{L"open|" + early + L"|<null>"};
    EXPECT_EQ(Run({31, 42}, openUnknown, true),
              (Launches{earlyOpen[0], L"openas|" + early + L"|<null>"}));
    EXPECT_EQ(Run({42}, Open<Ch>(mimeType, path, true), true), earlyOpen);
    ASSERT_TRUE(registration.SetCommand(L"\"C:\\v.exe %1"));
    EXPECT_EQ(Run({42}, Open<Ch>(mimeType, path, true), true), earlyOpen);
    EXPECT_TRUE(Run({42}, Open<Ch>(unknown, path, false), false).empty());

    // A failed launch of the registered program: the quoted path in both.
    ASSERT_TRUE(registration.SetCommand(L"\"C:\\b c\\v.exe\" /p"));
    EXPECT_EQ(Run({2, 5, 42}, Open<Ch>(mimeType, path, true), true),
              (Launches{L"open|\"C:\\b c\\v.exe\"|/p " + quoted, L"open|" + quoted + L"|<null>",
                        L"openas|" + quoted + L"|<null>"}));
    EXPECT_EQ(Run({31, 42}, Open<Ch>(mimeType, path, false), false).size(), 1u);

    // The quoted file in every pattern of the arguments, or appended.
    struct Case {
        const wchar_t *arguments, *path, *parameters;
    };
    for (const Case& c : std::vector<Case>{
             {LR"(%1 %1 "%L"x"%l" %l)", LR"(C:\a b)",
              LR"("C:\a b" "C:\a b" "C:\a b"x"C:\a b" "C:\a b")"},
             {LR"(%2 %* %D /p)", LR"(C:\a b)", LR"(%2 %* %D /p "C:\a b")"},
             {LR"(%%1)", LR"(C:\a b)", LR"(%"C:\a b")"},
             {L"", L"", LR"( "")"},
             {L"%1", LR"("C:\a b")", LR"("C:\a b")"},
             {L"%1", LR"("C:\a)", LR"("C:\a)"},
             // A quoted pattern may take the closing quote of a path that an
             // earlier pass put in, as the plain passes would.
             {LR"(%1%L")", LR"(C:\a b)", LR"("C:\a b"C:\a b")"},
             // A path's own patterns are never replaced again.
             {LR"("%1" %L)", LR"(C:\%1 "%L" %l)", LR"("C:\%1 "%L" %l" "C:\%1 "%L" %l")"},
         }) {
        ASSERT_TRUE(registration.SetCommand(L"C:\\v.exe " + std::wstring(c.arguments)));
        EXPECT_EQ(Run({42}, Open<Ch>(mimeType, c.path, false), true),
                  Launches{L"open|C:\\v.exe|" + std::wstring(c.parameters)})
            << c.arguments;
    }
}

}  // namespace
