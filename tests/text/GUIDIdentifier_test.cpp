#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/Text.h"
#include "zrkCore.h"

namespace {

using Id = GUIDIdentifier;

// Round trips through both widths and cases; text that is no identifier
// (braces, a digit over, a zero inside, empty, null) gives zero, which is
// one object with the identity.
TEST(GUIDIdentifierTest, TextFormsRoundTripAndBadTextGivesZero) {
    const Id id, other;
    const std::string lower = id.ToStringA(false), upper = id.ToStringA(true);
    EXPECT_TRUE(id != other && !id.IsZero() && lower.size() == 36 &&
                _stricmp(lower.c_str(), upper.c_str()) == 0 &&
                lower.find_first_of("ABCDEF") == std::string::npos &&
                upper.find_first_of("abcdef") == std::string::npos);
    EXPECT_TRUE(id.ToStringW(true) == Text<wchar_t>(upper) &&
                id.ToStringW(false) == Text<wchar_t>(lower) && Id(upper).ToStringA(false) == lower);
    EXPECT_TRUE(Id(upper) == id && Id(lower.c_str()) == id && Id(Text<wchar_t>(upper)) == id &&
                Id(Text<wchar_t>(lower).c_str()) == id);
    EXPECT_TRUE(Id("{" + lower + "}").IsZero() && Id(lower + '\0').IsZero() &&
                Id(Text<wchar_t>(lower + '\0')).IsZero() && Id(lower + "0").IsIdentity() &&
                Id(std::wstring()).IsZero() && Id(static_cast<const char*>(nullptr)).IsZero());
    EXPECT_TRUE(&Id::Zero() == &Id::Identity() && &Id::ZeroStrA() == &Id::IdentityStrA() &&
                &Id::ZeroStrW() == &Id::IdentityStrW() && Id::Zero().ToStringW(true) == Id::ZeroStrW());
}

// Field by field, unsigned; in the first pair the blocks, compared byte by
// byte in memory, say the opposite. Copies have blocks of their own.
TEST(GUIDIdentifierTest, OrdersFieldByFieldAndCopiesOwnTheirBlocks) {
    const Id rows[][2] = {
        {Id("00000002-ffff-ffff-ffff-ffffffffffff"), Id("00000100-0000-0000-0000-000000000000")},
        {Id("00000000-7fff-0000-0000-000000000000"), Id("00000000-8000-0000-0000-000000000000")}};
    for (const auto& row : rows) {
        const Id &a = row[0], &b = row[1];
        EXPECT_TRUE(a < b && a <= b && a <= a && b > a && b >= a && b >= b && a != b &&
                    !(a == b) && !(b < a));
    }
    Id copy(rows[0][0]), assigned;
    const unsigned char* const before = Id::Crc32HashPtr(assigned);
    assigned = copy;
    EXPECT_NE(Id::Crc32HashPtr(assigned), before);
    assigned = assigned;
    EXPECT_TRUE(Id::Crc32HashPtr(copy) != Id::Crc32HashPtr(rows[0][0]) && assigned == copy &&
                std::memcmp(Id::Crc32HashPtr(assigned), Id::Crc32HashPtr(rows[0][1]), 16) > 0 &&
                Id::Crc32HashSize(copy) == Id::sc_size && Id::sc_size == 16);
}

}  // namespace
