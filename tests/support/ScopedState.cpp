#include "support/ScopedState.h"

#include <filesystem>
#include <fstream>
#include <vector>

ScopedEnvironmentVariable::ScopedEnvironmentVariable(const std::wstring& name) : m_name(name) {
    const DWORD needed = GetEnvironmentVariableW(name.c_str(), nullptr, 0);
    if (needed == 0) {
        return;
    }
    std::vector<wchar_t> buffer(needed + 1, L'\0');
    GetEnvironmentVariableW(name.c_str(), buffer.data(), needed);
    m_saved = buffer.data();
    m_existed = true;
}

ScopedEnvironmentVariable::ScopedEnvironmentVariable(const std::wstring& name,
                                                     const std::wstring& value)
    : ScopedEnvironmentVariable(name) {
    SetEnvironmentVariableW(name.c_str(), value.c_str());
}

ScopedEnvironmentVariable::~ScopedEnvironmentVariable() {
    SetEnvironmentVariableW(m_name.c_str(), m_existed ? m_saved.c_str() : nullptr);
}

TempFolder::TempFolder() {
    wchar_t base[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, base);
    static unsigned counter = 0;
    m_path = std::wstring(base) + L"zrk-test-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
             std::to_wstring(++counter);
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
    std::filesystem::create_directories(m_path);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string TempFolder::PathA() const {
    return Text<char>(m_path);
}

std::wstring TempFolder::Join(const std::wstring& relative) const {
    return m_path + L"\\" + relative;
}

ScopedCurrentDirectory::ScopedCurrentDirectory(const std::wstring& folder) {
    wchar_t previous[MAX_PATH + 1] = {};
    GetCurrentDirectoryW(MAX_PATH, previous);
    m_previous = previous;
    SetCurrentDirectoryW(folder.c_str());
}

ScopedCurrentDirectory::~ScopedCurrentDirectory() {
    SetCurrentDirectoryW(m_previous.c_str());
}

bool FolderExists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool FileExists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool WriteTextFile(const std::wstring& path, const std::string& content) {
    std::ofstream out(std::filesystem::path(path), std::ios::binary | std::ios::trunc);
    out << content;
    return static_cast<bool>(out);
}

ScopedRegistryKey::ScopedRegistryKey(HKEY root, const std::wstring& path)
    : m_root(root), m_path(path) {
    HKEY key = nullptr;
    DWORD disposition = 0;
    if (RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        &disposition) != ERROR_SUCCESS) {
        return;
    }
    if (disposition != REG_CREATED_NEW_KEY) {
        RegCloseKey(key);
        return;
    }
    m_key = key;
}

ScopedRegistryKey::~ScopedRegistryKey() {
    if (m_key != nullptr) {
        RegCloseKey(m_key);
        RegDeleteTreeW(m_root, m_path.c_str());
    }
}

bool ScopedRegistryKey::SetString(const std::wstring& subKey, const std::wstring& name,
                                  const std::wstring& value) {
    if (m_key == nullptr) {
        return false;
    }
    const DWORD size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(m_key, subKey.empty() ? nullptr : subKey.c_str(),
                           name.empty() ? nullptr : name.c_str(), REG_SZ, value.c_str(),
                           size) == ERROR_SUCCESS;
}

bool ScopedRegistryKey::SetValue(const std::wstring& name, DWORD type, const void* data,
                                 DWORD size) {
    return m_key != nullptr &&
           RegSetValueExW(m_key, name.empty() ? nullptr : name.c_str(), 0, type,
                          static_cast<const BYTE*>(data), size) == ERROR_SUCCESS;
}
