// Putting a file into a command's arguments: the result never grows beyond
// the arguments plus one quoted path for every two characters of them, so a
// path that holds a pattern can't make the passes run on.
#include <cstddef>
#include <cstdint>
#include <string>

#include "shell/ArgumentSubstitution.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The input is "arguments\0path"; the path holds no zero byte.
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t split = input.find('\0');
    std::string arguments = input.substr(0, split);
    const std::string path = split == std::string::npos ? "" : input.c_str() + split + 1;
    const std::string quoted = zrk::detail::QuotePath(path.c_str());
    const std::size_t limit = arguments.size() + 1 + quoted.size() * (arguments.size() / 2 + 1);
    zrk::detail::PutFileIntoArguments(arguments, quoted);
    if (arguments.size() > limit) {
        __builtin_trap();
    }
    return 0;
}
