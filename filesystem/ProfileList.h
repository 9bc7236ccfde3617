#pragma once

// The list form in which the platform's profile functions hand out section
// and key names: each name followed by a zero unit, and one more zero unit
// after the last ("a\0b\0\0"). Pure logic over either character width;
// nothing here calls the platform.

#include <cstddef>

namespace zrk {
namespace detail {

// Calls `visit(name, length)` for each name of the list in [begin, end), in
// order. A name runs to its zero unit; a name of length 0 ends the list, also
// the very first, so an empty list and a list cut right behind a name both
// end there. The walk never reads at or past `end`: a name that reaches
// `end` without a zero unit (which the profile functions never leave in a
// zero-filled buffer) is visited as far as it goes, and ends the list.
template <class Ch, class Visit>
void ForEachListName(const Ch* begin, const Ch* end, Visit&& visit) {
    const Ch* name = begin;
    while (name < end && *name != Ch(0)) {
        const Ch* stop = name;
        while (stop < end && *stop != Ch(0)) {
            ++stop;
        }
        visit(name, static_cast<std::size_t>(stop - name));
        if (stop == end) {
            break;
        }
        name = stop + 1;
    }
}

}  // namespace detail
}  // namespace zrk
