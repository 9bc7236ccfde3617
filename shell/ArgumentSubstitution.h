#pragma once

// Putting a file into the arguments of a shell command template: the quoted
// form of the file's path, and the passes that replace the template's file
// patterns (%1, %L, %l, bare or quoted) by it. Pure text work over either
// character width; nothing here calls the platform.

#include <string>
#include <vector>

#include "shell/CommandTemplate.h"

namespace zrk {
namespace detail {

template <class Ch>
struct SubstitutionLiterals;
template <>
struct SubstitutionLiterals<char> : CommandTemplateLiterals<char> {
    // In the order of the passes. A quoted pattern's quotes are part of the
    // match, so a place the template quoted does not end up quoted twice.
    static constexpr const char* kPatterns[6] = {"\"%1\"", "%1", "\"%L\"", "%L", "\"%l\"", "%l"};
};
template <>
struct SubstitutionLiterals<wchar_t> : CommandTemplateLiterals<wchar_t> {
    static constexpr const wchar_t* kPatterns[6] = {L"\"%1\"", L"%1", L"\"%L\"",
                                                    L"%L",     L"\"%l\"", L"%l"};
};

// The path in quotes. A path that already opens with a quote is taken as
// quoted and copied as it is, whether or not a quote closes it; nothing is
// escaped or checked. The empty path gives two quotes.
template <class Ch>
std::basic_string<Ch> QuotePath(const Ch* filePath) {
    constexpr Ch quote = SubstitutionLiterals<Ch>::kQuote;
    if (filePath[0] == quote) {
        return filePath;
    }
    std::basic_string<Ch> quoted(1, quote);
    quoted += filePath;
    quoted += quote;
    return quoted;
}

// Replaces the file patterns in `arguments` by `quotedPath`: six passes in
// the order of kPatterns, each replacing every occurrence of its pattern from
// left to right, exactly and case-sensitively; any other text, other
// %-forms included, stays. When no pass replaced anything, one blank and the
// quoted path are appended (empty arguments then start with the blank).
//
// A path that itself holds a pattern (a file named "%1.txt") must neither
// make the passes run on nor end up rewritten. So a match only counts where
// its "%" and its letter or digit both come from the template's own text:
// text a pass put in is never taken for a pattern again, by that pass or a
// later one. The quotes of a quoted pattern may still be the quotes that
// close or open an inserted path, as the plain rule has it. For every path
// without "%1", "%L" or "%l" in it this is exactly the plain rule (only a
// path the caller quoted and that ends in "%" could otherwise lend its last
// character to a pattern); the result is never longer than the arguments
// plus one quoted path for every two characters of them.
template <class Ch>
void PutFileIntoArguments(std::basic_string<Ch>& arguments,
                          const std::basic_string<Ch>& quotedPath) {
    using Literals = SubstitutionLiterals<Ch>;
    using String = std::basic_string<Ch>;

    // inserted[i]: arguments[i] came from quotedPath.
    std::vector<bool> inserted(arguments.size(), false);
    bool replacedAny = false;
    for (const Ch* pattern : Literals::kPatterns) {
        const String patternText(pattern);
        const std::size_t length = patternText.size();
        const std::size_t core = patternText[0] == Literals::kQuote ? 1 : 0;
        String out;
        std::vector<bool> outInserted;
        std::size_t i = 0;
        while (i < arguments.size()) {
            if (arguments.compare(i, length, patternText) == 0 && !inserted[i + core] &&
                !inserted[i + core + 1]) {
                out += quotedPath;
                outInserted.insert(outInserted.end(), quotedPath.size(), true);
                i += length;
                replacedAny = true;
            } else {
                out += arguments[i];
                outInserted.push_back(inserted[i]);
                ++i;
            }
        }
        arguments.swap(out);
        inserted.swap(outInserted);
    }
    if (!replacedAny) {
        arguments += Literals::kBlank;
        arguments += quotedPath;
    }
}

}  // namespace detail
}  // namespace zrk
