#include "text/StringConversion.h"

#include <windows.h>

#include <climits>

namespace {

// Code page 20127 and 28591 have no names in the platform headers.
constexpr UINT kUsAscii = 20127;
constexpr UINT kLatin1 = 28591;

// The steps every conversion shares: measure, allocate exactly, convert, and
// keep the result only when both answers agree. `platform(buffer, size)`
// makes the one platform call, a measurement when buffer is null.
template <class Out, class In, class Platform>
Out Convert(const In& text, Platform platform) {
    if (text.empty() || text.size() > static_cast<std::size_t>(INT_MAX)) {
        return Out();
    }
    const int size = platform(nullptr, 0);
    if (size <= 0) {
        return Out();
    }
    Out result(static_cast<std::size_t>(size), typename Out::value_type());
    if (platform(&result[0], size) != size) {
        return Out();
    }
    return result;
}

std::wstring Widen(UINT codePage, const std::string& text) {
    return Convert<std::wstring>(text, [&](wchar_t* buffer, int size) {
        return MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, text.data(),
                                   static_cast<int>(text.size()), buffer, size);
    });
}

}  // namespace

std::wstring ConvertString_UTF8_to_UTF16(const std::string& text) {
    return Widen(CP_UTF8, text);
}

std::string ConvertString_UTF16_to_UTF8(const std::wstring& text) {
    return Convert<std::string>(text, [&](char* buffer, int size) {
        return WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text.data(),
                                   static_cast<int>(text.size()), buffer, size, nullptr,
                                   nullptr);
    });
}

std::wstring ConvertString_ASCII_to_UTF8(const std::string& text) {
    return Widen(kUsAscii, text);
}

std::wstring ConvertString_LATIN1_to_UTF8(const std::string& text) {
    return Widen(kLatin1, text);
}
