#include "filesystem/IniFile.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <string>
#include <type_traits>

#include "support/ScopedState.h"

namespace {

template <class Ch>
class IniFileTest : public ::testing::Test {
protected:
    using String = std::basic_string<Ch>;
    using File = std::conditional_t<std::is_same<Ch, char>::value, IniFileA, IniFileW>;

    static String T(const std::string& ascii) { return Text<Ch>(ascii.c_str()); }

    // The temporary folder's path is ASCII, so it reads the same in both widths.
    String PathOf(const std::string& name) const {
        return T(Text<char>(m_folder.Join(Text<wchar_t>(name.c_str()))));
    }

    SmartPtr<File> Load(const char* name, const std::string& content) {
        EXPECT_TRUE(WriteTextFile(m_folder.Join(Text<wchar_t>(name)), content));
        return File::LoadFile(PathOf(name));
    }

    // The number of keys of a section, or -1 if there is no such section.
    static long long Keys(const File& file, const char* section) {
        const auto* found = file.GetSection(T(section));
        return found == nullptr ? -1 : static_cast<long long>(found->Size());
    }

    // A key's value, or "<none>" if the section or the key is missing.
    static String Value(const File& file, const char* section, const char* key) {
        const auto* found = file.GetSection(T(section));
        return found == nullptr || !found->ContainsKey(T(key)) ? T("<none>")
                                                               : found->GetValue(T(key));
    }

    // `count` lines of `format`, each filled in with its number twice.
    static std::string Numbered(const char* format, int count) {
        std::string lines;
        char line[48];
        for (int i = 0; i < count; ++i) {
            std::snprintf(line, sizeof line, format, i, i);
            lines += line;
        }
        return lines;
    }

    TempFolder m_folder;
};

using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(IniFileTest, Widths);

TYPED_TEST(IniFileTest, PathIsKeptAsGivenAndFilesWithoutSectionsGiveAnEmptyObject) {
    // A missing file; one in a missing folder (where the wide profile entry
    // writes nothing at all into its buffer); an empty path; and a path whose
    // absolute form is longer than its 2,048-character buffer.
    for (const auto& path : {this->PathOf("missing.ini"),
                             this->PathOf("no-such-folder\\missing.ini"), this->T(""),
                             this->PathOf(std::string(3000, 'a'))}) {
        auto file = TestFixture::File::LoadFile(path);
        ASSERT_TRUE(file);
        EXPECT_EQ(file->Size(), 0u);
        EXPECT_EQ(file->GetFilePath(), path);
    }
    EXPECT_EQ(this->Load("empty.ini", "")->Size(), 0u);
    EXPECT_EQ(this->Load("flat.ini", "key=value\nother=1\n")->Size(), 0u);

    this->Load("relative.ini", "[Here]\nkey=found\n");
    ScopedCurrentDirectory current(this->m_folder.Path());
    // The platform would look for a bare file name in the Windows folder;
    // the absolute path makes it the current folder's file.
    for (const char* relative : {"relative.ini", ".\\sub\\..\\relative.ini"}) {
        auto file = TestFixture::File::LoadFile(this->T(relative));
        EXPECT_EQ(file->GetFilePath(), this->T(relative));
        EXPECT_EQ(this->Value(*file, "Here", "key"), this->T("found")) << relative;
    }
}

TYPED_TEST(IniFileTest, ReadsWhatThePlatformListsByExactNameFirstOfRepeatsWinning) {
    auto file = this->Load("basic.ini",
                           "; comment\r\n"
                           "[Server]\r\nHost = example.org \r\nNoValue=\r\nnot a key\r\n"
                           "[Empty]\r\n"
                           "[Hole]\r\nbefore=1\r\n=x\r\nafter=2\r\n"
                           "[A]\r\nk=first\r\nk=second\r\n"
                           "[A]\r\nk=third\r\n"
                           "[a]\r\n");
    // Every head is listed; the repeat of A is passed over, while the case
    // variant is a name of its own.
    EXPECT_EQ(file->Size(), 5u);
    auto* server = (*file)[this->T("Server")];
    ASSERT_NE(server, nullptr);
    EXPECT_EQ(server->Size(), 2u);
    EXPECT_EQ((*server)[this->T("Host")], this->T("example.org"));
    EXPECT_EQ(this->Value(*file, "Server", "NoValue"), this->T(""));  // there, with no value
    EXPECT_FALSE(server->ContainsKey(this->T("host")));
    EXPECT_EQ(server->GetValue(this->T("host")), this->T(""));
    EXPECT_FALSE(file->HasSection(this->T("server")));
    EXPECT_EQ(file->GetSection(this->T("SERVER")), nullptr);
    EXPECT_TRUE(file->HasSection(this->T("a")));
    EXPECT_EQ(this->Keys(*file, "Empty"), 0);
    EXPECT_EQ(this->Keys(*file, "A"), 1);
    EXPECT_EQ(this->Value(*file, "A", "k"), this->T("first"));
    // "=x" is listed as a key of length 0, which ends the walk of that list
    // only: the sections after it are whole.
    EXPECT_EQ(this->Keys(*file, "Hole"), 1);
    EXPECT_EQ(this->Value(*file, "Hole", "before"), this->T("1"));
    EXPECT_EQ(this->Value(*file, "Hole", "after"), this->T("<none>"));
}

TYPED_TEST(IniFileTest, WhatDoesNotFitItsBufferIsCutWithoutAWord) {
    auto values = this->Load("long.ini", "[L]\nexact=" + std::string(1024, 'e') +
                                             "\nlonger=" + std::string(3000, 'l') + "\n");
    EXPECT_EQ(this->Value(*values, "L", "exact"), this->T(std::string(1023, 'e')));
    EXPECT_EQ(this->Value(*values, "L", "longer"), this->T(std::string(1023, 'l')));

    // Eight-character names take 9 units each in a list: 1,820 whole names
    // fill 16,380 of the 16,384 units, the next is cut to "ke", and the
    // list's two closing zeros take the rest. The cut name is a key of its
    // own, with what the platform gives for it.
    auto keys = this->Load("many.ini", "[Many]\n" + this->Numbered("key%05d=v%d\n", 2000));
    EXPECT_EQ(this->Keys(*keys, "Many"), 1821);
    EXPECT_EQ(this->Value(*keys, "Many", "key01819"), this->T("v1819"));
    EXPECT_EQ(this->Value(*keys, "Many", "key01820"), this->T("<none>"));
    EXPECT_EQ(this->Value(*keys, "Many", "ke"), this->T(""));

    // The same for the 4,096-unit list of section names: names of 11
    // characters take 12 units, so 341 whole names fill 4,092 units and the
    // next is cut to "se".
    auto sections = this->Load("sections.ini", this->Numbered("[section%04d]\nk=%d\n", 400));
    EXPECT_EQ(sections->Size(), 342u);
    EXPECT_EQ(this->Value(*sections, "section0340", "k"), this->T("340"));
    EXPECT_FALSE(sections->HasSection(this->T("section0341")));
    EXPECT_EQ(this->Keys(*sections, "se"), 0);
}

TYPED_TEST(IniFileTest, IterationVisitsEachEntryOnceAndSectionsLiveWithAHolder) {
    using String = typename TestFixture::String;
    auto file = this->Load("iterate.ini", "[One]\na=1\nb=2\n[Two]\nc=3\n[Three]\n");
    std::multiset<String> seen;
    const auto& constFile = *file;
    for (auto it = constFile.BeginSections(); it != constFile.EndSections(); ++it) {
        seen.insert(it->second->GetName());
        const auto& section = *it->second;
        for (auto key = section.Begin(); key != section.End(); ++key) {
            seen.insert(it->first + this->T(".") + key->first + this->T("=") + key->second);
        }
    }
    EXPECT_EQ(seen, (std::multiset<String>{this->T("One"), this->T("Two"), this->T("Three"),
                                           this->T("One.a=1"), this->T("One.b=2"),
                                           this->T("Two.c=3")}));
    auto* one = file->GetSection(this->T("One"));
    auto other = file;
    file.reset();
    // The file is read once: a later change on disk is not seen.
    this->Load("iterate.ini", "[One]\na=changed\n");
    EXPECT_EQ(one->GetValue(this->T("a")), this->T("1"));
    EXPECT_EQ(other->GetSection(this->T("One")), one);
}

}  // namespace
