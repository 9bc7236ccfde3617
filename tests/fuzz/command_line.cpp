// Any words pair into keys and values without a bad read, and keys that
// differ only in ASCII case hash alike, as the map's equality needs.
#include <cctype>
#include <map>
#include <vector>

#include "Fuzz.h"
#include "process/CommandLinePairs.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Words parted by zero bytes; each byte is one wide unit.
    const std::wstring units(data, data + size);
    std::vector<const wchar_t*> arguments{units.c_str()};
    for (std::size_t index = 0; index < size; ++index) {
        if (data[index] == 0) {
            arguments.push_back(units.c_str() + index + 1);
        }
    }
    arguments.push_back(nullptr);  // a null argument is skipped
    std::map<std::string, std::string> pairs;
    zrk::detail::PairArguments(arguments.data(), static_cast<int>(arguments.size()), &pairs);

    const std::string key = InputText(data, size);
    std::string upper = key;
    for (char& c : upper) {
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    Require(zrk::detail::CommandLineKeyHash(key) == zrk::detail::CommandLineKeyHash(upper));
    return 0;
}
