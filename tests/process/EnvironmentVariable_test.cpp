#include "process/EnvironmentVariable.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"

namespace {

// The A and W faces of the class, so that every case runs in both widths
// against the platform entries of that width.
#define ZRK_ENV_FACES(Ch, W)                                                             \
    template <>                                                                          \
    struct Env<Ch> {                                                                     \
        using S = std::basic_string<Ch>;                                                 \
        static constexpr const char* kGet = "GetEnvironmentVariable" #W;                 \
        static constexpr const char* kSet = "SetEnvironmentVariable" #W;                 \
        static bool Exists(const S& n) { return EnvironmentVariable::Exists##W(n); }     \
        static bool Get(const S& n, S* v) { return EnvironmentVariable::GetString##W(n, v); } \
        static bool GetArray(const S& n, std::vector<S>* v) {                            \
            return EnvironmentVariable::GetArray##W(n, v);                               \
        }                                                                                \
        static bool Set(const S& n, const S& v, bool c) {                                \
            return EnvironmentVariable::SetString##W(n, v, c);                           \
        }                                                                                \
        static bool SetArray(const S& n, const std::vector<S>& v, bool c) {              \
            return EnvironmentVariable::SetArray##W(n, v, c);                            \
        }                                                                                \
        static bool Delete(const S& n) { return EnvironmentVariable::Delete##W(n); }     \
    };

template <class Ch>
struct Env;
ZRK_ENV_FACES(char, A)
ZRK_ENV_FACES(wchar_t, W)
#undef ZRK_ENV_FACES

// Stand-ins for the platform entries, installed through the import table.
// They record what zrkCore asked and answer from a script.
struct Script {
    int getCalls = 0;
    int setCalls = 0;
    std::vector<DWORD> getAnswers;  // one per call; the last repeats
    DWORD getError = 0;
    BOOL setAnswer = 1;
    size_t lastSetLength = 0;
} g_script;

template <class Ch>
DWORD WINAPI ScriptedGet(const Ch*, Ch*, DWORD) {
    const size_t call = g_script.getCalls++;
    SetLastError(g_script.getError);
    return g_script.getAnswers.empty()
               ? 0
               : g_script.getAnswers[std::min(call, g_script.getAnswers.size() - 1)];
}

template <class Ch>
BOOL WINAPI ScriptedSet(const Ch*, const Ch* value) {
    ++g_script.setCalls;
    g_script.lastSetLength = value ? std::char_traits<Ch>::length(value) : 0;
    return g_script.setAnswer;
}

template <class Ch>
class EnvironmentVariableTest : public ::testing::Test {
protected:
    using E = Env<Ch>;
    using S = typename E::S;

    EnvironmentVariableTest() : m_guard(L"ZRK_ENV_TEST"), m_guard2(L"ZRK_ENV_TEST_MISSING") {
        SetEnvironmentVariableW(L"ZRK_ENV_TEST_MISSING", nullptr);
        g_script = Script();
    }

    static S T(const char* ascii) { return Text<Ch>(ascii); }
    const S name = T("ZRK_ENV_TEST");
    const S missing = T("ZRK_ENV_TEST_MISSING");

    // Redirects both platform entries of this width while the object lives.
    struct Scripted {
        ImportPatch get{CoreModule(), "KERNEL32.dll", E::kGet, (void*)&ScriptedGet<Ch>};
        ImportPatch set{CoreModule(), "KERNEL32.dll", E::kSet, (void*)&ScriptedSet<Ch>};
    };

private:
    ScopedEnvironmentVariable m_guard;
    ScopedEnvironmentVariable m_guard2;
};

using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(EnvironmentVariableTest, Widths);

TYPED_TEST(EnvironmentVariableTest, WritesReadsAndDeletesAVariable) {
    using E = typename TestFixture::E;
    EXPECT_FALSE(E::Exists(this->name));
    ASSERT_TRUE(E::Set(this->name, this->T("C:\\one two;three"), true));
    EXPECT_TRUE(E::Exists(this->name));
    typename TestFixture::S value;
    ASSERT_TRUE(E::Get(this->name, &value));
    EXPECT_EQ(value, this->T("C:\\one two;three"));
    ASSERT_TRUE(E::Delete(this->name));
    EXPECT_FALSE(E::Exists(this->name));
    // Deleting a missing variable gives whatever the platform answers.
    const bool platform = SetEnvironmentVariableW(L"ZRK_ENV_TEST_MISSING", nullptr) == 1;
    EXPECT_EQ(E::Delete(this->missing), platform);
}

TYPED_TEST(EnvironmentVariableTest, FailedReadsLeaveTheOutputAsTheCallerGaveIt) {
    using E = typename TestFixture::E;
    typename TestFixture::S value = this->T("kept");
    EXPECT_FALSE(E::Get(this->missing, &value));
    EXPECT_EQ(value, this->T("kept"));
    EXPECT_FALSE(E::Get(typename TestFixture::S(), &value));
    EXPECT_EQ(value, this->T("kept"));
    EXPECT_FALSE(E::Get(this->name, nullptr));

    std::vector<typename TestFixture::S> values{this->T("old")};
    EXPECT_FALSE(E::GetArray(this->missing, &values));
    ASSERT_EQ(values.size(), 1u);
    EXPECT_FALSE(E::GetArray(this->name, nullptr));
}

TYPED_TEST(EnvironmentVariableTest, EmptyNamesFailWithoutAskingThePlatformExceptExists) {
    using E = typename TestFixture::E;
    const typename TestFixture::S empty;
    typename TestFixture::S value;
    std::vector<typename TestFixture::S> values;
    typename TestFixture::Scripted scripted;
    ASSERT_TRUE(scripted.get.Active() && scripted.set.Active());

    EXPECT_FALSE(E::Get(empty, &value));
    EXPECT_FALSE(E::GetArray(empty, &values));
    EXPECT_FALSE(E::Set(empty, this->T("v"), true));
    EXPECT_FALSE(E::SetArray(empty, {this->T("v")}, true));
    EXPECT_FALSE(E::Delete(empty));
    EXPECT_EQ(g_script.getCalls, 0);
    EXPECT_EQ(g_script.setCalls, 0);

    // Exists hands even an empty name to the platform, and only "not found"
    // counts as missing.
    g_script.getError = ERROR_ENVVAR_NOT_FOUND;
    EXPECT_FALSE(E::Exists(empty));
    EXPECT_EQ(g_script.getCalls, 1);
    g_script.getError = ERROR_ACCESS_DENIED;
    EXPECT_TRUE(E::Exists(empty));
}

TYPED_TEST(EnvironmentVariableTest, PlatformReadFailuresLeaveTheDocumentedOutput) {
    using E = typename TestFixture::E;
    typename TestFixture::S value = this->T("previous");
    typename TestFixture::Scripted scripted;
    // A size query failing for another reason than "not found" empties it.
    g_script.getAnswers = {0};
    g_script.getError = ERROR_ACCESS_DENIED;
    EXPECT_FALSE(E::Get(this->name, &value));
    EXPECT_TRUE(value.empty());

    // The size query says 6 (five characters and the terminator); the read
    // then delivers 3, as if another thread had shortened the value: the
    // output keeps the queried size, and there is no second attempt.
    g_script = Script();
    g_script.getAnswers = {6, 3};
    EXPECT_FALSE(E::Get(this->name, &value));
    EXPECT_EQ(value.size(), 6u);
    EXPECT_EQ(g_script.getCalls, 2);
}

TYPED_TEST(EnvironmentVariableTest, SetsReachThePlatformUpTo32767CharactersAndNeedExactlyOne) {
    using E = typename TestFixture::E;
    using S = typename TestFixture::S;
    typename TestFixture::Scripted scripted;
    const S longest(32767, TypeParam('x'));
    EXPECT_TRUE(E::Set(this->name, longest, true));
    EXPECT_EQ(g_script.setCalls, 1);
    EXPECT_EQ(g_script.lastSetLength, 32767u);

    // One more character, alone or joined (16384 + ";" + 16383), is refused
    // before any platform call.
    EXPECT_FALSE(E::Set(this->name, longest + TypeParam('x'), true));
    EXPECT_FALSE(E::SetArray(this->name, {S(16384, TypeParam('a')), S(16383, TypeParam('b'))},
                             true));
    EXPECT_EQ(g_script.setCalls, 1);

    g_script.setAnswer = 2;  // non-zero, but not the documented 1
    EXPECT_FALSE(E::Set(this->name, this->T("v"), true));
    EXPECT_FALSE(E::Delete(this->name));
}

TYPED_TEST(EnvironmentVariableTest, SetsRefuseEmptyValuesAndCreateOnlyWhenAllowed) {
    using E = typename TestFixture::E;
    ASSERT_TRUE(E::Set(this->name, this->T("before"), true));
    EXPECT_FALSE(E::Set(this->name, typename TestFixture::S(), true));
    EXPECT_FALSE(E::SetArray(this->name, {typename TestFixture::S()}, true));
    EXPECT_FALSE(E::SetArray(this->name, {}, true));
    typename TestFixture::S value;
    ASSERT_TRUE(E::Get(this->name, &value));
    EXPECT_EQ(value, this->T("before"));

    // createIfMissing guards creation only: an existing variable is replaced.
    EXPECT_FALSE(E::Set(this->missing, this->T("new"), false));
    EXPECT_FALSE(E::SetArray(this->missing, {this->T("new")}, false));
    EXPECT_FALSE(E::Exists(this->missing));
    EXPECT_TRUE(E::Set(this->name, this->T("replaced"), false));
    ASSERT_TRUE(E::Get(this->name, &value));
    EXPECT_EQ(value, this->T("replaced"));
}

TYPED_TEST(EnvironmentVariableTest, ArraysJoinWithSeparatorsAndSplitWithoutEmptyElements) {
    using E = typename TestFixture::E;
    using S = typename TestFixture::S;
    auto T = [this](const char* s) { return this->T(s); };

    ASSERT_TRUE(E::SetArray(this->name, {T("a"), S(), T("b;c")}, true));
    S raw;
    ASSERT_TRUE(E::Get(this->name, &raw));
    EXPECT_EQ(raw, T("a;;b;c"));
    std::vector<S> values{T("kept")};
    ASSERT_TRUE(E::GetArray(this->name, &values));
    EXPECT_EQ(values, (std::vector<S>{T("kept"), T("a"), T("b"), T("c")}));

    ASSERT_TRUE(E::Set(this->name, T(";;x y;"), true));
    values.clear();
    ASSERT_TRUE(E::GetArray(this->name, &values));
    EXPECT_EQ(values, (std::vector<S>{T("x y")}));
    ASSERT_TRUE(E::Set(this->name, T(";"), true));
    values.clear();
    EXPECT_TRUE(E::GetArray(this->name, &values));
    EXPECT_TRUE(values.empty());
}

TEST(EnvironmentVariableWide, KeepsTextBeyondAscii) {
    ScopedEnvironmentVariable guard(L"ZRK_ENV_WIDE");
    const std::wstring value = L"Gr\u00FC\u00DFe \u2603 \U0001F600";
    ASSERT_TRUE(EnvironmentVariable::SetStringW(L"ZRK_ENV_WIDE", value, true));
    std::wstring read;
    ASSERT_TRUE(EnvironmentVariable::GetStringW(L"ZRK_ENV_WIDE", &read));
    EXPECT_EQ(read, value);
}

}  // namespace
