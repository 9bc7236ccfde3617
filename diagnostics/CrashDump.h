#pragma once

#include "frame/Export.h"

// Full memory dumps of a process that crashes.
//
// InitializeSystem installs the library's filter at the end of the platform's
// exception handling (SetUnhandledExceptionFilter). When an exception reaches
// it with one of the platform's hardware and system codes (access violation,
// breakpoint, single step, guard page, misalignment, in-page error, invalid
// handle, illegal or privileged instruction, noncontinuable exception,
// invalid disposition, array bounds, the seven floating-point codes, integer
// divide by zero and overflow, stack overflow: 22 in all), the filter writes
// a dump of type MiniDumpWithFullMemory | MiniDumpWithFullMemoryInfo |
// MiniDumpWithThreadInfo, with the exception of the failing thread, to
//   <folder>Dump\CrashDump_YYYY.MM.DD.hh.mm.ss.dmp
// named by the UTC time of the crash. Any other code (a software exception of
// the program's own) leaves nothing. Either way the filter answers
// EXCEPTION_EXECUTE_HANDLER, so the process ends with the exception's code
// and a filter installed before is never called.
//
// A dump is created new, never over an existing file: a second crash in the
// same second of the same folder writes nothing. Nothing on the crash path
// reports a failure. A folder so long that the name does not fit 4,095
// characters gets no dump. Under Wine a full memory dump of a small program
// is about 150 MB and takes seconds to write.
//
// Threads: call it at start-up, before another thread can crash; it sets the
// folder without a lock. The filter runs on the crashing thread.
namespace SystemUtils {
namespace CrashDump {

// InitializeSystem(nullptr).
ZRK_API void InitializeSystem();

// Sets the folder when `folder` is neither null nor empty and can be made:
// it goes through EnsureFolderPath (separators, %NAME% references, full path,
// created) and ends in "\". If it can't be made, the folder set before stays
// in force; before any, the dumps go under the current folder. The filter is
// installed in every case; calling again installs it again.
ZRK_API void InitializeSystem(const char* folder);

}  // namespace CrashDump
}  // namespace SystemUtils
