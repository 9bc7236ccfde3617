#include "filesystem/IniFile.h"

#include <gtest/gtest.h>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"

namespace {

class IniFileTest : public ::testing::Test {
protected:
    SmartPtr<IniFileA> Load(const char* name, const std::string& content) {
        EXPECT_TRUE(WriteTextFile(m_folder.Join(Text<wchar_t>(name)), content));
        return IniFileA::LoadFile(m_folder.PathA() + "\\" + name);
    }
    // A key's value, or "<none>" if the section or the key is missing.
    static std::string Value(const SmartPtr<IniFileA>& file, const char* section, const char* key) {
        const IniSectionA* found = file->GetSection(section);
        return found && found->ContainsKey(key) ? found->GetValue(key) : "<none>";
    }
    TempFolder m_folder;
};

TEST_F(IniFileTest, PathIsKeptAsGivenAndAFileWithoutSectionsGivesAnEmptyObject) {
    Load("here.ini", "[Here]\nkey=found\n");
    ScopedCurrentDirectory current(m_folder.Path());
    // The platform would look for a bare name in the Windows folder.
    EXPECT_EQ(Value(IniFileA::LoadFile("here.ini"), "Here", "key"), "found");
    EXPECT_EQ((*(*IniFileW::LoadFile(L"here.ini"))[L"Here"])[L"key"], L"found");
    // Nothing, in the wide entry, for a missing folder; a zero cuts to here.ini.
    for (const std::string& path : {std::string("missing.ini"), std::string("no\\missing.ini"),
                                    std::string(), std::string(3000, 'a'),
                                    std::string("here.ini\0.bak", 13)}) {
        auto narrow = IniFileA::LoadFile(path);
        auto wide = IniFileW::LoadFile(Text<wchar_t>(path));
        EXPECT_EQ(narrow->Size() + wide->Size(), 0u);
        EXPECT_TRUE(narrow->GetFilePath() == path && wide->GetFilePath() == Text<wchar_t>(path));
    }
}

TEST_F(IniFileTest, ReadsWhatThePlatformListsByExactName) {
    auto file = Load("basic.ini", "[S]\nHost = example.org \nno key\n[Hole]\nbefore=1\n=x\n"
                                  "after=2\n[A]\nk=first\nk=2\n[A]\n[a]\n[Empty]\n");
    EXPECT_EQ(file->Size(), 5u);  // the repeat of A is passed over; a is a name of its own
    EXPECT_EQ(Value(file, "S", "Host") + Value(file, "S", "host"), "example.org<none>");
    EXPECT_EQ(file->GetSection("S")->Size() + file->GetSection("Empty")->Size(), 1u);
    // The first of repeated keys; "=x" has an empty name, which ends the list.
    EXPECT_EQ(Value(file, "A", "k") + Value(file, "Hole", "after"), "first<none>");
}

// The platform cuts what does not fit the buffer it is offered.
TEST_F(IniFileTest, LoadMakesOneCallPerListAndPerNewKeyWithItsFixedBuffer) {
    static std::vector<DWORD> sizes;  // offered to each platform call, in order
    static decltype(&GetFullPathNameA) fullPath;
    static decltype(&GetPrivateProfileStringA) profile;
    ImportPatch pathPatch(CoreModule(), "KERNEL32.dll", "GetFullPathNameA",
                          (void*)+[](LPCSTR path, DWORD size, LPSTR buffer, LPSTR* last) {
                              return sizes.push_back(size), fullPath(path, size, buffer, last);
                          });
    ImportPatch profilePatch(CoreModule(), "KERNEL32.dll", "GetPrivateProfileStringA",
                             (void*)+[](LPCSTR section, LPCSTR key, LPCSTR otherwise,
                                        LPSTR buffer, DWORD size, LPCSTR file) {
                                 sizes.push_back(size);
                                 return profile(section, key, otherwise, buffer, size, file);
                             });
    ASSERT_TRUE(pathPatch.Active() && profilePatch.Active());
    fullPath = pathPatch.Original<decltype(fullPath)>();
    profile = profilePatch.Original<decltype(profile)>();
    Load("calls.ini", "[A]\nk=1\nk=2\nj=3\n[A]\nk=4\n[B]\nk=5\n");
    IniFileA::LoadFile("");  // no profile call
    IniFileA::LoadFile(std::string("calls.ini\0", 10));  // no call at all
    EXPECT_EQ(sizes, (std::vector<DWORD>{2048, 4096, 16384, 1024, 1024, 16384, 1024, 2048}));
}

}  // namespace
