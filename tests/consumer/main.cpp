// Uses the installed zrkCore the way an application does: the umbrella
// header, the imported target, and the DLL at run time. Every exported family
// is called, so one missing from the package's headers, import library or
// DLL fails the build, the start or a check.
#include <zrkCore.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

struct Pool : PoolBase {
    Pool() : PoolBase(16, 4, 0) {}
    void* Take() { return AllocateChunk(); }
};
struct Target : SmartPtrTarget {};

int main() {
    AtomicLock lock;
    CriticalSection section;
    GlobalMutex mutex(L"zrk.consumer");
    SignalledObject flag;
    flag.Set();
    std::string path = "%ZRK_CONSUMER%/sub", program, arguments;
    const ClassID first, second;
    Pool pool;
    TimerSet timers;
    timers.StopTimer("t");
    std::vector<zrkModuleInfo> modules;
    PopulateModuleInfo(&modules);
    Time::StaticInit(), CommandLine::StaticInit(), Console::Info("consumer");
    SystemUtils::CrashDump::InitializeSystem();
    const bool ok =
        std::strcmp(eEndianType_ToStringA(LittleEndian), "LittleEndian") == 0 &&
        second == first + 1u && zrkGetCurrentThreadId() != 0 && !ProfilingSystem::Get() &&
        !Assert::GetHandler() && CommandLine::Get()->Begin() == CommandLine::Get()->End() &&
        lock.TryLock() && !lock.TryLock() && section.TryLock() && mutex.TryLock() &&
        flag.IsSet() && SmartPtr<Target>(new Target).get() && pool.Take() &&
        ConvertString_UTF16_to_UTF8(L"caf\u00E9") == "caf\xC3\xA9" &&
        GUIDIdentifier(GUIDIdentifier::ZeroStrA()).IsZero() && MakeTokenA(8).size() == 8 &&
        TimePoint::Epoch() + TimeInterval::FromDays(1) - TimePoint::Epoch() ==
            TimeInterval::FromSeconds(86400) &&
        Time::GetFrequency() != 0 && timers.GetTimers().size() == 1 &&
        EnvironmentVariable::SetStringA("ZRK_CONSUMER", "C:/zrk-consumer/leaf", true) &&
        EnsureFolderPath(path) && path == "C:\\zrk-consumer\\leaf\\sub\\" &&
        !FileFindW::WorkingDir().empty() && GenerateFileNameA("a", "b", false, false) == "a.b" &&
        IniFileA::LoadFile("C:\\missing.ini")->Size() == 0 &&
        zrkParseCommandTemplateA("\"C:\\p.exe\" \"%1\"", &program, &arguments) &&
        !zrkShellExecuteA("open", "C:\\missing.file", nullptr) && modules.size() > 2;
    Time::StaticShutdown(), CommandLine::StaticShutdown();
    std::printf("consumer: %s\n", ok ? "all checks passed" : "FAILED");
    return ok ? 0 : 1;
}
