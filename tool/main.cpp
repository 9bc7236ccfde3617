// zrk: every service of zrkCore from the command line, for a person or a
// script. "zrk" alone lists the commands; "zrk COMMAND --help" explains one.
// Output for scripts is one item a line, columns parted by tabs; errors go to
// standard error, with exit code 2 for a call the command can't take and 1
// for an operation that failed.
#include <windows.h>

#include <shellapi.h>

#include <zrkCore.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tool/Command.h"

namespace zrk::tool {

void PrintLine(const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
}

int Fail(const char* command, const std::string& message) {
    std::fprintf(stderr, "zrk %s: %s\n", command, message.c_str());
    return 1;
}

std::string ProgramPath() {
    wchar_t path[MAX_PATH + 1] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return ConvertString_UTF16_to_UTF8(path);
}

}  // namespace zrk::tool

namespace {

using namespace zrk::tool;

// The words of this process's command line after the program, as UTF-8.
std::vector<std::string> CommandWords() {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> result;
    for (int index = 1; index < count; ++index) {
        result.push_back(ConvertString_UTF16_to_UTF8(words[index]));
    }
    LocalFree(words);
    return result;
}

void PrintList(const std::vector<Command>& commands) {
    PrintLine("zrk: the services of zrkCore from the command line.");
    PrintLine("usage: zrk COMMAND [ARGUMENTS] (zrk COMMAND --help for one command)");
    PrintLine("");
    for (const Command& command : commands) {
        std::printf("  %-10s %s\n", command.name, command.summary);
    }
}

void PrintHelp(const Command& command) {
    PrintLine(std::string("usage: zrk ") + command.usage);
    PrintLine(command.summary);
    if (*command.details != '\0') {
        PrintLine("");
        PrintLine(command.details);
    }
}

int Usage(const Command& command, const std::string& message) {
    std::fprintf(stderr, "zrk %s: %s\nusage: zrk %s\n", command.name, message.c_str(),
                 command.usage);
    return 2;
}

}  // namespace

int main() {
    std::vector<Command> commands;
    AddDiagnosticsCommands(&commands);
    AddProcessCommands(&commands);
    AddFileCommands(&commands);
    AddShellCommands(&commands);
    AddTextAndTimeCommands(&commands);
    AddTourCommand(&commands);

    std::vector<std::string> words = CommandWords();
    if (words.empty() || words[0] == "--help" || words[0] == "help") {
        PrintList(commands);
        return 0;
    }
    const Command* command = nullptr;
    for (const Command& candidate : commands) {
        if (words[0] == candidate.name) {
            command = &candidate;
        }
    }
    if (command == nullptr) {
        std::fprintf(stderr, "zrk: unknown command \"%s\"; \"zrk\" lists them\n",
                     words[0].c_str());
        return 2;
    }
    words.erase(words.begin());
    std::vector<KnownOption> options = command->options;
    options.push_back({"help", false});
    const ParsedArguments arguments = ParseArguments(words, options);
    if (!arguments.error.empty()) {
        return Usage(*command, arguments.error);
    }
    if (arguments.Has("help")) {
        PrintHelp(*command);
        return 0;
    }
    const std::size_t count = arguments.positional.size();
    if (count < command->minimumArguments) {
        return Usage(*command, "missing arguments");
    }
    if (count > command->maximumArguments) {
        return Usage(*command, "too many arguments");
    }
    try {
        return command->run(arguments);
    } catch (const UsageError& error) {
        return Usage(*command, error.what());
    }
}
