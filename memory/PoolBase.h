#pragma once

#include "frame/Export.h"
#include "sync/AtomicLock.h"

// Fixed-size chunks of memory cut from large blocks, so that many small
// objects of one size cost one malloc per block instead of one per object.
//
// A base class: only a derived class can take and give back chunks, and it
// chooses per call between the plain operations (no lock; one thread at a
// time) and the _ts ones, which hold the embedded AtomicLock across the whole
// step, a block's malloc included, and may run from any threads at once. The
// two kinds must not be mixed on one pool at the same moment.
//
// Geometry: a chunk is at least 8 bytes (the free list's link lives in its
// first 8 bytes while it is free) and is not rounded up, so chunks have no
// alignment beyond what offset 8 and the chunk size give. A block holds at
// least one chunk and is 8 + chunk size * chunks per block bytes: a link to
// the next block, then the chunks back to back. A new block's chunks are
// handed out from the highest address down; chunks given back are handed out
// again last in, first out. The pool grows by a block whenever its free list
// runs out and gives memory back to the system only when it is destroyed.
//
// Settled here:
//  - malloc failing for a block, or a block size that does not fit in 64
//    bits, is not checked: the pool assumes memory is there.
//  - Copies share nothing. A copy constructor makes a new, empty pool of the
//    source's geometry with a free lock. Assignment takes the source's
//    geometry and empties the target's free list; the target keeps owning its
//    own blocks, which it frees when it is destroyed, so no block is ever
//    freed by two pools and no chunk is handed out by two. Chunks the target
//    handed out before an assignment stay valid until its end but must not be
//    given back to it afterwards.
//  - FreeBlocks is the destructor's step and leaves both list heads as they
//    were; a derived class must not call it itself.
class ZRK_API PoolBase {
public:
    PoolBase(const PoolBase& other);
    PoolBase& operator=(const PoolBase& other);
    // Frees every block (FreeBlocks). Chunks still out die with their blocks;
    // nothing is run on what they hold.
    virtual ~PoolBase();

protected:
    // A chunk size below 8 counts as 8 and a count of 0 as 1. Adds
    // `initialBlocks` blocks at once, with the lock held; with 0 the first
    // block comes with the first chunk taken.
    PoolBase(unsigned long long chunkSize, unsigned long long chunksPerBlock,
             unsigned long long initialBlocks);

    // Adds one block whatever the free list holds; its chunks go to the
    // front of the free list.
    void AllocateBlock();
    // A free chunk, after adding a block if there is none. Never null.
    void* AllocateChunk();
    // Puts `chunk` at the front of the free list; null is ignored. Nothing
    // checks that it comes from this pool or is not free already.
    void ReleaseChunk(void* chunk);

    // The same three, each with the lock held throughout.
    void AllocateBlock_ts();
    void* AllocateChunk_ts();
    void ReleaseChunk_ts(void* chunk);

    // Frees every block (walking the block list, with the lock held).
    void FreeBlocks();

private:
    void* m_blocks;
    unsigned long long m_blockSize;
    unsigned long long m_chunkSize;
    unsigned long long m_chunksPerBlock;
    void* m_free;
    AtomicLock m_lock;
};
