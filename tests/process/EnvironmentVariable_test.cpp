#include "process/EnvironmentVariable.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"

// Narrow cases; the wide face, the same code, need only reach the wide entries.

namespace {

using EV = EnvironmentVariable;

class EnvironmentVariableTest : public ::testing::Test {
protected:
    ScopedEnvironmentVariable m_guard{L"ZRK_ENV"};
};

// GetEnvironmentVariableA and SetEnvironmentVariableA replaced by stand-ins
// that count their calls and answer from a script: the get answers in turn
// (0 once they are used up) with `getError` as the last error.
struct Script {
    std::vector<DWORD> getAnswers;
    DWORD getError = 0;
    BOOL setAnswer = 1;
    int getCalls = 0, setCalls = 0;
} g_script;

class ScriptedEnvironmentTest : public EnvironmentVariableTest {
protected:
    static DWORD WINAPI Get(const char*, char*, DWORD) {
        SetLastError(g_script.getError);
        const std::size_t call = g_script.getCalls++;
        return call < g_script.getAnswers.size() ? g_script.getAnswers[call] : 0;
    }
    static BOOL WINAPI Set(const char*, const char*) {
        ++g_script.setCalls;
        return g_script.setAnswer;
    }
    void SetUp() override { g_script = Script(); }
    ImportPatch m_get{CoreModule(), "KERNEL32.dll", "GetEnvironmentVariableA", (void*)&Get};
    ImportPatch m_set{CoreModule(), "KERNEL32.dll", "SetEnvironmentVariableA", (void*)&Set};
};

TEST_F(EnvironmentVariableTest, SetsCreateOnlyWhenAllowedAndArraysKeepTheirOrder) {
    EXPECT_FALSE(EV::SetStringA("ZRK_ENV", "new", false));
    EXPECT_FALSE(EV::ExistsA("ZRK_ENV"));
    ASSERT_TRUE(EV::SetArrayA("ZRK_ENV", {"a", "", "b;c"}, true));
    EXPECT_FALSE(EV::SetStringA("ZRK_ENV", "", true));  // no way to make it empty
    EXPECT_TRUE(EV::SetStringA("ZRK_ENV", "replaced;a;;b;c", false));  // exists: replaced
    std::vector<std::string> values{"kept"};
    ASSERT_TRUE(EV::GetArrayA("ZRK_ENV", &values));
    EXPECT_EQ(values, (std::vector<std::string>{"kept", "replaced", "a", "b", "c"}));
    EXPECT_TRUE(EV::DeleteA("ZRK_ENV"));
    EXPECT_FALSE(EV::ExistsA("ZRK_ENV"));
}

// Empty names, a null output and text holding a zero character: false, the
// output unchanged, and not a single platform call. The array forms go
// through the checks of the string forms.
TEST_F(ScriptedEnvironmentTest, BadInputFailsBeforeAnyPlatformCall) {
    const std::string nul("ZN\0UL", 5);
    std::string value = "kept";
    for (const auto& call : std::vector<std::function<bool()>>{
             [&] { return EV::GetStringA("", &value); },
             [&] { return EV::GetStringA("ZRK_ENV", nullptr); },
             [&] { return EV::SetStringA("", "v", true); },
             [&] { return EV::DeleteA(""); },
             [&] { return EV::ExistsA(nul); },
             [&] { return EV::GetStringA(nul, &value); },
             [&] { return EV::SetStringA(nul, "v", true); },
             [&] { return EV::SetStringA("ZRK_ENV", std::string("\0abc", 4), true); },
             [&] { return EV::SetArrayA("ZRK_ENV", {"a", std::string("b\0c", 3)}, true); },
             [&] { return EV::DeleteA(nul); }}) {
        EXPECT_FALSE(call());
    }
    EXPECT_EQ(g_script.getCalls + g_script.setCalls, 0);
    EXPECT_EQ(value, "kept");
}

TEST_F(ScriptedEnvironmentTest, OnlyNotFoundMeansMissingAndReadFailuresLeaveTheDocumentedOutput) {
    std::string value = "kept";
    for (DWORD error : {ERROR_ENVVAR_NOT_FOUND, ERROR_ACCESS_DENIED}) {
        g_script.getError = error;
        EXPECT_EQ(EV::ExistsA(""), error != ERROR_ENVVAR_NOT_FOUND);  // "" is asked too
        EXPECT_FALSE(EV::GetStringA("ZRK_ENV", &value));
        EXPECT_EQ(value, error == ERROR_ENVVAR_NOT_FOUND ? "kept" : "");
    }
    // 6 announced, 3 read (changed meanwhile): the announced size, no retry.
    g_script = Script{{6, 3}};
    EXPECT_FALSE(EV::GetStringA("ZRK_ENV", &value));
    EXPECT_EQ(value.size(), 6u);
    EXPECT_EQ(g_script.getCalls, 2);
}

TEST_F(ScriptedEnvironmentTest, SetsTakeUpTo32767CharactersAndSucceedOnlyOnAnAnswerOfOne) {
    const std::string longest(32767, 'x');
    EXPECT_TRUE(EV::SetStringA("ZRK_ENV", longest, true));
    EXPECT_FALSE(EV::SetStringA("ZRK_ENV", longest + 'x', true));
    EXPECT_FALSE(EV::SetArrayA("ZRK_ENV", {longest.substr(16384), longest.substr(16383)}, true));
    EXPECT_EQ(g_script.setCalls, 1);
    g_script.setAnswer = 2;
    EXPECT_FALSE(EV::SetStringA("ZRK_ENV", "v", true));
    EXPECT_FALSE(EV::DeleteA("ZRK_ENV"));
}

TEST_F(EnvironmentVariableTest, WideFormsUseTheWideEntries) {
    ASSERT_TRUE(EV::SetStringW(L"ZRK_ENV", L"Gr\u00FC\u00DFe;\u2603 \U0001F600", true));
    EXPECT_FALSE(EV::SetStringW(L"ZRK_ENV", std::wstring(L"a\0b", 3), false));
    std::vector<std::wstring> values;
    ASSERT_TRUE(EV::GetArrayW(L"ZRK_ENV", &values));
    EXPECT_EQ(values, (std::vector<std::wstring>{L"Gr\u00FC\u00DFe", L"\u2603 \U0001F600"}));
    EXPECT_TRUE(EV::DeleteW(L"ZRK_ENV"));
    EXPECT_FALSE(EV::ExistsW(L"ZRK_ENV"));
}

}  // namespace
