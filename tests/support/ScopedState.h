#pragma once

// Test helpers that change process-wide state and put it back in their
// destructors, so that a failing test cannot poison the next one.

#include <windows.h>

#include <string>

#include "support/Text.h"

// Saves an environment variable (or its absence) and restores it on
// destruction. The optional value is set at once.
class ScopedEnvironmentVariable {
public:
    explicit ScopedEnvironmentVariable(const std::wstring& name);
    ScopedEnvironmentVariable(const std::wstring& name, const std::wstring& value);
    ~ScopedEnvironmentVariable();

    ScopedEnvironmentVariable(const ScopedEnvironmentVariable&) = delete;
    ScopedEnvironmentVariable& operator=(const ScopedEnvironmentVariable&) = delete;

private:
    std::wstring m_name;
    std::wstring m_saved;
    bool m_existed = false;
};

// A new, empty folder under the temporary folder, removed with all its
// contents on destruction. Paths come back without a trailing separator.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();

    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::wstring& Path() const { return m_path; }
    std::string PathA() const;
    // Path() + "\" + relative.
    std::wstring Join(const std::wstring& relative) const;

private:
    std::wstring m_path;
};

// Makes `folder` the current folder and restores the previous one on
// destruction.
class ScopedCurrentDirectory {
public:
    explicit ScopedCurrentDirectory(const std::wstring& folder);
    ~ScopedCurrentDirectory();

    ScopedCurrentDirectory(const ScopedCurrentDirectory&) = delete;
    ScopedCurrentDirectory& operator=(const ScopedCurrentDirectory&) = delete;

private:
    std::wstring m_previous;
};

bool FolderExists(const std::wstring& path);
bool FileExists(const std::wstring& path);
// Writes `content` to a new file (replacing an old one); true on success.
bool WriteTextFile(const std::wstring& path, const std::string& content);

// Creates the registry key `root`\`path`, which must not exist yet, and
// deletes it with every key and value below it on destruction. A key that
// exists already is left alone and the object is not Valid. Keys above it
// that the constructor had to create stay.
class ScopedRegistryKey {
public:
    ScopedRegistryKey(HKEY root, const std::wstring& path);
    ~ScopedRegistryKey();

    ScopedRegistryKey(const ScopedRegistryKey&) = delete;
    ScopedRegistryKey& operator=(const ScopedRegistryKey&) = delete;

    bool Valid() const { return m_key != nullptr; }
    // Sets a value of the key, or of `subKey` below it (created if need be;
    // empty: the key itself). An empty `name` sets the default value.
    bool SetString(const std::wstring& subKey, const std::wstring& name,
                   const std::wstring& value);
    bool SetValue(const std::wstring& name, DWORD type, const void* data, DWORD size);

private:
    HKEY m_root;
    std::wstring m_path;
    HKEY m_key = nullptr;
};
