#pragma once

#include <string>

#include "frame/Export.h"

// The profiling hook. Inert: there is no profiling object behind it, Get
// always answers null and every other entry does nothing. Any thread.
class ZRK_API ProfilingSystem {
public:
    // Always null, also after StaticInit.
    static ProfilingSystem* Get();

    // Does nothing; an ordinary member that never looks at its object.
    void Flush();

    static void StaticInit();
    static void StaticInit(const std::string& name);
    static void StaticShutdown();

    // Nothing to copy; both return the object assigned to.
    ProfilingSystem& operator=(const ProfilingSystem& other);
    ProfilingSystem& operator=(ProfilingSystem&& other);
};
