#include "process/EnvironmentVariable.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"

// The narrow face carries the cases: both faces run one implementation, so
// the wide face only shows that it reaches the wide platform entries.

namespace {

using EV = EnvironmentVariable;
using Strings = std::vector<std::string>;

// Stand-ins for GetEnvironmentVariableA and SetEnvironmentVariableA that
// count their calls and answer from a script.
struct Script {
    std::vector<DWORD> getAnswers;  // one per call; 0 once used up
    DWORD getError = 0;
    BOOL setAnswer = 1;
    int getCalls = 0, setCalls = 0;
} g_script;

DWORD WINAPI ScriptedGet(const char*, char*, DWORD) {
    SetLastError(g_script.getError);
    const std::size_t call = g_script.getCalls++;
    return call < g_script.getAnswers.size() ? g_script.getAnswers[call] : 0;
}
BOOL WINAPI ScriptedSet(const char*, const char*) {
    ++g_script.setCalls;
    return g_script.setAnswer;
}

class EnvironmentVariableTest : public ::testing::Test {
protected:
    ScopedEnvironmentVariable m_guard{L"ZRK_ENV"};
};

class ScriptedEnvironmentTest : public EnvironmentVariableTest {
protected:
    void SetUp() override {
        g_script = Script();
        ASSERT_TRUE(m_get.Active() && m_set.Active());
    }
    ImportPatch m_get{CoreModule(), "KERNEL32.dll", "GetEnvironmentVariableA",
                      reinterpret_cast<void*>(&ScriptedGet)};
    ImportPatch m_set{CoreModule(), "KERNEL32.dll", "SetEnvironmentVariableA",
                      reinterpret_cast<void*>(&ScriptedSet)};
};

TEST_F(EnvironmentVariableTest, SetsCreateOnlyWhenAllowedAndArraysSplitWithoutEmptyElements) {
    EXPECT_FALSE(EV::SetStringA("ZRK_ENV", "new", false));
    EXPECT_FALSE(EV::ExistsA("ZRK_ENV"));
    ASSERT_TRUE(EV::SetArrayA("ZRK_ENV", {"a", "", "b;c"}, true));
    EXPECT_FALSE(EV::SetStringA("ZRK_ENV", "", true));  // no way to make it empty
    std::string raw;
    ASSERT_TRUE(EV::GetStringA("ZRK_ENV", &raw));
    EXPECT_EQ(raw, "a;;b;c");
    Strings values{"kept"};
    ASSERT_TRUE(EV::GetArrayA("ZRK_ENV", &values));
    EXPECT_EQ(values, (Strings{"kept", "a", "b", "c"}));
    EXPECT_TRUE(EV::SetStringA("ZRK_ENV", "replaced", false));  // exists: replaced
    ASSERT_TRUE(EV::GetStringA("ZRK_ENV", &raw));
    EXPECT_EQ(raw, "replaced");
    EXPECT_TRUE(EV::DeleteA("ZRK_ENV"));
    EXPECT_FALSE(EV::ExistsA("ZRK_ENV"));
}

// Empty names, null outputs and text holding a zero character: false, the
// output unchanged, and not a single platform call.
TEST_F(ScriptedEnvironmentTest, BadInputFailsBeforeAnyPlatformCall) {
    const std::string nul("ZN\0UL", 5);
    std::string value = "kept";
    // The array forms go through these checks of the string forms.
    const std::vector<std::function<bool()>> calls = {
        [&] { return EV::GetStringA("", &value); },
        [&] { return EV::GetStringA("ZRK_ENV", nullptr); },
        [&] { return EV::SetStringA("", "v", true); },
        [&] { return EV::DeleteA(""); },
        [&] { return EV::ExistsA(nul); },
        [&] { return EV::GetStringA(nul, &value); },
        [&] { return EV::SetStringA(nul, "v", true); },
        [&] { return EV::SetStringA("ZRK_ENV", std::string("\0abc", 4), true); },
        [&] { return EV::SetArrayA("ZRK_ENV", {"a", std::string("b\0c", 3)}, true); },
        [&] { return EV::DeleteA(nul); },
    };
    for (std::size_t i = 0; i < calls.size(); ++i) {
        EXPECT_FALSE(calls[i]()) << "call " << i;
    }
    EXPECT_EQ(g_script.getCalls + g_script.setCalls, 0);
    EXPECT_EQ(value, "kept");
}

TEST_F(ScriptedEnvironmentTest, OnlyNotFoundMeansMissingAndReadFailuresLeaveTheDocumentedOutput) {
    g_script.getError = ERROR_ENVVAR_NOT_FOUND;
    EXPECT_FALSE(EV::ExistsA(""));  // an empty name still goes to the platform
    std::string value = "kept";
    EXPECT_FALSE(EV::GetStringA("ZRK_ENV", &value));
    EXPECT_EQ(value, "kept");
    g_script.getError = ERROR_ACCESS_DENIED;
    EXPECT_TRUE(EV::ExistsA(""));
    EXPECT_FALSE(EV::GetStringA("ZRK_ENV", &value));
    EXPECT_EQ(value, "");
    // Six characters announced, three read, as if another thread had changed
    // the value: the output keeps the announced size, and there is no retry.
    g_script = Script{{6, 3}};
    EXPECT_FALSE(EV::GetStringA("ZRK_ENV", &value));
    EXPECT_EQ(value.size(), 6u);
    EXPECT_EQ(g_script.getCalls, 2);
}

TEST_F(ScriptedEnvironmentTest, SetsTakeUpTo32767CharactersAndSucceedOnlyOnAnAnswerOfOne) {
    const std::string longest(32767, 'x');
    EXPECT_TRUE(EV::SetStringA("ZRK_ENV", longest, true));
    EXPECT_FALSE(EV::SetStringA("ZRK_ENV", longest + 'x', true));
    EXPECT_FALSE(EV::SetArrayA("ZRK_ENV", {std::string(16384, 'a'), std::string(16383, 'b')},
                               true));
    EXPECT_EQ(g_script.setCalls, 1);
    g_script.setAnswer = 2;
    EXPECT_FALSE(EV::SetStringA("ZRK_ENV", "v", true));
    EXPECT_FALSE(EV::DeleteA("ZRK_ENV"));
}

TEST_F(EnvironmentVariableTest, WideFormsUseTheWideEntries) {
    const std::wstring value = L"Gr\u00FC\u00DFe;\u2603 \U0001F600";
    ASSERT_TRUE(EV::SetStringW(L"ZRK_ENV", value, true));
    std::wstring read;
    ASSERT_TRUE(EV::GetStringW(L"ZRK_ENV", &read));
    EXPECT_EQ(read, value);
    std::vector<std::wstring> values;
    ASSERT_TRUE(EV::GetArrayW(L"ZRK_ENV", &values));
    EXPECT_EQ(values, (std::vector<std::wstring>{L"Gr\u00FC\u00DFe", L"\u2603 \U0001F600"}));
    EXPECT_FALSE(EV::SetStringW(L"ZRK_ENV", std::wstring(L"a\0b", 3), false));
    EXPECT_FALSE(EV::SetStringW(L"ZRK_ENV", std::wstring(32768, L'x'), false));
    ASSERT_TRUE(EV::GetStringW(L"ZRK_ENV", &read));
    EXPECT_EQ(read, value);
    EXPECT_TRUE(EV::DeleteW(L"ZRK_ENV"));
    EXPECT_FALSE(EV::ExistsW(L"ZRK_ENV"));
}

}  // namespace
