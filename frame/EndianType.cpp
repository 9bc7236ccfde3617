#include "frame/EndianType.h"

namespace {

struct EndianText {
    const char* narrow;
    const wchar_t* wide;
};

// One row per enumerator, in value order, both widths side by side.
constexpr EndianText kEndianTexts[] = {
    {"UNDETERMINED", L"UNDETERMINED"},
    {"LittleEndian", L"LittleEndian"},
    {"BigEndian", L"BigEndian"},
};

const EndianText* FindEndianText(eEndianType type) {
    const unsigned index = static_cast<unsigned>(type);
    return index < sizeof(kEndianTexts) / sizeof(kEndianTexts[0]) ? &kEndianTexts[index]
                                                                  : nullptr;
}

}  // namespace

const char* eEndianType_ToStringA(eEndianType type) {
    const EndianText* row = FindEndianText(type);
    return row ? row->narrow : nullptr;
}

const wchar_t* eEndianType_ToStringW(eEndianType type) {
    const EndianText* row = FindEndianText(type);
    return row ? row->wide : nullptr;
}
