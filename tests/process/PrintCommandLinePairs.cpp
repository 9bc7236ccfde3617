// For the command line test: prints its own pairs as sorted "key|value;" items,
// read from a copy that outlives the last StaticShutdown, taken after a first
// copy that must leave the instance whole.
#include <cstdio>
#include <set>
#include <string>

#include "zrkCore.h"

int main() {
    CommandLine::StaticInit();
    const CommandLine first(*CommandLine::Get()), copy(*CommandLine::Get());
    CommandLine::StaticShutdown();
    std::set<std::string> items;
    for (auto pair = copy.Begin(); pair != copy.End(); ++pair) {
        items.insert(pair->first + "|" + pair->second + ";");
    }
    for (const std::string& item : items) {
        std::fputs(item.c_str(), stdout);
    }
    if (CommandLine::Get() != nullptr) {
        std::fputs("instance left after the last shutdown;", stdout);
    }
}
