#include "text/GUIDIdentifier.h"

#include <windows.h>

#include <rpc.h>

#include <cctype>
#include <cwctype>
#include <string>

#include "frame/EmbeddedNul.h"

namespace {

// A zeroed block, so that text the platform does not parse leaves zero.
unsigned char* NewBlock() { return reinterpret_cast<unsigned char*>(new UUID()); }

UUID* Record(unsigned char* block) { return reinterpret_cast<UUID*>(block); }

// The platform's text of `record` in the width of `toText`'s text, which
// `freeText` gives back; empty if the platform fails.
template <class Ch, class Text, class ToText, class FreeText>
std::basic_string<Ch> Print(UUID* record, bool upperCase, ToText toText, FreeText freeText,
                            int (*upper)(int)) {
    Text text = nullptr;
    if (toText(record, &text) != RPC_S_OK) {
        return std::basic_string<Ch>();
    }
    std::basic_string<Ch> result(reinterpret_cast<const Ch*>(text));
    freeText(&text);
    if (upperCase) {
        for (Ch& c : result) {
            c = static_cast<Ch>(upper(c));
        }
    }
    return result;
}

int UpperNarrow(int c) { return std::toupper(static_cast<unsigned char>(c)); }
int UpperWide(int c) { return static_cast<int>(std::towupper(static_cast<wint_t>(c))); }

}  // namespace

const unsigned long long GUIDIdentifier::sc_size;

GUIDIdentifier::GUIDIdentifier() : m_block(NewBlock()) { UuidCreate(Record(m_block)); }

GUIDIdentifier::GUIDIdentifier(const char* text) : m_block(NewBlock()) {
    UuidFromStringA(reinterpret_cast<RPC_CSTR>(const_cast<char*>(text)), Record(m_block));
}

GUIDIdentifier::GUIDIdentifier(const std::string& text)
    : GUIDIdentifier(zrk::detail::HasEmbeddedNul(text) ? "" : text.c_str()) {}

GUIDIdentifier::GUIDIdentifier(const wchar_t* text) : m_block(NewBlock()) {
    UuidFromStringW(reinterpret_cast<RPC_WSTR>(const_cast<wchar_t*>(text)), Record(m_block));
}

GUIDIdentifier::GUIDIdentifier(const std::wstring& text)
    : GUIDIdentifier(zrk::detail::HasEmbeddedNul(text) ? L"" : text.c_str()) {}

GUIDIdentifier::GUIDIdentifier(const GUIDIdentifier& other) : m_block(NewBlock()) {
    *Record(m_block) = *Record(other.m_block);
}

GUIDIdentifier& GUIDIdentifier::operator=(const GUIDIdentifier& other) {
    unsigned char* const block = NewBlock();  // first, so that self-assignment reads live bytes
    *Record(block) = *Record(other.m_block);
    delete Record(m_block);
    m_block = block;
    return *this;
}

GUIDIdentifier::~GUIDIdentifier() { delete Record(m_block); }

std::string GUIDIdentifier::ToStringA(bool upperCase) const {
    return Print<char, RPC_CSTR>(Record(m_block), upperCase, &UuidToStringA, &RpcStringFreeA,
                                 &UpperNarrow);
}

std::wstring GUIDIdentifier::ToStringW(bool upperCase) const {
    return Print<wchar_t, RPC_WSTR>(Record(m_block), upperCase, &UuidToStringW, &RpcStringFreeW,
                                    &UpperWide);
}

int GUIDIdentifier::Compare(const GUIDIdentifier& other) const {
    RPC_STATUS status;
    return UuidCompare(Record(m_block), Record(other.m_block), &status);
}

bool GUIDIdentifier::operator==(const GUIDIdentifier& other) const { return Compare(other) == 0; }
bool GUIDIdentifier::operator!=(const GUIDIdentifier& other) const { return Compare(other) != 0; }
bool GUIDIdentifier::operator<(const GUIDIdentifier& other) const { return Compare(other) == -1; }
bool GUIDIdentifier::operator<=(const GUIDIdentifier& other) const { return Compare(other) < 1; }
bool GUIDIdentifier::operator>(const GUIDIdentifier& other) const { return Compare(other) == 1; }
bool GUIDIdentifier::operator>=(const GUIDIdentifier& other) const { return Compare(other) > -1; }

bool GUIDIdentifier::IsZero() const { return Compare(s_zero) == 0; }
bool GUIDIdentifier::IsIdentity() const { return IsZero(); }
const GUIDIdentifier& GUIDIdentifier::Zero() { return s_zero; }
const GUIDIdentifier& GUIDIdentifier::Identity() { return s_zero; }
const std::string& GUIDIdentifier::ZeroStrA() { return s_zeroText; }
const std::string& GUIDIdentifier::IdentityStrA() { return s_zeroText; }
const std::wstring& GUIDIdentifier::ZeroStrW() { return s_zeroTextW; }
const std::wstring& GUIDIdentifier::IdentityStrW() { return s_zeroTextW; }

const unsigned char* GUIDIdentifier::Crc32HashPtr(const GUIDIdentifier& id) { return id.m_block; }
unsigned long long GUIDIdentifier::Crc32HashSize(const GUIDIdentifier&) { return sc_size; }
