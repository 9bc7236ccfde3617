#pragma once

// The text steps of path normalisation: separator rewriting, the expansion
// of %NAME% references, and the split of a full path into its folder part.
// Pure functions over either character width; the variable lookup comes in
// as a callable, so nothing here calls the platform.

#include <string>

namespace zrk {
namespace detail {

template <class Ch>
struct PathLiterals;
template <>
struct PathLiterals<char> {
    static constexpr char kSlash = '/';
    static constexpr char kBackslash = '\\';
    static constexpr char kPercent = '%';
    static constexpr const char* kFakeFile = "/fake.file";
};
template <>
struct PathLiterals<wchar_t> {
    static constexpr wchar_t kSlash = L'/';
    static constexpr wchar_t kBackslash = L'\\';
    static constexpr wchar_t kPercent = L'%';
    static constexpr const wchar_t* kFakeFile = L"/fake.file";
};

// A reference chain that refers to itself never settles. The expansion
// gives up after this many replacements, or when a replacement would make
// the text longer than the longest path the platform accepts.
constexpr unsigned kMaxReferenceReplacements = 256;
constexpr std::size_t kMaxExpandedLength = 32767;

// Every "/" becomes "\". Repeated separators, "." and ".." stay.
template <class Ch>
void RewriteSeparators(std::basic_string<Ch>& text) {
    for (Ch& c : text) {
        if (c == PathLiterals<Ch>::kSlash) {
            c = PathLiterals<Ch>::kBackslash;
        }
    }
}

// Replaces each %NAME% whose name `lookup(name, &value)` finds by its value
// and rescans the text from its beginning, so references inside values
// expand too. A reference that is not found stays, and the scan resumes
// behind its closing "%"; a lone "%" ends the expansion. "%%" names the
// empty variable, which the lookup is expected not to find.
//
// Returns false, with `text` in an unspecified state, when a bound above is
// reached; true otherwise.
template <class Ch, class Lookup>
bool ExpandReferences(std::basic_string<Ch>& text, Lookup&& lookup) {
    using String = std::basic_string<Ch>;
    typename String::size_type scan = 0;
    unsigned replacements = 0;
    while (scan < text.size()) {
        const auto open = text.find(PathLiterals<Ch>::kPercent, scan);
        if (open == String::npos) {
            break;
        }
        const auto close = text.find(PathLiterals<Ch>::kPercent, open + 1);
        if (close == String::npos) {
            break;
        }
        const auto referenceLength = close - open + 1;
        String value;
        if (!lookup(text.substr(open + 1, referenceLength - 2), &value)) {
            scan = close + 1;
            continue;
        }
        if (++replacements > kMaxReferenceReplacements ||
            text.size() - referenceLength + value.size() > kMaxExpandedLength) {
            return false;
        }
        text.replace(open, referenceLength, value);
        scan = 0;
    }
    return true;
}

// The folder part of the full path `full`, given the position at which its
// final component starts: the text up to that position, which ends in the
// separator before the component. A path that ends in a separator has no
// final component; `finalComponent` is then npos (or any position at or
// behind the end) and the folder part is the whole path.
template <class Ch>
std::basic_string<Ch> FolderPart(const std::basic_string<Ch>& full, std::size_t finalComponent) {
    return finalComponent < full.size() ? full.substr(0, finalComponent) : full;
}

}  // namespace detail
}  // namespace zrk
