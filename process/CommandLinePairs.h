#pragma once

// The steps of CommandLine that need no platform: the hash of its keys, and
// pairing the arguments into keys and values. Pure functions.

#include <cctype>
#include <cstddef>
#include <string>

#include "text/Utf8.h"

namespace zrk {
namespace detail {

// FNV-1a style hash over a sample of the key, case-folded to match the keys'
// case-insensitive equality: every byte of a key under 10 bytes, and at most
// ten bytes of a longer one (indices 0, stride, 2 * stride, ... with stride
// length / 10 + 1). Keys whose sampled bytes agree hash alike; equality
// tells them apart.
inline unsigned long long CommandLineKeyHash(const std::string& key) {
    unsigned long long hash = 2166136261ULL;
    const std::size_t stride = key.size() / 10 + 1;
    for (std::size_t at = 0; at < key.size(); at += stride) {
        // tolower of the byte read as a signed char, widened with its sign.
        // The C runtime's tolower decides what a byte of 0x80 or more (a
        // negative value here) becomes: msvcrt gives it back unchanged.
        const int folded = std::tolower(static_cast<signed char>(key[at]));
        hash = (hash * 16777619ULL) ^ static_cast<unsigned long long>(static_cast<long long>(folded));
    }
    return hash;
}

// Pairs the arguments [1, count) of `arguments` (index 0, the program, is not
// read) into `pairs`, a map from narrow key to narrow value whose own
// equality decides which keys are the same:
//  - a null or empty argument is skipped;
//  - an argument that begins with "/" makes the rest of it the pending key,
//    replacing any pending key ("/" alone makes it empty);
//  - any other argument is the value of the pending key: the entry of an
//    equal key is found or made (a new key keeps this spelling, a found one
//    keeps its first), its value is replaced, and the pending key becomes
//    empty again;
//  - a key still pending at the end is dropped.
// Text is converted with WideToUtf8.
template <class Map>
void PairArguments(const wchar_t* const* arguments, int count, Map* pairs) {
    std::string pending;
    for (int i = 1; i < count; ++i) {
        const wchar_t* argument = arguments[i];
        if (argument == nullptr || argument[0] == L'\0') {
            continue;
        }
        if (argument[0] == L'/') {
            pending = WideToUtf8(argument + 1);
        } else {
            (*pairs)[pending] = WideToUtf8(argument);
            pending.clear();
        }
    }
}

}  // namespace detail
}  // namespace zrk
