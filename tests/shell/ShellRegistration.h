#pragma once

// Test registrations in HKEY_CLASSES_ROOT: a MIME type that maps to an
// extension, the extension's file type, and that type's "open" command, all
// under names unique to this process and removed again on destruction.

#include <windows.h>

#include <string>

#include "support/ScopedState.h"

class ShellRegistration {
public:
    // `tag` tells apart the registrations of one process.
    explicit ShellRegistration(const std::wstring& tag)
        : m_mimeType(L"application/x-zrk-test-" + Unique(tag)),
          m_extension(L".zrk" + Unique(tag)),
          m_fileType(L"zrk.test." + Unique(tag)),
          m_mimeKey(HKEY_CLASSES_ROOT, L"Mime\\Database\\Content Type\\" + m_mimeType),
          m_extensionKey(HKEY_CLASSES_ROOT, m_extension),
          m_fileTypeKey(HKEY_CLASSES_ROOT, m_fileType) {
        m_valid = m_mimeKey.SetString(L"", L"Extension", m_extension) &&
                  m_extensionKey.SetString(L"", L"", m_fileType) && m_fileTypeKey.Valid();
    }

    bool Valid() const { return m_valid; }
    const std::wstring& MimeType() const { return m_mimeType; }
    const std::wstring& Extension() const { return m_extension; }

    // The "open" command of the extension's file type.
    bool SetCommand(const std::wstring& commandTemplate) {
        return m_fileTypeKey.SetString(L"shell\\open\\command", L"", commandTemplate);
    }
    // The MIME type's "Extension" value, as text or as raw data of any type.
    bool SetExtensionText(const std::wstring& extension) {
        return m_mimeKey.SetString(L"", L"Extension", extension);
    }
    bool SetExtensionValue(DWORD type, const void* data, DWORD size) {
        return m_mimeKey.SetValue(L"Extension", type, data, size);
    }

private:
    static std::wstring Unique(const std::wstring& tag) {
        return std::to_wstring(GetCurrentProcessId()) + L"-" + tag;
    }

    std::wstring m_mimeType;
    std::wstring m_extension;
    std::wstring m_fileType;
    ScopedRegistryKey m_mimeKey;
    ScopedRegistryKey m_extensionKey;
    ScopedRegistryKey m_fileTypeKey;
    bool m_valid = false;
};
