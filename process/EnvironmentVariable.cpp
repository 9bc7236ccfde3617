#include "process/EnvironmentVariable.h"

#include <windows.h>

#include "frame/EmbeddedNul.h"
#include "process/EnvironmentArray.h"

namespace {

// The longest value a set accepts, in characters of its width.
constexpr std::size_t kLongestValue = 32767;

// The platform entries of each width.
template <class Ch>
struct EnvironmentApi;

template <>
struct EnvironmentApi<char> {
    static DWORD Get(const char* name, char* buffer, DWORD size) {
        return GetEnvironmentVariableA(name, buffer, size);
    }
    static BOOL Set(const char* name, const char* value) {
        return SetEnvironmentVariableA(name, value);
    }
};

template <>
struct EnvironmentApi<wchar_t> {
    static DWORD Get(const wchar_t* name, wchar_t* buffer, DWORD size) {
        return GetEnvironmentVariableW(name, buffer, size);
    }
    static BOOL Set(const wchar_t* name, const wchar_t* value) {
        return SetEnvironmentVariableW(name, value);
    }
};

template <class Ch>
using String = std::basic_string<Ch>;

using zrk::detail::HasEmbeddedNul;

// SetEnvironmentVariable is documented to answer TRUE, that is 1, on success.
// Only that answer counts as success: another non-zero value is no answer the
// platform promises, so it is not taken to mean that anything was set.
constexpr BOOL kPlatformSuccess = 1;

template <class Ch>
bool Exists(const String<Ch>& name) {
    // The platform would look up the name only up to its zero unit.
    if (HasEmbeddedNul(name)) {
        return false;
    }
    if (EnvironmentApi<Ch>::Get(name.c_str(), nullptr, 0) != 0) {
        return true;
    }
    return GetLastError() != ERROR_ENVVAR_NOT_FOUND;
}

template <class Ch>
bool GetString(const String<Ch>& name, String<Ch>* value) {
    if (name.empty() || value == nullptr || HasEmbeddedNul(name)) {
        return false;
    }
    // The size query counts the terminator; the read does not.
    const DWORD needed = EnvironmentApi<Ch>::Get(name.c_str(), nullptr, 0);
    if (needed == 0 && GetLastError() == ERROR_ENVVAR_NOT_FOUND) {
        return false;
    }
    value->resize(needed);
    const DWORD written = EnvironmentApi<Ch>::Get(name.c_str(), value->data(), needed);
    // Also catches a value that changed between the two calls.
    if (needed == 0 || written + 1 != needed) {
        return false;
    }
    value->resize(written);
    return true;
}

template <class Ch>
bool GetArray(const String<Ch>& name, std::vector<String<Ch>>* values) {
    if (name.empty() || values == nullptr) {
        return false;
    }
    String<Ch> text;
    if (!GetString(name, &text)) {
        return false;
    }
    zrk::detail::SplitArray(text, values);
    return true;
}

template <class Ch>
bool SetString(const String<Ch>& name, const String<Ch>& value, bool createIfMissing) {
    if (name.empty() || value.empty() || value.size() > kLongestValue ||
        HasEmbeddedNul(name) || HasEmbeddedNul(value)) {
        return false;
    }
    if (!createIfMissing && !Exists(name)) {
        return false;
    }
    return EnvironmentApi<Ch>::Set(name.c_str(), value.c_str()) == kPlatformSuccess;
}

template <class Ch>
bool SetArray(const String<Ch>& name, const std::vector<String<Ch>>& values,
              bool createIfMissing) {
    if (name.empty() || values.empty()) {
        return false;
    }
    return SetString(name, zrk::detail::JoinArray(values), createIfMissing);
}

template <class Ch>
bool Delete(const String<Ch>& name) {
    if (name.empty() || HasEmbeddedNul(name)) {
        return false;
    }
    return EnvironmentApi<Ch>::Set(name.c_str(), nullptr) == kPlatformSuccess;
}

}  // namespace

bool EnvironmentVariable::ExistsA(const std::string& name) {
    return Exists(name);
}
bool EnvironmentVariable::ExistsW(const std::wstring& name) {
    return Exists(name);
}

bool EnvironmentVariable::GetStringA(const std::string& name, std::string* value) {
    return GetString(name, value);
}
bool EnvironmentVariable::GetStringW(const std::wstring& name, std::wstring* value) {
    return GetString(name, value);
}

bool EnvironmentVariable::GetArrayA(const std::string& name, std::vector<std::string>* values) {
    return GetArray(name, values);
}
bool EnvironmentVariable::GetArrayW(const std::wstring& name,
                                    std::vector<std::wstring>* values) {
    return GetArray(name, values);
}

bool EnvironmentVariable::SetStringA(const std::string& name, const std::string& value,
                                     bool createIfMissing) {
    return SetString(name, value, createIfMissing);
}
bool EnvironmentVariable::SetStringW(const std::wstring& name, const std::wstring& value,
                                     bool createIfMissing) {
    return SetString(name, value, createIfMissing);
}

bool EnvironmentVariable::SetArrayA(const std::string& name,
                                    const std::vector<std::string>& values,
                                    bool createIfMissing) {
    return SetArray(name, values, createIfMissing);
}
bool EnvironmentVariable::SetArrayW(const std::wstring& name,
                                    const std::vector<std::wstring>& values,
                                    bool createIfMissing) {
    return SetArray(name, values, createIfMissing);
}

bool EnvironmentVariable::DeleteA(const std::string& name) {
    return Delete(name);
}
bool EnvironmentVariable::DeleteW(const std::wstring& name) {
    return Delete(name);
}

EnvironmentVariable& EnvironmentVariable::operator=(const EnvironmentVariable&) {
    return *this;
}
EnvironmentVariable& EnvironmentVariable::operator=(EnvironmentVariable&&) {
    return *this;
}
