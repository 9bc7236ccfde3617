#pragma once

// The folder crash dumps go to: empty at load (the current folder), else a
// full path ending in "\". Defined with the library's other static objects.

#include <string>

namespace zrk {
namespace detail {

extern std::string g_crashDumpFolder;

}  // namespace detail
}  // namespace zrk
