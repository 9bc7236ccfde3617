#include "filesystem/IniFile.h"

#include <windows.h>

#include <algorithm>
#include <vector>

#include "filesystem/ProfileList.h"
#include "frame/EmbeddedNul.h"

namespace {

// The fixed buffers of a load, in characters of either width, terminators
// included.
constexpr DWORD kAbsolutePathSize = 2048;
constexpr DWORD kSectionListSize = 4096;
constexpr DWORD kKeyListSize = 16384;
constexpr DWORD kValueSize = 1024;

// The platform entries of each width, and the empty default value.
template <class Ch>
struct ProfileApi;

template <>
struct ProfileApi<char> {
    static constexpr const char* kNoDefault = "";
    static void FullPath(const char* path, char* buffer, DWORD size) {
        GetFullPathNameA(path, size, buffer, nullptr);
    }
    static void ProfileString(const char* section, const char* key, char* buffer, DWORD size,
                              const char* file) {
        GetPrivateProfileStringA(section, key, kNoDefault, buffer, size, file);
    }
};

template <>
struct ProfileApi<wchar_t> {
    static constexpr const wchar_t* kNoDefault = L"";
    static void FullPath(const wchar_t* path, wchar_t* buffer, DWORD size) {
        GetFullPathNameW(path, size, buffer, nullptr);
    }
    static void ProfileString(const wchar_t* section, const wchar_t* key, wchar_t* buffer,
                              DWORD size, const wchar_t* file) {
        GetPrivateProfileStringW(section, key, kNoDefault, buffer, size, file);
    }
};

template <class Ch>
using String = std::basic_string<Ch>;

// A zero-filled buffer. The platform does not always write into it (the wide
// profile entry leaves it untouched for a path whose folder is missing, and
// the path entry for a path that does not fit), and an untouched zero-filled
// buffer reads as an empty text or an empty list.
template <class Ch>
std::vector<Ch> ZeroBuffer(DWORD size) {
    return std::vector<Ch>(size, Ch(0));
}

// Fills `values` with the keys of section `name` of the file at the absolute
// path `file`: one list call, then one value call per new key. The first of
// repeated keys stays.
template <class Ch, class ValueMap>
void LoadValues(const Ch* file, const String<Ch>& name, ValueMap& values) {
    std::vector<Ch> keys = ZeroBuffer<Ch>(kKeyListSize);
    ProfileApi<Ch>::ProfileString(name.c_str(), nullptr, keys.data(), kKeyListSize, file);

    std::vector<Ch> value = ZeroBuffer<Ch>(kValueSize);
    zrk::detail::ForEachListName(
        keys.data(), keys.data() + keys.size(), [&](const Ch* text, std::size_t length) {
            String<Ch> key(text, length);
            if (values.count(key) != 0) {
                return;
            }
            std::fill(value.begin(), value.end(), Ch(0));
            ProfileApi<Ch>::ProfileString(name.c_str(), key.c_str(), value.data(), kValueSize,
                                          file);
            // The platform cuts a long value to fit and terminates it; the
            // bound keeps the read inside the buffer whatever it did.
            const auto stop = std::find(value.begin(), value.end(), Ch(0));
            values.emplace(std::move(key), String<Ch>(value.begin(), stop));
        });
}

// Deletes every section of `sections` with `destroy` and empties the map.
template <class SectionMap, class DestroySection>
void DeleteSections(SectionMap& sections, DestroySection destroy) {
    for (auto& entry : sections) {
        destroy(entry.second);
    }
    sections.clear();
}

// Fills `sections` with a new section from `make(absolutePath, name)` for
// each section name of the file at `path`; the first of repeated names
// stays. A path that holds a zero unit would reach the platform cut short,
// naming another file; it gets no platform call at all and no section. If
// the absolute path cannot be formed (an empty path, or one whose absolute
// form does not fit the buffer, so the platform writes nothing or leaves it
// unterminated), no profile call is made and no section results: an empty
// name would send the platform looking for some file other than the
// caller's.
//
// If an allocation fails, the sections made so far are deleted with
// `destroy` before the exception goes on, so the half-built file owns
// nothing.
template <class Ch, class SectionMap, class MakeSection, class DestroySection>
void LoadSections(const String<Ch>& path, SectionMap& sections, MakeSection make,
                  DestroySection destroy) {
    if (zrk::detail::HasEmbeddedNul(path)) {
        return;
    }
    try {
        std::vector<Ch> absolute = ZeroBuffer<Ch>(kAbsolutePathSize);
        ProfileApi<Ch>::FullPath(path.c_str(), absolute.data(), kAbsolutePathSize);
        if (absolute.front() == Ch(0) || absolute.back() != Ch(0)) {
            return;
        }

        std::vector<Ch> names = ZeroBuffer<Ch>(kSectionListSize);
        ProfileApi<Ch>::ProfileString(nullptr, nullptr, names.data(), kSectionListSize,
                                      absolute.data());
        zrk::detail::ForEachListName(
            names.data(), names.data() + names.size(),
            [&](const Ch* text, std::size_t length) {
                String<Ch> name(text, length);
                if (sections.count(name) != 0) {
                    return;
                }
                // The entry first, holding null, so that a failure to make
                // the section leaves nothing unowned.
                auto entry = sections.emplace(name, nullptr).first;
                entry->second = make(absolute.data(), name);
            });
    } catch (...) {
        DeleteSections(sections, destroy);
        throw;
    }
}

template <class SectionMap, class Name>
typename SectionMap::mapped_type FindSection(const SectionMap& sections, const Name& name) {
    const auto found = sections.find(name);
    return found == sections.end() ? nullptr : found->second;
}

template <class ValueMap, class Key>
typename ValueMap::mapped_type FindValue(const ValueMap& values, const Key& key) {
    const auto found = values.find(key);
    return found == values.end() ? typename ValueMap::mapped_type() : found->second;
}

}  // namespace

// IniSectionA and IniSectionW

IniSectionA::IniSectionA(const char* filePath, const std::string& name) : m_name(name) {
    LoadValues(filePath, m_name, m_values);
}
IniSectionW::IniSectionW(const wchar_t* filePath, const std::wstring& name) : m_name(name) {
    LoadValues(filePath, m_name, m_values);
}

IniSectionA::~IniSectionA() {}
IniSectionW::~IniSectionW() {}

std::string IniSectionA::operator[](const std::string& key) const {
    return FindValue(m_values, key);
}
std::wstring IniSectionW::operator[](const std::wstring& key) const {
    return FindValue(m_values, key);
}

std::string IniSectionA::GetValue(const std::string& key) const {
    return FindValue(m_values, key);
}
std::wstring IniSectionW::GetValue(const std::wstring& key) const {
    return FindValue(m_values, key);
}

bool IniSectionA::ContainsKey(const std::string& key) const {
    return m_values.count(key) != 0;
}
bool IniSectionW::ContainsKey(const std::wstring& key) const {
    return m_values.count(key) != 0;
}

unsigned long long IniSectionA::Size() const {
    return m_values.size();
}
unsigned long long IniSectionW::Size() const {
    return m_values.size();
}

const std::string& IniSectionA::GetName() const {
    return m_name;
}
const std::wstring& IniSectionW::GetName() const {
    return m_name;
}

IniSectionA::Iterator IniSectionA::Begin() {
    return m_values.begin();
}
IniSectionA::Iterator IniSectionA::End() {
    return m_values.end();
}
IniSectionA::ConstIterator IniSectionA::Begin() const {
    return m_values.begin();
}
IniSectionA::ConstIterator IniSectionA::End() const {
    return m_values.end();
}
IniSectionW::Iterator IniSectionW::Begin() {
    return m_values.begin();
}
IniSectionW::Iterator IniSectionW::End() {
    return m_values.end();
}
IniSectionW::ConstIterator IniSectionW::Begin() const {
    return m_values.begin();
}
IniSectionW::ConstIterator IniSectionW::End() const {
    return m_values.end();
}

// IniFileA and IniFileW

SmartPtr<IniFileA> IniFileA::LoadFile(const std::string& path) {
    return SmartPtr<IniFileA>(new IniFileA(path));
}
SmartPtr<IniFileW> IniFileW::LoadFile(const std::wstring& path) {
    return SmartPtr<IniFileW>(new IniFileW(path));
}

// Only the file makes and destroys its sections (their constructors and
// destructors are private to it), so the shared steps get both as callables
// from here.
IniFileA::IniFileA(const std::string& path) : m_filePath(path) {
    LoadSections(
        m_filePath, m_sections,
        [](const char* file, const std::string& name) { return new IniSectionA(file, name); },
        [](IniSectionA* section) { delete section; });
}
IniFileW::IniFileW(const std::wstring& path) : m_filePath(path) {
    LoadSections(
        m_filePath, m_sections,
        [](const wchar_t* file, const std::wstring& name) {
            return new IniSectionW(file, name);
        },
        [](IniSectionW* section) { delete section; });
}

IniFileA::~IniFileA() {
    DeleteSections(m_sections, [](IniSectionA* section) { delete section; });
}
IniFileW::~IniFileW() {
    DeleteSections(m_sections, [](IniSectionW* section) { delete section; });
}

IniSectionA* IniFileA::operator[](const std::string& name) const {
    return FindSection(m_sections, name);
}
IniSectionW* IniFileW::operator[](const std::wstring& name) const {
    return FindSection(m_sections, name);
}

IniSectionA* IniFileA::GetSection(const std::string& name) const {
    return FindSection(m_sections, name);
}
IniSectionW* IniFileW::GetSection(const std::wstring& name) const {
    return FindSection(m_sections, name);
}

bool IniFileA::HasSection(const std::string& name) const {
    return m_sections.count(name) != 0;
}
bool IniFileW::HasSection(const std::wstring& name) const {
    return m_sections.count(name) != 0;
}

unsigned long long IniFileA::Size() const {
    return m_sections.size();
}
unsigned long long IniFileW::Size() const {
    return m_sections.size();
}

const std::string& IniFileA::GetFilePath() const {
    return m_filePath;
}
const std::wstring& IniFileW::GetFilePath() const {
    return m_filePath;
}

IniFileA::SectionIterator IniFileA::BeginSections() {
    return m_sections.begin();
}
IniFileA::SectionIterator IniFileA::EndSections() {
    return m_sections.end();
}
IniFileA::ConstSectionIterator IniFileA::BeginSections() const {
    return m_sections.begin();
}
IniFileA::ConstSectionIterator IniFileA::EndSections() const {
    return m_sections.end();
}
IniFileW::SectionIterator IniFileW::BeginSections() {
    return m_sections.begin();
}
IniFileW::SectionIterator IniFileW::EndSections() {
    return m_sections.end();
}
IniFileW::ConstSectionIterator IniFileW::BeginSections() const {
    return m_sections.begin();
}
IniFileW::ConstSectionIterator IniFileW::EndSections() const {
    return m_sections.end();
}
