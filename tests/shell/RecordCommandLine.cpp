// Started by the shell tests as a registered "open" command: writes its command
// line (UTF-16, no terminator) to the file ZRK_RECORD_FILE names, unshared until
// complete so that a polling test never reads half of it. Only kernel32 is used,
// so a copy runs from any folder.
#include <windows.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    wchar_t target[MAX_PATH] = {};
    GetEnvironmentVariableW(L"ZRK_RECORD_FILE", target, MAX_PATH);
    HANDLE file = CreateFileW(target, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    const wchar_t* commandLine = GetCommandLineW();
    DWORD written = 0;
    const BOOL ok = WriteFile(file, commandLine, lstrlenW(commandLine) * sizeof(wchar_t),
                              &written, nullptr);
    CloseHandle(file);
    return ok ? 0 : 1;
}
