// File search over a real tree made for each test. The platform's listing
// order is never relied on: results are compared as sets.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <type_traits>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"
#include "zrkCore.h"

namespace {

template <class Ch>
using Finder = std::conditional_t<sizeof(Ch) == 1, FileFindA, FileFindW>;
using Found = std::multiset<std::wstring>;

// Keeps the reported paths relative to `root` ("sub\c.txt") and answers
// `answer` to each.
template <class Ch>
struct Collector : std::conditional_t<sizeof(Ch) == 1, IFoundFileReceiverA, IFoundFileReceiverW> {
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

// The tree searched; entries ending in "\" are folders.
template <class Ch>
class FileFind : public ::testing::Test {
protected:
    FileFind() {
        for (const std::wstring entry :
             {L"a.txt", L"b.log", L"match.txt\\", L"match.txt\\f.txt", L".hidden\\",
              L".hidden\\e.txt", L"sub\\", L"sub\\c.txt", L"sub\\c2.txt", L"sub\\deeper\\",
              L"sub\\deeper\\d.txt", L"sub\\deeper\\deepest\\", L"sub\\deeper\\deepest\\g.txt"}) {
            if (entry.back() == L'\\') {
                CreateDirectoryW(m_tree.Join(entry).c_str(), nullptr);
            } else {
                WriteTextFile(m_tree.Join(entry), "x");
            }
        }
    }

    Found Find(const wchar_t* pattern, unsigned int maxDepth, const wchar_t* rootSuffix = L"",
               int answer = 0) {
        Collector<Ch> collector(m_tree.Path(), answer);
        Finder<Ch>(&collector, Text<Ch>(m_tree.Path() + rootSuffix), Text<Ch>(pattern), maxDepth)
            .Search();
        return collector.found;
    }

    TempFolder m_tree;
};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(FileFind, Widths);

TYPED_TEST(FileFind, ReportsMatchesDownToTheDepthLimitButNeverInDotFolders) {
    Found one{L"a.txt", L"match.txt\\f.txt", L"sub\\c.txt", L"sub\\c2.txt"};
    if (sizeof(TypeParam) == 2) {
        one.insert(L"match.txt");  // the wide form reports matching folders too
    }
    Found two = one, all = one;
    two.insert(L"sub\\deeper\\d.txt");
    all.insert({L"sub\\deeper\\d.txt", L"sub\\deeper\\deepest\\g.txt"});
    EXPECT_EQ(this->Find(L"*.txt", 1), one);
    EXPECT_EQ(this->Find(L"*.txt", 2), two);
    EXPECT_EQ(this->Find(L"*.txt", 0), all);
    EXPECT_EQ(this->Find(L"e.txt", 0), Found());
    EXPECT_EQ(this->Find(L".hidden", 0).size(), sizeof(TypeParam) == 1 ? 0u : 1u);
    EXPECT_EQ(this->Find(L"", 0), Found());
    EXPECT_EQ(this->Find(L"*", 0, L"\\missing"), Found());
    EXPECT_EQ(this->Find(L"a.txt", 0, L"\\"), Found{L"\\a.txt"});  // the separator doubles
}

TYPED_TEST(FileFind, ReturningOneEndsOnlyTheCurrentFoldersListing) {
    std::set<std::wstring> folders;  // "" for the root
    for (const std::wstring& path : this->Find(L"*.txt", 0, L"", 1)) {
        EXPECT_TRUE(folders.insert(path.substr(0, path.find_last_of(L'\\') + 1)).second) << path;
    }
    EXPECT_EQ(folders, (std::set<std::wstring>{L"", L"match.txt\\", L"sub\\", L"sub\\deeper\\",
                                               L"sub\\deeper\\deepest\\"}));
}

TYPED_TEST(FileFind, WithoutARootTheSearchKeepsTheFolderCurrentAtConstruction) {
    using Ch = TypeParam;
    Collector<Ch> collector(this->m_tree.Path(), 0);
    Finder<Ch> finder = [&] {
        ScopedCurrentDirectory inTree(this->m_tree.Path());
        return Finder<Ch>(&collector, Text<Ch>(L"a.txt"), 1);
    }();
    EXPECT_EQ(finder.SearchRootDirectory(), Text<Ch>(this->m_tree.Path()));
    finder.Search();
    EXPECT_EQ(collector.found, Found{L"a.txt"});

    // The platform fills the whole buffer without a terminator and answers
    // failure (0) or the size of a folder too long for 2048 characters.
    static DWORD answer;
    auto fill = [](DWORD size, Ch* buffer) {
        std::fill(buffer, buffer + size, Ch('x'));
        return answer;
    };
    ImportPatch patch(CoreModule(), "KERNEL32.dll",
                      sizeof(Ch) == 1 ? "GetCurrentDirectoryA" : "GetCurrentDirectoryW",
                      reinterpret_cast<void*>(+fill));
    ASSERT_TRUE(patch.Active());
    for (DWORD planned : {0ul, 2048ul, 5000ul}) {
        answer = planned;
        EXPECT_TRUE(Finder<Ch>::WorkingDir().empty()) << planned;
    }
}

}  // namespace
