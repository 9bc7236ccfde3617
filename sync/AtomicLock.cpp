#include "sync/AtomicLock.h"

#include <windows.h>

static_assert(sizeof(AtomicLock) == sizeof(long), "the lock is exactly its word");

bool Atomic_TryLock(volatile long* word) {
    // Full barrier. The try fails only when the word already was 1.
    return InterlockedCompareExchange(word, 1, 0) != 1;
}

void Atomic_Lock(volatile long* word) {
    // Yield after every failed try, from the first on: no pause instruction,
    // no back-off, no limit.
    while (!Atomic_TryLock(word)) {
        Sleep(0);
    }
}

AtomicLock::AtomicLock(const AtomicLock& other) noexcept : m_lock(other.m_lock) {}

AtomicLock& AtomicLock::operator=(const AtomicLock& other) noexcept {
    m_lock = other.m_lock;
    return *this;
}

void AtomicLock::Lock() {
    Atomic_Lock(&m_lock);
}

bool AtomicLock::TryLock() {
    return Atomic_TryLock(&m_lock);
}

void AtomicLock::Release() {
    // A compare-exchange, not a store: releasing a free lock changes nothing.
    InterlockedCompareExchange(&m_lock, 0, 1);
}
