#pragma once

// Cutting a shell command template ("C:\v.exe" "%1") into its program and
// its arguments. Pure text work over either character width: nothing here
// calls the platform, so it builds and runs anywhere.

#include <string>

namespace zrk {
namespace detail {

template <class Ch>
struct CommandTemplateLiterals;
template <>
struct CommandTemplateLiterals<char> {
    static constexpr char kQuote = '"';
    static constexpr char kBlank = ' ';
};
template <>
struct CommandTemplateLiterals<wchar_t> {
    static constexpr wchar_t kQuote = L'"';
    static constexpr wchar_t kBlank = L' ';
};

// A template that opens with a quote names its program up to the next quote
// (both quotes stay in *program); any other template names it up to its
// first blank. The search for that end starts at index 1, so a leading blank
// belongs to the program. The one character behind the program is a
// separator and is dropped whatever it is; everything after it becomes
// *arguments.
//
// Neither output is cleared beforehand: a template without arguments leaves
// *arguments as the caller filled it. A quote at the head that nothing closes
// gives false and changes neither output; every other template gives true,
// the empty one included (with an empty *program).
template <class Ch>
bool ParseCommandTemplate(const std::basic_string<Ch>& commandTemplate,
                          std::basic_string<Ch>* program, std::basic_string<Ch>* arguments) {
    using Literals = CommandTemplateLiterals<Ch>;
    using String = std::basic_string<Ch>;

    const bool quoted = !commandTemplate.empty() && commandTemplate[0] == Literals::kQuote;
    // find() starting past the end (the empty template) answers npos.
    typename String::size_type end =
        commandTemplate.find(quoted ? Literals::kQuote : Literals::kBlank, 1);
    if (end == String::npos) {
        if (quoted) {
            return false;
        }
        *program = commandTemplate;
        return true;
    }
    if (quoted) {
        ++end;  // keep the closing quote with the program
    }
    *program = commandTemplate.substr(0, end);
    if (end + 1 < commandTemplate.size()) {
        *arguments = commandTemplate.substr(end + 1);
    }
    return true;
}

}  // namespace detail
}  // namespace zrk
