#include "text/Token.h"

#include <windows.h>

#include <bcrypt.h>

#include <cstdint>

#include "text/TokenText.h"

namespace {

// One 32-bit value from the system's non-deterministic random source; the
// runtime of this toolchain has no random device of its own.
std::uint32_t RandomDevice() {
    std::uint32_t value = 0;
    BCryptGenRandom(nullptr, reinterpret_cast<PUCHAR>(&value), sizeof value,
                    BCRYPT_USE_SYSTEM_PREFERRED_RNG);
    return value;
}

}  // namespace

std::string MakeTokenA(unsigned long long length) {
    return zrk::detail::TokenFromSeed<char>(RandomDevice(), length);
}

std::wstring MakeTokenW(unsigned long long length) {
    return zrk::detail::TokenFromSeed<wchar_t>(RandomDevice(), length);
}
