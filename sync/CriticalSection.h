#pragma once

#include "frame/Export.h"

// The platform's critical-section record, declared here so that this header
// needs no Windows header.
struct _RTL_CRITICAL_SECTION;

// Locks for the threads of one process, each a thin owner of one platform
// critical section kept on the heap (so the object is one pointer wide).
//
// Unlike AtomicLock they are recursive (the holder may lock again, and the
// section is free after as many Releases as there were Locks and successful
// TryLocks) and a waiter blocks in the system after a short spin instead of
// looping. Use them for regions that may take a while or that nest. They
// work within one process only; across processes use a named mutex.
//
// CriticalSection and CriticalToken have the same operations and steps and
// differ only in how long a contended Lock spins before it sleeps:
//   CriticalSection  1024 spins
//   CriticalToken    0xFFFFFFFF spins, the largest count the platform takes
// Neither can be copied, moved or assigned, so a platform record always has
// exactly one owner.
//
// Threads: any thread may Lock and TryLock. Release belongs to the thread
// that holds the section, once for each successful Lock or TryLock; a
// Release by another thread, and destroying a section that is held or
// waited for, are outside what the platform defines.
class ZRK_API CriticalSection {
public:
    // Allocates and initialises the platform record. If memory runs out the
    // allocation's exception leaves the constructor and nothing is kept.
    CriticalSection();
    // Deletes the platform record and frees it. The section must be free.
    ~CriticalSection();

    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;

    // Waits until the calling thread holds the section; at once if it holds
    // it already.
    void Lock();
    // Never waits: true if the calling thread now holds the section (also
    // when it held it already, which then needs one more Release), false if
    // another thread holds it.
    bool TryLock();
    // Gives back one hold of the calling thread.
    void Release();

private:
    _RTL_CRITICAL_SECTION* m_section;
};

// The same lock as CriticalSection with the largest spin count: a contended
// Lock spins for as long as the platform lets it before it sleeps. Same
// operations, same threads, same failures.
class ZRK_API CriticalToken {
public:
    CriticalToken();
    ~CriticalToken();

    CriticalToken(const CriticalToken&) = delete;
    CriticalToken& operator=(const CriticalToken&) = delete;

    void Lock();
    bool TryLock();
    void Release();

private:
    _RTL_CRITICAL_SECTION* m_section;
};
