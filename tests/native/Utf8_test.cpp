#include "text/Utf8.h"

#include <gmock/gmock.h>

#include <string>

namespace {

using zrk::detail::Utf8ToWide;
using zrk::detail::WideToUtf8;

TEST(Utf8Test, ReadsEverySequenceLengthAndKeepsTheLow16Bits) {
    const struct { std::string utf8; std::wstring wide; } rows[] = {
        {"", L""}, {std::string("a\0b", 3), std::wstring(L"a\0b", 3)}, {"\xC3\xA9", L"\x00E9"},
        {"\xC0\x80", std::wstring(1, L'\0')},  // overlong zero passes
        {"\xED\xA0\x80", L"\xD800"},           // so does a surrogate value
        {"\xF0\x9F\x98\x80", L"\xF600"},       // U+1F600 cut to its low bits
        {"\xF4\x8F\xBF\xBF", L"\xFFFF"},       // U+10FFFF, the largest value
        {"\xF8\x80\x80\x81\x81", L"A"}, {"\xFC\x80\x80\x80\x81\x81", L"A"}};
    for (const auto& row : rows) {
        EXPECT_EQ(Utf8ToWide(row.utf8), row.wide) << row.utf8;
    }
}

TEST(Utf8Test, RejectsBadSequencesWithBadConversion) {
    for (const std::string text : {"\x80", "a\xBF", "\xC3", "\xE2\x82", "\xC3(", "\xE2\x82\xC0",
                                   "\xF4\x90\x80\x80", "\xFC\x80\x80\x80\x80",
                                   "\xFE\x80\x80\x80\x81\x81"}) {
        EXPECT_THAT([&] { Utf8ToWide(text); },
                    testing::ThrowsMessage<std::range_error>(testing::StrEq("bad conversion")));
    }
}

TEST(Utf8Test, WritesEachUnitAloneAndEveryUnitComesBack) {
    EXPECT_EQ(WideToUtf8(L"\x007F\x0080\x07FF\x0800"), "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80");
    EXPECT_EQ(WideToUtf8(L"\xD83D\xDE00"), "\xED\xA0\xBD\xED\xB8\x80");  // six bytes
    std::wstring all;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        all += static_cast<wchar_t>(unit);
    }
    EXPECT_EQ(Utf8ToWide(WideToUtf8(all)), all);
    // ASCII goes in blocks: other units at every offset from a block boundary.
    for (std::size_t n = 0; n < 40; ++n) {
        const std::string a(n, 'a');
        const std::wstring wide(n, L'a');
        EXPECT_EQ(Utf8ToWide(a + "\xE2\x82\xAC" + a), wide + L"\x20AC" + wide);
        EXPECT_THROW(Utf8ToWide(a + "\xE2\x82"), std::range_error) << n;
    }
}

}  // namespace
