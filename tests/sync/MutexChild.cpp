// Started by the mutex test with a mode and a GlobalMutex name (ASCII):
//   try      exits with 0 if TryLock takes the mutex, 1 if not
//   abandon  locks the mutex and exits owning it
#include <zrkCore.h>

#include <cstring>
#include <string>

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    GlobalMutex mutex(std::wstring(argv[2], argv[2] + std::strlen(argv[2])));
    if (std::strcmp(argv[1], "abandon") == 0) {
        mutex.Lock();
        return 0;
    }
    return mutex.TryLock() ? 0 : 1;
}
