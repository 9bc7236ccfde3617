#include "filesystem/FileFind.h"

#include <windows.h>

namespace {

// The buffer offered to GetCurrentDirectory, in characters.
constexpr DWORD kWorkingDirCapacity = 2048;

// The literals and the platform entries of each width.
template <class Ch>
struct FindApi;

template <>
struct FindApi<char> {
    using FindData = WIN32_FIND_DATAA;
    using Receiver = IFoundFileReceiverA;
    static constexpr const char* kSeparator = "\\";
    static constexpr const char* kEverything = "*";
    static constexpr const char* kHere = ".";
    static constexpr const char* kUp = "..";
    static constexpr char kDot = '.';

    static HANDLE First(const char* searchText, FindData* data) {
        return FindFirstFileA(searchText, data);
    }
    static BOOL Next(HANDLE listing, FindData* data) { return FindNextFileA(listing, data); }
    static DWORD CurrentDirectory(DWORD size, char* buffer) {
        return GetCurrentDirectoryA(size, buffer);
    }
};

template <>
struct FindApi<wchar_t> {
    using FindData = WIN32_FIND_DATAW;
    using Receiver = IFoundFileReceiverW;
    static constexpr const wchar_t* kSeparator = L"\\";
    static constexpr const wchar_t* kEverything = L"*";
    static constexpr const wchar_t* kHere = L".";
    static constexpr const wchar_t* kUp = L"..";
    static constexpr wchar_t kDot = L'.';

    static HANDLE First(const wchar_t* searchText, FindData* data) {
        return FindFirstFileW(searchText, data);
    }
    static BOOL Next(HANDLE listing, FindData* data) { return FindNextFileW(listing, data); }
    static DWORD CurrentDirectory(DWORD size, wchar_t* buffer) {
        return GetCurrentDirectoryW(size, buffer);
    }
};

template <class Ch>
using String = std::basic_string<Ch>;

// Closes a listing when its scope ends, also when a receiver throws.
class Listing {
public:
    explicit Listing(HANDLE handle) : m_handle(handle) {}
    ~Listing() {
        if (Open()) {
            FindClose(m_handle);
        }
    }
    Listing(const Listing&) = delete;
    Listing& operator=(const Listing&) = delete;

    bool Open() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Handle() const { return m_handle; }

private:
    HANDLE m_handle;
};

// What a search carries through its recursion. The two widths run the same
// walk; the one point where they differ is whether the pattern pass reports
// entries that carry the folder bit.
template <class Ch>
struct Walk {
    typename FindApi<Ch>::Receiver* receiver;
    unsigned int maxDepth;
    bool reportFolders;

    void FindFilesInFolder(const String<Ch>& folder, const String<Ch>& pattern,
                           unsigned int depth, bool descend) const {
        using Api = FindApi<Ch>;
        if (maxDepth != 0 && depth > maxDepth) {
            return;
        }
        if (descend) {
            // The folder's own matches come first, with their listing closed
            // again before the descent listing opens.
            FindFilesInFolder(folder, pattern, depth, false);
        }
        const String<Ch> base = folder + Api::kSeparator;
        const String<Ch> searchText = base + (descend ? String<Ch>(Api::kEverything) : pattern);

        typename Api::FindData entry = {};
        Listing listing(Api::First(searchText.c_str(), &entry));
        if (!listing.Open()) {
            return;
        }
        do {
            const String<Ch> name = entry.cFileName;
            const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
            if (!descend) {
                if (name == Api::kHere || name == Api::kUp || (isFolder && !reportFolders)) {
                    continue;
                }
                if (receiver->FoundFile(base + name, name) == 1) {
                    break;
                }
            } else {
                // Covers "." and ".." as well as every other dot-name.
                if (!isFolder || name[0] == Api::kDot) {
                    continue;
                }
                FindFilesInFolder(base + name, pattern, depth + 1, true);
            }
        } while (Api::Next(listing.Handle(), &entry) != 0);
    }
};

template <class Ch>
String<Ch> ReadWorkingDir() {
    Ch buffer[kWorkingDirCapacity] = {};
    const DWORD result = FindApi<Ch>::CurrentDirectory(kWorkingDirCapacity, buffer);
    // A result at or above the capacity is the size a longer folder would
    // need, and the buffer then holds nothing the platform wrote.
    if (result == 0 || result >= kWorkingDirCapacity) {
        return String<Ch>();
    }
    return String<Ch>(buffer, result);
}

}  // namespace

// FileFindA

FileFindA::FileFindA(IFoundFileReceiverA* receiver, const std::string& rootDirectory,
                     const std::string& pattern, unsigned int maxDepth)
    : m_receiver(receiver),
      m_rootDirectory(rootDirectory),
      m_pattern(pattern),
      m_maxDepth(maxDepth) {}

FileFindA::FileFindA(IFoundFileReceiverA* receiver, const std::string& pattern,
                     unsigned int maxDepth)
    : FileFindA(receiver, WorkingDir(), pattern, maxDepth) {}

FileFindA::~FileFindA() = default;

void FileFindA::Search() {
    FindFilesInFolder(m_rootDirectory, m_pattern, 0, true);
}

const std::string& FileFindA::SearchRootDirectory() const {
    return m_rootDirectory;
}

std::string FileFindA::WorkingDir() {
    return ReadWorkingDir<char>();
}

void FileFindA::FindFilesInFolder(const std::string& folder, const std::string& pattern,
                                  unsigned int depth, bool descend) {
    Walk<char>{m_receiver, m_maxDepth, false}.FindFilesInFolder(folder, pattern, depth, descend);
}

// FileFindW

FileFindW::FileFindW(IFoundFileReceiverW* receiver, const std::wstring& rootDirectory,
                     const std::wstring& pattern, unsigned int maxDepth)
    : m_receiver(receiver),
      m_rootDirectory(rootDirectory),
      m_pattern(pattern),
      m_maxDepth(maxDepth) {}

FileFindW::FileFindW(IFoundFileReceiverW* receiver, const std::wstring& pattern,
                     unsigned int maxDepth)
    : FileFindW(receiver, WorkingDir(), pattern, maxDepth) {}

FileFindW::~FileFindW() = default;

void FileFindW::Search() {
    FindFilesInFolder(m_rootDirectory, m_pattern, 0, true);
}

const std::wstring& FileFindW::SearchRootDirectory() const {
    return m_rootDirectory;
}

std::wstring FileFindW::WorkingDir() {
    return ReadWorkingDir<wchar_t>();
}

void FileFindW::FindFilesInFolder(const std::wstring& folder, const std::wstring& pattern,
                                  unsigned int depth, bool descend) {
    Walk<wchar_t>{m_receiver, m_maxDepth, true}.FindFilesInFolder(folder, pattern, depth,
                                                                  descend);
}
