// The "open" command parser, in both widths: any template is parsed or
// refused, and a parsed program is a piece of the template.
#include <cstddef>
#include <cstdint>
#include <string>

#include "shell/CommandTemplate.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string narrow(reinterpret_cast<const char*>(data), size);
    std::string program = "kept", arguments = "kept";
    if (zrk::detail::ParseCommandTemplate(narrow, &program, &arguments) &&
        narrow.find(program) == std::string::npos) {
        __builtin_trap();
    }
    const std::wstring wide(narrow.begin(), narrow.end());
    std::wstring wideProgram, wideArguments;
    zrk::detail::ParseCommandTemplate(wide, &wideProgram, &wideArguments);
    return 0;
}
