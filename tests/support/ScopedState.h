#pragma once

// Test helpers that change process-wide state (the environment, the current
// folder, the file system, the registry) and put it back in their
// destructors, so that a failing test cannot poison the next one.

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "frame/NoCopy.h"
#include "support/Text.h"

// Saves an environment variable (or its absence), optionally sets it at
// once, and restores it on destruction.
class ScopedEnvironmentVariable : NoCopy {
public:
    explicit ScopedEnvironmentVariable(const std::wstring& name)
        : m_name(name), m_saved(32768, L'\0') {
        SetLastError(0);  // an empty value reads as 0 characters, with no error
        const DWORD length = GetEnvironmentVariableW(name.c_str(), &m_saved[0], 32768);
        m_existed = length != 0 || GetLastError() != ERROR_ENVVAR_NOT_FOUND;
        m_saved.resize(length);
    }
    ScopedEnvironmentVariable(const std::wstring& name, const std::wstring& value)
        : ScopedEnvironmentVariable(name) {
        SetEnvironmentVariableW(name.c_str(), value.c_str());
    }
    ~ScopedEnvironmentVariable() {
        SetEnvironmentVariableW(m_name.c_str(), m_existed ? m_saved.c_str() : nullptr);
    }

private:
    std::wstring m_name, m_saved;
    bool m_existed;
};

// A new, empty folder under the temporary folder, removed with all its
// contents on destruction. Its path has no trailing separator.
class TempFolder : NoCopy {
public:
    TempFolder()
        : m_path((std::filesystem::temp_directory_path() /
                  (L"zrk-test-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                   std::to_wstring(++s_count))).wstring()) {
        std::error_code ignored;  // a folder left by an earlier process with this identifier
        std::filesystem::remove_all(m_path, ignored);
        std::filesystem::create_directories(m_path);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::wstring& Path() const { return m_path; }
    std::string PathA() const { return Text<char>(m_path); }
    // Path() + "\" + relative.
    std::wstring Join(const std::wstring& relative) const { return m_path + L"\\" + relative; }

private:
    static inline unsigned s_count = 0;
    std::wstring m_path;
};

// Makes `folder` the current folder and restores the previous one on
// destruction.
class ScopedCurrentDirectory : NoCopy {
public:
    explicit ScopedCurrentDirectory(const std::wstring& folder)
        : m_previous(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    ~ScopedCurrentDirectory() { SetCurrentDirectoryW(m_previous.c_str()); }

private:
    std::filesystem::path m_previous;
};

// Writes `content` to a new file (replacing an old one); true on success.
inline bool WriteTextFile(const std::wstring& path, const std::string& content) {
    std::ofstream out(std::filesystem::path(path), std::ios::binary | std::ios::trunc);
    return static_cast<bool>(out << content);
}
