// File search over a real tree made for each test. The platform's listing
// order is never relied on: results are compared as sets.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"
#include "zrkCore.h"

namespace {

template <class Ch>
using String = std::basic_string<Ch>;
using Found = std::multiset<std::wstring>;

template <class Ch>
struct Width;
template <>
struct Width<char> {
    using Receiver = IFoundFileReceiverA;
    using Finder = FileFindA;
    static String<char> Of(const std::wstring& ascii) { return Narrow(ascii); }
    static constexpr const char* kCurrentDirectory = "GetCurrentDirectoryA";
};
template <>
struct Width<wchar_t> {
    using Receiver = IFoundFileReceiverW;
    using Finder = FileFindW;
    static String<wchar_t> Of(const std::wstring& ascii) { return ascii; }
    static constexpr const char* kCurrentDirectory = "GetCurrentDirectoryW";
};

// Keeps the reported paths relative to `root` ("sub\c.txt") and answers
// `answer` to each.
template <class Ch>
struct Collector : Width<Ch>::Receiver {
    Collector(const std::wstring& root, int answer) : root(root + L"\\"), answer(answer) {}
    int FoundFile(const String<Ch>& fullPath, const String<Ch>& name) override {
        const std::wstring full(fullPath.begin(), fullPath.end());
        EXPECT_EQ(full.substr(full.size() - name.size()), std::wstring(name.begin(), name.end()));
        found.insert(full.rfind(root, 0) == 0 ? full.substr(root.size()) : L"?" + full);
        return answer;
    }
    std::wstring root;
    int answer;
    Found found;
};

//   a.txt  b.log  match.txt\f.txt  .hidden\e.txt  sub\c.txt  sub\c2.txt
//   sub\deeper\d.txt  sub\deeper\deepest\g.txt
template <class Ch>
class FileFind : public ::testing::Test {
protected:
    FileFind() {
        for (const wchar_t* folder :
             {L"match.txt", L".hidden", L"sub", L"sub\\deeper", L"sub\\deeper\\deepest"}) {
            CreateDirectoryW(m_tree.Join(folder).c_str(), nullptr);
        }
        for (const wchar_t* file : {L"a.txt", L"b.log", L"match.txt\\f.txt", L".hidden\\e.txt",
                                    L"sub\\c.txt", L"sub\\c2.txt", L"sub\\deeper\\d.txt",
                                    L"sub\\deeper\\deepest\\g.txt"}) {
            WriteTextFile(m_tree.Join(file), "x");
        }
    }

    Found Find(const wchar_t* pattern, unsigned int maxDepth, const wchar_t* rootSuffix = L"",
               int answer = 0) {
        Collector<Ch> collector(m_tree.Path(), answer);
        typename Width<Ch>::Finder(&collector, Width<Ch>::Of(m_tree.Path() + rootSuffix),
                                   Width<Ch>::Of(pattern), maxDepth)
            .Search();
        return collector.found;
    }

    // `folders` are reported by the wide search only.
    static Found Expect(std::vector<const wchar_t*> files, std::vector<const wchar_t*> folders) {
        Found all(files.begin(), files.end());
        if (std::is_same<Ch, wchar_t>::value) {
            all.insert(folders.begin(), folders.end());
        }
        return all;
    }

    TempFolder m_tree;
};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(FileFind, Widths);

TYPED_TEST(FileFind, TheDepthLimitCountsTheRootAsLevelZeroAndZeroMeansNone) {
    const Found one = this->Expect({L"a.txt", L"match.txt\\f.txt", L"sub\\c.txt", L"sub\\c2.txt"},
                                   {L"match.txt"});
    Found two = one, all = one;
    two.insert(L"sub\\deeper\\d.txt");
    all.insert({L"sub\\deeper\\d.txt", L"sub\\deeper\\deepest\\g.txt"});
    EXPECT_EQ(this->Find(L"*.txt", 1), one);
    EXPECT_EQ(this->Find(L"*.txt", 2), two);
    EXPECT_EQ(this->Find(L"*.txt", 0), all);
    EXPECT_EQ(this->Find(L"?.log", 0), this->Expect({L"b.log"}, {}));
}

TYPED_TEST(FileFind, DotFoldersAreReportedByTheWideFormButNeverDescended) {
    EXPECT_EQ(this->Find(L"*", 1),
              this->Expect({L"a.txt", L"b.log", L"match.txt\\f.txt", L"sub\\c.txt", L"sub\\c2.txt"},
                           {L"match.txt", L".hidden", L"sub", L"sub\\deeper"}));
    EXPECT_EQ(this->Find(L"e.txt", 0), Found());
}

TYPED_TEST(FileFind, ReturningOneEndsOnlyTheCurrentFoldersListing) {
    std::map<std::wstring, int> perFolder;
    for (const std::wstring& path : this->Find(L"*.txt", 0, L"", 1)) {
        const auto slash = path.rfind(L'\\');
        ++perFolder[slash == std::wstring::npos ? L"" : path.substr(0, slash)];
    }
    EXPECT_EQ(perFolder, (std::map<std::wstring, int>{{L"", 1}, {L"match.txt", 1}, {L"sub", 1},
                                                      {L"sub\\deeper", 1},
                                                      {L"sub\\deeper\\deepest", 1}}));
}

TYPED_TEST(FileFind, OddRootsAndPatternsReportWhatTheyShould) {
    // A root ending in "\" doubles the separator.
    EXPECT_EQ(this->Find(L"a.txt", 0, L"\\"), Found{L"\\a.txt"});
    EXPECT_EQ(this->Find(L"", 0), Found());
    EXPECT_EQ(this->Find(L"*", 0, L"\\missing"), Found());
}

TYPED_TEST(FileFind, WithoutARootTheSearchKeepsTheFolderCurrentAtConstruction) {
    using W = Width<TypeParam>;
    Collector<TypeParam> collector(this->m_tree.Path(), 0);
    std::unique_ptr<typename W::Finder> finder;
    {
        ScopedCurrentDirectory inTree(this->m_tree.Path());
        EXPECT_EQ(W::Finder::WorkingDir(), W::Of(this->m_tree.Path()));
        finder.reset(new typename W::Finder(&collector, W::Of(L"a.txt"), 1));
    }
    EXPECT_EQ(finder->SearchRootDirectory(), W::Of(this->m_tree.Path()));
    finder->Search();
    EXPECT_EQ(collector.found, Found{L"a.txt"});
}

// Fills the whole buffer without a terminator and answers `g_answer`.
DWORD g_answer = 0;
template <class Ch>
DWORD WINAPI FillCurrentDirectory(DWORD size, Ch* buffer) {
    std::fill(buffer, buffer + size, Ch('x'));
    return g_answer;
}

TYPED_TEST(FileFind, WorkingDirIsEmptyWhenThePlatformWritesNoFolder) {
    using W = Width<TypeParam>;
    ImportPatch patch(CoreModule(), "KERNEL32.dll", W::kCurrentDirectory,
                      reinterpret_cast<void*>(&FillCurrentDirectory<TypeParam>));
    ASSERT_TRUE(patch.Active());
    for (DWORD answer : {0ul, 2048ul, 5000ul}) {  // failure; a folder too long for 2048
        g_answer = answer;
        EXPECT_TRUE(W::Finder::WorkingDir().empty()) << answer;
    }
}

// Records every listing that the search opens, on the way to the real call.
std::vector<std::wstring> g_listings;
void* g_findFirst = nullptr;
HANDLE WINAPI LogFindFirst(const wchar_t* searchText, WIN32_FIND_DATAW* data) {
    g_listings.push_back(searchText);
    return reinterpret_cast<decltype(&FindFirstFileW)>(g_findFirst)(searchText, data);
}

TEST(FileFindListings, EachFolderIsListedWithThePatternThenWithAStar) {
    TempFolder tree;
    CreateDirectoryW(tree.Join(L"sub").c_str(), nullptr);
    CreateDirectoryW(tree.Join(L"sub\\deeper").c_str(), nullptr);
    ImportPatch patch(CoreModule(), "KERNEL32.dll", "FindFirstFileW",
                      reinterpret_cast<void*>(&LogFindFirst));
    ASSERT_TRUE(patch.Active());
    g_findFirst = patch.Original<void*>();
    // An empty pattern reports nothing, but the tree is walked all the same;
    // "sub\deeper" lies beyond the limit and is not listed at all.
    Collector<wchar_t> collector(tree.Path(), 0);
    FileFindW(&collector, tree.Path(), L"", 1).Search();
    EXPECT_TRUE(collector.found.empty());
    const std::wstring root = tree.Path();
    EXPECT_EQ(g_listings, (std::vector<std::wstring>{root + L"\\", root + L"\\*",
                                                     root + L"\\sub\\", root + L"\\sub\\*"}));
}

}  // namespace
