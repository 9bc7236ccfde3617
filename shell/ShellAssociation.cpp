#include "shell/ShellAssociation.h"

#include <windows.h>
#include <shlwapi.h>

#include <vector>

#include "frame/EmbeddedNul.h"
#include "shell/CommandTemplate.h"
#include "shell/RegistryText.h"

namespace {

// The data size offered for the "Extension" value, in bytes in both widths.
constexpr DWORD kExtensionValueBytes = 260;

// The literals and the platform entries of each width.
template <class Ch>
struct AssociationApi;

template <>
struct AssociationApi<char> {
    static constexpr const char* kMimeDatabase = "Mime\\Database\\Content Type\\";
    static constexpr const char* kExtensionValue = "Extension";
    static constexpr const char* kOpenVerb = "open";

    static LSTATUS OpenKey(const char* path, HKEY* key) {
        return RegOpenKeyExA(HKEY_CLASSES_ROOT, path, 0, KEY_READ, key);
    }
    static LSTATUS QueryValue(HKEY key, const char* name, BYTE* data, DWORD* size) {
        return RegQueryValueExA(key, name, nullptr, nullptr, data, size);
    }
    static HRESULT QueryCommand(const char* extension, char* out, DWORD* size) {
        return AssocQueryStringA(0, ASSOCSTR_COMMAND, extension, kOpenVerb, out, size);
    }
};

template <>
struct AssociationApi<wchar_t> {
    static constexpr const wchar_t* kMimeDatabase = L"Mime\\Database\\Content Type\\";
    static constexpr const wchar_t* kExtensionValue = L"Extension";
    static constexpr const wchar_t* kOpenVerb = L"open";

    static LSTATUS OpenKey(const wchar_t* path, HKEY* key) {
        return RegOpenKeyExW(HKEY_CLASSES_ROOT, path, 0, KEY_READ, key);
    }
    static LSTATUS QueryValue(HKEY key, const wchar_t* name, BYTE* data, DWORD* size) {
        return RegQueryValueExW(key, name, nullptr, nullptr, data, size);
    }
    static HRESULT QueryCommand(const wchar_t* extension, wchar_t* out, DWORD* size) {
        return AssocQueryStringW(0, ASSOCSTR_COMMAND, extension, kOpenVerb, out, size);
    }
};

// One open registry key, closed on every way out.
class RegistryKey {
public:
    explicit RegistryKey(HKEY key) : m_key(key) {}
    ~RegistryKey() { RegCloseKey(m_key); }
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    HKEY Handle() const { return m_key; }

private:
    HKEY m_key;
};

template <class Ch>
using String = std::basic_string<Ch>;

template <class Ch>
bool MimeTypeToExtension(const String<Ch>& mimeType, String<Ch>* extension) {
    using Api = AssociationApi<Ch>;
    if (zrk::detail::HasEmbeddedNul(mimeType)) {
        return false;
    }
    const String<Ch> path = Api::kMimeDatabase + mimeType;
    HKEY handle = nullptr;
    if (Api::OpenKey(path.c_str(), &handle) != ERROR_SUCCESS) {
        return false;
    }
    const RegistryKey key(handle);
    // The size is counted in bytes in both widths, so the wide form holds
    // half as many characters.
    Ch buffer[kExtensionValueBytes / sizeof(Ch)] = {};
    DWORD size = kExtensionValueBytes;
    if (Api::QueryValue(key.Handle(), Api::kExtensionValue, reinterpret_cast<BYTE*>(buffer),
                        &size) != ERROR_SUCCESS) {
        return false;
    }
    *extension = zrk::detail::RegistryValueText(buffer, size);
    return true;
}

template <class Ch>
bool OpenVerbTemplateFromExtension(const String<Ch>& extension, String<Ch>* commandTemplate) {
    using Api = AssociationApi<Ch>;
    if (zrk::detail::HasEmbeddedNul(extension)) {
        commandTemplate->clear();
        return false;
    }
    // Without a buffer the shell only reports the characters it needs,
    // terminator included; the call's own result says nothing reliable then.
    DWORD size = 0;
    Api::QueryCommand(extension.c_str(), nullptr, &size);
    if (size == 0) {
        commandTemplate->clear();
        return false;
    }
    std::vector<Ch> buffer(static_cast<std::size_t>(size) + 1, Ch());
    if (Api::QueryCommand(extension.c_str(), buffer.data(), &size) != S_OK) {
        commandTemplate->clear();
        return false;
    }
    *commandTemplate = buffer.data();
    return true;
}

}  // namespace

bool zrkMimeTypeToExtensionA(const std::string& mimeType, std::string* extension) {
    return MimeTypeToExtension(mimeType, extension);
}
bool zrkMimeTypeToExtensionW(const std::wstring& mimeType, std::wstring* extension) {
    return MimeTypeToExtension(mimeType, extension);
}

bool zrkOpenVerbTemplateFromExtensionA(const std::string& extension,
                                       std::string* commandTemplate) {
    return OpenVerbTemplateFromExtension(extension, commandTemplate);
}
bool zrkOpenVerbTemplateFromExtensionW(const std::wstring& extension,
                                       std::wstring* commandTemplate) {
    return OpenVerbTemplateFromExtension(extension, commandTemplate);
}

bool zrkParseCommandTemplateA(const std::string& commandTemplate, std::string* program,
                              std::string* arguments) {
    return zrk::detail::ParseCommandTemplate(commandTemplate, program, arguments);
}
bool zrkParseCommandTemplateW(const std::wstring& commandTemplate, std::wstring* program,
                              std::wstring* arguments) {
    return zrk::detail::ParseCommandTemplate(commandTemplate, program, arguments);
}
