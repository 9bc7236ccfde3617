// Registered by the launch tests as an "open" command: writes its command line to the file
// ZRK_RECORD_FILE names, unshared until complete so that a polling test never reads half of it.
#include <windows.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    char target[MAX_PATH] = {};
    GetEnvironmentVariableA("ZRK_RECORD_FILE", target, MAX_PATH);
    HANDLE file = CreateFileA(target, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, GetCommandLineA(), lstrlenA(GetCommandLineA()), &written, nullptr);
    return CloseHandle(file) ? 0 : 1;
}
