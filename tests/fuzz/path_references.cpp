// %NAME% expansion: with variables that refer to each other and to
// themselves, the expansion always ends, and a text it calls done stays
// within the platform's longest path.
#include <map>
#include <sstream>

#include "Fuzz.h"
#include "filesystem/PathText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The input is "text\nA=value\nB=value..." (the first line is the text).
    std::istringstream lines(InputText(data, size));
    std::string text, line;
    std::getline(lines, text);
    std::map<std::string, std::string> variables;
    while (std::getline(lines, line)) {
        const std::size_t equals = line.find('=');
        if (equals != std::string::npos) {
            variables[line.substr(0, equals)] = line.substr(equals + 1);
        }
    }
    const auto lookup = [&variables](const std::string& name, std::string* value) {
        const auto found = variables.find(name);
        return !name.empty() && found != variables.end() && (*value = found->second, true);
    };
    zrk::detail::RewriteSeparators(text);
    Require(!zrk::detail::ExpandReferences(text, lookup) ||
            text.size() <= zrk::detail::kMaxExpandedLength);
    return 0;
}
