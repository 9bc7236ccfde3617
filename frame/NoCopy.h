#pragma once

#include "frame/Export.h"

// Base class that makes its derived classes non-copyable. It has no data, so
// deriving from it costs nothing; the derived class has neither copy
// construction nor copy assignment unless it defines its own.
class ZRK_API NoCopy {
protected:
    NoCopy() {}
    ~NoCopy() {}

public:
    NoCopy(const NoCopy&) = delete;
    NoCopy& operator=(const NoCopy&) = delete;
};
