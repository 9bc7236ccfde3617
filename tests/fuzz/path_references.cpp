// %NAME% expansion: with variables that refer to each other and to
// themselves, the expansion always ends, and a text it calls done stays
// within the platform's longest path.
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "filesystem/PathText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The input is "text\nA=value\nB=value..." (the first line is the text).
    const std::string input(reinterpret_cast<const char*>(data), size);
    std::size_t end = input.find('\n');
    std::string text = input.substr(0, end);
    std::map<std::string, std::string> variables;
    while (end != std::string::npos) {
        const std::size_t start = end + 1;
        end = input.find('\n', start);
        const std::string line = input.substr(start, end - start);
        const std::size_t equals = line.find('=');
        if (equals != std::string::npos) {
            variables[line.substr(0, equals)] = line.substr(equals + 1);
        }
    }
    const auto lookup = [&variables](const std::string& name, std::string* value) {
        const auto found = variables.find(name);
        if (name.empty() || found == variables.end()) {
            return false;
        }
        *value = found->second;
        return true;
    };
    zrk::detail::RewriteSeparators(text);
    if (zrk::detail::ExpandReferences(text, lookup) &&
        text.size() > zrk::detail::kMaxExpandedLength) {
        __builtin_trap();
    }
    return 0;
}
