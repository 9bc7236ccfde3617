#pragma once

// Text in either width for tests that run over both. No platform header, so
// the native tests use it too.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <type_traits>

template <class Ch>
using String = std::basic_string<Ch>;

// ASCII text in width Ch, unit by unit; zero units inside a string survive.
template <class Ch, class In>
String<Ch> Text(const std::basic_string<In>& ascii) {
    String<Ch> out;
    for (In c : ascii) {
        out += static_cast<Ch>(c);
    }
    return out;
}
template <class Ch, class In>
String<Ch> Text(const In* ascii) {
    return Text<Ch>(std::basic_string<In>(ascii));
}

// Of a pair of twins (functions, entry names, classes' objects), the one of
// width Ch.
template <class Ch, class A, class W>
auto Pick(A narrow, W wide) {
    return std::get<std::is_same<Ch, wchar_t>::value>(std::make_tuple(narrow, wide));
}

// Declares `Suite` as a typed test suite that runs each of its TYPED_TESTs
// twice, with TypeParam char and with TypeParam wchar_t.
using BothWidths = ::testing::Types<char, wchar_t>;
#define ZRK_TEST_SUITE_OVER_BOTH_WIDTHS(Suite)   \
    template <class Ch>                          \
    class Suite : public ::testing::Test {};     \
    TYPED_TEST_SUITE(Suite, BothWidths)
