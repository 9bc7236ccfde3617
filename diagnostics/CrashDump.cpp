#include "diagnostics/CrashDump.h"

#include <windows.h>

#include <dbghelp.h>

#include <cstdio>
#include <ctime>
#include <string>

#include "diagnostics/CrashDumpFolder.h"
#include "filesystem/PathNormalisation.h"
#include "frame/Console.h"

namespace {

// The codes that leave a dump: the platform's own exceptions.
constexpr DWORD kDumpedCodes[] = {
    EXCEPTION_GUARD_PAGE,           EXCEPTION_DATATYPE_MISALIGNMENT,
    EXCEPTION_BREAKPOINT,           EXCEPTION_SINGLE_STEP,
    EXCEPTION_ACCESS_VIOLATION,     EXCEPTION_IN_PAGE_ERROR,
    EXCEPTION_INVALID_HANDLE,       EXCEPTION_ILLEGAL_INSTRUCTION,
    EXCEPTION_NONCONTINUABLE_EXCEPTION, EXCEPTION_INVALID_DISPOSITION,
    EXCEPTION_ARRAY_BOUNDS_EXCEEDED, EXCEPTION_FLT_DENORMAL_OPERAND,
    EXCEPTION_FLT_DIVIDE_BY_ZERO,   EXCEPTION_FLT_INEXACT_RESULT,
    EXCEPTION_FLT_INVALID_OPERATION, EXCEPTION_FLT_OVERFLOW,
    EXCEPTION_FLT_STACK_CHECK,      EXCEPTION_FLT_UNDERFLOW,
    EXCEPTION_INT_DIVIDE_BY_ZERO,   EXCEPTION_INT_OVERFLOW,
    EXCEPTION_PRIV_INSTRUCTION,     EXCEPTION_STACK_OVERFLOW};

constexpr DWORD kFullDump = MiniDumpWithFullMemory | MiniDumpWithFullMemoryInfo |
                            MiniDumpWithThreadInfo;  // 0x1802

void WriteDump(EXCEPTION_POINTERS* exception) {
    const HANDLE process = GetCurrentProcess();
    const DWORD processId = GetCurrentProcessId();
    const __time64_t now = _time64(nullptr);
    std::tm utc = {};
    _gmtime64_s(&utc, &now);
    // msvcrt's own _snwprintf, where %S in a wide format takes narrow text
    // (the ISO printf of mingw's stdio would read it as wide).
    wchar_t name[4096];
    const int length = _snwprintf(
        name, 4096, L"%SDump\\CrashDump_%04d.%02d.%02d.%02d.%02d.%02d.dmp",
        zrk::detail::g_crashDumpFolder.c_str(), utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday,
        utc.tm_hour, utc.tm_min, utc.tm_sec);
    if (length < 0 || length >= 4096) {
        return;  // no room for the whole name and its end
    }
    std::wstring fullPath(name);
    EnsureFilePath(fullPath);
    Console::Exception(L" log: '%S'", fullPath.c_str());
    const HANDLE file = CreateFileW(name, GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    MINIDUMP_EXCEPTION_INFORMATION information = {GetCurrentThreadId(), exception, FALSE};
    MiniDumpWriteDump(process, processId, file, static_cast<MINIDUMP_TYPE>(kFullDump),
                      &information, nullptr, nullptr);
    CloseHandle(file);
}

LONG WINAPI CrashFilter(EXCEPTION_POINTERS* exception) {
    const DWORD code = exception->ExceptionRecord->ExceptionCode;
    for (DWORD dumped : kDumpedCodes) {
        if (code == dumped) {
            WriteDump(exception);
            break;
        }
    }
    return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

namespace SystemUtils {
namespace CrashDump {

void InitializeSystem() { InitializeSystem(nullptr); }

void InitializeSystem(const char* folder) {
    if (folder != nullptr && folder[0] != '\0') {
        std::string path(folder);
        if (EnsureFolderPath(path)) {
            zrk::detail::g_crashDumpFolder = path;
            if (!path.empty() && path.back() != '\\') {
                zrk::detail::g_crashDumpFolder += '\\';
            }
        }
    }
    SetUnhandledExceptionFilter(&CrashFilter);
}

}  // namespace CrashDump
}  // namespace SystemUtils
