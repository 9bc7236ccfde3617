#pragma once

#include <string>

#include "frame/Export.h"
#include "frame/NoCopy.h"

namespace zrk::detail {
struct HandleRecord;
}

// Owners of a platform mutex: a lock that one thread owns at a time, that
// works across processes when it has a name, and that survives a thread or a
// process that ends while owning it. Within one process, CriticalSection is
// cheaper; use a mutex where a lock must be shared between processes or must
// tell that its owner died.
//
// The lock is recursive: the owner passes Lock again at once (and TryLock
// answers true), and the mutex is free after as many Releases by the owner as
// it took. Only the owning thread can release; a Release by any other thread
// fails unseen and leaves the mutex owned. No operation reports failure.
//
// If the owner ends without releasing, the next wait passes ownership on as
// "abandoned": Lock takes it like any other, but TryLock answers false
// although the calling thread now owns the mutex and must Release it.
//
// If the platform refuses to create the mutex, the object holds none:
// TryLock answers false, Lock returns at once holding nothing, Release does
// nothing. Neither class can be copied or moved; each is one pointer wide.
//
// Threads: any thread may Lock and TryLock; Release belongs to the owner.
// Destroying an object while another thread waits on it is not supported.
class ZRK_API Mutex : NoCopy {
public:
    // An unnamed mutex, private to this process, not owned. If memory runs
    // out the allocation's exception leaves and nothing is kept.
    Mutex();
    // Closes this handle to the mutex; the platform removes the mutex with
    // its last handle.
    ~Mutex();

    // Waits without limit until the calling thread owns the mutex.
    void Lock();
    // Never waits: true if the calling thread now owns the mutex by a plain
    // acquisition (also when it owned it already), false if another thread
    // owns it, if it was abandoned (the caller owns it now) or if there is no
    // mutex.
    bool TryLock();
    // Gives up one acquisition of the calling thread.
    void Release();

protected:
    // The mutex of `name` as GlobalMutex describes it; an empty name gives an
    // unnamed mutex.
    explicit Mutex(const std::wstring& name);

private:
    zrk::detail::HandleRecord* m_record;
};

// A mutex shared by every process on the machine that uses the same name,
// whichever user runs it: the platform mutex "Global\" + name, created on
// first use and opened by every later object of that name, in this process
// or another (the two cases are not told apart). The name is passed on as it
// is: a name the platform refuses (one holding a backslash, say) or a lack
// of rights gives an object without a mutex, as Mutex describes. A name
// holding a zero character is refused the same way, rather than cut short
// to another name's mutex. An empty name gives a private unnamed mutex, like
// Mutex. The constructor never takes ownership.
//
// Same operations, threads and failures as Mutex.
class ZRK_API GlobalMutex : Mutex {
public:
    explicit GlobalMutex(const std::wstring& name);

    using Mutex::Lock;
    using Mutex::Release;
    using Mutex::TryLock;
};
