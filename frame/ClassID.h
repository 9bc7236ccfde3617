#pragma once

#include "frame/Export.h"
#include "frame/Types.h"

// A run-time class number. Each newly constructed ClassID takes the next
// value of a process-wide counter that starts at 0 when the library loads and
// wraps to 0 after 2^32 objects. Copies and assignments take the source's
// number and leave the counter alone.
//
// Construction reads and increments the counter without any synchronisation:
// construct ClassID objects from one thread at a time.
class ZRK_API ClassID {
public:
    ClassID();
    ClassID(const ClassID& other);
    ClassID& operator=(const ClassID& other);
    ClassID& operator=(ClassID&& other);

    // The object's number.
    operator unsigned int() const;

private:
    unsigned int m_id;

    // The next number to give out. Exported so that the counter is one
    // object for the whole process.
    static unsigned int s_incrementalClassID;
};
