#include "process/EnvironmentVariable.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"

// The narrow face carries the cases; both faces run one implementation, so
// the wide face needs only to show that it reaches the wide platform entries
// (a value beyond ASCII survives the round trip).

namespace {

using Strings = std::vector<std::string>;
using EV = EnvironmentVariable;

// Stand-ins for GetEnvironmentVariableA and SetEnvironmentVariableA,
// installed through zrkCore's import table. They count the calls and answer
// from a script.
struct Script {
    int getCalls = 0;
    int setCalls = 0;
    std::vector<DWORD> getAnswers;  // one per call
    DWORD getError = 0;
    BOOL setAnswer = 1;
    size_t lastSetLength = 0;
} g_script;

DWORD WINAPI ScriptedGet(const char*, char*, DWORD) {
    const size_t call = g_script.getCalls++;
    SetLastError(g_script.getError);
    return call < g_script.getAnswers.size() ? g_script.getAnswers[call] : 0;
}

BOOL WINAPI ScriptedSet(const char*, const char* value) {
    ++g_script.setCalls;
    g_script.lastSetLength = value ? std::strlen(value) : 0;
    return g_script.setAnswer;
}

class EnvironmentVariableTest : public ::testing::Test {
protected:
    EnvironmentVariableTest() { SetEnvironmentVariableW(L"ZRK_ENV_MISSING", nullptr); }

    // Redirects both platform entries while the object lives.
    struct Scripted {
        Scripted() { g_script = Script(); }
        ImportPatch get{CoreModule(), "KERNEL32.dll", "GetEnvironmentVariableA",
                        (void*)&ScriptedGet};
        ImportPatch set{CoreModule(), "KERNEL32.dll", "SetEnvironmentVariableA",
                        (void*)&ScriptedSet};
    };

    const std::string name = "ZRK_ENV", missing = "ZRK_ENV_MISSING";

private:
    ScopedEnvironmentVariable m_guard{L"ZRK_ENV"}, m_guard2{L"ZRK_ENV_MISSING"};
};

TEST_F(EnvironmentVariableTest, WritesReadsAndDeletesAVariable) {
    EXPECT_FALSE(EV::ExistsA(name));
    ASSERT_TRUE(EV::SetStringA(name, "C:\\one two;three", true));
    EXPECT_TRUE(EV::ExistsA(name));
    std::string value;
    ASSERT_TRUE(EV::GetStringA(name, &value));
    EXPECT_EQ(value, "C:\\one two;three");
    ASSERT_TRUE(EV::DeleteA(name));
    EXPECT_FALSE(EV::ExistsA(name));
    // Deleting a missing variable gives whatever the platform answers.
    EXPECT_EQ(EV::DeleteA(missing), SetEnvironmentVariableA(missing.c_str(), nullptr) == 1);
}

TEST_F(EnvironmentVariableTest, FailedReadsLeaveTheOutputAsTheCallerGaveIt) {
    std::string value = "kept";
    EXPECT_FALSE(EV::GetStringA(missing, &value));
    EXPECT_FALSE(EV::GetStringA("", &value));
    EXPECT_EQ(value, "kept");
    EXPECT_FALSE(EV::GetStringA(name, nullptr));
    Strings values{"old"};
    EXPECT_FALSE(EV::GetArrayA(missing, &values));
    EXPECT_EQ(values, Strings{"old"});
    EXPECT_FALSE(EV::GetArrayA(name, nullptr));
}

TEST_F(EnvironmentVariableTest, EmptyNamesFailWithoutAskingThePlatformExceptExists) {
    Scripted scripted;
    ASSERT_TRUE(scripted.get.Active() && scripted.set.Active());
    std::string value;
    Strings values;
    EXPECT_FALSE(EV::GetStringA("", &value));
    EXPECT_FALSE(EV::GetArrayA("", &values));
    EXPECT_FALSE(EV::SetStringA("", "v", true));
    EXPECT_FALSE(EV::SetArrayA("", {"v"}, true));
    EXPECT_FALSE(EV::DeleteA(""));
    EXPECT_EQ(g_script.getCalls + g_script.setCalls, 0);

    // Exists hands even an empty name over, and only "not found" is missing.
    g_script.getError = ERROR_ENVVAR_NOT_FOUND;
    EXPECT_FALSE(EV::ExistsA(""));
    EXPECT_EQ(g_script.getCalls, 1);
    g_script.getError = ERROR_ACCESS_DENIED;
    EXPECT_TRUE(EV::ExistsA(""));
}

TEST_F(EnvironmentVariableTest, PlatformReadFailuresLeaveTheDocumentedOutput) {
    std::string value = "previous";
    {
        // A size query failing for another reason than "not found" empties it.
        Scripted scripted;
        g_script.getError = ERROR_ACCESS_DENIED;
        EXPECT_FALSE(EV::GetStringA(name, &value));
        EXPECT_TRUE(value.empty());
    }
    // The size query says 6 (five characters and the terminator), the read
    // delivers 3 as if another thread had shortened the value: the output
    // keeps the queried size, and there is no second attempt.
    Scripted scripted;
    g_script.getAnswers = {6, 3};
    EXPECT_FALSE(EV::GetStringA(name, &value));
    EXPECT_EQ(value.size(), 6u);
    EXPECT_EQ(g_script.getCalls, 2);
}

TEST_F(EnvironmentVariableTest, SetsReachThePlatformUpTo32767CharactersAndNeedExactlyOne) {
    Scripted scripted;
    const std::string longest(32767, 'x');
    EXPECT_TRUE(EV::SetStringA(name, longest, true));
    EXPECT_EQ(g_script.setCalls, 1);
    EXPECT_EQ(g_script.lastSetLength, 32767u);
    // One more, alone or joined (16384 + ";" + 16383), is refused before any
    // platform call.
    EXPECT_FALSE(EV::SetStringA(name, longest + 'x', true));
    EXPECT_FALSE(EV::SetArrayA(name, {std::string(16384, 'a'), std::string(16383, 'b')}, true));
    EXPECT_EQ(g_script.setCalls, 1);

    g_script.setAnswer = 2;  // non-zero, but not the documented 1
    EXPECT_FALSE(EV::SetStringA(name, "v", true));
    EXPECT_FALSE(EV::DeleteA(name));
}

TEST_F(EnvironmentVariableTest, SetsRefuseEmptyValuesAndCreateOnlyWhenAllowed) {
    ASSERT_TRUE(EV::SetStringA(name, "before", true));
    EXPECT_FALSE(EV::SetStringA(name, "", true));
    EXPECT_FALSE(EV::SetArrayA(name, {""}, true));
    EXPECT_FALSE(EV::SetArrayA(name, {}, true));
    std::string value;
    ASSERT_TRUE(EV::GetStringA(name, &value));
    EXPECT_EQ(value, "before");

    // createIfMissing guards creation only: an existing variable is replaced.
    EXPECT_FALSE(EV::SetStringA(missing, "new", false));
    EXPECT_FALSE(EV::SetArrayA(missing, {"new"}, false));
    EXPECT_FALSE(EV::ExistsA(missing));
    EXPECT_TRUE(EV::SetStringA(name, "replaced", false));
    ASSERT_TRUE(EV::GetStringA(name, &value));
    EXPECT_EQ(value, "replaced");
}

TEST_F(EnvironmentVariableTest, ArraysJoinWithSeparatorsAndSplitWithoutEmptyElements) {
    ASSERT_TRUE(EV::SetArrayA(name, {"a", "", "b;c"}, true));
    std::string raw;
    ASSERT_TRUE(EV::GetStringA(name, &raw));
    EXPECT_EQ(raw, "a;;b;c");
    Strings values{"kept"};
    ASSERT_TRUE(EV::GetArrayA(name, &values));
    EXPECT_EQ(values, (Strings{"kept", "a", "b", "c"}));

    for (const auto& [text, expected] : {std::pair<const char*, Strings>{";;x y;", {"x y"}},
                                         {";", {}},
                                         {"one", {"one"}}}) {
        ASSERT_TRUE(EV::SetStringA(name, text, true));
        values.clear();
        EXPECT_TRUE(EV::GetArrayA(name, &values));
        EXPECT_EQ(values, expected) << text;
    }
}

TEST_F(EnvironmentVariableTest, WideFormsUseTheWideEntries) {
    const std::wstring value = L"Gr\u00FC\u00DFe;\u2603 \U0001F600";
    ASSERT_TRUE(EV::SetStringW(L"ZRK_ENV", value, true));
    EXPECT_TRUE(EV::ExistsW(L"ZRK_ENV"));
    std::wstring read;
    ASSERT_TRUE(EV::GetStringW(L"ZRK_ENV", &read));
    EXPECT_EQ(read, value);
    std::vector<std::wstring> values;
    ASSERT_TRUE(EV::GetArrayW(L"ZRK_ENV", &values));
    EXPECT_EQ(values, (std::vector<std::wstring>{L"Gr\u00FC\u00DFe", L"\u2603 \U0001F600"}));
    ASSERT_TRUE(EV::SetArrayW(L"ZRK_ENV", {L"a", L"b"}, false));
    ASSERT_TRUE(EV::GetStringW(L"ZRK_ENV", &read));
    EXPECT_EQ(read, L"a;b");
    EXPECT_TRUE(EV::DeleteW(L"ZRK_ENV"));
    EXPECT_FALSE(EV::ExistsW(L"ZRK_ENV"));
    EXPECT_FALSE(EV::SetStringW(L"ZRK_ENV", std::wstring(32768, L'x'), true));
}

}  // namespace
