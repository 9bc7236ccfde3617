#pragma once
// A MIME type mapped to an extension whose "open" command SetCommand sets, in
// HKEY_CLASSES_ROOT under names unique to this process; removed on destruction.
#include "support/ScopedState.h"
#include "zrkCore.h"

struct ShellRegistration {
    const std::wstring id = std::to_wstring(GetCurrentProcessId());
    const std::wstring mimeType = L"application/x-zrk-test-" + id, extension = L".zrk" + id;
    ScopedRegistryKey mimeKey{HKEY_CLASSES_ROOT, L"Mime\\Database\\Content Type\\" + mimeType};
    ScopedRegistryKey extensionKey{HKEY_CLASSES_ROOT, extension};
    ShellRegistration() { mimeKey.SetString(L"", L"Extension", extension); }
    bool SetCommand(const std::wstring& command) {
        return extensionKey.SetString(L"shell\\open\\command", L"", command);
    }
};
