#pragma once

#include <string>

#include "frame/Export.h"

// The type of an exported static member below; the member is defined, and
// the type needed, only where the library's static objects are.
class AtomicLock;

// The library's log entry points. Every entry is inert: it reads neither its
// format text nor its arguments and returns at once, so a format that asks
// for arguments that were not passed is harmless. No operation of zrkCore
// reports anything through this class. Any thread, any time.
class ZRK_API Console {
public:
#define ZRK_CONSOLE_LEVEL(Level)                      \
    static void Level(const std::string& format, ...);  \
    static void Level(const std::wstring& format, ...); \
    static void Level(const char* format, ...);         \
    static void Level(const wchar_t* format, ...);

    ZRK_CONSOLE_LEVEL(Debug)
    ZRK_CONSOLE_LEVEL(Error)
    ZRK_CONSOLE_LEVEL(Exception)
    ZRK_CONSOLE_LEVEL(Info)
    ZRK_CONSOLE_LEVEL(Profile)
    ZRK_CONSOLE_LEVEL(Trace)
    ZRK_CONSOLE_LEVEL(Warning)
#undef ZRK_CONSOLE_LEVEL

    // Always false.
    static bool ApplicationStopRequested();

    // Nothing to set up or tear down.
    static void StaticInit();
    static void StaticShutdown();

    // Nothing to copy; both return the object assigned to.
    Console& operator=(const Console& other);
    Console& operator=(Console&& other);

private:
    // Exported for binary compatibility; no operation of the library reads
    // or writes them.
    static bool s_initialized;
    static long s_refCount;
    static AtomicLock s_threadLock;
};
