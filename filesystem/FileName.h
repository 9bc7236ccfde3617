#pragma once

#include <string>

#include "frame/Export.h"

// File names put together from a prefix, the running program's file name
// (its extension kept), a UTC time stamp and an extension, parted by ".":
//   GenerateFileNameA("crash", "log", true, true)
//     -> "crash.Tool.exe.2026-11-19 04-47-39.log"
// An empty prefix, or a part not asked for, leaves no "." of its own; the
// "." before the extension is always there, so an empty extension leaves the
// name ending in "." and one that begins with "." gives two.
//
// Only text is built: nothing on disk is looked at, so two calls within one
// second give the same name. The arguments are not examined (a prefix may
// hold a folder). If the program's path can't be read, its part is empty.
// The narrow form calls the platform's A entries, the wide one its W
// entries; the wide stamp is the narrow one widened.
//
// No shared state: any thread may call at any time.
ZRK_API std::string GenerateFileNameA(const std::string& prefix, const std::string& extension,
                                      bool withModuleName, bool withTimeStamp);
ZRK_API std::wstring GenerateFileNameW(const std::wstring& prefix, const std::wstring& extension,
                                       bool withModuleName, bool withTimeStamp);
