// zrkDemo: shows what zrkCore does, step by step, under Wine or Windows.
//
//   zrkDemo [folder] [/key value ...] [/crash]
//
// The folder may use "/" or "\" and %NAME% references; it defaults to
// %TEMP%/zrkCore-demo/output. The whole command line is also shown as the
// key and value pairs that CommandLine makes of it. With /crash the last
// step starts this program again as a child that crashes, and names the
// dump it leaves under the folder.
#include <zrkCore.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "Demos.h"

namespace {

void DemoEndianTexts() {
    std::printf("== Endian texts\n");
    for (eEndianType type : {UNDETERMINED, LittleEndian, BigEndian}) {
        std::printf("  %d -> \"%s\" / L\"%ls\"\n", static_cast<int>(type),
                    eEndianType_ToStringA(type), eEndianType_ToStringW(type));
    }
}

void DemoEnvironment() {
    std::printf("== Environment variables\n");
    const bool set =
        EnvironmentVariable::SetStringA("ZRK_DEMO_GREETING", "hello from zrkCore", true);
    std::printf("  SetStringA(ZRK_DEMO_GREETING, \"hello from zrkCore\") -> %s\n",
                set ? "true" : "false");
    std::string value;
    const bool got = EnvironmentVariable::GetStringA("ZRK_DEMO_GREETING", &value);
    std::printf("  GetStringA(ZRK_DEMO_GREETING) -> %s, \"%s\"\n", got ? "true" : "false",
                value.c_str());

    EnvironmentVariable::SetArrayA("ZRK_DEMO_LIST", {"alpha", "", "beta;gamma"}, true);
    std::string raw;
    EnvironmentVariable::GetStringA("ZRK_DEMO_LIST", &raw);
    std::vector<std::string> items;
    EnvironmentVariable::GetArrayA("ZRK_DEMO_LIST", &items);
    std::printf("  SetArrayA(ZRK_DEMO_LIST, {alpha, \"\", beta;gamma}) stored \"%s\", read back as",
                raw.c_str());
    for (const std::string& item : items) {
        std::printf(" [%s]", item.c_str());
    }
    std::printf("\n");
    EnvironmentVariable::DeleteA("ZRK_DEMO_LIST");
}

// The folder made of `given`: a full path ending in "\", or `given` itself if
// it can't be made.
std::string DemoFolder(const std::string& given) {
    std::printf("== Path normalisation\n");
    std::string folder = given;
    if (EnsureFolderPath(folder)) {
        std::printf("  EnsureFolderPath(\"%s\") -> true\n  folder now exists: %s\n",
                    given.c_str(), folder.c_str());
    } else {
        std::printf("  EnsureFolderPath(\"%s\") -> false (the text stays as given)\n",
                    given.c_str());
    }
    std::string file = given + "/report.txt";
    if (EnsureFilePath(file)) {
        std::printf("  EnsureFilePath(\"%s/report.txt\") -> %s\n", given.c_str(), file.c_str());
    }
    return folder;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 2 && std::string(argv[1]) == "/crash-now") {
        CrashNow(argv[2]);
    }
    std::printf("zrkCore demonstration\n");
    DemoEndianTexts();
    DemoEnvironment();
    const std::string folder = DemoFolder(argc > 1 ? argv[1] : "%TEMP%/zrkCore-demo/output");
    DemoIniFile();
    DemoShell();
    DemoFileFind();
    DemoTime();
    DemoTextConversion();
    DemoCommandLine();
    DemoGuid();
    DemoPool();
    DemoMutexes();
    DemoSignalledObjects();
    DemoClock();
    DemoNamesAndTokens();
    DemoModules();
    DemoCrashDump(folder, std::find(argv + 1, argv + argc, std::string("/crash")) != argv + argc);
    return 0;
}
