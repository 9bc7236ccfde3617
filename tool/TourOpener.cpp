// zrkTourOpener: the program the shell step of the tour registers as the "open"
// command of its MIME type. It writes the command line it was started with
// to "<file>.opened", beside the file it was asked to open (its first
// argument), and exits at once. The text goes to a temporary name first and
// is then renamed, so the tour never reads it half-written.
#include <windows.h>
#include <shellapi.h>

#include <string>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const wchar_t* commandLine = GetCommandLineW();
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(commandLine, &count);
    if (arguments == nullptr || count < 2) {
        return 1;
    }
    const std::wstring target = std::wstring(arguments[1]) + L".opened";
    LocalFree(arguments);
    const std::wstring partial = target + L".partial";

    HANDLE file = CreateFileW(partial.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return 2;
    }
    // UTF-8, so the tour can print it as it is.
    const int units = lstrlenW(commandLine);
    const int bytes =
        WideCharToMultiByte(CP_UTF8, 0, commandLine, units, nullptr, 0, nullptr, nullptr);
    std::string text(bytes, '\0');
    WideCharToMultiByte(CP_UTF8, 0, commandLine, units, text.data(), bytes, nullptr, nullptr);
    DWORD written = 0;
    const BOOL ok =
        WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
    if (!ok) {
        return 3;
    }
    return MoveFileExW(partial.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) ? 0 : 4;
}
