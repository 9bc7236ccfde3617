#include "filesystem/IniFile.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <string>

#include "support/ScopedState.h"

namespace {

// The classes of each width, and a path of the test's in that width.
template <class Ch>
struct Ini;
template <>
struct Ini<char> {
    using File = IniFileA;
    using Section = IniSectionA;
    static std::string PathText(const std::wstring& path) { return Narrow(path); }
};
template <>
struct Ini<wchar_t> {
    using File = IniFileW;
    using Section = IniSectionW;
    static std::wstring PathText(const std::wstring& path) { return path; }
};

template <class Ch>
class IniFileTest : public ::testing::Test {
protected:
    using String = std::basic_string<Ch>;
    using File = typename Ini<Ch>::File;
    using Section = typename Ini<Ch>::Section;

    static String T(const char* ascii) { return Text<Ch>(ascii); }
    static String T(const std::string& ascii) { return Text<Ch>(ascii.c_str()); }

    String PathOf(const char* name) const {
        return Ini<Ch>::PathText(m_folder.Join(Text<wchar_t>(name)));
    }

    // Writes `content` as the file `name` in the test's folder and loads it.
    SmartPtr<File> Load(const char* name, const std::string& content) {
        EXPECT_TRUE(WriteTextFile(m_folder.Join(Text<wchar_t>(name)), content));
        return File::LoadFile(PathOf(name));
    }

    static void ExpectNoSections(const File& file) {
        EXPECT_EQ(file.Size(), 0u);
        EXPECT_TRUE(file.BeginSections() == file.EndSections());
        EXPECT_FALSE(file.HasSection(T("")));
        EXPECT_FALSE(file.HasSection(T("section")));
        EXPECT_EQ(file.GetSection(T("section")), nullptr);
    }

    TempFolder m_folder;
};

using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(IniFileTest, Widths);

TYPED_TEST(IniFileTest, FilesWithoutSectionsGiveAnEmptyObjectThatKeepsItsPath) {
    using File = typename TestFixture::File;
    const auto missing = this->PathOf("missing.ini");
    auto file = File::LoadFile(missing);
    ASSERT_TRUE(file);
    this->ExpectNoSections(*file);
    EXPECT_EQ(file->GetFilePath(), missing);

    // In a folder that does not exist the wide profile entry writes nothing
    // at all into its buffer.
    const auto nowhere = this->PathOf("no-such-folder\\missing.ini");
    file = File::LoadFile(nowhere);
    ASSERT_TRUE(file);
    this->ExpectNoSections(*file);
    EXPECT_EQ(file->GetFilePath(), nowhere);

    this->ExpectNoSections(*this->Load("empty.ini", ""));
    this->ExpectNoSections(*this->Load("flat.ini", "key=value\nother=1\n"));
}

TYPED_TEST(IniFileTest, PathsWithoutAnAbsoluteFormGiveAnEmptyObject) {
    using File = typename TestFixture::File;
    auto empty = File::LoadFile(this->T(""));
    ASSERT_TRUE(empty);
    this->ExpectNoSections(*empty);
    EXPECT_TRUE(empty->GetFilePath().empty());

    // An absolute form longer than its 2,048-character buffer.
    const auto tooLong = this->PathOf(std::string(3000, 'a').c_str());
    auto longFile = File::LoadFile(tooLong);
    ASSERT_TRUE(longFile);
    this->ExpectNoSections(*longFile);
    EXPECT_EQ(longFile->GetFilePath(), tooLong);
}

TYPED_TEST(IniFileTest, RelativePathReadsFromTheCurrentFolderAndIsKeptAsGiven) {
    using File = typename TestFixture::File;
    this->Load("relative.ini", "[Here]\nkey=found\n");
    ScopedCurrentDirectory current(this->m_folder.Path());
    // The platform would look for a bare file name in the Windows folder;
    // the absolute path makes it the current folder's file.
    for (const char* relative : {"relative.ini", ".\\sub\\..\\relative.ini"}) {
        auto file = File::LoadFile(this->T(relative));
        EXPECT_EQ(file->GetFilePath(), this->T(relative));
        ASSERT_TRUE(file->HasSection(this->T("Here"))) << relative;
        EXPECT_EQ(file->GetSection(this->T("Here"))->GetValue(this->T("key")), this->T("found"));
    }
}

TYPED_TEST(IniFileTest, ReadsSectionsKeysAndValuesAsThePlatformDelivers) {
    auto file = this->Load("basic.ini",
                           "; comment\r\n"
                           "[Server]\r\n"
                           "Host = example.org \r\n"
                           "Port=8080\r\n"
                           "Quoted=\"a b\"\r\n"
                           "NoValue=\r\n"
                           "not a key\r\n"
                           "[Empty]\r\n");
    ASSERT_EQ(file->Size(), 2u);

    auto* server = file->GetSection(this->T("Server"));
    ASSERT_NE(server, nullptr);
    EXPECT_EQ((*file)[this->T("Server")], server);
    EXPECT_EQ(server->GetName(), this->T("Server"));
    EXPECT_EQ(server->Size(), 4u);
    EXPECT_EQ(server->GetValue(this->T("Host")), this->T("example.org"));
    EXPECT_EQ((*server)[this->T("Port")], this->T("8080"));
    EXPECT_EQ(server->GetValue(this->T("Quoted")), this->T("a b"));
    // A key without a value is there, with an empty value.
    EXPECT_TRUE(server->ContainsKey(this->T("NoValue")));
    EXPECT_EQ(server->GetValue(this->T("NoValue")), this->T(""));

    auto* empty = file->GetSection(this->T("Empty"));
    ASSERT_NE(empty, nullptr);
    EXPECT_TRUE(file->HasSection(this->T("Empty")));
    EXPECT_EQ(empty->Size(), 0u);
    EXPECT_TRUE(empty->Begin() == empty->End());
}

TYPED_TEST(IniFileTest, LookupsMatchExactCaseOnlyAndCreateNothing) {
    auto file = this->Load("case.ini", "[Server]\nHost=x\n");
    auto* server = file->GetSection(this->T("Server"));
    ASSERT_NE(server, nullptr);

    EXPECT_FALSE(file->HasSection(this->T("server")));
    EXPECT_EQ(file->GetSection(this->T("SERVER")), nullptr);
    EXPECT_EQ((*file)[this->T("Missing")], nullptr);
    EXPECT_EQ(file->Size(), 1u);

    EXPECT_FALSE(server->ContainsKey(this->T("host")));
    EXPECT_EQ(server->GetValue(this->T("host")), this->T(""));
    EXPECT_EQ((*server)[this->T("Missing")], this->T(""));
    EXPECT_EQ(server->Size(), 1u);
    EXPECT_EQ(server->GetValue(this->T("Host")), this->T("x"));
}

TYPED_TEST(IniFileTest, RepeatedNamesGiveOneEntryEach) {
    auto file = this->Load("repeat.ini",
                           "[A]\nk=first\nk=second\n"
                           "[B]\nb=1\n"
                           "[A]\nk=third\n"
                           "[a]\n");
    // Every head is listed; the repeat of A is passed over, while the case
    // variant is a name of its own.
    EXPECT_EQ(file->Size(), 3u);
    EXPECT_TRUE(file->HasSection(this->T("a")));
    auto* a = file->GetSection(this->T("A"));
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->Size(), 1u);
    EXPECT_EQ(a->GetValue(this->T("k")), this->T("first"));
}

TYPED_TEST(IniFileTest, AnEmptyKeyNameEndsTheKeyList) {
    // "=x" is listed as a key of length 0, which ends the walk of the list.
    auto file = this->Load("hole.ini", "[S]\nbefore=1\n=x\nafter=2\n[T]\nt=3\n");
    auto* s = file->GetSection(this->T("S"));
    ASSERT_NE(s, nullptr);
    EXPECT_EQ(s->Size(), 1u);
    EXPECT_TRUE(s->ContainsKey(this->T("before")));
    EXPECT_FALSE(s->ContainsKey(this->T("after")));
    EXPECT_EQ(file->GetSection(this->T("T"))->GetValue(this->T("t")), this->T("3"));
}

TYPED_TEST(IniFileTest, LongValuesArriveCutTo1023Characters) {
    const std::string fits(1023, 'f');
    const std::string exact(1024, 'e');
    const std::string longer(3000, 'l');
    auto file = this->Load("long.ini",
                           "[L]\nfits=" + fits + "\nexact=" + exact + "\nlonger=" + longer + "\n");
    auto* l = file->GetSection(this->T("L"));
    ASSERT_NE(l, nullptr);
    EXPECT_EQ(l->GetValue(this->T("fits")), this->T(fits));
    EXPECT_EQ(l->GetValue(this->T("exact")), this->T(std::string(1023, 'e')));
    EXPECT_EQ(l->GetValue(this->T("longer")), this->T(std::string(1023, 'l')));
}

// Eight-character names take 9 units each in a list: 1,820 whole names fill
// 16,380 of the 16,384 units, the next is cut to "ke", and the list's two
// closing zeros take the rest.
TYPED_TEST(IniFileTest, KeysPastTheEndOfTheKeyListAreLost) {
    std::string content = "[Many]\n";
    char line[32];
    for (int i = 0; i < 2000; ++i) {
        std::snprintf(line, sizeof line, "key%05d=v%d\n", i, i);
        content += line;
    }
    auto file = this->Load("many.ini", content);
    auto* many = file->GetSection(this->T("Many"));
    ASSERT_NE(many, nullptr);
    EXPECT_EQ(many->Size(), 1821u);
    EXPECT_EQ(many->GetValue(this->T("key00000")), this->T("v0"));
    EXPECT_EQ(many->GetValue(this->T("key01819")), this->T("v1819"));
    EXPECT_FALSE(many->ContainsKey(this->T("key01820")));
    EXPECT_FALSE(many->ContainsKey(this->T("key01999")));
    // The cut name is a key of its own, with what the platform gives for it.
    EXPECT_TRUE(many->ContainsKey(this->T("ke")));
    EXPECT_EQ(many->GetValue(this->T("ke")), this->T(""));
}

// The same for the 4,096-unit list of section names: names of 11 characters
// take 12 units, so 341 whole names fill 4,092 units and the next is cut to
// "se".
TYPED_TEST(IniFileTest, SectionsPastTheEndOfTheSectionListAreLost) {
    std::string content;
    char line[48];
    for (int i = 0; i < 400; ++i) {
        std::snprintf(line, sizeof line, "[section%04d]\nk=%d\n", i, i);
        content += line;
    }
    auto file = this->Load("sections.ini", content);
    EXPECT_EQ(file->Size(), 342u);
    ASSERT_TRUE(file->HasSection(this->T("section0340")));
    EXPECT_EQ(file->GetSection(this->T("section0340"))->GetValue(this->T("k")), this->T("340"));
    EXPECT_FALSE(file->HasSection(this->T("section0341")));
    ASSERT_TRUE(file->HasSection(this->T("se")));
    EXPECT_EQ(file->GetSection(this->T("se"))->Size(), 0u);
}

TYPED_TEST(IniFileTest, IterationReachesEveryEntryOnce) {
    auto file = this->Load("iterate.ini", "[One]\na=1\nb=2\n[Two]\nc=3\n[Three]\n");
    std::set<typename TestFixture::String> sections;
    std::set<typename TestFixture::String> keys;
    unsigned long long visitedSections = 0;
    unsigned long long visitedKeys = 0;
    const auto& constFile = *file;
    for (auto it = constFile.BeginSections(); it != constFile.EndSections(); ++it) {
        ++visitedSections;
        sections.insert(it->first);
        EXPECT_EQ(it->second->GetName(), it->first);
        const auto& section = *it->second;
        for (auto key = section.Begin(); key != section.End(); ++key) {
            ++visitedKeys;
            keys.insert(key->first + this->T("=") + key->second);
        }
    }
    EXPECT_EQ(visitedSections, file->Size());
    EXPECT_EQ(sections, (std::set<typename TestFixture::String>{
                            this->T("One"), this->T("Two"), this->T("Three")}));
    EXPECT_EQ(visitedKeys, 3u);
    EXPECT_EQ(keys, (std::set<typename TestFixture::String>{this->T("a=1"), this->T("b=2"),
                                                            this->T("c=3")}));

    // The mutable iterators reach the same entries.
    unsigned long long mutableVisits = 0;
    for (auto it = file->BeginSections(); it != file->EndSections(); ++it) {
        for (auto key = it->second->Begin(); key != it->second->End(); ++key) {
            ++mutableVisits;
        }
    }
    EXPECT_EQ(mutableVisits, 3u);
}

TYPED_TEST(IniFileTest, SectionsLiveAsLongAsAHolderOfTheFile) {
    auto file = this->Load("alive.ini", "[Keep]\nk=v\n");
    auto* keep = file->GetSection(this->T("Keep"));
    auto other = file;
    file.reset();
    // The file is read once: a later change on disk is not seen.
    this->Load("alive.ini", "[Keep]\nk=changed\n");
    EXPECT_EQ(keep->GetValue(this->T("k")), this->T("v"));
    EXPECT_EQ(other->GetSection(this->T("Keep")), keep);
}

}  // namespace
