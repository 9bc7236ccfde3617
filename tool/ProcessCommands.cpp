// zrk env and zrk args: environment variables and the command line.
#include <zrkCore.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tool/Command.h"

namespace zrk::tool {
namespace {

int Environment(const ParsedArguments& arguments) {
    const std::vector<std::string>& words = arguments.positional;
    const std::string& action = words[0];
    const std::size_t wanted = action == "set" ? 3 : 2;
    if (action != "get" && action != "array" && action != "set" && action != "delete") {
        throw UsageError("unknown action \"" + action + "\"");
    }
    if (words.size() != wanted) {
        throw UsageError("env " + action + (wanted == 3 ? " takes NAME VALUE" : " takes NAME"));
    }
    if (arguments.Has("create") && action != "set") {
        throw UsageError("--create goes with env set only");
    }
    const std::string& name = words[1];
    if (action == "get") {
        std::string value;
        if (!EnvironmentVariable::GetStringA(name, &value)) {
            return Fail("env", "no variable " + name);
        }
        PrintLine(value);
    } else if (action == "array") {
        std::vector<std::string> values;
        if (!EnvironmentVariable::GetArrayA(name, &values)) {
            return Fail("env", "no variable " + name);
        }
        for (const std::string& value : values) {
            PrintLine(value);
        }
    } else if (action == "set") {
        if (!EnvironmentVariable::SetStringA(name, words[2], arguments.Has("create"))) {
            const char* hint = arguments.Has("create") ? "" : " (it doesn't exist: --create)";
            return Fail("env", "can't set " + name + hint);
        }
    } else if (!EnvironmentVariable::DeleteA(name)) {
        return Fail("env", "can't delete " + name);
    }
    return 0;
}

int Arguments(const ParsedArguments&) {
    CommandLine::StaticInit();
    const CommandLine* line = CommandLine::Get();
    std::vector<std::string> pairs;  // sorted, so that the output is stable
    for (auto pair = line->Begin(); pair != line->End(); ++pair) {
        pairs.push_back(pair->first + '\t' + pair->second);
    }
    CommandLine::StaticShutdown();
    std::sort(pairs.begin(), pairs.end());
    for (const std::string& pair : pairs) {
        PrintLine(pair);
    }
    return 0;
}

}  // namespace

void AddProcessCommands(std::vector<Command>* commands) {
    commands->push_back(
        {"env", "env get NAME | env array NAME | env set NAME VALUE [--create] | env delete NAME",
         "read, write and delete this process's environment variables",
         "get prints the value; array prints the value's \";\"-parted items, a line each,\n"
         "without empty ones; set changes a variable, and creates one only with --create\n"
         "(an empty value can't be set); delete removes it. zrk runs in a process of its\n"
         "own, so a change lasts only as long as the command.",
         {{"create", false}}, 2, 3, &Environment});
    commands->push_back(
        {"args", "args [WORDS...]",
         "the key and value pairs that zrk's own command line makes",
         "The whole command line counts, \"args\" included. A word that begins with \"/\"\n"
         "names a key (compared without regard to case) and the next word that doesn't is\n"
         "its value; a value before any key, such as \"args\" itself, belongs to the empty\n"
         "key. Prints \"key<TAB>value\" a line each, sorted.",
         {}, 0, static_cast<std::size_t>(-1), &Arguments});
}

}  // namespace zrk::tool
