// Pairing arguments into keys and values, and the keys' hash: any words pair
// without reading out of bounds, and keys that differ only in ASCII case hash
// alike, as the map's case-insensitive equality needs.
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "process/CommandLinePairs.h"

namespace {

struct KeyHash {
    std::size_t operator()(const std::string& key) const {
        return static_cast<std::size_t>(zrk::detail::CommandLineKeyHash(key));
    }
};
struct KeyEqual {
    bool operator()(const std::string& a, const std::string& b) const {
        if (a.size() != b.size()) {
            return false;
        }
        for (std::size_t index = 0; index < a.size(); ++index) {
            if (std::tolower(static_cast<unsigned char>(a[index])) !=
                std::tolower(static_cast<unsigned char>(b[index]))) {
                return false;
            }
        }
        return true;
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Words parted by zero bytes; each byte is one wide unit.
    std::vector<std::wstring> words(1);
    for (std::size_t index = 0; index < size; ++index) {
        if (data[index] == 0) {
            words.emplace_back();
        } else {
            words.back() += static_cast<wchar_t>(data[index]);
        }
    }
    std::vector<const wchar_t*> arguments;
    for (const std::wstring& word : words) {
        arguments.push_back(word.c_str());
    }
    arguments.push_back(nullptr);  // a null argument is skipped
    std::unordered_map<std::string, std::string, KeyHash, KeyEqual> pairs;
    zrk::detail::PairArguments(arguments.data(), static_cast<int>(arguments.size()), &pairs);

    std::string key(reinterpret_cast<const char*>(data), size), upper = key;
    for (char& c : upper) {
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    if (zrk::detail::CommandLineKeyHash(key) != zrk::detail::CommandLineKeyHash(upper)) {
        __builtin_trap();
    }
    return 0;
}
