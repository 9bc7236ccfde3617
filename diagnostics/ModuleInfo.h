#pragma once

#include <string>
#include <vector>

#include "frame/Export.h"

// A module's file version from the fixed block of its version resource, in
// the order a version is written: major.minor.build.revision. The four
// numbers mean something only when `valid` is true (the library leaves them
// 0 otherwise, but callers must not rely on that). A plain record: copies
// and assignments, moves included, take all five fields.
struct zrkVersionInfo {
    unsigned short major;     // high word of the file version's upper half
    unsigned short minor;     // low word of the upper half
    unsigned short build;     // high word of the lower half
    unsigned short revision;  // low word of the lower half
    bool valid;               // the numbers were read from a version resource
};

// One module of the process.
struct ZRK_API zrkModuleInfo {
    std::wstring name;  // file name without folder, "ntdll.dll"
    std::wstring path;  // full path of the file
    zrkVersionInfo version;

    // Empty strings and a version that is not valid, all numbers 0.
    zrkModuleInfo();
    ~zrkModuleInfo();
    // Copies take all three fields.
    zrkModuleInfo(const zrkModuleInfo& other);
    zrkModuleInfo& operator=(const zrkModuleInfo& other);
    // Moves take the strings, leaving the source's moved from, and copy the
    // version, leaving the source's as it was.
    zrkModuleInfo(zrkModuleInfo&& other) noexcept;
    zrkModuleInfo& operator=(zrkModuleInfo&& other) noexcept;
};

// Appends one record for each module loaded in the current process, in the
// order the platform's module walk (a toolhelp snapshot) delivers them, with
// the file version of each. Nothing is cleared, sorted or merged first: the
// vector's earlier records stay in front, and a second call appends every
// module again. The version is looked up by the module's short name, the
// way the platform finds a DLL.
//
// Nothing is reported. If the snapshot or its first module can't be read,
// the vector is unchanged; a module without a readable version resource is
// still appended, with `valid` false; a walk that ends early keeps what it
// appended. An allocation failure leaves as an exception, the records
// appended by then staying. `modules` must not be null.
//
// Threads: any thread; the vector is the caller's and must not be touched by
// another thread during the call. A module loaded or unloaded meanwhile may
// or may not be listed.
ZRK_API void PopulateModuleInfo(std::vector<zrkModuleInfo>* modules);
