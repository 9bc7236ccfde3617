#pragma once

#include <climits>

// The exported interface is written with the plain C++ integer types and
// relies on the Windows x64 widths for them. Any toolchain that disagrees
// cannot build a binary-compatible zrkCore, so it fails here.
static_assert(sizeof(bool) == 1, "bool is one byte");
static_assert(sizeof(int) == 4 && sizeof(unsigned int) == 4, "int is 32 bits");
static_assert(sizeof(long) == 4 && sizeof(unsigned long) == 4, "long is 32 bits");
static_assert(sizeof(long long) == 8 && sizeof(unsigned long long) == 8,
              "long long is 64 bits");
static_assert(sizeof(void*) == 8, "pointers are 64 bits");
static_assert(sizeof(wchar_t) == 2, "wchar_t is the 16-bit UTF-16 code unit");
static_assert(CHAR_BIT == 8, "bytes are 8 bits");
