#pragma once

// Depth-first search of a folder tree with a callback. The caller derives a
// receiver from IFoundFileReceiverA (or W), builds a FileFindA (or W) with a
// root folder, a pattern and a depth limit, and calls Search: every entry the
// platform lists for the pattern goes to the receiver, synchronously, on the
// calling thread. Nothing is collected, sorted or returned.
//
// The library matches nothing itself: the pattern ("*.txt", "a?c", "*") is
// the last path component of the platform's FindFirstFile listing, which
// alone decides what matches. The pattern filters only what is reported;
// every sub-folder is descended into whether its name matches or not, except
// folders whose name begins with "." (".git" and the like), which are never
// descended into.
//
// Each folder is listed twice: first with the pattern, reporting its matches
// ("." and ".." never; FileFindA passes over folders too, FileFindW reports
// them like files), and with that listing closed, then with "*" to descend
// into its sub-folders one by one, each with its whole subtree, in the
// platform's order. At most one listing per level of the tree, plus the
// pattern listing, is open at a time.
//
// Paths are formed as folder + "\" + name, always: a root that ends in a
// separator gives doubled separators ("C:\" reports "C:\\a.txt"), and an
// empty root makes the base "\", the root of the current drive. A relative
// root is resolved against the current folder at every listing. An empty
// pattern lists nothing, so nothing is reported, but the tree is still
// walked. Nothing guards against links that lead back up the tree; with no
// depth limit such a walk ends where the platform refuses the longer path.
// The walk keeps its pending folders on the heap, not in recursion, so its
// use of the calling thread's stack does not grow with the tree's depth.
//
// A root directory or a pattern that holds a zero unit is refused: the
// platform would read it only up to that unit and list another folder.
// Search then reports nothing and makes no platform call.
//
// Failures are never reported: a root that is missing or can't be listed
// gives a search without a single call to the receiver, and a folder that
// can't be listed, or whose listing breaks off, simply reports less.
//
// Threads: a search runs wholly on the thread that calls Search and keeps no
// state in the object, so objects are independent; one object's Search may
// run on several threads at once if the receiver copes with that.

#include <string>

#include "frame/Export.h"

// Receives the entries a FileFindA reports.
class ZRK_API IFoundFileReceiverA {
public:
    // Called once per reported entry with its full path (the listed folder,
    // "\", the name) and its name alone; both live only for the call. Return
    // 1 to end the listing of the current folder (its sub-folders and the
    // rest of the tree are still searched: a receiver cannot end the whole
    // search); any other value lets the listing go on. An exception thrown
    // here passes out of Search, and the listings open at that moment are
    // closed on the way.
    virtual int FoundFile(const std::string& fullPath, const std::string& name) = 0;
};

// Receives the entries a FileFindW reports.
class ZRK_API IFoundFileReceiverW {
public:
    // As IFoundFileReceiverA::FoundFile, with wide text.
    virtual int FoundFile(const std::wstring& fullPath, const std::wstring& name) = 0;
};

// A search over narrow paths: FindFirstFileA and its kin. Only files reach
// the receiver; folders are descended into but never reported.
class ZRK_API FileFindA {
public:
    // Stores all four. `receiver` is not owned and must outlive every
    // Search. `maxDepth` is the deepest level searched, the root being level
    // 0 (1: the root and its direct sub-folders); 0 means no limit.
    FileFindA(IFoundFileReceiverA* receiver, const std::string& rootDirectory,
              const std::string& pattern, unsigned int maxDepth);
    // As above, with WorkingDir() at construction as the root: later changes
    // of the current folder don't move the search.
    FileFindA(IFoundFileReceiverA* receiver, const std::string& pattern, unsigned int maxDepth);
    ~FileFindA();

    FileFindA(const FileFindA&) = delete;
    FileFindA& operator=(const FileFindA&) = delete;

    // Runs the whole search; may be called again and starts over on the tree
    // as it is then. Reports nothing, without a platform call, when the root
    // directory or the pattern holds a zero unit.
    void Search();

    // The root directory exactly as stored.
    const std::string& SearchRootDirectory() const;

    // The process's current folder, or the empty string when the platform
    // can't give it within 2048 characters (it fails, or the folder is
    // longer).
    static std::string WorkingDir();

protected:
    // Searches `folder` at level `depth` (nothing at all beyond the depth
    // limit): with `descend` false reports its matches of `pattern` and goes
    // no deeper; with `descend` true does that and then searches each
    // sub-folder at depth + 1 the same way. Nothing at all, and no platform
    // call, when `folder` or `pattern` holds a zero unit.
    void FindFilesInFolder(const std::string& folder, const std::string& pattern,
                           unsigned int depth, bool descend);

private:
    IFoundFileReceiverA* m_receiver;
    std::string m_rootDirectory;
    std::string m_pattern;
    unsigned int m_maxDepth;
};

// A search over wide paths: FindFirstFileW and its kin. Unlike FileFindA,
// folders that match the pattern are reported like files (FoundFile is not
// told which it has); "." and ".." are not.
class ZRK_API FileFindW {
public:
    // As the FileFindA constructors.
    FileFindW(IFoundFileReceiverW* receiver, const std::wstring& rootDirectory,
              const std::wstring& pattern, unsigned int maxDepth);
    FileFindW(IFoundFileReceiverW* receiver, const std::wstring& pattern,
              unsigned int maxDepth);
    ~FileFindW();

    FileFindW(const FileFindW&) = delete;
    FileFindW& operator=(const FileFindW&) = delete;

    // As FileFindA::Search.
    void Search();

    // As FileFindA::SearchRootDirectory.
    const std::wstring& SearchRootDirectory() const;

    // As FileFindA::WorkingDir.
    static std::wstring WorkingDir();

protected:
    // As FileFindA::FindFilesInFolder.
    void FindFilesInFolder(const std::wstring& folder, const std::wstring& pattern,
                           unsigned int depth, bool descend);

private:
    IFoundFileReceiverW* m_receiver;
    std::wstring m_rootDirectory;
    std::wstring m_pattern;
    unsigned int m_maxDepth;
};
