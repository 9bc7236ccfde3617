// The DLL as a module: its name, its export table, its exported data and its
// version resource.
#include <windows.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "support/ImportPatch.h"
#include "zrkCore.h"

// Private static members, reached through the import table by their linker
// names, as any importer's inline code would reach them.
extern "C" __declspec(dllimport) volatile long g_consoleThreadLock __asm__(
    "_ZN7Console12s_threadLockE");
extern "C" __declspec(dllimport) bool g_consoleInitialized __asm__("_ZN7Console13s_initializedE");
extern "C" __declspec(dllimport) long g_consoleRefCount __asm__("_ZN7Console10s_refCountE");

namespace {

std::set<std::string> ExportedNames(HMODULE module) {
    auto* base = reinterpret_cast<BYTE*>(module);
    auto* nt = reinterpret_cast<IMAGE_NT_HEADERS*>(
        base + reinterpret_cast<IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const IMAGE_DATA_DIRECTORY& dir =
        nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    auto* exports = reinterpret_cast<IMAGE_EXPORT_DIRECTORY*>(base + dir.VirtualAddress);
    auto* names = reinterpret_cast<DWORD*>(base + exports->AddressOfNames);
    std::set<std::string> result;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
        result.insert(reinterpret_cast<char*>(base + names[i]));
    }
    return result;
}

TEST(Library, LoadsUnderItsOwnName) {
    ASSERT_NE(CoreModule(), nullptr);
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(CoreModule(), path, MAX_PATH);
    const std::wstring file(path);
    EXPECT_EQ(file.substr(file.find_last_of(L'\\') + 1), L"zrkCore.dll");
}

TEST(Library, ExportsItsInterfaceAndNothingElse) {
    const std::set<std::string> names = ExportedNames(CoreModule());
    for (const char* exported : {
             "_ZN7ClassIDC1Ev",
             "_ZN7ClassID20s_incrementalClassIDE",
             "_ZN7Console12s_threadLockE",
             "_Z21eEndianType_ToStringA11eEndianType",
             "_Z8zrkSleepi",
             "_ZN19EnvironmentVariable10GetStringAERKNSt7__cxx1112basic_stringIcSt11char_"
             "traitsIcESaIcEEEPS5_",
             "_Z16EnsureFolderPathRNSt7__cxx1112basic_stringIwSt11char_traitsIwESaIwEEE",
             "_Z14Atomic_TryLockPVl",
         }) {
        EXPECT_EQ(names.count(exported), 1u) << exported;
    }
    // Internal helpers, the entry point and the standard library's template
    // instances would all appear if the linker exported every symbol.
    for (const std::string& name : names) {
        EXPECT_EQ(name.find("detail"), std::string::npos) << name;
        EXPECT_NE(name.rfind("_ZNSt", 0), 0u) << name;
        EXPECT_NE(name.rfind("_ZSt", 0), 0u) << name;
        EXPECT_NE(name, "DllMain");
    }
    EXPECT_EQ(names.count("DllMain"), 0u);
    EXPECT_EQ(GetProcAddress(CoreModule(),
                             "_ZN3zrk6detail10SplitArrayIcEEvRKNSt7__cxx1112basic_stringIT_"
                             "St11char_traitsIS3_ESaIS3_EEEPSt6vectorIS6_SaIS6_EE"),
              nullptr);
}

TEST(Library, ExportedStaticDataHoldsItsLoadValues) {
    // The thread lock is constant-initialised: free without any code run.
    EXPECT_EQ(g_consoleThreadLock, 0);
    EXPECT_FALSE(g_consoleInitialized);
    EXPECT_EQ(g_consoleRefCount, 0);
    // Nothing in the library touches them, not even Console's own entries.
    Console::StaticInit();
    Console::Info("%s %d");
    Console::StaticShutdown();
    EXPECT_EQ(g_consoleThreadLock, 0);
    EXPECT_FALSE(g_consoleInitialized);
    EXPECT_EQ(g_consoleRefCount, 0);
}

TEST(Library, CarriesTheProjectVersionAndProductName) {
    DWORD handle = 0;
    const DWORD size = GetFileVersionInfoSizeW(L"zrkCore.dll", &handle);
    ASSERT_GT(size, 0u);
    std::string block(size, '\0');
    ASSERT_TRUE(GetFileVersionInfoW(L"zrkCore.dll", 0, size, block.data()));

    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&fixed), &length));
    EXPECT_EQ(HIWORD(fixed->dwFileVersionMS), ZRK_TEST_VERSION_MAJOR);
    EXPECT_EQ(LOWORD(fixed->dwFileVersionMS), ZRK_TEST_VERSION_MINOR);
    EXPECT_EQ(HIWORD(fixed->dwFileVersionLS), ZRK_TEST_VERSION_PATCH);

    wchar_t* product = nullptr;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\StringFileInfo\\040904B0\\ProductName",
                               reinterpret_cast<void**>(&product), &length));
    EXPECT_STREQ(product, L"zrkCore");
}

}  // namespace
