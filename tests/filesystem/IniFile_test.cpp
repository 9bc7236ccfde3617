#include "filesystem/IniFile.h"

#include <gtest/gtest.h>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"

namespace {

// Loads by the absolute path (the platform would look for a bare name in the Windows folder),
// with one call per list and per new name, each offered its fixed buffer.
TEST(IniFileTest, LoadsThePathAsGivenWithOneCallPerListAndNewNameInItsFixedBuffer) {
    TempFolder folder;
    ScopedCurrentDirectory current(folder.Path());
    ASSERT_TRUE(WriteTextFile(folder.Join(L"a.ini"), "[A]\nk=1\nk=2\nj=3\n[A]\nk=4\n[B]\nk=5\n"));
    const auto wide = IniFileW::LoadFile(L"a.ini");
    ASSERT_TRUE(wide->Size() == 2 && wide->HasSection(L"A"));
    EXPECT_EQ(wide->GetSection(L"A")->GetValue(L"j"), L"3");
    // Nothing, in the wide entry, for a missing folder; a zero would cut to a.ini.
    for (const std::string& path : {std::string("missing.ini"), std::string("no\\missing.ini"),
                                    std::string(), std::string(3000, 'a'),
                                    std::string("a.ini\0.bak", 10)}) {
        const auto narrow = IniFileA::LoadFile(path);
        const auto wide = IniFileW::LoadFile(Text<wchar_t>(path));
        EXPECT_EQ(narrow->Size() + wide->Size(), 0u);
        EXPECT_TRUE(narrow->GetFilePath() == path && wide->GetFilePath() == Text<wchar_t>(path));
    }
    static std::vector<DWORD> sizes;  // offered to each platform call, in order
    static decltype(&GetFullPathNameA) fullPath;
    static decltype(&GetPrivateProfileStringA) profile;
    ImportPatch pathPatch(CoreModule(), "KERNEL32.dll", "GetFullPathNameA",
                          (void*)+[](LPCSTR path, DWORD size, LPSTR buffer, LPSTR* last) {
                              sizes.push_back(size);
                              return fullPath(path, size, buffer, last);
                          });
    ImportPatch profilePatch(CoreModule(), "KERNEL32.dll", "GetPrivateProfileStringA",
                             (void*)+[](LPCSTR section, LPCSTR key, LPCSTR otherwise,
                                        LPSTR buffer, DWORD size, LPCSTR file) {
                                 sizes.push_back(size);
                                 return profile(section, key, otherwise, buffer, size, file);
                             });
    fullPath = pathPatch.Original<decltype(fullPath)>();
    profile = profilePatch.Original<decltype(profile)>();
    const auto narrow = IniFileA::LoadFile("a.ini");
    IniFileA::LoadFile("");  // no profile call
    IniFileA::LoadFile(std::string("a.ini\0", 6));  // no call at all
    EXPECT_EQ(sizes, (std::vector<DWORD>{2048, 4096, 16384, 1024, 1024, 16384, 1024, 2048}));
    ASSERT_TRUE(narrow->Size() == 2 && narrow->HasSection("A"));
    EXPECT_EQ(narrow->GetSection("A")->GetValue("j"), "3");
}

}  // namespace
