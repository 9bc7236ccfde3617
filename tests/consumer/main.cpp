// Uses the installed zrkCore the way an application does: the umbrella
// header, the imported target, and the DLL at run time.
#include <zrkCore.h>

#include <cstdio>
#include <cstring>
#include <string>

int main() {
    AtomicLock lock;
    const bool locked = lock.TryLock() && !lock.TryLock();
    std::string path = "%ZRK_CONSUMER%/sub";
    const bool ok =
        std::strcmp(eEndianType_ToStringA(LittleEndian), "LittleEndian") == 0 && locked &&
        EnvironmentVariable::SetStringA("ZRK_CONSUMER", "C:/zrk-consumer/leaf", true) &&
        EnsureFolderPath(path) && path == "C:\\zrk-consumer\\leaf\\sub\\";
    std::printf("consumer: %s\n", ok ? "all checks passed" : "FAILED");
    return ok ? 0 : 1;
}
