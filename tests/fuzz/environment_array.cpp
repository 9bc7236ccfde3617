// Splitting a ";"-parted value and joining elements: no element is empty,
// and splitting what a join of split elements gives returns the same ones.
#include <vector>

#include "Fuzz.h"
#include "process/EnvironmentArray.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::string> elements, again;
    zrk::detail::SplitArray(InputText(data, size), &elements);
    zrk::detail::SplitArray(zrk::detail::JoinArray(elements), &again);
    for (const std::string& element : elements) {
        Require(!element.empty() && element.find(';') == std::string::npos);
    }
    Require(again == elements);
    return 0;
}
