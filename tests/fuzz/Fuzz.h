#pragma once

// What every fuzz target needs: its input as text, and a check that ends the
// run (libFuzzer keeps the input) when a property fails.
#include <cstddef>
#include <cstdint>
#include <string>

inline std::string InputText(const std::uint8_t* data, std::size_t size) {
    return std::string(reinterpret_cast<const char*>(data), size);
}

inline void Require(bool property) {
    if (!property) {
        __builtin_trap();
    }
}
