#pragma once

// Array values in the environment: one string whose elements are separated
// by ";". Pure text work over either character width; no platform calls, so
// this can be built and fuzzed anywhere.

#include <string>
#include <vector>

namespace zrk {
namespace detail {

template <class Ch>
struct ArraySeparator;
template <>
struct ArraySeparator<char> {
    static constexpr char value = ';';
};
template <>
struct ArraySeparator<wchar_t> {
    static constexpr wchar_t value = L';';
};

// Appends the elements of `text` to `out`. Empty elements are dropped, so
// leading, trailing and doubled separators leave nothing behind; nothing is
// trimmed.
template <class Ch>
void SplitArray(const std::basic_string<Ch>& text, std::vector<std::basic_string<Ch>>* out) {
    typename std::basic_string<Ch>::size_type start = 0;
    while (start < text.size()) {
        auto end = text.find(ArraySeparator<Ch>::value, start);
        if (end == std::basic_string<Ch>::npos) {
            end = text.size();
        }
        if (end > start) {
            out->push_back(text.substr(start, end - start));
        }
        start = end + 1;
    }
}

// The elements in order with ";" between them. Empty elements keep their
// place (as doubled separators) and a ";" inside an element is not escaped.
template <class Ch>
std::basic_string<Ch> JoinArray(const std::vector<std::basic_string<Ch>>& values) {
    std::basic_string<Ch> joined;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i != 0) {
            joined += ArraySeparator<Ch>::value;
        }
        joined += values[i];
    }
    return joined;
}

}  // namespace detail
}  // namespace zrk
