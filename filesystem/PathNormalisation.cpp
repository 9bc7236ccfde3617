#include "filesystem/PathNormalisation.h"

#include <windows.h>
#include <shlobj.h>

#include <vector>

#include "filesystem/PathText.h"
#include "frame/EmbeddedNul.h"
#include "process/EnvironmentVariable.h"

namespace {

// The platform entries and the environment lookup of each width.
template <class Ch>
struct PathApi;

template <>
struct PathApi<char> {
    static DWORD FullPath(const char* path, DWORD size, char* buffer, char** last) {
        return GetFullPathNameA(path, size, buffer, last);
    }
    static int CreateFolder(const char* path) {
        return SHCreateDirectoryExA(nullptr, path, nullptr);
    }
    static bool Lookup(const std::string& name, std::string* value) {
        return EnvironmentVariable::GetStringA(name, value);
    }
};

template <>
struct PathApi<wchar_t> {
    static DWORD FullPath(const wchar_t* path, DWORD size, wchar_t* buffer, wchar_t** last) {
        return GetFullPathNameW(path, size, buffer, last);
    }
    static int CreateFolder(const wchar_t* path) {
        return SHCreateDirectoryExW(nullptr, path, nullptr);
    }
    static bool Lookup(const std::wstring& name, std::wstring* value) {
        return EnvironmentVariable::GetStringW(name, value);
    }
};

enum class PathKind { File, Folder };

template <class Ch>
bool EnsurePath(std::basic_string<Ch>& path, PathKind kind) {
    using Api = PathApi<Ch>;
    using String = std::basic_string<Ch>;

    // The platform would read such a text only up to its zero unit and
    // act on another path than the caller's; it is refused before the
    // environment or the platform is asked anything.
    if (zrk::detail::HasEmbeddedNul(path)) {
        return false;
    }
    String work = path;
    zrk::detail::RewriteSeparators(work);
    if (!zrk::detail::ExpandReferences(work, &Api::Lookup)) {
        return false;
    }
    // A folder becomes the parent of a fake last component, so both kinds
    // take the same road from here. Its "/" is left for GetFullPathName.
    if (kind == PathKind::Folder) {
        work += zrk::detail::PathLiterals<Ch>::kFakeFile;
    }

    Ch* last = nullptr;
    const DWORD needed = Api::FullPath(work.c_str(), 0, nullptr, &last);
    if (needed == 0) {
        return false;
    }
    // One spare zeroed character beyond what the platform is told, so the
    // text is terminated whatever the second call writes.
    std::vector<Ch> buffer(needed + 1, Ch(0));
    last = nullptr;
    if (Api::FullPath(work.c_str(), needed, buffer.data(), &last) == 0) {
        return false;
    }

    const Ch* begin = buffer.data();
    const String full(begin);
    // The final-component pointer is null when the path ends in a
    // separator; one outside the written text is treated the same way.
    const bool hasLast = last != nullptr && last >= begin && last < begin + full.size();
    const String folder = zrk::detail::FolderPart(
        full, hasLast ? static_cast<std::size_t>(last - begin) : String::npos);

    const int created = Api::CreateFolder(folder.c_str());
    if (created != ERROR_SUCCESS && created != ERROR_ALREADY_EXISTS) {
        return false;
    }
    path = kind == PathKind::File ? full : folder;
    return true;
}

}  // namespace

bool EnsureFilePath(std::string& path) {
    return EnsurePath(path, PathKind::File);
}
bool EnsureFilePath(std::wstring& path) {
    return EnsurePath(path, PathKind::File);
}

bool EnsureFolderPath(std::string& path) {
    return EnsurePath(path, PathKind::Folder);
}
bool EnsureFolderPath(std::wstring& path) {
    return EnsurePath(path, PathKind::Folder);
}

bool zrkDeleteFileA(const char* path) {
    return DeleteFileA(path) != 0;
}
bool zrkDeleteFileW(const wchar_t* path) {
    return DeleteFileW(path) != 0;
}
