// Launched by the shell tests as a registered "open" command: writes the
// command line it received (GetCommandLineW, UTF-16, no terminator) to the
// file named by ZRK_RECORD_FILE and exits at once. It writes "<file>.partial"
// first and renames it, so a polling test never reads half a record. Only
// kernel32 is used, so a copy runs from any folder.
#include <windows.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    wchar_t target[MAX_PATH] = {};
    wchar_t partial[MAX_PATH + 8] = {};
    const DWORD length = GetEnvironmentVariableW(L"ZRK_RECORD_FILE", target, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) {
        return 1;
    }
    lstrcpyW(partial, target);
    lstrcatW(partial, L".partial");

    const wchar_t* commandLine = GetCommandLineW();
    HANDLE file = CreateFileW(partial, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return 2;
    }
    DWORD written = 0;
    const DWORD bytes = static_cast<DWORD>(lstrlenW(commandLine) * sizeof(wchar_t));
    const BOOL ok = WriteFile(file, commandLine, bytes, &written, nullptr);
    CloseHandle(file);
    return ok && written == bytes && MoveFileExW(partial, target, MOVEFILE_REPLACE_EXISTING) ? 0
                                                                                           : 3;
}
