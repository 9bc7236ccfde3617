#pragma once

#include <string>

#include "frame/Export.h"

// Conversions between encodings through the platform's code pages
// (MultiByteToWideChar and WideCharToMultiByte, with the flags that make them
// reject invalid input).
//
// Each answers an empty string for empty input, without a platform call, and
// also for any input the platform rejects: there is no partial result, so an
// empty answer for a non-empty text always means failure. Nothing is thrown
// except the allocation exception. Zero units inside a text convert like any
// other. A text longer than the platform's 32-bit length (2^31 - 1 units) is
// refused with an empty result.
//
// Stateless; any thread may call them at any time.

// UTF-8 to UTF-16. An invalid byte anywhere gives an empty result.
ZRK_API std::wstring ConvertString_UTF8_to_UTF16(const std::string& text);

// UTF-16 to UTF-8; a character outside the 16-bit range (a surrogate pair)
// becomes four bytes. A lone surrogate gives an empty result.
ZRK_API std::string ConvertString_UTF16_to_UTF8(const std::wstring& text);

// US-ASCII (code page 20127) to UTF-16, despite the name: the result is wide
// text, not UTF-8.
ZRK_API std::wstring ConvertString_ASCII_to_UTF8(const std::string& text);

// ISO 8859-1 (code page 28591) to UTF-16, despite the name: byte 0xE9 becomes
// the one unit 0x00E9.
ZRK_API std::wstring ConvertString_LATIN1_to_UTF8(const std::string& text);
