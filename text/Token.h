#pragma once

#include <string>

#include "frame/Export.h"

// Random tokens of digits and Latin letters ("0"-"9", "A"-"Z", "a"-"z", each
// equally likely at every position).
//
// Each call takes one 32-bit seed from the system's random source
// (BCryptGenRandom), seeds an MT19937 generator of its own with it and draws
// the symbols from consecutive outputs, so a token of a given length is a
// function of its seed: there are at most 2^32 of each length. Good for
// names that must not collide by accident, not for secrets.
//
// A length the string cannot hold throws std::length_error("string too
// long") before anything is drawn; allocation failure throws
// std::bad_alloc. Length 0 gives an empty string (the source is still read).
//
// No shared state: any thread may call at any time.
ZRK_API std::string MakeTokenA(unsigned long long length);
ZRK_API std::wstring MakeTokenW(unsigned long long length);
