#pragma once

#include "frame/Export.h"

// Suspends the calling thread. The value goes to the platform's Sleep
// unchanged and is read there as an unsigned 32-bit count of milliseconds:
// 0 gives up the rest of the time slice, -1 waits forever. Any thread.
ZRK_API void zrkSleep(int milliseconds);

// The platform's identifier of the calling thread. Any thread.
ZRK_API unsigned long zrkGetCurrentThreadId();
