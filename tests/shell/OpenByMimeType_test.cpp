// Opening files by MIME type: end to end through the real shell, with a
// registered command that starts RecordCommandLine.exe; and the fallback
// decisions, with ShellExecute's answers under the test's control.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "shell/ShellRegistration.h"
#include "support/ImportPatch.h"
#include "support/ScopedState.h"
#include "zrkCore.h"

namespace {

template <class Ch>
struct Width;
template <>
struct Width<char> {
    static bool Open(const std::wstring& mimeType, const std::wstring& path, bool fallback) {
        return zrkOpenFileByMimeTypeA(Narrow(mimeType), Narrow(path).c_str(), fallback);
    }
    static bool Execute(bool withFallbackVerb) {
        return zrkShellExecuteA("open", "C:\\a.txt", withFallbackVerb ? "openas" : nullptr);
    }
    static constexpr const char* kImport = "ShellExecuteA";
    static constexpr bool kNarrow = true;
};
template <>
struct Width<wchar_t> {
    static bool Open(const std::wstring& mimeType, const std::wstring& path, bool fallback) {
        return zrkOpenFileByMimeTypeW(mimeType, path.c_str(), fallback);
    }
    static bool Execute(bool withFallbackVerb) {
        return zrkShellExecuteW(L"open", L"C:\\a.txt", withFallbackVerb ? L"openas" : nullptr);
    }
    static constexpr const char* kImport = "ShellExecuteW";
    static constexpr bool kNarrow = false;
};

template <class Ch>
class OpenByMimeType : public ::testing::Test {
protected:
    OpenByMimeType() : m_registration(L"open") {}
    ShellRegistration m_registration;
};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(OpenByMimeType, Widths);

std::wstring Quoted(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

// The launch is asynchronous: waits (at most 20 s) for the helper's record.
std::wstring AwaitRecord(const std::wstring& file) {
    for (int waited = 0; waited < 20000 && !FileExists(file); waited += 50) {
        Sleep(50);
    }
    std::ifstream in(std::filesystem::path(file), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), {});
    return in ? std::wstring(reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / 2)
              : L"<no record>";
}

TYPED_TEST(OpenByMimeType, TheRegisteredProgramGetsTheFileInOnePairOfQuotes) {
    TempFolder folder;
    const std::wstring record = folder.Join(L"record.txt");
    ScopedEnvironmentVariable recordTo(L"ZRK_RECORD_FILE", record);
    wchar_t self[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    const std::wstring helper = std::wstring(self).substr(0, std::wstring(self).rfind(L'\\')) +
                                L"\\RecordCommandLine.exe";
    const std::wstring spaced = folder.Join(L"with blank.exe");
    ASSERT_TRUE(CopyFileW(helper.c_str(), spaced.c_str(), FALSE));
    const std::wstring file = folder.Join(L"my file.txt");
    const std::wstring patterned = folder.Join(L"%1 %L %l.txt");

    struct Case {
        std::wstring program, arguments, path, parameters;
    };
    for (const Case& c : std::vector<Case>{
             {Quoted(helper), L"\"%1\"", file, Quoted(file)},
             {helper, L"%1", file, Quoted(file)},
             {helper, L"/p \"%1\" %L", file, L"/p " + Quoted(file) + L" " + Quoted(file)},
             {helper, L"/p", file, L"/p " + Quoted(file)},
             {helper, L"", file, L" " + Quoted(file)},
             {Quoted(spaced), L"%l", file, Quoted(file)},
             // A path holding patterns is put in as it is, and only once.
             {helper, L"%2 \"%1\" %L", patterned,
              L"%2 " + Quoted(patterned) + L" " + Quoted(patterned)},
             {helper, L"%1", Quoted(file), Quoted(file)},
         }) {
        const std::wstring command = c.arguments.empty() ? c.program : c.program + L" " + c.arguments;
        ASSERT_TRUE(this->m_registration.SetCommand(command));
        DeleteFileW(record.c_str());
        ASSERT_TRUE(Width<TypeParam>::Open(this->m_registration.MimeType(), c.path, false))
            << command;
        // The program sees its own path quoted, one blank, then the
        // parameters exactly as they were passed.
        EXPECT_EQ(AwaitRecord(record),
                  (c.program[0] == L'"' ? c.program : Quoted(c.program)) + L" " + c.parameters)
            << command;
    }
}

// ShellExecute redirected to a recorder that answers from a planned list.
std::vector<std::wstring> g_launches;  // "verb|file|parameters"
std::deque<std::uintptr_t> g_answers;

template <class Ch>
std::wstring Logged(const Ch* text) {
    std::wstring out = text == nullptr ? L"<null>" : L"";
    for (; text != nullptr && *text != 0; ++text) {
        out += static_cast<wchar_t>(*text);
    }
    return out;
}

template <class Ch>
HINSTANCE WINAPI RecordLaunch(HWND owner, const Ch* verb, const Ch* file, const Ch* parameters,
                              const Ch* directory, INT show) {
    EXPECT_TRUE(owner == nullptr && directory == nullptr && show == 10);
    g_launches.push_back(Logged(verb) + L"|" + Logged(file) + L"|" + Logged(parameters));
    const std::uintptr_t answer = g_answers.empty() ? 2 : g_answers.front();
    if (!g_answers.empty()) {
        g_answers.pop_front();
    }
    return reinterpret_cast<HINSTANCE>(answer);
}

template <class Ch>
class ShellFallback : public OpenByMimeType<Ch> {
protected:
    ShellFallback()
        : m_patch(CoreModule(), "SHELL32.dll", Width<Ch>::kImport,
                  reinterpret_cast<void*>(&RecordLaunch<Ch>)) {}

    // Runs `call` with ShellExecute answering `answers` in turn; checks its
    // result and returns the launches it asked for.
    std::vector<std::wstring> Launches(std::initializer_list<std::uintptr_t> answers,
                                       const std::function<bool()>& call, bool result) {
        g_launches.clear();
        g_answers.assign(answers);
        EXPECT_EQ(call(), result);
        return g_launches;
    }

    ImportPatch m_patch;
};
TYPED_TEST_SUITE(ShellFallback, Widths);
using Launches = std::vector<std::wstring>;

TYPED_TEST(ShellFallback, OnlyNoAssociationAndAccessDeniedGoOnToTheSecondVerb) {
    ASSERT_TRUE(this->m_patch.Active());
    auto execute = [](bool withFallbackVerb) {
        return [=] { return Width<TypeParam>::Execute(withFallbackVerb); };
    };
    EXPECT_EQ(this->Launches({31, 42}, execute(true), true),
              (Launches{L"open|C:\\a.txt|<null>", L"openas|C:\\a.txt|<null>"}));
    EXPECT_EQ(this->Launches({5, 42}, execute(true), true).size(), 2u);
    EXPECT_EQ(this->Launches({5, 2}, execute(true), false).size(), 2u);
    EXPECT_EQ(this->Launches({2, 42}, execute(true), false).size(), 1u);
    EXPECT_EQ(this->Launches({31, 42}, execute(false), false).size(), 1u);
    EXPECT_EQ(this->Launches({32}, execute(true), false).size(), 1u);
    EXPECT_EQ(this->Launches({33}, execute(true), true).size(), 1u);
    // Only the low 32 bits of the answer count.
    EXPECT_EQ(this->Launches({0x100000000u + 31, 42}, execute(true), true).size(), 2u);
    EXPECT_EQ(this->Launches({0x100000000u + 2, 42}, execute(true), false).size(), 1u);
}

TYPED_TEST(ShellFallback, EachFormHandsTheShellItsOwnPath) {
    ASSERT_TRUE(this->m_patch.Active());
    const std::wstring path = L"C:\\d\\a.txt", quoted = Quoted(path);
    const std::wstring unknown = L"application/x-zrk-never-registered";
    const std::wstring mimeType = this->m_registration.MimeType();
    auto open = [](const std::wstring& type, const std::wstring& file, bool fallback) {
        return [=] { return Width<TypeParam>::Open(type, file, fallback); };
    };
    // A failed lookup (no extension; no "open" command; an unclosed quote):
    // the narrow form hands on the quoted path, the wide form the caller's.
    const std::wstring early = Width<TypeParam>::kNarrow ? quoted : path;
    EXPECT_EQ(this->Launches({31, 42}, open(unknown, path, true), true),
              (Launches{L"open|" + early + L"|<null>", L"openas|" + early + L"|<null>"}));
    EXPECT_EQ(this->Launches({42}, open(mimeType, path, true), true),
              Launches{L"open|" + early + L"|<null>"});
    ASSERT_TRUE(this->m_registration.SetCommand(L"\"C:\\v.exe %1"));
    EXPECT_EQ(this->Launches({42}, open(mimeType, path, true), true),
              Launches{L"open|" + early + L"|<null>"});
    EXPECT_EQ(this->Launches({42}, open(unknown, quoted, true), true),
              Launches{L"open|" + quoted + L"|<null>"});
    EXPECT_TRUE(this->Launches({42}, open(unknown, path, false), false).empty());

    // A failed launch of the registered program: the quoted path in both.
    ASSERT_TRUE(this->m_registration.SetCommand(L"\"C:\\b c\\v.exe\" /p"));
    EXPECT_EQ(this->Launches({2, 5, 42}, open(mimeType, path, true), true),
              (Launches{L"open|\"C:\\b c\\v.exe\"|/p " + quoted, L"open|" + quoted + L"|<null>",
                        L"openas|" + quoted + L"|<null>"}));
    EXPECT_EQ(this->Launches({2, 2, 42}, open(mimeType, path, true), false).size(), 2u);
    EXPECT_EQ(this->Launches({31, 42}, open(mimeType, path, false), false).size(), 1u);

    // An empty path is two quotes, appended behind one blank.
    ASSERT_TRUE(this->m_registration.SetCommand(L"C:\\v.exe"));
    EXPECT_EQ(this->Launches({42}, open(mimeType, L"", false), true),
              Launches{L"open|C:\\v.exe| \"\""});
}

}  // namespace
