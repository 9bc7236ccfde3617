#pragma once

#include <string>
#include <vector>

#include "frame/Export.h"

// Access to the environment of the current process. All operations are
// static; an instance carries nothing.
//
// A variable is read or written as one string, or as an array: the same
// string cut at ";" (the separator cannot be escaped). Each W form is its A
// form with std::wstring for std::string, and calls the platform's wide
// entries.
//
// A name or value that holds a zero character is refused before any platform
// call (the platform would read it only up to that character and act on
// another variable or a shorter value): Exists answers false, and every other
// operation answers false with its output and the environment unchanged.
//
// Threads: there is no lock. The environment is the process's, and every
// operation is one or two separate platform calls on it, so a variable that
// another thread changes meanwhile can make a read fail (see GetStringA).
class ZRK_API EnvironmentVariable {
public:
    // True unless the platform reports the variable as not found
    // (ERROR_ENVVAR_NOT_FOUND); any other failure of the query counts as
    // existing. An empty name goes to the platform like any other.
    static bool ExistsA(const std::string& name);
    static bool ExistsW(const std::wstring& name);

    // Reads the variable into *value and answers true.
    // On false: *value is unchanged if the name is empty, value is null or
    // the variable does not exist; it is empty if the size query failed for
    // another reason; and if the value changed between the size query and the
    // read, *value has the queried length and no meaningful content. There is
    // no second attempt.
    static bool GetStringA(const std::string& name, std::string* value);
    static bool GetStringW(const std::wstring& name, std::wstring* value);

    // Reads the variable and appends its non-empty ";"-separated elements to
    // *values, behind what it already holds. On false *values is unchanged.
    static bool GetArrayA(const std::string& name, std::vector<std::string>* values);
    static bool GetArrayW(const std::wstring& name, std::vector<std::wstring>* values);

    // Sets the variable. Refuses (false, environment untouched) an empty
    // name, an empty value (use Delete to remove a variable), a value longer
    // than 32767 characters (bytes in the A form, UTF-16 units in the W form;
    // decided before any platform call), and a missing variable when createIfMissing is
    // false. An existing variable is replaced whatever createIfMissing says.
    static bool SetStringA(const std::string& name, const std::string& value,
                           bool createIfMissing);
    static bool SetStringW(const std::wstring& name, const std::wstring& value,
                           bool createIfMissing);

    // Joins the elements with ";" (empty elements keep their place, so they
    // do not survive a GetArray) and sets the result as SetString does. An
    // empty name or an empty vector gives false.
    static bool SetArrayA(const std::string& name, const std::vector<std::string>& values,
                          bool createIfMissing);
    static bool SetArrayW(const std::wstring& name, const std::vector<std::wstring>& values,
                          bool createIfMissing);

    // Removes the variable. An empty name gives false; otherwise the result
    // is the platform's (removing a missing variable is its call to judge).
    static bool DeleteA(const std::string& name);
    static bool DeleteW(const std::wstring& name);

    // Nothing to copy; both return the object assigned to.
    EnvironmentVariable& operator=(const EnvironmentVariable& other);
    EnvironmentVariable& operator=(EnvironmentVariable&& other);
};
