#include "diagnostics/ModuleInfo.h"

#include <windows.h>

#include <tlhelp32.h>

#include <cstddef>
#include <memory>

#include "diagnostics/FileVersion.h"

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

// The platform's fixed block, as FileVersionNumbers reads it.
static_assert(offsetof(VS_FIXEDFILEINFO, dwSignature) == 0 &&
                  offsetof(VS_FIXEDFILEINFO, dwFileVersionMS) == 8 &&
                  offsetof(VS_FIXEDFILEINFO, dwFileVersionLS) == 12,
              "the fixed block's layout");

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
    void* fixed = nullptr;
    UINT length = 0;
    if (GetFileVersionInfoW(moduleName, handleWord, size, block.get()) &&
        VerQueryValueW(block.get(), L"\\", &fixed, &length)) {
        if (const auto numbers = zrk::detail::FileVersionNumbers(fixed, length)) {
            version = {(*numbers)[0], (*numbers)[1], (*numbers)[2], (*numbers)[3], true};
        }
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
