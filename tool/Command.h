#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "tool/Arguments.h"

// The commands of the zrk tool. Each area of the library adds its commands
// to the tool's list; main.cpp finds the command, checks its words against
// what it takes and runs it.
namespace zrk::tool {

// A call the command can't take (bad words, a number out of range): main
// prints it with the command's usage to standard error and exits with 2.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Command {
    const char* name;                 // the first word after "zrk"
    const char* usage;                // the words it takes, after "zrk "
    const char* summary;              // one line for the tool's list
    const char* details;              // more lines for --help, or ""
    std::vector<KnownOption> options;  // besides --help, which every command takes
    std::size_t minimumArguments, maximumArguments;
    // Runs the command; the process's exit code: 0, or 1 when the operation
    // failed (after a message on standard error).
    int (*run)(const ParsedArguments& arguments);
};

// The commands of each area, in the order of the tool's list.
void AddDiagnosticsCommands(std::vector<Command>* commands);
void AddProcessCommands(std::vector<Command>* commands);
void AddFileCommands(std::vector<Command>* commands);
void AddShellCommands(std::vector<Command>* commands);
void AddTextAndTimeCommands(std::vector<Command>* commands);
void AddTourCommand(std::vector<Command>* commands);

// Writes `line` and a line end to standard output.
void PrintLine(const std::string& line);
// Writes "zrk <command>: <message>" to standard error; answers 1, the exit
// code of a failed operation.
int Fail(const char* command, const std::string& message);

// The path of the running zrk.exe.
std::string ProgramPath();

// Runs "zrk crash --child" on `folder` (a full path ending in "\"), with
// `code` as its exception code unless empty, and waits for its end: false if
// it can't start, else true with its exit code.
bool RunCrashingChild(const std::string& folder, const std::string& code, unsigned long* exitCode);

}  // namespace zrk::tool
