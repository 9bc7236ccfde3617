#include "filesystem/FileNameText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace zrk::detail;

TEST(FileNameTextTest, PartsJoinByDotsAndTheStampIsUtcFieldsShifted) {
    std::string name;
    AppendFileNamePart(&name, std::string("Tool.exe"));  // nothing before: no "."
    AppendFileNamePart(&name, std::string());
    AppendFileNamePart(&name, std::string("x"));
    EXPECT_EQ(name, "Tool.exe..x");
    EXPECT_EQ(AfterLastBackslash(std::wstring(L"C:\\a.b\\Tool.exe")), L"Tool.exe");
    EXPECT_EQ(AfterLastBackslash(std::string("Tool.exe")), "Tool.exe");
    std::tm utc = {};
    utc.tm_year = 126, utc.tm_mon = 10, utc.tm_mday = 9, utc.tm_hour = 4, utc.tm_min = 7;
    EXPECT_EQ(FileNameStamp(utc), "2026-11-09 04-07-00");
}

}  // namespace
