// For the crash dump test: installs the crash dump (in the folder of its second argument, if
// any), then writes through a null pointer if told "access", else raises a code of its own.
#include <windows.h>

#include <cstring>

#include "zrkCore.h"

int main(int argc, char** argv) {
    SystemUtils::CrashDump::InitializeSystem(argc > 2 ? argv[2] : nullptr);
    if (argc > 1 && std::strcmp(argv[1], "access") == 0) {
        *static_cast<volatile int*>(nullptr) = 1;
    }
    RaiseException(0xE0001234, 0, 0, nullptr);  // a code of the program's own
    return 0;
}
