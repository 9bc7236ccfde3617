#include <malloc.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"
#include "zrkCore.h"

namespace {

template <class Ch>
using Finder = std::conditional_t<sizeof(Ch) == 1, FileFindA, FileFindW>;
using Found = std::multiset<std::wstring>;

// Keeps the reported paths after `root` ("\m\f.txt"); answers `answer`.
template <class Ch>
struct Collector : std::conditional_t<sizeof(Ch) == 1, IFoundFileReceiverA, IFoundFileReceiverW> {
    explicit Collector(const std::wstring& root, int answer = 0) : root(root), answer(answer) {}
    int FoundFile(const String<Ch>& fullPath, const String<Ch>& name) override {
        EXPECT_EQ(fullPath.substr(fullPath.size() - name.size()), name);
        found.emplace_back(fullPath.begin() + root.size(), fullPath.end());
        return answer;
    }
    const std::wstring root;
    const int answer;
    std::vector<std::wstring> found;
};

template <class Ch>
Found Find(const std::wstring& root, const std::wstring& pattern, unsigned int maxDepth,
           int answer = 0) {
    Collector<Ch> to(root, answer);
    Finder<Ch>(&to, Text<Ch>(root), Text<Ch>(pattern), maxDepth).Search();
    return Found(to.found.begin(), to.found.end());
}

ZRK_TEST_SUITE_OVER_BOTH_WIDTHS(FileFindTest);

TYPED_TEST(FileFindTest, ReportsMatchesDownToTheDepthLimitButNothingForTextHoldingAZero) {
    TempFolder tree;  // m is a folder
    ASSERT_TRUE(std::filesystem::create_directories(tree.Join(L"m\\sub")));
    for (const wchar_t* file : {L"a.txt", L"m\\f.txt", L"m\\sub\\f.txt"}) {
        ASSERT_TRUE(WriteTextFile(tree.Join(file), "x"));
    }
    EXPECT_EQ(Find<TypeParam>(tree.Path(), L"*.txt", 1), (Found{L"\\a.txt", L"\\m\\f.txt"}));
    EXPECT_EQ(Find<TypeParam>(tree.Path(), L"*.txt", 0),
              (Found{L"\\a.txt", L"\\m\\f.txt", L"\\m\\sub\\f.txt"}));
    // Only the wide search reports folders.
    EXPECT_EQ(Find<TypeParam>(tree.Path(), L"m", 0).size(), sizeof(TypeParam) - 1);
    // An answer of 1 ends the listing of the folder at hand, not the search.
    EXPECT_EQ(Find<TypeParam>(tree.Path(), L"*.txt", 0, 1).size(), 3u);
    EXPECT_EQ(Find<TypeParam>(tree.Path() + L"\\", L"a.txt", 0), Found{L"\\a.txt"});  // "\" doubles
    EXPECT_EQ(Find<TypeParam>(tree.Path() + std::wstring(L"\\a.txt\0", 7), L"*", 0), Found());
    EXPECT_EQ(Find<TypeParam>(tree.Path(), std::wstring(L"a.txt\0", 6), 0), Found());
}

TYPED_TEST(FileFindTest, WorkingDirIsEmptyWhenTheFolderDoesNotFit) {
    using Ch = TypeParam;  // the platform fills the buffer and asks for 2048 characters
    auto fill = [](DWORD size, Ch* buffer) {
        std::fill_n(buffer, size, Ch('x'));
        return size;
    };
    ImportPatch patch(CoreModule(), "KERNEL32.dll",
                      Pick<Ch>("GetCurrentDirectoryA", "GetCurrentDirectoryW"), (void*)+fill);
    EXPECT_TRUE(Finder<Ch>::WorkingDir().empty());
}

// Deeper than 64 KB of stack could take at a recursion of ~1 KB a level.
TEST(FileFindTest, WalksDeepTreesWithinASmallStack) {
    TempFolder temp;
    Collector<wchar_t> to(L"\\\\?\\" + temp.Path());
    std::wstring path = to.root;
    for (int level = 0; level < 200; ++level) {
        path += L"\\d";
        ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr)) << level;
    }
    // Leave 64 KB of stack (Wine gives a thread 1 MB, whatever it asks for).
    ULONG_PTR low, high;
    GetCurrentThreadStackLimits(&low, &high);
    static_cast<volatile char*>(alloca(reinterpret_cast<ULONG_PTR>(&low) - low - 65536))[0] = 0;
    FileFindW(&to, to.root, L"d", 0).Search();
    ASSERT_EQ(to.found.size(), 200u);
    EXPECT_EQ(to.found.back(), path.substr(to.root.size()));  // each folder before its subtree
}

}  // namespace
