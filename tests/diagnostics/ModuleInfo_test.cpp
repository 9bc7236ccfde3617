#include "diagnostics/ModuleInfo.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "support/ImportPatch.h"

namespace {

using Numbers = std::array<unsigned, 4>;
Numbers NumbersOf(const zrkVersionInfo& version) {
    return {version.major, version.minor, version.build, version.revision};
}

const zrkModuleInfo& Find(const std::vector<zrkModuleInfo>& modules, const wchar_t* name) {
    static const zrkModuleInfo missing;
    for (const zrkModuleInfo& module : modules) {
        if (_wcsicmp(module.name.c_str(), name) == 0) {
            return module;
        }
    }
    ADD_FAILURE() << "no module " << testing::PrintToString(name);
    return missing;
}

TEST(ModuleInfoTest, AppendsEveryModuleWithItsPathAndFileVersion) {
    std::vector<zrkModuleInfo> modules(1);
    modules[0].name = L"kept";
    PopulateModuleInfo(&modules);
    const std::size_t count = modules.size() - 1;
    PopulateModuleInfo(&modules);
    ASSERT_EQ(modules.size(), 1 + 2 * count);
    EXPECT_EQ(modules[0].name, L"kept");
    EXPECT_EQ(modules[1].path, modules[1 + count].path);

    wchar_t corePath[MAX_PATH], programPath[MAX_PATH];
    GetModuleFileNameW(CoreModule(), corePath, MAX_PATH);
    GetModuleFileNameW(nullptr, programPath, MAX_PATH);
    const zrkModuleInfo& core = Find(modules, L"zrkCore.dll");
    EXPECT_TRUE(core.path == corePath && core.version.valid);
    EXPECT_EQ(NumbersOf(core.version),
              (Numbers{ZRK_VERSION_MAJOR, ZRK_VERSION_MINOR, ZRK_VERSION_PATCH, 0}));
    const zrkModuleInfo& program = Find(modules, L"diagnostics_test.exe");
    EXPECT_TRUE(program.path == programPath && !program.version.valid);  // it has no resource
    Find(modules, L"ntdll.dll");
}

// The fixed block the platform hands back, altered as a row says: a failed
// query, an empty block, a signature that differs, or a version 1.2.3.4.
struct FixedBlockCase {
    BOOL found;
    bool empty;
    DWORD signature;
    bool valid;
} g_case;
BOOL WINAPI AlteredFixedBlock(LPCVOID block, LPCWSTR subBlock, LPVOID* buffer, PUINT length) {
    if (VerQueryValueW(block, subBlock, buffer, length)) {
        auto* fixed = static_cast<VS_FIXEDFILEINFO*>(*buffer);
        fixed->dwSignature = g_case.signature;
        fixed->dwFileVersionMS = 0x00010002, fixed->dwFileVersionLS = 0x00030004;
        *length = g_case.empty ? 0 : *length;
    }
    return g_case.found;
}

TEST(ModuleInfoTest, TakesTheVersionOnlyFromAFixedBlockThatCarriesTheSignature) {
    for (const FixedBlockCase& row : {FixedBlockCase{TRUE, false, VS_FFI_SIGNATURE, true},
                                      FixedBlockCase{TRUE, false, VS_FFI_SIGNATURE ^ 1, false},
                                      FixedBlockCase{TRUE, true, VS_FFI_SIGNATURE, false},
                                      FixedBlockCase{FALSE, false, VS_FFI_SIGNATURE, false}}) {
        g_case = row;
        ImportPatch patch(CoreModule(), "VERSION.dll", "VerQueryValueW", (void*)&AlteredFixedBlock);
        std::vector<zrkModuleInfo> modules;
        PopulateModuleInfo(&modules);
        const zrkVersionInfo& version = Find(modules, L"zrkCore.dll").version;
        EXPECT_EQ(version.valid, row.valid);
        EXPECT_TRUE(!row.valid || NumbersOf(version) == (Numbers{1, 2, 3, 4}));
    }
}

}  // namespace
