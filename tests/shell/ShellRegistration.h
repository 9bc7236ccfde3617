#pragma once

// What the shell tests share: a registration in HKEY_CLASSES_ROOT (a MIME
// type mapped to an extension whose file type has an "open" command) under
// names unique to this process, removed on destruction.

#include <windows.h>

#include <string>

#include "support/ScopedState.h"
#include "zrkCore.h"

struct ShellRegistration {
    const std::wstring id = std::to_wstring(GetCurrentProcessId());
    const std::wstring mimeType = L"application/x-zrk-test-" + id, extension = L".zrk" + id;
    ScopedRegistryKey mimeKey{HKEY_CLASSES_ROOT, L"Mime\\Database\\Content Type\\" + mimeType};
    ScopedRegistryKey extensionKey{HKEY_CLASSES_ROOT, extension};
    ScopedRegistryKey fileTypeKey{HKEY_CLASSES_ROOT, L"zrk.test." + id};

    ShellRegistration() {
        mimeKey.SetString(L"", L"Extension", extension);
        extensionKey.SetString(L"", L"", L"zrk.test." + id);
    }
    bool SetCommand(const std::wstring& command) {
        return fileTypeKey.SetString(L"shell\\open\\command", L"", command);
    }
};
