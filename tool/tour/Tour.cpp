// zrk tour: what zrkCore does, step by step, in a few screens of output.
// It works in a temporary folder of its own, which it removes at the end,
// and undoes what it registers. Words after "tour" show up in the command
// line step as the key and value pairs that CommandLine makes of them.
#include <windows.h>

#include <zrkCore.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "tool/Command.h"
#include "tool/tour/TourSteps.h"

namespace {

void TourEndianTexts() {
    std::printf("== Endian texts\n");
    for (eEndianType type : {UNDETERMINED, LittleEndian, BigEndian}) {
        std::printf("  %d -> \"%s\" / L\"%ls\"\n", static_cast<int>(type),
                    eEndianType_ToStringA(type), eEndianType_ToStringW(type));
    }
}

void TourEnvironment() {
    std::printf("== Environment variables\n");
    const bool set =
        EnvironmentVariable::SetStringA("ZRK_TOUR_GREETING", "hello from zrkCore", true);
    std::printf("  SetStringA(ZRK_TOUR_GREETING, \"hello from zrkCore\") -> %s\n",
                set ? "true" : "false");
    std::string value;
    const bool got = EnvironmentVariable::GetStringA("ZRK_TOUR_GREETING", &value);
    std::printf("  GetStringA(ZRK_TOUR_GREETING) -> %s, \"%s\"\n", got ? "true" : "false",
                value.c_str());

    EnvironmentVariable::SetArrayA("ZRK_TOUR_LIST", {"alpha", "", "beta;gamma"}, true);
    std::string raw;
    EnvironmentVariable::GetStringA("ZRK_TOUR_LIST", &raw);
    std::vector<std::string> items;
    EnvironmentVariable::GetArrayA("ZRK_TOUR_LIST", &items);
    std::printf("  SetArrayA(ZRK_TOUR_LIST, {alpha, \"\", beta;gamma}) stored \"%s\", read back as",
                raw.c_str());
    for (const std::string& item : items) {
        std::printf(" [%s]", item.c_str());
    }
    std::printf("\n");
    EnvironmentVariable::DeleteA("ZRK_TOUR_LIST");
}

std::string g_tourFolder;

// Makes the tour's folder from a path as a person writes it.
bool MakeTourFolder() {
    std::printf("== Path normalisation\n");
    const std::string given = "%TEMP%/zrk-tour-" + std::to_string(GetCurrentProcessId());
    std::string folder = given;
    if (!EnsureFolderPath(folder)) {
        std::printf("  EnsureFolderPath(\"%s\") -> false: no folder for the tour\n", given.c_str());
        return false;
    }
    std::printf("  EnsureFolderPath(\"%s\") -> true\n  the tour's folder now exists: %s\n",
                given.c_str(), folder.c_str());
    std::string file = given + "/sub/report.txt";
    if (EnsureFilePath(file)) {
        std::printf("  EnsureFilePath(\"%s/sub/report.txt\") -> %s\n", given.c_str(), file.c_str());
    }
    g_tourFolder = folder;
    return true;
}

int RunTour(const zrk::tool::ParsedArguments&) {
    std::printf("A tour of zrkCore\n");
    TourEndianTexts();
    TourEnvironment();
    if (!MakeTourFolder()) {
        return zrk::tool::Fail("tour", "can't make a temporary folder");
    }
    TourIniFile();
    TourShell();
    TourFileFind();
    TourTime();
    TourTextConversion();
    TourCommandLine();
    TourGuid();
    TourPool();
    TourMutexes();
    TourSignalledObjects();
    TourClock();
    TourNamesAndTokens();
    TourModules();
    TourCrashDump();
    std::error_code error;
    std::filesystem::remove_all(ConvertString_UTF8_to_UTF16(g_tourFolder), error);
    std::printf("== End of the tour: %s removed\n", g_tourFolder.c_str());
    return 0;
}

}  // namespace

const std::string& TourFolder() {
    return g_tourFolder;
}

namespace zrk::tool {

void AddTourCommand(std::vector<Command>* commands) {
    commands->push_back(
        {"tour", "tour [WORDS...]", "a guided tour of every service of zrkCore",
         "Walks through the subsystems in a temporary folder that it removes afterwards:\n"
         "the environment, paths, an INI file, opening a file by a MIME type it registers\n"
         "(and unregisters), a file search, time, text, GUIDs, the pool, locks and events,\n"
         "the clock and timer sets, file names, tokens, the module inventory, and a crash\n"
         "dump written by a child process. Any WORDS show up in its command line step.",
         {}, 0, static_cast<std::size_t>(-1), &RunTour});
}

}  // namespace zrk::tool
