// Tour steps: identifiers, pooled memory, the module inventory and
// crash dumps.
#include <windows.h>

#include <zrkCore.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "tool/Command.h"
#include "tool/tour/TourSteps.h"

void TourGuid() {
    std::printf("== GUID identifiers\n");
    const GUIDIdentifier first, second;
    std::printf("  two new ones: %s and %s\n", first.ToStringA(false).c_str(),
                second.ToStringA(true).c_str());
    std::printf("  first < second: %s (the platform's order, field by field)\n",
                first < second ? "true" : "false");
    const GUIDIdentifier parsed(first.ToStringW(true));
    std::printf("  parsed back from upper case: %s, equal: %s\n", parsed.ToStringA(false).c_str(),
                parsed == first ? "true" : "false");
    std::printf("  \"{not an id}\" parses to zero: %s; zero is %s\n",
                GUIDIdentifier("{not an id}").IsZero() ? "true" : "false",
                GUIDIdentifier::ZeroStrA().c_str());
}

void TourModules() {
    std::printf("== Module inventory\n");
    std::vector<zrkModuleInfo> modules;
    PopulateModuleInfo(&modules);
    std::printf("  %zu modules loaded; the first, ours and the runtime's:\n", modules.size());
    for (const zrkModuleInfo& module : modules) {
        if (&module == &modules.front() || module.name == L"zrkCore.dll" ||
            module.name == L"msvcrt.dll") {
            const zrkVersionInfo& version = module.version;
            std::printf("    %-14ls %ls, ", module.name.c_str(), module.path.c_str());
            if (version.valid) {
                std::printf("file version %u.%u.%u.%u\n", version.major, version.minor,
                            version.build, version.revision);
            } else {
                std::printf("no version resource\n");
            }
        }
    }
}

namespace {

// Records of 24 bytes from blocks of four, for one thread.
class RecordPool : public PoolBase {
public:
    RecordPool() : PoolBase(24, 4, 1) {}
    void* Take() { return AllocateChunk(); }
    void Give(void* record) { ReleaseChunk(record); }
};

}  // namespace

void TourPool() {
    std::printf("== Pool allocator (24-byte chunks, 4 to a block)\n");
    RecordPool pool;
    std::vector<void*> taken;
    for (int i = 0; i < 5; ++i) {
        taken.push_back(pool.Take());
    }
    std::printf("  five taken, each 24 below the one before, the fifth from a new block:\n   ");
    for (void* record : taken) {
        std::printf(" %p", record);
    }
    pool.Give(taken[1]);
    std::printf("\n  gave back %p, the next taken is %p\n", taken[1], pool.Take());
}

void TourCrashDump() {
    std::printf("== Crash dump\n");
    const std::string folder = TourFolder() + "crash";
    std::printf("  starting \"zrk crash --child\": it installs the crash dump and writes through\n"
                "  a null pointer; a full-memory dump takes a while\n");
    std::fflush(stdout);
    unsigned long code = 0;
    if (!zrk::tool::RunCrashingChild(folder + "\\", "", &code)) {
        std::printf("  could not start the crashing child\n");
        return;
    }
    std::printf("  the child ended with 0x%08lX; in %s\\Dump:\n", code, folder.c_str());
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder + "\\Dump", error)) {
        std::printf("    %s, %ju bytes (removed with the tour's folder)\n",
                    entry.path().filename().string().c_str(),
                    static_cast<std::uintmax_t>(entry.file_size(error)));
    }
}
