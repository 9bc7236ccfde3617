#include "support/ImportPatch.h"

#include <cstring>

namespace {

void** FindImportSlot(HMODULE module, const char* importedDll, const char* function) {
    auto* base = reinterpret_cast<BYTE*>(module);
    auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
    auto* nt = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& dir =
        nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (dir.VirtualAddress == 0) {
        return nullptr;
    }
    for (auto* desc = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + dir.VirtualAddress);
         desc->Name != 0; ++desc) {
        if (_stricmp(reinterpret_cast<char*>(base + desc->Name), importedDll) != 0) {
            continue;
        }
        // The name table and the address table run in parallel.
        auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(base + desc->OriginalFirstThunk);
        auto* slots = reinterpret_cast<IMAGE_THUNK_DATA*>(base + desc->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++slots) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) {
                continue;
            }
            auto* byName = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            if (std::strcmp(reinterpret_cast<char*>(byName->Name), function) == 0) {
                return reinterpret_cast<void**>(&slots->u1.Function);
            }
        }
    }
    return nullptr;
}

void WriteSlot(void** slot, void* value) {
    DWORD oldProtection = 0;
    VirtualProtect(slot, sizeof(void*), PAGE_READWRITE, &oldProtection);
    *slot = value;
    VirtualProtect(slot, sizeof(void*), oldProtection, &oldProtection);
}

}  // namespace

ImportPatch::ImportPatch(HMODULE module, const char* importedDll, const char* function,
                         void* replacement) {
    void** slot = module ? FindImportSlot(module, importedDll, function) : nullptr;
    if (slot != nullptr) {
        m_original = *slot;
        WriteSlot(slot, replacement);
        m_slot = slot;
    }
}

ImportPatch::~ImportPatch() {
    if (m_slot != nullptr) {
        WriteSlot(m_slot, m_original);
    }
}

HMODULE CoreModule() {
    return GetModuleHandleW(L"zrkCore.dll");
}
