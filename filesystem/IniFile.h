#pragma once

#include <string>
#include <unordered_map>

#include "frame/Export.h"
#include "memory/SmartPtr.h"

// Read-only, in-memory views of a configuration file in the platform's INI
// format (section heads in square brackets, lines of key=value).
//
// IniFileA::LoadFile reads the whole file at once through the platform's
// profile functions and answers every later lookup from memory: a change of
// the file on disk is not seen by a loaded object, and nothing here ever
// writes a file. The platform decides the format (comments, blanks around
// names and values, quotes, encoding); the maps add no rule of their own and
// compare names exactly, unit by unit, so case counts: a section written
// [Server] is found as "Server" only.
//
// Loading is bounded by four fixed buffers, counted in characters of the
// class's width, terminators included; nothing is retried with a larger one:
//   absolute path of the file    2,048
//   all section names of a file  4,096
//   all key names of a section  16,384
//   one value                    1,024
// What does not fit is lost without a word: sections or keys past the cut do
// not exist, the last name of a cut list is present under its short form,
// with the value the platform gives for that short name, and a long value is
// cut to 1,023 characters.
//
// A list of names ends at the first empty name, so a line "=value" in a
// section hides every key that the platform lists behind it. Where a name
// repeats (a section head written twice, a key given twice) the first
// occurrence wins and the others are passed over.
//
// The W classes are the same with std::wstring and the platform's wide
// entries; their buffer sizes are the same numbers of UTF-16 units.
//
// Threads: loading takes no lock; a loaded object is never changed by the
// library, so any number of threads may read it at once. The count behind
// SmartPtr<IniFileA> is a plain one: copying or dropping holders of one file
// on several threads at once needs the caller's own guard.

class IniFileA;
class IniFileW;

// One section of a loaded IniFileA: its name and its keys with their values.
// Made and destroyed by the file alone; a pointer to it is valid for as long
// as the file object lives, and callers never delete it.
class ZRK_API IniSectionA {
public:
    using ValueMap = std::unordered_map<std::string, std::string>;
    using Iterator = ValueMap::iterator;
    using ConstIterator = ValueMap::const_iterator;

    // A copy of the key's value, or the empty string if there is no such
    // key. Creates no entry.
    std::string operator[](const std::string& key) const;
    std::string GetValue(const std::string& key) const;
    // Whether the key exists: the only way to tell a missing key from an
    // empty value.
    bool ContainsKey(const std::string& key) const;
    // The number of keys.
    unsigned long long Size() const;
    // The section's name as the platform listed it.
    const std::string& GetName() const;

    // The keys, each once, in no particular order (not the file's); each
    // entry is a pair of the key and its value.
    Iterator Begin();
    Iterator End();
    ConstIterator Begin() const;
    ConstIterator End() const;

    IniSectionA(const IniSectionA&) = delete;
    IniSectionA& operator=(const IniSectionA&) = delete;

private:
    friend class IniFileA;

    // Reads the keys of section `name` from the file at the absolute path
    // `filePath`; keeps no link to the file.
    IniSectionA(const char* filePath, const std::string& name);
    ~IniSectionA();

    std::string m_name;
    ValueMap m_values;
};

// A whole INI file read into memory, shared through SmartPtr<IniFileA>.
class ZRK_API IniFileA : public SmartPtrTarget {
public:
    using SectionMap = std::unordered_map<std::string, IniSectionA*>;
    using SectionIterator = SectionMap::iterator;
    using ConstSectionIterator = SectionMap::const_iterator;

    // Reads the file at `path` (relative paths resolve against the current
    // folder at this moment) and hands out the new object in its only
    // holder; never null. The file's state is not reported: a missing,
    // unreadable or empty file, a file without sections, and an empty path
    // or one whose absolute form does not fit its buffer all give an object
    // with no sections. So does a path that holds a zero unit, which the
    // platform would read only up to that unit: it is refused before any
    // platform call. GetFilePath gives the path as given in every case.
    // Only memory exhaustion ends the load, with the allocation's exception
    // and no object.
    static SmartPtr<IniFileA> LoadFile(const std::string& path);

    // Deletes every section: section pointers die with the file.
    ~IniFileA() override;

    // The section of that name, or null. Creates no entry.
    IniSectionA* operator[](const std::string& name) const;
    IniSectionA* GetSection(const std::string& name) const;
    // Whether a section of that name exists.
    bool HasSection(const std::string& name) const;
    // The number of sections.
    unsigned long long Size() const;
    // The path exactly as given to LoadFile, not its absolute form.
    const std::string& GetFilePath() const;

    // The sections, each once, in no particular order (not the file's); each
    // entry is a pair of the name and the section.
    SectionIterator BeginSections();
    SectionIterator EndSections();
    ConstSectionIterator BeginSections() const;
    ConstSectionIterator EndSections() const;

private:
    explicit IniFileA(const std::string& path);

    std::string m_filePath;
    SectionMap m_sections;
};

// The wide twin of IniSectionA.
class ZRK_API IniSectionW {
public:
    using ValueMap = std::unordered_map<std::wstring, std::wstring>;
    using Iterator = ValueMap::iterator;
    using ConstIterator = ValueMap::const_iterator;

    std::wstring operator[](const std::wstring& key) const;
    std::wstring GetValue(const std::wstring& key) const;
    bool ContainsKey(const std::wstring& key) const;
    unsigned long long Size() const;
    const std::wstring& GetName() const;

    Iterator Begin();
    Iterator End();
    ConstIterator Begin() const;
    ConstIterator End() const;

    IniSectionW(const IniSectionW&) = delete;
    IniSectionW& operator=(const IniSectionW&) = delete;

private:
    friend class IniFileW;

    IniSectionW(const wchar_t* filePath, const std::wstring& name);
    ~IniSectionW();

    std::wstring m_name;
    ValueMap m_values;
};

// The wide twin of IniFileA: GetFullPathNameW and GetPrivateProfileStringW.
class ZRK_API IniFileW : public SmartPtrTarget {
public:
    using SectionMap = std::unordered_map<std::wstring, IniSectionW*>;
    using SectionIterator = SectionMap::iterator;
    using ConstSectionIterator = SectionMap::const_iterator;

    // As IniFileA::LoadFile, with wide text.
    static SmartPtr<IniFileW> LoadFile(const std::wstring& path);

    ~IniFileW() override;

    IniSectionW* operator[](const std::wstring& name) const;
    IniSectionW* GetSection(const std::wstring& name) const;
    bool HasSection(const std::wstring& name) const;
    unsigned long long Size() const;
    const std::wstring& GetFilePath() const;

    SectionIterator BeginSections();
    SectionIterator EndSections();
    ConstSectionIterator BeginSections() const;
    ConstSectionIterator EndSections() const;

private:
    explicit IniFileW(const std::wstring& path);

    std::wstring m_filePath;
    SectionMap m_sections;
};
