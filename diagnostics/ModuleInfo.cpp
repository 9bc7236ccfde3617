#include "diagnostics/ModuleInfo.h"

#include <windows.h>

#include <tlhelp32.h>

#include <memory>

namespace {

// The module snapshot, closed on every way out, exceptions included.
class Snapshot {
public:
    explicit Snapshot(DWORD processId)
        : m_handle(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE | TH32CS_SNAPMODULE32, processId)) {}
    ~Snapshot() {
        if (Open()) {
            CloseHandle(m_handle);
        }
    }
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

    bool Open() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Handle() const { return m_handle; }

private:
    HANDLE m_handle;
};

// The file version of the module of that short name, or a version that is
// not valid when it has no readable fixed block carrying the signature.
zrkVersionInfo FileVersion(const wchar_t* moduleName) {
    zrkVersionInfo version = {};
    DWORD handleWord = 0;
    const DWORD size = GetFileVersionInfoSizeW(moduleName, &handleWord);
    if (size == 0) {
        return version;
    }
    std::unique_ptr<BYTE[]> block(new BYTE[size]);
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    if (GetFileVersionInfoW(moduleName, handleWord, size, block.get()) &&
        VerQueryValueW(block.get(), L"\\", reinterpret_cast<void**>(&fixed), &length) &&
        length != 0 && fixed->dwSignature == VS_FFI_SIGNATURE) {
        version.major = HIWORD(fixed->dwFileVersionMS);
        version.minor = LOWORD(fixed->dwFileVersionMS);
        version.build = HIWORD(fixed->dwFileVersionLS);
        version.revision = LOWORD(fixed->dwFileVersionLS);
        version.valid = true;
    }
    return version;
}

}  // namespace

zrkModuleInfo::zrkModuleInfo() : version() {}
zrkModuleInfo::~zrkModuleInfo() = default;
zrkModuleInfo::zrkModuleInfo(const zrkModuleInfo& other) = default;
zrkModuleInfo& zrkModuleInfo::operator=(const zrkModuleInfo& other) = default;
zrkModuleInfo::zrkModuleInfo(zrkModuleInfo&& other) noexcept = default;
zrkModuleInfo& zrkModuleInfo::operator=(zrkModuleInfo&& other) noexcept = default;

void PopulateModuleInfo(std::vector<zrkModuleInfo>* modules) {
    const Snapshot snapshot(GetCurrentProcessId());
    if (!snapshot.Open()) {
        return;
    }
    MODULEENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Module32FirstW(snapshot.Handle(), &entry); more;
         more = Module32NextW(snapshot.Handle(), &entry)) {
        zrkModuleInfo module;
        module.name = entry.szModule;
        module.path = entry.szExePath;
        module.version = FileVersion(entry.szModule);
        modules->push_back(module);
    }
}
