#pragma once
// A MIME type mapped to an extension in HKEY_CLASSES_ROOT under names unique to this
// process; both key trees are deleted on destruction.
#include "support/ScopedState.h"
#include "zrkCore.h"

struct ShellRegistration : NoCopy {
    const std::wstring id = std::to_wstring(GetCurrentProcessId());
    const std::wstring mimeType = L"application/x-zrk-test-" + id, extension = L".zrk" + id;
    const std::wstring mimeKey = L"Mime\\Database\\Content Type\\" + mimeType;
    ShellRegistration() { Set(mimeKey, L"Extension", extension); }
    ~ShellRegistration() {
        RegDeleteTreeW(HKEY_CLASSES_ROOT, mimeKey.c_str());
        RegDeleteTreeW(HKEY_CLASSES_ROOT, extension.c_str());
    }

    // Sets value `name` (null: default) of `key` to `data` and a zero (REG_SZ wants wide text).
    template <class Ch>
    static bool Set(const std::wstring& key, const wchar_t* name,
                    const std::basic_string<Ch>& data, DWORD type = REG_SZ) {
        const DWORD size = static_cast<DWORD>((data.size() + 1) * sizeof(Ch));
        return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, type, data.c_str(), size) ==
               ERROR_SUCCESS;
    }
    bool SetCommand(const std::wstring& command) {
        return Set(extension + L"\\shell\\open\\command", nullptr, command);
    }
};
