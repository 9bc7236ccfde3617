#include "filesystem/FileName.h"

#include <windows.h>

#include <ctime>
#include <string>

#include "filesystem/FileNameText.h"
#include "text/Utf8.h"

namespace {

using zrk::detail::AppendFileNamePart;

// The steps both widths share. `modulePath(buffer, size)` asks the platform
// for the main executable's path; `widen` turns the narrow stamp into Ch.
template <class Ch, class ModulePath, class Widen>
std::basic_string<Ch> Generate(const std::basic_string<Ch>& prefix,
                               const std::basic_string<Ch>& extension, bool withModuleName,
                               bool withTimeStamp, ModulePath modulePath, Widen widen) {
    std::basic_string<Ch> name = prefix;
    if (withModuleName) {
        Ch path[MAX_PATH + 1] = {};  // stays terminated, and empty if the call fails
        modulePath(path, MAX_PATH);
        AppendFileNamePart(&name, zrk::detail::AfterLastBackslash(std::basic_string<Ch>(path)));
    }
    if (withTimeStamp) {
        const __time64_t now = _time64(nullptr);
        std::tm utc = {};
        _gmtime64_s(&utc, &now);
        AppendFileNamePart(&name, widen(zrk::detail::FileNameStamp(utc)));
    }
    return name + Ch('.') + extension;
}

}  // namespace

std::string GenerateFileNameA(const std::string& prefix, const std::string& extension,
                              bool withModuleName, bool withTimeStamp) {
    return Generate<char>(
        prefix, extension, withModuleName, withTimeStamp,
        [](char* buffer, DWORD size) {
            return GetModuleFileNameA(GetModuleHandleA(nullptr), buffer, size);
        },
        [](const std::string& stamp) { return stamp; });
}

std::wstring GenerateFileNameW(const std::wstring& prefix, const std::wstring& extension,
                               bool withModuleName, bool withTimeStamp) {
    return Generate<wchar_t>(
        prefix, extension, withModuleName, withTimeStamp,
        [](wchar_t* buffer, DWORD size) {
            return GetModuleFileNameW(GetModuleHandleW(nullptr), buffer, size);
        },
        [](const std::string& stamp) { return zrk::detail::Utf8ToWide(stamp); });
}
