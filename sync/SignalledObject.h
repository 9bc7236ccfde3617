#pragma once

#include <vector>

#include "frame/Export.h"
#include "frame/NoCopy.h"

namespace zrk::detail {
struct HandleRecord;
}

// A flag that threads wait for: a manual-reset platform event. Set raises it
// and it stays raised, for every waiter, until Reset or Pulse lowers it;
// waiting never lowers it. A new object is not set.
//
// The event is named "Local\zrk.core.signalled.object." followed by the
// address of the object's heap record as 16 lower-case hexadecimal digits,
// so the names of the live objects of one process differ. The name tells
// processes apart by nothing: two processes of one logon whose records lie at
// the same address share one event. Nothing else opens these events by name.
//
// No operation reports failure. If the platform refuses to create the event,
// the object holds none: the waits return at once (IsSet and the timed wait
// with false) and Set, Reset and Pulse do nothing. The object cannot be
// copied or moved and is one pointer wide.
//
// Threads: every operation may be called from any thread while the object
// lives; destroying an object that a thread waits for is not supported.
class ZRK_API SignalledObject : NoCopy {
public:
    // Creates the event, not set. If memory runs out the allocation's
    // exception leaves and nothing is kept.
    SignalledObject();
    // Closes the event.
    ~SignalledObject();

    // Raises the flag; no change if it is raised.
    void Set();
    // Lowers the flag; no change if it is lowered.
    void Reset();
    // Wakes the threads that wait at this very moment and leaves the flag
    // lowered. Nothing remembers a pulse that found no waiter, and a thread
    // that starts waiting just after it waits on.
    void Pulse();
    // Waits without limit until the flag is raised.
    void WaitFor();
    // True if the flag is raised; never waits.
    bool IsSet();
    // Waits up to `milliseconds` for the flag: true if it is raised by then,
    // false on a time-out or a failed wait. -1 waits without limit.
    bool WaitForCompletionWithTimeout(int milliseconds);

    // Waits without limit until every object of `objects` is raised at one
    // moment; the vector and the flags stay as they are. One platform wait
    // takes at most 64 objects and is never split: with more than 64, with
    // none, or with one object twice (on Windows; Wine takes a repeated
    // object) it returns at once without having waited. Every entry must
    // point to a live object.
    static void WaitFor(std::vector<SignalledObject*>& objects);

private:
    zrk::detail::HandleRecord* m_record;
};
