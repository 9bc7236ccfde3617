#pragma once

// Runs a program as a child process to its end and keeps what it left.

#include <windows.h>

#include <string>

struct ChildRun {
    DWORD exitCode = ~0u;  // also when it could not be started
    DWORD threadId = 0;    // of its first thread
    std::string output;    // what it wrote to its standard output and error, as written
};

// `commandLine` starts with the program; one beside the test program is found
// by its name alone. It runs in `folder`, or in this process's current one.
inline ChildRun RunChild(std::wstring commandLine, const std::wstring& folder = L"") {
    SECURITY_ATTRIBUTES inherit = {sizeof inherit, nullptr, TRUE};
    HANDLE read = nullptr, write = nullptr;
    CreatePipe(&read, &write, &inherit, 0);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup, startup.dwFlags = STARTF_USESTDHANDLES, startup.hStdOutput = write;
    startup.hStdError = write;
    PROCESS_INFORMATION child = {};
    ChildRun run;
    if (CreateProcessW(nullptr, &commandLine[0], nullptr, nullptr, TRUE, 0, nullptr,
                       folder.empty() ? nullptr : folder.c_str(), &startup, &child)) {
        CloseHandle(write);
        char chunk[4096];
        for (DWORD got = 0; ReadFile(read, chunk, sizeof chunk, &got, nullptr) && got;) {
            run.output.append(chunk, got);
        }
        WaitForSingleObject(child.hProcess, INFINITE);
        GetExitCodeProcess(child.hProcess, &run.exitCode);
        run.threadId = child.dwThreadId;
        CloseHandle(child.hProcess), CloseHandle(child.hThread);
    }
    CloseHandle(read);
    return run;
}
