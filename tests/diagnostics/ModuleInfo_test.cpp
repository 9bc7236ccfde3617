#include "diagnostics/ModuleInfo.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

TEST(ModuleInfoTest, AppendsEveryModuleWithItsPathAndFileVersion) {
    std::vector<zrkModuleInfo> modules(1);
    modules[0].name = L"kept";
    PopulateModuleInfo(&modules);
    const std::size_t count = modules.size() - 1;
    PopulateModuleInfo(&modules);
    ASSERT_EQ(modules.size(), 1 + 2 * count);
    EXPECT_EQ(modules[0].name, L"kept");
    const auto find = [&](const wchar_t* name) {  // the first of that name, or an empty record
        const auto found = std::find_if(modules.begin(), modules.end(), [&](const auto& module) {
            return _wcsicmp(module.name.c_str(), name) == 0;
        });
        return found == modules.end() ? zrkModuleInfo() : *found;
    };
    wchar_t programPath[MAX_PATH];
    GetModuleFileNameW(nullptr, programPath, MAX_PATH);
    const zrkVersionInfo core = find(L"zrkCore.dll").version;
    EXPECT_TRUE(core.valid && core.major == ZRK_VERSION_MAJOR && core.minor == ZRK_VERSION_MINOR &&
                core.build == ZRK_VERSION_PATCH && core.revision == 0);
    EXPECT_EQ(find(L"diagnostics_test.exe").path, programPath);
    EXPECT_FALSE(find(L"diagnostics_test.exe").version.valid);  // it has no version resource
    EXPECT_FALSE(find(L"ntdll.dll").path.empty());
}

}  // namespace
