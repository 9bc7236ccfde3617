// zrk modules and zrk crash: the module inventory and the crash dump.
#include <windows.h>

#include <zrkCore.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "tool/Command.h"

namespace zrk::tool {
namespace {

std::string VersionText(const zrkVersionInfo& version) {
    if (!version.valid) {
        return "no version";
    }
    return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
           std::to_string(version.build) + "." + std::to_string(version.revision);
}

int Modules(const ParsedArguments& arguments) {
    std::vector<zrkModuleInfo> modules;
    PopulateModuleInfo(&modules);
    std::vector<std::vector<std::string>> rows;
    for (const zrkModuleInfo& module : modules) {
        rows.push_back({ConvertString_UTF16_to_UTF8(module.name), VersionText(module.version),
                        ConvertString_UTF16_to_UTF8(module.path)});
    }
    if (arguments.Has("tsv")) {
        for (const auto& row : rows) {
            PrintLine(row[0] + '\t' + row[1] + '\t' + row[2]);
        }
        return 0;
    }
    rows.insert(rows.begin(), {"NAME", "VERSION", "PATH"});
    std::size_t nameWidth = 0, versionWidth = 0;
    for (const auto& row : rows) {
        nameWidth = std::max(nameWidth, row[0].size());
        versionWidth = std::max(versionWidth, row[1].size());
    }
    for (const auto& row : rows) {
        PrintLine(row[0] + std::string(nameWidth + 2 - row[0].size(), ' ') + row[1] +
                  std::string(versionWidth + 2 - row[1].size(), ' ') + row[2]);
    }
    return 0;
}

// The child's part: install the crash dump into `folder`, then fail with
// `code` (raised as an exception) or, without one, by writing through a
// null pointer.
[[noreturn]] void CrashNow(const std::string& folder, const std::string& code) {
    SystemUtils::CrashDump::InitializeSystem(folder.c_str());
    unsigned long exceptionCode = 0;
    if (!code.empty() && ParseHex32(code, &exceptionCode)) {
        RaiseException(exceptionCode, EXCEPTION_NONCONTINUABLE, 0, nullptr);
    }
    *static_cast<volatile int*>(nullptr) = 1;
    std::abort();
}

int Crash(const ParsedArguments& arguments) {
    const std::string code = arguments.Value("code");
    unsigned long exceptionCode = 0;
    if (arguments.Has("code") && !ParseHex32(code, &exceptionCode)) {
        throw UsageError("--code takes a hexadecimal number, such as C0000005");
    }
    std::string folder =
        arguments.positional.empty() ? "%TEMP%/zrk-crash" : arguments.positional[0];
    if (arguments.Has("child")) {
        CrashNow(folder, code);
    }
    if (!EnsureFolderPath(folder)) {
        return Fail("crash", "can't make the folder " + folder);
    }
    DWORD exitCode = 0;
    if (!RunCrashingChild(folder, code, &exitCode)) {
        return Fail("crash", "can't start the child process");
    }
    char exitText[16];
    std::snprintf(exitText, sizeof exitText, "0x%08lX", exitCode);
    PrintLine(std::string("exit code\t") + exitText);
    // The newest dump: the names hold the UTC time, so the last name is the newest.
    std::vector<std::filesystem::path> dumps;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(
             ConvertString_UTF8_to_UTF16(folder) + L"Dump", ignored)) {
        dumps.push_back(entry.path());
    }
    if (dumps.empty()) {
        return Fail("crash", "the child left no dump (its code is not one the filter dumps)");
    }
    const auto newest = *std::max_element(dumps.begin(), dumps.end());
    PrintLine("dump\t" + ConvertString_UTF16_to_UTF8(newest.wstring()));
    PrintLine("bytes\t" + std::to_string(std::filesystem::file_size(newest, ignored)));
    return 0;
}

}  // namespace

bool RunCrashingChild(const std::string& folder, const std::string& code, unsigned long* exitCode) {
    // The folder goes without its final "\", which would escape the closing quote.
    std::wstring commandLine = L"\"" + ConvertString_UTF8_to_UTF16(ProgramPath()) +
                               L"\" crash --child \"" +
                               ConvertString_UTF8_to_UTF16(folder.substr(0, folder.size() - 1)) +
                               L"\"";
    if (!code.empty()) {
        commandLine += L" --code " + ConvertString_UTF8_to_UTF16(code);
    }
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION child = {};
    if (!CreateProcessW(nullptr, &commandLine[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &child)) {
        return false;
    }
    WaitForSingleObject(child.hProcess, INFINITE);
    GetExitCodeProcess(child.hProcess, exitCode);
    CloseHandle(child.hProcess), CloseHandle(child.hThread);
    return true;
}

void AddDiagnosticsCommands(std::vector<Command>* commands) {
    commands->push_back(
        {"modules", "modules [--tsv]",
         "the modules loaded into zrk, with their file versions",
         "An aligned table of name, file version (\"no version\" for a module without a\n"
         "version resource) and path, in the order the platform lists them. With --tsv:\n"
         "no heading, the three columns parted by tabs.",
         {{"tsv", false}}, 0, 0, &Modules});
    commands->push_back(
        {"crash", "crash [FOLDER] [--code HEX]",
         "crash a child process on purpose and report the dump it leaves",
         "Starts zrk again as a child that installs the crash dump into FOLDER (default\n"
         "%TEMP%/zrk-crash) and fails: with --code, by raising that exception code;\n"
         "without, by writing through a null pointer (0xC0000005). Then prints the child's\n"
         "exit code and the dump file's path and size, a line each. A full-memory dump is\n"
         "large (hundreds of MB under Wine). Codes the crash dump does not handle leave\n"
         "no dump. (--child is the child's own switch.)",
         {{"code", true}, {"child", false}}, 0, 1, &Crash});
}

}  // namespace zrk::tool
