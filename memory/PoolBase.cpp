#include "memory/PoolBase.h"

#include <cstdlib>

#include "frame/NoCopy.h"

namespace {

// The link in the first 8 bytes of a block or a free chunk.
void*& Link(void* at) { return *static_cast<void**>(at); }

// Holds `lock` for its own life.
class Held : NoCopy {
public:
    explicit Held(AtomicLock& lock) : m_lock(lock) { m_lock.Lock(); }
    ~Held() { m_lock.Release(); }

private:
    AtomicLock& m_lock;
};

}  // namespace

PoolBase::PoolBase(unsigned long long chunkSize, unsigned long long chunksPerBlock,
                   unsigned long long initialBlocks)
    : m_blocks(nullptr),
      m_blockSize(0),
      m_chunkSize(chunkSize < 8 ? 8 : chunkSize),
      m_chunksPerBlock(chunksPerBlock == 0 ? 1 : chunksPerBlock),
      m_free(nullptr) {
    m_blockSize = 8 + m_chunkSize * m_chunksPerBlock;
    const Held held(m_lock);
    for (unsigned long long i = 0; i < initialBlocks; ++i) {
        AllocateBlock();
    }
}

PoolBase::PoolBase(const PoolBase& other)
    : m_blocks(nullptr),
      m_blockSize(other.m_blockSize),
      m_chunkSize(other.m_chunkSize),
      m_chunksPerBlock(other.m_chunksPerBlock),
      m_free(nullptr) {}

PoolBase& PoolBase::operator=(const PoolBase& other) {
    if (this != &other) {
        m_blockSize = other.m_blockSize;
        m_chunkSize = other.m_chunkSize;
        m_chunksPerBlock = other.m_chunksPerBlock;
        m_free = nullptr;  // chunks of the old size must not be handed out as new ones
    }
    return *this;
}

PoolBase::~PoolBase() { FreeBlocks(); }

void PoolBase::AllocateBlock() {
    char* const block = static_cast<char*>(std::malloc(m_blockSize));
    Link(block) = m_blocks;
    m_blocks = block;
    for (unsigned long long i = 0; i < m_chunksPerBlock; ++i) {
        char* const chunk = block + 8 + i * m_chunkSize;
        Link(chunk) = m_free;
        m_free = chunk;
    }
}

void* PoolBase::AllocateChunk() {
    if (m_free == nullptr) {
        AllocateBlock();
    }
    void* const chunk = m_free;
    m_free = Link(chunk);
    return chunk;
}

void PoolBase::ReleaseChunk(void* chunk) {
    if (chunk != nullptr) {
        Link(chunk) = m_free;
        m_free = chunk;
    }
}

void PoolBase::AllocateBlock_ts() {
    const Held held(m_lock);
    AllocateBlock();
}

void* PoolBase::AllocateChunk_ts() {
    const Held held(m_lock);
    return AllocateChunk();
}

void PoolBase::ReleaseChunk_ts(void* chunk) {
    const Held held(m_lock);
    ReleaseChunk(chunk);
}

void PoolBase::FreeBlocks() {
    const Held held(m_lock);
    for (void* block = m_blocks; block != nullptr;) {
        void* const next = Link(block);
        std::free(block);
        block = next;
    }
}
