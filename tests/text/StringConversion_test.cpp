#include <windows.h>

#include <gtest/gtest.h>

#include "support/ImportPatch.h"
#include "zrkCore.h"

namespace {

TEST(StringConversionTest, ConvertsThroughEachCodePageAndRejectsWhole) {
    EXPECT_EQ(ConvertString_UTF8_to_UTF16(std::string("a\0\xC3\xA9\xF0\x9F\x98\x80", 8)),
              std::wstring(L"a\0\x00E9\xD83D\xDE00", 5));
    EXPECT_EQ(ConvertString_UTF16_to_UTF8(L"\x00E9\xD83D\xDE00"), "\xC3\xA9\xF0\x9F\x98\x80");
    EXPECT_EQ(ConvertString_LATIN1_to_UTF8("caf\xE9"), L"caf\x00E9");  // wide, not UTF-8
    EXPECT_EQ(ConvertString_ASCII_to_UTF8("plain text"), L"plain text");
    EXPECT_EQ(ConvertString_UTF8_to_UTF16("valid \xFF valid"), L"");
    EXPECT_EQ(ConvertString_UTF16_to_UTF8(L"lone \xD800 surrogate"), "");
}

// A platform whose written count falls one short of its measurement.
int g_calls = 0;
int WINAPI ShortWrite(UINT page, DWORD flags, LPCCH text, int length, LPWSTR buffer, int size) {
    ++g_calls;
    return MultiByteToWideChar(page, flags, text, length, buffer, size) - (buffer != nullptr);
}

TEST(StringConversionTest, DisagreeingAnswersGiveEmptyAndEmptyTextNoCall) {
    ImportPatch patch(CoreModule(), "KERNEL32.dll", "MultiByteToWideChar",
                      reinterpret_cast<void*>(&ShortWrite));
    EXPECT_TRUE(ConvertString_LATIN1_to_UTF8("") == L"" && g_calls == 0);
    EXPECT_TRUE(ConvertString_UTF8_to_UTF16("abc") == L"" && g_calls == 2);
}

}  // namespace
