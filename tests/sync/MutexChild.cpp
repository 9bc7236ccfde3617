// Started by the mutex test: exits with 0 if TryLock takes the GlobalMutex
// named by its (ASCII) argument, 1 if not.
#include <zrkCore.h>

#include <cstring>
#include <string>

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    GlobalMutex mutex(std::wstring(argv[1], argv[1] + std::strlen(argv[1])));
    return mutex.TryLock() ? 0 : 1;
}
