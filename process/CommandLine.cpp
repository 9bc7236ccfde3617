#include "process/CommandLine.h"

#include <windows.h>
#include <shellapi.h>

#include "frame/NoCopy.h"
#include "process/CommandLinePairs.h"

std::size_t CommandLine::KeyHash::operator()(const std::string& key) const {
    return zrk::detail::CommandLineKeyHash(key);
}

bool CommandLine::KeyEqual::operator()(const std::string& a, const std::string& b) const {
    return _stricmp(a.c_str(), b.c_str()) == 0;
}

namespace {

// The number of buckets the pairs start with.
constexpr std::size_t kInitialBuckets = 8;

// Owns the argument array that CommandLineToArgvW hands out.
class ArgumentArray : NoCopy {
public:
    ArgumentArray() : m_arguments(CommandLineToArgvW(GetCommandLineW(), &m_count)) {}
    ~ArgumentArray() { LocalFree(m_arguments); }

    const wchar_t* const* Arguments() const { return m_arguments; }
    int Count() const { return m_arguments != nullptr ? m_count : 0; }

private:
    int m_count = 0;  // stays 0 when the platform fails
    wchar_t** m_arguments;
};

}  // namespace

CommandLine::CommandLine() : m_pairs(kInitialBuckets) {
    m_pairs.max_load_factor(1.0f);
    const ArgumentArray arguments;
    zrk::detail::PairArguments(arguments.Arguments(), arguments.Count(), &m_pairs);
}

CommandLine::CommandLine(const CommandLine& other) : m_pairs(other.m_pairs) {}

CommandLine& CommandLine::operator=(const CommandLine& other) {
    if (this != &other) {
        m_pairs = other.m_pairs;
    }
    return *this;
}

CommandLine::~CommandLine() = default;

void CommandLine::StaticInit() {
    if (InterlockedIncrement(&s_refCount) == 1) {
        s_this = new CommandLine();
    }
}

void CommandLine::StaticShutdown() {
    if (InterlockedDecrement(&s_refCount) == 0) {
        delete s_this;
        s_this = nullptr;
    }
}

CommandLine* CommandLine::Get() { return s_this; }

CommandLine::Pairs::iterator CommandLine::Begin() { return m_pairs.begin(); }
CommandLine::Pairs::const_iterator CommandLine::Begin() const { return m_pairs.begin(); }
CommandLine::Pairs::iterator CommandLine::End() { return m_pairs.end(); }
CommandLine::Pairs::const_iterator CommandLine::End() const { return m_pairs.end(); }
