#pragma once

#include <windows.h>

// Redirects one entry of a module's import address table to a replacement
// for the life of the object, and restores the original in the destructor.
// Tests use it to make a platform call that zrkCore.dll makes fail in a way
// the real platform won't produce on demand.
//
// Only calls that go through the module's import table are affected; the
// test's own calls to the same function are not. Not thread-safe: patch
// while no other thread is inside the module.
class ImportPatch {
public:
    // `module`: the module whose imports change (zrkCore.dll);
    // `importedDll`: the DLL the function is imported from ("KERNEL32.dll",
    // compared without regard to case); `function`: its name.
    ImportPatch(HMODULE module, const char* importedDll, const char* function,
                void* replacement);
    ~ImportPatch();

    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;

    // True when the entry was found and redirected.
    bool Active() const { return m_slot != nullptr; }

    // The function the entry pointed to before, for replacements that pass
    // some calls through.
    template <class F>
    F Original() const {
        return reinterpret_cast<F>(m_original);
    }

private:
    void** m_slot = nullptr;
    void* m_original = nullptr;
};

// The loaded zrkCore.dll.
HMODULE CoreModule();
