#pragma once

#include <string>

#include "frame/Export.h"

// Turns a path as a person or a configuration file writes it into the
// absolute path the program works with, making sure on the way that its
// folder exists. The steps, on a private copy of the argument:
//
//   1. every "/" becomes "\";
//   2. %NAME% references expand through EnvironmentVariable::GetStringA
//      (narrow) or GetStringW (wide). After each replacement the text is
//      scanned again from its start, so values may hold references. An
//      unknown or empty name stays in the text as it is, and a lone "%" ends
//      the expansion;
//   3. the platform's GetFullPathName resolves relative forms against the
//      current folder and removes repeated separators, "." and "..";
//   4. SHCreateDirectoryEx creates the folder and every missing folder
//      above it; a folder that already exists is fine.
//
// A variable that refers to itself, directly or through others, would
// expand forever. The expansion therefore stops after 256 replacements, or
// when a replacement would make the text longer than 32767 characters; the
// call then fails before any folder is touched.
//
// A path that holds a zero unit is refused: the platform would read it only
// up to that unit and act on another path. The call then fails at once,
// before any environment lookup or platform call.
//
// On false the argument holds exactly what the caller gave; folders that the
// platform created before a failure in step 4 stay. The narrow overloads
// call the platform's A entries, the wide ones its W entries.
//
// Threads: no state of their own. They read the environment and the current
// folder, which are process-wide, without a guard.

// Reads `path` as the path of a file: creates the folder that is to hold the
// file (the file itself is never looked at) and, on success, replaces `path`
// by the file's full path. A path ending in a separator has no file name, so
// the whole path is taken for the folder and keeps its trailing "\".
ZRK_API bool EnsureFilePath(std::string& path);
ZRK_API bool EnsureFilePath(std::wstring& path);

// Reads `path` as the path of a folder: creates it and, on success, replaces
// `path` by its full path ending in "\". With or without a trailing
// separator the result is the same. An empty path names the root of the
// current drive.
ZRK_API bool EnsureFolderPath(std::string& path);
ZRK_API bool EnsureFolderPath(std::wstring& path);

// Deletes a file. The path goes to the platform's DeleteFile unchanged: no
// separator rewriting, no expansion. True when the file was deleted.
ZRK_API bool zrkDeleteFileA(const char* path);
ZRK_API bool zrkDeleteFileW(const wchar_t* path);
