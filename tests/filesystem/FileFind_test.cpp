// Search over real trees; the platform's listing order is never relied on.
#include <malloc.h>

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "support/ImportPatch.h"
#include "support/ScopedState.h"
#include "zrkCore.h"

namespace {

template <class Ch>
using Finder = std::conditional_t<sizeof(Ch) == 1, FileFindA, FileFindW>;
using Found = std::multiset<std::wstring>;

// Keeps the reported paths after `root` ("\sub\c.txt"); answers `answer`.
template <class Ch>
struct Collector : std::conditional_t<sizeof(Ch) == 1, IFoundFileReceiverA, IFoundFileReceiverW> {
    int FoundFile(const String<Ch>& fullPath, const String<Ch>& name) override {
        EXPECT_EQ(fullPath.substr(fullPath.size() - name.size()), name);
        found.emplace_back(fullPath.begin() + root.size(), fullPath.end());
        return answer;
    }
    std::wstring root;
    int answer = 0;
    std::vector<std::wstring> found;
};

template <class Ch>
class FileFindTest : public ::testing::Test {
protected:
    FileFindTest() {  // entries ending in "\" are folders
        std::wistringstream tree(L"a.txt b.log m.txt\\ m.txt\\f.txt .git\\ .git\\e.txt sub\\ "
                                 L"sub\\c.txt sub\\c2.txt sub\\deeper\\ sub\\deeper\\d.txt");
        for (std::wstring entry; tree >> entry;)
            entry.back() == L'\\' ? (void)CreateDirectoryW(m_tree.Join(entry).c_str(), nullptr)
                                  : (void)WriteTextFile(m_tree.Join(entry), "x");
    }
    Found Find(const std::wstring& pattern, unsigned int maxDepth,
               const std::wstring& rootTail = L"", int answer = 0) {
        Collector<Ch> to;
        to.root = m_tree.Path() + rootTail, to.answer = answer;
        Finder<Ch>(&to, Text<Ch>(to.root), Text<Ch>(pattern), maxDepth).Search();
        return Found(to.found.begin(), to.found.end());
    }
    TempFolder m_tree;
};
using Widths = ::testing::Types<char, wchar_t>;
TYPED_TEST_SUITE(FileFindTest, Widths);

TYPED_TEST(FileFindTest, ReportsMatchesDownToTheDepthLimitButNeverInDotFolders) {
    Found one{L"\\a.txt", L"\\m.txt\\f.txt", L"\\sub\\c.txt", L"\\sub\\c2.txt"}, all;
    if (sizeof(TypeParam) == 2) one.insert(L"\\m.txt");  // wide: matching folders too
    (all = one).insert(L"\\sub\\deeper\\d.txt");
    EXPECT_EQ(this->Find(L"*.txt", 1), one);
    EXPECT_EQ(this->Find(L"*.txt", 0), all);
    EXPECT_EQ(this->Find(L"*.txt", 0, L"", 2), all);  // only 1 ends a listing, and only
    EXPECT_EQ(this->Find(L"*.txt", 0, L"", 1).size(), 4u);  // that of the folder at hand
    EXPECT_EQ(this->Find(L"*", 1).count(L"\\."), 0u);
    EXPECT_EQ(this->Find(L".git", 0).size(), sizeof(TypeParam) - 1);  // never e.txt
    EXPECT_EQ(this->Find(L"a.txt", 0, L"\\"), Found{L"\\a.txt"});  // the separator doubles
    // Nothing from an empty pattern, a missing root, or text holding a zero.
    for (const auto& tail : {std::wstring(L"\\missing"), std::wstring(L"\\a.txt\0", 7)})
        EXPECT_EQ(this->Find(L"", 0).size() + this->Find(L"*", 0, tail).size(), 0u);
    EXPECT_EQ(this->Find(std::wstring(L"a.txt\0", 6), 0), Found());
}

TYPED_TEST(FileFindTest, WorkingDirIsEmptyWhenTheFolderDoesNotFit) {
    using Ch = TypeParam;  // the platform fills the buffer and asks for 2048 characters
    auto fill = [](DWORD size, Ch* buffer) { return std::fill_n(buffer, size, Ch('x')), size; };
    ImportPatch patch(CoreModule(), "KERNEL32.dll",
                      Pick<Ch>("GetCurrentDirectoryA", "GetCurrentDirectoryW"), (void*)+fill);
    EXPECT_TRUE(patch.Active() && Finder<Ch>::WorkingDir().empty());
}

// Deeper than 64 KB of stack could take at a recursion of ~1 KB a level.
TEST(FileFindTest, WalksDeepTreesWithinASmallStack) {
    TempFolder temp;
    Collector<wchar_t> to;
    std::wstring path = to.root = L"\\\\?\\" + temp.Path();
    constexpr size_t kLevels = 200;
    for (size_t level = 0; level < kLevels; ++level)
        ASSERT_TRUE(CreateDirectoryW((path += L"\\d").c_str(), nullptr)) << level;
    // Leave 64 KB of stack (Wine gives a thread 1 MB, whatever it asks for).
    ULONG_PTR low, high;
    GetCurrentThreadStackLimits(&low, &high);
    static_cast<volatile char*>(alloca(reinterpret_cast<ULONG_PTR>(&low) - low - 65536))[0] = 0;
    FileFindW(&to, to.root, L"d", 0).Search();
    ASSERT_EQ(to.found.size(), kLevels);
    EXPECT_EQ(to.found.back(), path.substr(to.root.size()));  // each folder before its subtree
}

}  // namespace
