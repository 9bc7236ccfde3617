#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <vector>

#include "support/ImportPatch.h"
#include "support/Threads.h"
#include "zrkCore.h"

namespace {

struct Pool : PoolBase {
    Pool(unsigned long long size, unsigned long long count, unsigned long long blocks)
        : PoolBase(size, count, blocks) {}
    using PoolBase::AllocateBlock, PoolBase::AllocateChunk, PoolBase::ReleaseChunk;
    using PoolBase::AllocateChunk_ts, PoolBase::ReleaseChunk_ts;
};

// The blocks zrkCore.dll takes from malloc, with their sizes, and its frees.
std::vector<std::pair<char*, std::size_t>> g_mallocs;
int g_frees = 0;
void* __cdecl CountedMalloc(std::size_t size) {
    g_mallocs.emplace_back(static_cast<char*>(std::malloc(size)), size);
    return g_mallocs.back().first;
}
void __cdecl CountedFree(void* block) { ++g_frees, std::free(block); }

// The offset of `chunk` in the newest block.
long long Offset(void* chunk) { return static_cast<char*>(chunk) - g_mallocs.back().first; }

class PoolBaseTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_malloc.Active() && m_free.Active()); }
    ImportPatch m_malloc{CoreModule(), "msvcrt.dll", "malloc", (void*)&CountedMalloc};
    ImportPatch m_free{CoreModule(), "msvcrt.dll", "free", (void*)&CountedFree};
};

TEST_F(PoolBaseTest, CutsBlocksByTheGeometryAndHandsOutFromTheTop) {
    const struct { unsigned long long size, count, blocks, request; long long first, second; }
        rows[] = {{24, 4, 0, 104, 80, 56}, {4, 2, 1, 24, 16, 8}, {12, 3, 1, 44, 32, 20},
                  {16, 0, 1, 24, 8, 8}};  // the last: one chunk a block, so a block each
    for (const auto& row : rows) {
        g_mallocs.clear();
        Pool pool(row.size, row.count, row.blocks);
        EXPECT_EQ(g_mallocs.size(), row.blocks);
        EXPECT_EQ(Offset(pool.AllocateChunk()), row.first);
        EXPECT_EQ(Offset(pool.AllocateChunk()), row.second);
        EXPECT_EQ(g_mallocs.back().second, row.request);
    }
}

// Growth only on an empty free list, LIFO reuse; copies share no block, so
// each of the four blocks below is freed once.
TEST_F(PoolBaseTest, GrowsOnlyWhenEmptyReusesLastInFirstOutAndCopiesShareNoBlock) {
    g_mallocs.clear(), g_frees = 0;
    {
        Pool pool(8, 4, 3);
        std::vector<void*> taken(12);
        std::generate(taken.begin(), taken.end(), [&] { return pool.AllocateChunk(); });
        EXPECT_EQ(g_mallocs.size(), 3u);
        pool.ReleaseChunk(taken[5]), pool.ReleaseChunk(taken[2]), pool.ReleaseChunk(nullptr);
        pool.ReleaseChunk_ts(nullptr);
        EXPECT_TRUE(pool.AllocateChunk() == taken[2] && pool.AllocateChunk() == taken[5]);
        pool.AllocateChunk();  // the thirteenth: a fourth block
        pool.AllocateBlock();  // a fifth, whatever the free list holds
        EXPECT_EQ(g_mallocs.size(), 5u);
    }
    g_mallocs.clear(), g_frees = 0;
    {
        Pool source(16, 2, 1), assigned(32, 1, 1);
        void* const chunk = source.AllocateChunk();
        Pool copy(source);
        assigned = source;  // keeps its block, cuts new ones as the source does
        EXPECT_TRUE(copy.AllocateChunk() != chunk && Offset(assigned.AllocateChunk()) == 24);
    }
    EXPECT_TRUE(g_mallocs.size() == 4 && g_frees == 4);
}

// Each thread marks its chunk and finds the mark whole before giving it back.
TEST_F(PoolBaseTest, ThreadSafeFormsNeverHandOneChunkToTwoThreads) {
    Pool pool(64, 3, 0);
    std::atomic<int> clashes(0);
    RunOnThreads(8, [&](int thread) {
        for (int i = 0; i < 20000; ++i) {
            auto* const chunk = static_cast<volatile char*>(pool.AllocateChunk_ts());
            std::fill(chunk, chunk + 64, static_cast<char>(thread));
            clashes += std::count(chunk, chunk + 64, static_cast<char>(thread)) != 64;
            pool.ReleaseChunk_ts(const_cast<char*>(chunk));
        }
    });
    EXPECT_EQ(clashes, 0);
}

}  // namespace
