#include "filesystem/FileFind.h"

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

#include "filesystem/SearchRules.h"
#include "frame/EmbeddedNul.h"

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

// Closes a listing when its owner goes, also when a receiver throws. Movable,
// so that the walk can keep its open listings in a vector.
class Listing {
public:
    explicit Listing(HANDLE handle) : m_handle(handle) {}
    Listing(Listing&& other) noexcept : m_handle(other.m_handle) {
        other.m_handle = INVALID_HANDLE_VALUE;
    }
    ~Listing() {
        if (Open()) {
            FindClose(m_handle);
        }
    }
    Listing(const Listing&) = delete;
    Listing& operator=(const Listing&) = delete;
    Listing& operator=(Listing&&) = delete;

    bool Open() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Handle() const { return m_handle; }

private:
    HANDLE m_handle;
};

// One search over a tree. The two widths run the same walk; the one point
// where they differ is whether the pattern pass reports entries that carry
// the folder bit.
//
// The walk keeps its pending work on the heap, not in recursion: each level
// being descended through holds one open "*" listing in `m_levels`, and the
// path of the folder at hand is one string that grows and shrinks with the
// walk. Stack use stays the same at any depth, so a deep tree (the platform
// allows thousands of levels under a "\\?\" root) cannot overflow the small
// stack of a worker thread; the walk ends where the platform refuses to list
// the ever longer path.
template <class Ch>
class Walk {
public:
    using Api = FindApi<Ch>;

    Walk(typename Api::Receiver* receiver, unsigned int maxDepth, bool reportFolders)
        : m_receiver(receiver), m_maxDepth(maxDepth), m_reportFolders(reportFolders) {}

    // Searches `folder` at `depth`: its matches of `pattern`, and with
    // `descend` then every sub-folder at depth + 1 with its whole subtree.
    // The order is that of a recursive walk: a folder's own matches first,
    // with that listing closed again, then its sub-folders one by one in the
    // platform's listing order, each with its whole subtree.
    void Run(const String<Ch>& folder, const String<Ch>& pattern, unsigned int depth,
             bool descend) {
        if (zrk::detail::HasEmbeddedNul(folder) || zrk::detail::HasEmbeddedNul(pattern)) {
            return;
        }
        m_pattern = &pattern;
        m_path = folder;
        if (!descend) {
            if (!zrk::detail::BeyondDepthLimit(depth, m_maxDepth)) {
                ReportMatches();
            }
            return;
        }
        Enter(depth);
        while (!m_levels.empty()) {
            Level& level = m_levels.back();
            if (!m_entryPending && Api::Next(level.listing.Handle(), &m_entry) == 0) {
                m_levels.pop_back();
                continue;
            }
            m_entryPending = false;
            const bool isFolder = (m_entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
            if (zrk::detail::DescendsInto(m_entry.cFileName, isFolder)) {
                m_path.resize(level.baseLength);
                m_path += m_entry.cFileName;
                Enter(level.depth + 1);
            }
        }
    }

private:
    // A folder being descended through: its open "*" listing, the length of
    // its base (its path with the separator behind it) in `m_path`, and its
    // depth.
    struct Level {
        Listing listing;
        std::size_t baseLength;
        unsigned int depth;
    };

    // Starts on the folder whose path `m_path` holds: reports its matches,
    // then opens its "*" listing and leaves it on top of `m_levels`, with
    // its first entry pending in `m_entry`. Nothing at all beyond the depth
    // limit, and no level for a folder that can't be listed.
    void Enter(unsigned int depth) {
        if (zrk::detail::BeyondDepthLimit(depth, m_maxDepth)) {
            return;
        }
        ReportMatches();
        m_path += Api::kSeparator;
        Listing listing(Api::First((m_path + Api::kEverything).c_str(), &m_entry));
        if (listing.Open()) {
            m_levels.push_back(Level{std::move(listing), m_path.size(), depth});
            m_entryPending = true;
        }
    }

    // The pattern pass over the folder whose path `m_path` holds. Its
    // listing is closed before this returns, so it is never open beside the
    // same folder's "*" listing. The base is the folder plus one separator,
    // whether or not the folder already ends in one.
    void ReportMatches() {
        const String<Ch> base = m_path + Api::kSeparator;
        typename Api::FindData entry = {};
        Listing listing(Api::First((base + *m_pattern).c_str(), &entry));
        if (!listing.Open()) {
            return;
        }
        do {
            const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
            if (!zrk::detail::ReportsEntry(entry.cFileName, isFolder, m_reportFolders)) {
                continue;
            }
            const String<Ch> name = entry.cFileName;
            if (zrk::detail::EndsListing(m_receiver->FoundFile(base + name, name))) {
                break;
            }
        } while (Api::Next(listing.Handle(), &entry) != 0);
    }

    typename Api::Receiver* m_receiver;
    unsigned int m_maxDepth;
    bool m_reportFolders;
    const String<Ch>* m_pattern = nullptr;
    String<Ch> m_path;
    std::vector<Level> m_levels;
    typename Api::FindData m_entry = {};
    bool m_entryPending = false;
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
    Walk<char>(m_receiver, m_maxDepth, false).Run(folder, pattern, depth, descend);
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
    Walk<wchar_t>(m_receiver, m_maxDepth, true).Run(folder, pattern, depth, descend);
}
