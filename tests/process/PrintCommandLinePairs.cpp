// For the command line test: prints its own pairs as sorted "key|value" lines,
// read from a copy that outlives the last StaticShutdown and was taken after
// another copy, which must have left the instance whole.
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <set>
#include <string>

#include "zrkCore.h"

int main() {
    CommandLine::StaticInit();
    const CommandLine first(*CommandLine::Get()), copy(*CommandLine::Get());
    CommandLine::StaticShutdown();
    std::set<std::string> lines;
    for (auto pair = copy.Begin(); pair != copy.End(); ++pair) {
        lines.insert(pair->first + "|" + pair->second + "\n");
    }
    _setmode(_fileno(stdout), _O_BINARY);  // "\n" as written
    for (const std::string& line : lines) {
        std::fputs(line.c_str(), stdout);
    }
    return CommandLine::Get() == nullptr ? 0 : 2;
}
