#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "support/ImportPatch.h"
#include "zrkCore.h"

namespace {

__time64_t __cdecl FixedTime(__time64_t* out) {  // 2024-01-02 03:04:05 UTC
    return out ? *out = 1704164645 : 1704164645;
}
DWORD WINAPI CannotTell(HMODULE, LPSTR, DWORD) { return 0; }  // and writes nothing

TEST(FileNameTest, JoinsPrefixProgramUtcStampAndExtension) {
    _putenv("TZ=JST-9"), _tzset();  // local time plays no part
    ImportPatch time(CoreModule(), "msvcrt.dll", "_time64", (void*)&FixedTime);
    EXPECT_EQ(GenerateFileNameA("crash", "log", true, true),
              "crash.filesystem_test.exe.2024-01-02 03-04-05.log");
    EXPECT_EQ(GenerateFileNameW(L"", L".log", true, true),
              L"filesystem_test.exe.2024-01-02 03-04-05..log");
    ImportPatch path(CoreModule(), "KERNEL32.dll", "GetModuleFileNameA", (void*)&CannotTell);
    EXPECT_EQ(GenerateFileNameA("p", "x", true, false), "p..x");
}

}  // namespace
