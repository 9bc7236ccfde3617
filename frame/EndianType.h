#pragma once

#include "frame/Export.h"

// Byte order of a machine or of data. The enumerators are named after their
// texts.
enum eEndianType {
    UNDETERMINED = 0,
    LittleEndian = 1,
    BigEndian = 2,
};

// The fixed name of an endian value ("UNDETERMINED", "LittleEndian",
// "BigEndian"). The text is static and must not be freed. A value outside
// the enumeration gives null. Any thread, any time.
ZRK_API const char* eEndianType_ToStringA(eEndianType type);
ZRK_API const wchar_t* eEndianType_ToStringW(eEndianType type);
