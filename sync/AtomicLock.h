#pragma once

#include "frame/Export.h"
#include "frame/Types.h"

// The smallest lock of the library: one 32-bit word taken by an atomic
// compare-exchange and waited for by giving up the time slice. It needs no
// system object and no allocation, so it can be embedded anywhere or stand
// as a static: a word of zero bytes is a free lock, with no constructor run.
//
// Use it to guard a few instructions. It is not recursive (a holder that
// locks again waits for itself), not fair, records no owner and has no
// time-out: a waiter loops for as long as the holder holds, yielding with
// Sleep(0) after every failed try. For longer or nested critical regions use
// CriticalSection.
//
// The word:
//   0  free
//   1  held
// Every try (compare-exchange 0 -> 1) and every release (compare-exchange
// 1 -> 0) is a full-barrier interlocked operation, so what the holder wrote
// before releasing is visible to the next holder.
class ZRK_API AtomicLock {
public:
    // A free lock. Constant-initialised, so a static AtomicLock is usable
    // before any constructor of the library has run.
    constexpr AtomicLock() noexcept : m_lock(0) {}

    // Copies take the source's word as it is at that moment, with a plain
    // (unsynchronised) read and write: a copy of a held lock is held, and
    // nobody holds it to release it.
    AtomicLock(const AtomicLock& other) noexcept;
    AtomicLock& operator=(const AtomicLock& other) noexcept;

    // Destroying a held lock is not noticed.
    ~AtomicLock() = default;

    // Takes the lock, waiting as long as it takes. Any thread.
    void Lock();

    // One try. True if the lock is now the caller's. Any thread.
    bool TryLock();

    // Frees the lock: an atomic change of the word from 1 to 0, so a free
    // lock stays free. Any thread may release, since no owner is recorded.
    void Release();

private:
    volatile long m_lock;
};

// Takes the lock that `word` holds (0 free, 1 held), waiting as long as it
// takes; the same algorithm as AtomicLock::Lock, on a word the caller owns.
//
// There is no free function to give a bare word back. If the word is the
// word of an AtomicLock, call that object's Release. Otherwise the holder
// gives it back with a full-barrier interlocked write of 0:
//   InterlockedCompareExchange(word, 0, 1)  exactly what Release does, and
//                                           harmless on a free word;
//   InterlockedExchange(word, 0)            the same for a word that is held.
// Not with a plain store: it is no barrier, so the compiler may move the
// holder's last writes behind it and the next holder would miss them.
ZRK_API void Atomic_Lock(volatile long* word);

// One try on `word`: a compare-exchange of 0 for 1. True unless the word
// already was 1, that is held. Any thread.
ZRK_API bool Atomic_TryLock(volatile long* word);
