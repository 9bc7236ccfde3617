// Registered by the launch test as an "open" command: writes its command line into the file its
// last argument names, unshared until complete so that a polling test never reads half of it.
#include <windows.h>

#include <cstdlib>  // __argv, __argc

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    HANDLE file = CreateFileA(__argv[__argc - 1], GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0,
                              nullptr);
    DWORD written = 0;
    WriteFile(file, GetCommandLineA(), lstrlenA(GetCommandLineA()), &written, nullptr);
    return CloseHandle(file) ? 0 : 1;
}
