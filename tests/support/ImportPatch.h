#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>

#include "frame/NoCopy.h"

// Redirects one entry of a module's import address table to a replacement
// for the life of the object: a failure of a platform call that zrkCore.dll
// makes, on demand, or a record of what it asks. The test's own calls are not
// affected. An entry that is not there fails the running test. Not
// thread-safe: patch while no other thread is inside the module.
class ImportPatch : NoCopy {
public:
    // `module`: the module whose imports change (CoreModule()); `importedDll`:
    // the DLL the function comes from ("KERNEL32.dll", any case);
    // `function`: its name.
    ImportPatch(HMODULE module, const char* importedDll, const char* function,
                void* replacement)
        : m_slot(FindSlot(reinterpret_cast<BYTE*>(module), importedDll, function)) {
        if (m_slot == nullptr) {
            ADD_FAILURE() << "no import of " << function << " from " << importedDll;
            return;
        }
        m_original = *m_slot;
        Write(replacement);
    }
    ~ImportPatch() {
        if (m_slot != nullptr) {
            Write(m_original);
        }
    }

    // True when the entry was found and redirected.
    bool Active() const { return m_slot != nullptr; }

    // The function the entry pointed to before, for replacements that pass
    // calls on.
    template <class F>
    F Original() const {
        return reinterpret_cast<F>(m_original);
    }

private:
    // The import descriptors name each DLL; behind each, a table of names and
    // the address table that the loader filled run in parallel.
    static void** FindSlot(BYTE* base, const char* importedDll, const char* function) {
        if (base == nullptr) {
            return nullptr;
        }
        auto* nt = reinterpret_cast<IMAGE_NT_HEADERS*>(
            base + reinterpret_cast<IMAGE_DOS_HEADER*>(base)->e_lfanew);
        const DWORD imports =
            nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
        for (auto* dll = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + imports);
             imports != 0 && dll->Name != 0; ++dll) {
            if (_stricmp(reinterpret_cast<char*>(base + dll->Name), importedDll) != 0) {
                continue;
            }
            auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(base + dll->OriginalFirstThunk);
            auto* slots = reinterpret_cast<IMAGE_THUNK_DATA*>(base + dll->FirstThunk);
            for (; names->u1.AddressOfData != 0; ++names, ++slots) {
                if (!IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal) &&
                    std::strcmp(reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(
                                    base + names->u1.AddressOfData)->Name,
                                function) == 0) {
                    return reinterpret_cast<void**>(&slots->u1.Function);
                }
            }
        }
        return nullptr;
    }
    void Write(void* value) {
        DWORD protection = 0;
        VirtualProtect(m_slot, sizeof(void*), PAGE_READWRITE, &protection);
        *m_slot = value;
        VirtualProtect(m_slot, sizeof(void*), protection, &protection);
    }

    void** m_slot;
    void* m_original = nullptr;
};

// The loaded zrkCore.dll.
inline HMODULE CoreModule() {
    return GetModuleHandleW(L"zrkCore.dll");
}
