// Splitting a ";"-parted value and joining elements: no element is empty,
// and splitting what a join of split elements gives returns the same ones.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "process/EnvironmentArray.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> elements, again;
    zrk::detail::SplitArray(text, &elements);
    zrk::detail::SplitArray(zrk::detail::JoinArray(elements), &again);
    for (const std::string& element : elements) {
        if (element.empty() || element.find(';') != std::string::npos) {
            __builtin_trap();
        }
    }
    if (again != elements) {
        __builtin_trap();
    }
    return 0;
}
