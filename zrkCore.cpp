// The library's static data and its entry point.
//
// Every static object with a constructor or destructor is defined in this
// one file, so that C++'s in-order initialisation within a translation unit
// gives the load order below, and unload destroys them in reverse. The
// objects and their places:
//
//   1  zero identifier (GUIDIdentifier)      added with the GUID service
//   2  zero text (std::string)               added with the GUID service
//   3  wide zero text (std::wstring)         added with the GUID service
//   4  crash dump folder (std::string)       added with the crash dump
//   5  Console::s_threadLock (AtomicLock)    constant-initialised, no code
//
// The plain counters and flags that follow are constant-initialised too and
// take no part in that order.
#include <windows.h>

#include "diagnostics/CrashDumpFolder.h"
#include "frame/ClassID.h"
#include "frame/Console.h"
#include "process/CommandLine.h"
#include "sync/AtomicLock.h"
#include "text/GUIDIdentifier.h"
#include "time/PerformanceClock.h"

// 1 to 3
const GUIDIdentifier GUIDIdentifier::s_zero("00000000-0000-0000-0000-000000000000");
const std::string GUIDIdentifier::s_zeroText("00000000-0000-0000-0000-000000000000");
const std::wstring GUIDIdentifier::s_zeroTextW(L"00000000-0000-0000-0000-000000000000");

// 4
std::string zrk::detail::g_crashDumpFolder;

// 5
AtomicLock Console::s_threadLock;

unsigned int ClassID::s_incrementalClassID = 0;
bool Console::s_initialized = false;
long Console::s_refCount = 0;
long CommandLine::s_refCount = 0;
CommandLine* CommandLine::s_this = nullptr;
long Time::s_initialised = 0;
unsigned long long Time::s_frequency = 0;

// The C runtime constructs the objects above before it calls this for the
// process attach. The library does nothing on thread start or end, so it asks
// for no thread notices. (A mingw DLL carries a TLS directory, and the loader
// then refuses the request; the result is deliberately not read.)
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(instance);
    }
    return TRUE;
}
