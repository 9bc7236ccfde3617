#include <windows.h>

#include <gtest/gtest.h>

#include "zrkCore.h"

extern "C" __declspec(dllimport) volatile long g_threadLock __asm__("_ZN7Console12s_threadLockE");
extern "C" __declspec(dllimport) bool g_initialized __asm__("_ZN7Console13s_initializedE");
extern "C" __declspec(dllimport) long g_refCount __asm__("_ZN7Console10s_refCountE");

TEST(LibraryTest, ExportsItsInterfaceAndNothingInternal) {
    auto* base = reinterpret_cast<BYTE*>(GetModuleHandleW(L"zrkCore.dll"));
    auto* nt = reinterpret_cast<IMAGE_NT_HEADERS*>(
        base + reinterpret_cast<IMAGE_DOS_HEADER*>(base)->e_lfanew);
    auto* exports = reinterpret_cast<IMAGE_EXPORT_DIRECTORY*>(
        base + nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress);
    auto* names = reinterpret_cast<DWORD*>(base + exports->AddressOfNames);
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
        const std::string name(reinterpret_cast<char*>(base + names[i]));
        EXPECT_TRUE(name.find("detail") == std::string::npos && name.rfind("_ZNSt", 0) != 0 &&
                    name.rfind("_ZSt", 0) != 0 && name != "DllMain") << name;
    }
    // An empty table would pass the loop: this name of the interface must be in it.
    EXPECT_TRUE(GetProcAddress(GetModuleHandleW(L"zrkCore.dll"), "_Z16EnsureFolderPath"
                               "RNSt7__cxx1112basic_stringIwSt11char_traitsIwESaIwEEE"));
}

// Nothing looks at a format text (or its arguments) or handler on an unreadable page.
TEST(LibraryTest, DiagnosticsEntriesStayInertAndTheirStaticsKeepTheLoadValues) {
    auto* page = static_cast<char*>(VirtualAlloc(nullptr, 4096, MEM_COMMIT, PAGE_NOACCESS));
    ASSERT_NE(page, nullptr);
    Assert::SetHandler(reinterpret_cast<Assert::Handler>(page));  // a call would fault too
    Console::StaticInit();
    Console::Info(page);
    Console::Error(reinterpret_cast<const wchar_t*>(page));
    Console::StaticShutdown();
    VirtualFree(page, 0, MEM_RELEASE);
    EXPECT_EQ(Assert::GetHandler(), nullptr);
    EXPECT_TRUE(g_threadLock == 0 && !g_initialized && g_refCount == 0);
}

TEST(EndianTypeTest, EachValueHasItsTextInBothWidthsAndOthersNone) {
    const struct { int value; const char* narrow; const wchar_t* wide; } rows[] = {
        {0, "UNDETERMINED", L"UNDETERMINED"}, {1, "LittleEndian", L"LittleEndian"},
        {2, "BigEndian", L"BigEndian"}, {3, nullptr, nullptr}, {-1, nullptr, nullptr}};
    for (const auto& row : rows) {
        EXPECT_STREQ(eEndianType_ToStringA(static_cast<eEndianType>(row.value)), row.narrow);
        EXPECT_STREQ(eEndianType_ToStringW(static_cast<eEndianType>(row.value)), row.wide);
    }
}
