#pragma once

#include "frame/Export.h"

// Assertion hooks. They are inert in this library: a handler is never
// stored and never called. Any thread, any time.
namespace Assert {

// What a handler asks the failing code to do.
enum FailBehavior {
    Halt,
    Continue,
};

// What kind of check failed.
enum FailureType {
    Assertion,
    Verification,
    Failure,
};

// A handler receives the kind of failure, the condition's text, a message,
// the source file and the line.
typedef FailBehavior (*Handler)(FailureType type, const char* condition, const char* message,
                                const char* file, int line);

// Does nothing; the handler is not stored.
ZRK_API void SetHandler(Handler handler);

// Always null.
ZRK_API Handler GetHandler();

}  // namespace Assert
