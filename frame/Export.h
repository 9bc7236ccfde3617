#pragma once

// ZRK_API marks what zrkCore.dll exports. Once one symbol of a DLL carries
// dllexport, the GNU linker exports nothing else, so internal helpers stay
// out of the export table without any further annotation. Applications see
// the same declarations as dllimport, which also makes the exported static
// data members reachable through the import table.
#if defined(ZRK_BUILDING_CORE)
#define ZRK_API __declspec(dllexport)
#else
#define ZRK_API __declspec(dllimport)
#endif
