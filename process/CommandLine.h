#pragma once

#include <string>
#include <unordered_map>

#include "frame/Export.h"

// The process's command line as pairs of a key and a value, UTF-8 encoded.
//
// An argument that begins with "/" names a key, and the next argument that
// does not is its value: "/in a.txt /out b.txt" gives in = a.txt and
// out = b.txt. A key without a value leaves no pair; values without a key
// fall on the empty key, the last one winning; empty arguments are skipped.
// "/" is the only mark of a key, and "=" or ":" inside one are ordinary
// characters. How blanks, quotes and backslashes split the command line is
// CommandLineToArgvW's business. Keys compare without regard to ASCII case
// (_stricmp); the first spelling of a key stays and a later value replaces
// the earlier one. Characters outside the 16-bit range come out as two
// three-byte groups (see text/Utf8.h).
//
// There is one instance per process, owned by the class: StaticInit and
// StaticShutdown count their calls, atomically, and the instance is parsed
// at the call that takes the count from 0 to 1 and deleted at the one that
// takes it from 1 to 0. Any thread may call them, but StaticShutdown must
// not run while another thread uses the instance. Reading the pairs from
// several threads is safe; nothing writes them after parsing.
class ZRK_API CommandLine {
public:
    // The key hash and equality of the pairs: case-insensitive.
    struct ZRK_API KeyHash {
        std::size_t operator()(const std::string& key) const;
    };
    struct ZRK_API KeyEqual {
        bool operator()(const std::string& a, const std::string& b) const;
    };
    using Pairs = std::unordered_map<std::string, std::string, KeyHash, KeyEqual>;

    // Counts a user of the instance and parses the command line for the
    // first. An allocation failure leaves no instance and the count raised.
    static void StaticInit();
    // Uncounts a user and deletes the instance with the last. A call without
    // a matching StaticInit takes the count below zero and deletes nothing;
    // the next StaticInit then only brings it back.
    static void StaticShutdown();
    // The instance, or null before the first StaticInit and after the last
    // StaticShutdown.
    static CommandLine* Get();

    // The pairs, in the map's own order (not the command line's).
    Pairs::iterator Begin();
    Pairs::const_iterator Begin() const;
    Pairs::iterator End();
    Pairs::const_iterator End() const;

    // A copy is independent of the instance: it outlives StaticShutdown and
    // the class does not know it.
    CommandLine(const CommandLine& other);
    CommandLine& operator=(const CommandLine& other);
    virtual ~CommandLine();

private:
    // Parses the process's command line (GetCommandLineW, CommandLineToArgvW).
    // A failure of the platform leaves no pair.
    CommandLine();

    Pairs m_pairs;

    static long s_refCount;
    static CommandLine* s_this;
};
