// The "open" command parser (one template serves both widths): any template
// is parsed or refused, and a parsed program is a piece of the template.
#include "Fuzz.h"
#include "shell/CommandTemplate.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string narrow = InputText(data, size);
    std::string program = "kept", arguments = "kept";
    Require(!zrk::detail::ParseCommandTemplate(narrow, &program, &arguments) ||
            narrow.find(program) != std::string::npos);
    return 0;
}
