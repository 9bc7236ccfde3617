// zrk mime and zrk open: shell associations and opening files by MIME type.
#include <zrkCore.h>

#include <string>
#include <vector>

#include "tool/Command.h"

namespace zrk::tool {
namespace {

int Mime(const ParsedArguments& arguments) {
    const std::string& type = arguments.positional[0];
    std::string extension, command, program, parameters;
    if (!zrkMimeTypeToExtensionA(type, &extension)) {
        return Fail("mime", "no extension is registered for " + type);
    }
    PrintLine("extension\t" + extension);
    if (!zrkOpenVerbTemplateFromExtensionA(extension, &command)) {
        return Fail("mime", "no \"open\" command is registered for " + extension);
    }
    PrintLine("command\t" + command);
    if (zrkParseCommandTemplateA(command, &program, &parameters)) {
        PrintLine("program\t" + program);
        PrintLine("arguments\t" + parameters);
    }
    return 0;
}

int Open(const ParsedArguments& arguments) {
    const std::string& file = arguments.positional[1];
    if (!zrkOpenFileByMimeTypeA(arguments.positional[0], file.c_str(),
                                !arguments.Has("no-fallback"))) {
        return Fail("open", "can't open " + file + " as " + arguments.positional[0]);
    }
    return 0;
}

}  // namespace

void AddShellCommands(std::vector<Command>* commands) {
    commands->push_back(
        {"mime", "mime TYPE",
         "a MIME type's extension, its \"open\" command, program and arguments",
         "Prints \"extension\", \"command\", \"program\" and \"arguments\" lines, each name and\n"
         "value parted by a tab, as far as the registry has them.",
         {}, 1, 1, &Mime});
    commands->push_back(
        {"open", "open TYPE FILE [--no-fallback]",
         "open FILE with the program registered for a MIME type",
         "Starts the \"open\" command of the extension registered for TYPE with FILE in\n"
         "quotes. Where that can't be done the shell is asked to open FILE itself (\"open\",\n"
         "then \"openas\"), unless --no-fallback is given. The program runs on its own;\n"
         "zrk does not wait for it.",
         {{"no-fallback", false}}, 2, 2, &Open});
}

}  // namespace zrk::tool
