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

const zrkModuleInfo* Find(const std::vector<zrkModuleInfo>& modules, const wchar_t* name) {
    for (const zrkModuleInfo& module : modules) {
        if (_wcsicmp(module.name.c_str(), name) == 0) {
            return &module;
        }
    }
    return nullptr;
}

std::wstring PathOf(HMODULE module) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(module, path, MAX_PATH);
    return path;
}

}  // namespace

TEST(ModuleInfoTest, AppendsEveryModuleWithItsPathAndFileVersion) {
    std::vector<zrkModuleInfo> modules(1);
    modules[0].name = L"kept";
    PopulateModuleInfo(&modules);
    const std::size_t count = modules.size() - 1;
    PopulateModuleInfo(&modules);
    ASSERT_EQ(modules.size(), 1 + 2 * count);
    EXPECT_EQ(modules[0].name, L"kept");
    for (std::size_t index = 1; index <= count; ++index) {
        EXPECT_EQ(modules[index].path, modules[index + count].path);
    }

    const zrkModuleInfo* core = Find(modules, L"zrkCore.dll");
    const zrkModuleInfo* program = Find(modules, L"diagnostics_test.exe");
    ASSERT_TRUE(core != nullptr && program != nullptr && Find(modules, L"ntdll.dll") != nullptr);
    EXPECT_EQ(core->path, PathOf(CoreModule()));
    EXPECT_TRUE(core->version.valid);
    EXPECT_EQ(NumbersOf(core->version),
              (Numbers{ZRK_VERSION_MAJOR, ZRK_VERSION_MINOR, ZRK_VERSION_PATCH, 0}));
    EXPECT_EQ(program->path, PathOf(nullptr));
    EXPECT_FALSE(program->version.valid);  // the program carries no version resource
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
    if (!VerQueryValueW(block, subBlock, buffer, length)) {
        return FALSE;
    }
    auto* fixed = static_cast<VS_FIXEDFILEINFO*>(*buffer);
    fixed->dwSignature = g_case.signature;
    fixed->dwFileVersionMS = 0x00010002;
    fixed->dwFileVersionLS = 0x00030004;
    *length = g_case.empty ? 0 : *length;
    return g_case.found;
}

TEST(ModuleInfoTest, TakesTheVersionOnlyFromAFixedBlockThatCarriesTheSignature) {
    const FixedBlockCase cases[] = {{TRUE, false, VS_FFI_SIGNATURE, true},
                                    {TRUE, false, VS_FFI_SIGNATURE ^ 1, false},
                                    {TRUE, true, VS_FFI_SIGNATURE, false},
                                    {FALSE, false, VS_FFI_SIGNATURE, false}};
    for (const FixedBlockCase& row : cases) {
        g_case = row;
        ImportPatch patch(CoreModule(), "VERSION.dll", "VerQueryValueW", (void*)&AlteredFixedBlock);
        std::vector<zrkModuleInfo> modules;
        PopulateModuleInfo(&modules);
        const zrkModuleInfo* core = Find(modules, L"zrkCore.dll");
        ASSERT_NE(core, nullptr);
        EXPECT_EQ(core->version.valid, row.valid);
        if (row.valid) {
            EXPECT_EQ(NumbersOf(core->version), (Numbers{1, 2, 3, 4}));
        }
    }
}
