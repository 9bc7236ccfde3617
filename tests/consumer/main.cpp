// Uses the installed zrkCore the way an application does: the umbrella
// header, the imported target, and the DLL at run time.
#include <zrkCore.h>

#include <cstdio>
#include <cstring>
#include <string>

static int failures = 0;

static void Check(bool ok, const char* what) {
    std::printf("consumer: %-40s %s\n", what, ok ? "ok" : "FAILED");
    if (!ok) {
        ++failures;
    }
}

int main() {
    Check(std::strcmp(eEndianType_ToStringA(LittleEndian), "LittleEndian") == 0,
          "endian text");

    const unsigned int first = ClassID();
    const unsigned int second = ClassID();
    Check(second == first + 1, "class numbers count up");

    Check(EnvironmentVariable::SetStringA("ZRK_CONSUMER", "C:/zrk-consumer/%ZRK_LEAF%", true) &&
              EnvironmentVariable::SetStringA("ZRK_LEAF", "leaf", true),
          "environment written");
    std::string path = "%ZRK_CONSUMER%/sub";
    Check(EnsureFolderPath(path) && path == "C:\\zrk-consumer\\leaf\\sub\\",
          "folder path expanded and created");

    AtomicLock lock;
    Check(lock.TryLock() && !lock.TryLock(), "spin lock taken once");
    lock.Release();

    if (failures == 0) {
        std::printf("consumer: all checks passed\n");
    }
    return failures == 0 ? 0 : 1;
}
