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
    return g_mallocs.emplace_back(static_cast<char*>(std::malloc(size)), size).first;
}
void __cdecl CountedFree(void* block) { ++g_frees, std::free(block); }

// Redirected for the whole program; each test below counts from its own start.
ImportPatch g_mallocPatch(CoreModule(), "msvcrt.dll", "malloc", (void*)&CountedMalloc);
ImportPatch g_freePatch(CoreModule(), "msvcrt.dll", "free", (void*)&CountedFree);

// Offsets in the newest block; a chunk given back is the next one out. A
// copy starts empty and an assigned pool keeps its own blocks, so each block
// is freed once, by the pool that made it.
TEST(PoolBaseTest, CutsBlocksByTheGeometryHandsOutFromTheTopAndCopiesShareNoBlock) {
    const struct { unsigned long long size, count, blocks, request; long long first, second; }
        rows[] = {{24, 4, 0, 104, 80, 56}, {4, 2, 1, 24, 16, 8}, {12, 3, 1, 44, 32, 20},
                  {16, 0, 1, 24, 8, 8}};  // the last: one chunk a block, so a block each
    ASSERT_TRUE(g_mallocPatch.Active() && g_freePatch.Active());
    for (const auto& row : rows) {
        g_mallocs.clear(), g_frees = 0;
        {
            Pool pool(row.size, row.count, row.blocks);
            EXPECT_EQ(g_mallocs.size(), row.blocks);
            char* const first = static_cast<char*>(pool.AllocateChunk());
            EXPECT_EQ(first - g_mallocs.back().first, row.first);
            EXPECT_EQ(static_cast<char*>(pool.AllocateChunk()) - g_mallocs.back().first, row.second);
            EXPECT_EQ(g_mallocs.back().second, row.request);
            pool.ReleaseChunk(first), pool.ReleaseChunk(nullptr), pool.ReleaseChunk_ts(nullptr);
            EXPECT_EQ(pool.AllocateChunk(), first);
            const std::size_t before = g_mallocs.size();
            Pool copy(pool), assigned(8, 1, 1);
            assigned = pool;
            copy.AllocateChunk(), assigned.AllocateChunk(), pool.AllocateBlock();
            EXPECT_TRUE(g_mallocs.size() == before + 4 && g_mallocs[before + 2].second == row.request);
        }
        EXPECT_EQ(g_frees, static_cast<int>(g_mallocs.size()));  // each block once
    }
}

// Each thread marks its chunk and finds the mark whole before giving it back.
TEST(PoolBaseTest, ThreadSafeFormsNeverHandOneChunkToTwoThreads) {
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
