#pragma once

// The rules of a folder-tree search that decide what is listed, reported and
// descended into, apart from the platform's listing itself. Pure logic over
// either character width; nothing here calls the platform.

namespace zrk {
namespace detail {

// A folder at `depth` (the root being 0) lies beyond the limit and is not
// listed at all, neither for its matches nor for its sub-folders. A limit of
// 0 means no limit, so no value confines a search to the root alone.
constexpr bool BeyondDepthLimit(unsigned int depth, unsigned int maxDepth) {
    return maxDepth != 0 && depth > maxDepth;
}

// Whether the pattern pass hands a listed entry to the receiver. "." and ".."
// never go; entries with the folder bit go only where the search reports
// folders (the wide search does, the narrow one does not).
template <class Ch>
bool ReportsEntry(const Ch* name, bool isFolder, bool reportFolders) {
    const bool dotName =
        name[0] == Ch('.') && (name[1] == Ch(0) || (name[1] == Ch('.') && name[2] == Ch(0)));
    return !dotName && (reportFolders || !isFolder);
}

// Whether the descent goes into a listed entry: a folder whose name does not
// begin with "." (which covers "." and "..", ".git" and every other
// dot-name).
template <class Ch>
bool DescendsInto(const Ch* name, bool isFolder) {
    return isFolder && name[0] != Ch('.');
}

// Whether a receiver's answer ends the listing of the folder at hand: exactly
// 1 does; any other value lets it go on. The rest of the search goes on in
// either case.
constexpr bool EndsListing(int answer) {
    return answer == 1;
}

}  // namespace detail
}  // namespace zrk
