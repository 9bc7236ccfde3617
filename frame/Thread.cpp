#include "frame/Thread.h"

#include <windows.h>

void zrkSleep(int milliseconds) {
    Sleep(static_cast<DWORD>(milliseconds));
}

unsigned long zrkGetCurrentThreadId() {
    return GetCurrentThreadId();
}
