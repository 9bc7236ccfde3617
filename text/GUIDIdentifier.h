#pragma once

#include <string>

#include "frame/Export.h"

// A 128-bit globally unique identifier as a value: made new, parsed from its
// text, printed in either case, compared in the platform's order, copied and
// hashed. The platform's UUID functions do all the work on the value.
//
// The object is one pointer wide: the value lives in a 16-byte block on the
// heap that the object alone owns, in the platform's record layout (a 32-bit
// field, two 16-bit fields, then 8 bytes). Every object, copy and assignment
// costs one allocation of that block.
//
// Text that is not an identifier (anything but 36 characters in the groups
// 8-4-4-4-12 of hexadecimal digits joined by hyphens, either case, no braces;
// a null pointer; a string holding a zero character) raises nothing: the
// object then holds the zero identifier, since its block starts zeroed and
// the platform writes it only for a well-formed text.
//
// Threads: a plain value without a lock. Const operations may run at once
// on one object; assignment replaces the block, so nothing else may use the
// target meanwhile. Zero() and its texts are constant from load to unload.
class ZRK_API GUIDIdentifier {
public:
    // The size of the value in bytes.
    static const unsigned long long sc_size = 16;

    // A new identifier from the platform (UuidCreate), never the zero one.
    GUIDIdentifier();
    // Parses the text; see above for text that does not parse.
    explicit GUIDIdentifier(const char* text);
    explicit GUIDIdentifier(const std::string& text);
    explicit GUIDIdentifier(const wchar_t* text);
    explicit GUIDIdentifier(const std::wstring& text);
    // A new block with the same 16 bytes.
    GUIDIdentifier(const GUIDIdentifier& other);
    // Frees the target's block and gives it a new one with the source's
    // bytes; an object assigned to itself keeps its value.
    GUIDIdentifier& operator=(const GUIDIdentifier& other);
    ~GUIDIdentifier();

    // The 36-character text, lower case unless `upperCase`; empty if the
    // platform cannot print it.
    std::string ToStringA(bool upperCase) const;
    std::wstring ToStringW(bool upperCase) const;

    // The platform's order (UuidCompare): the 32-bit field, then the two
    // 16-bit fields, all unsigned, then the 8 bytes in order. Not the order
    // of a byte-wise comparison of the blocks.
    bool operator==(const GUIDIdentifier& other) const;
    bool operator!=(const GUIDIdentifier& other) const;
    bool operator<(const GUIDIdentifier& other) const;
    bool operator<=(const GUIDIdentifier& other) const;
    bool operator>(const GUIDIdentifier& other) const;
    bool operator>=(const GUIDIdentifier& other) const;

    // Equal to the zero identifier. The zero identifier is also the
    // identity: the two names are one test, one object and one text each.
    bool IsZero() const;
    bool IsIdentity() const;
    static const GUIDIdentifier& Zero();
    static const GUIDIdentifier& Identity();
    static const std::string& ZeroStrA();
    static const std::string& IdentityStrA();
    static const std::wstring& ZeroStrW();
    static const std::wstring& IdentityStrW();

    // The bytes of the value as stored, for a CRC-32 of the caller's: the
    // address of the object's block (valid until the next assignment to it
    // or its end) and its size, sc_size.
    static const unsigned char* Crc32HashPtr(const GUIDIdentifier& id);
    static unsigned long long Crc32HashSize(const GUIDIdentifier& id);

private:
    // -1, 0 or 1, from UuidCompare.
    int Compare(const GUIDIdentifier& other) const;

    // Built at load from the zero text, in this order (see zrkCore.cpp).
    static const GUIDIdentifier s_zero;
    static const std::string s_zeroText;
    static const std::wstring s_zeroTextW;

    unsigned char* m_block;
};
