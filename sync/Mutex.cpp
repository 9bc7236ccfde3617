#include "sync/Mutex.h"

#include <memory>

#include "sync/HandleRecord.h"

using zrk::detail::HandleRecord;

static_assert(sizeof(Mutex) == sizeof(void*), "one pointer wide");
static_assert(sizeof(GlobalMutex) == sizeof(void*), "one pointer wide");

namespace {

// A record with a new or opened mutex, never owned: unnamed for an empty
// name, "Global\" + name otherwise. A name holding a zero character would
// reach the platform cut short, as another name, so it gets no mutex.
HandleRecord* CreateMutexRecord(const std::wstring& name) {
    std::unique_ptr<HandleRecord> record(new HandleRecord{nullptr});
    if (name.empty()) {
        record->handle = CreateMutexW(nullptr, FALSE, nullptr);
    } else if (name.find(L'\0') == std::wstring::npos) {
        record->handle = CreateMutexW(nullptr, FALSE, (L"Global\\" + name).c_str());
    }
    return record.release();
}

}  // namespace

Mutex::Mutex() : Mutex(std::wstring()) {}

Mutex::Mutex(const std::wstring& name) : m_record(CreateMutexRecord(name)) {}

Mutex::~Mutex() {
    zrk::detail::DestroyHandleRecord(m_record);
}

void Mutex::Lock() {
    zrk::detail::WaitOnRecord(m_record, INFINITE);
}

bool Mutex::TryLock() {
    return zrk::detail::WaitOnRecord(m_record, 0);
}

void Mutex::Release() {
    ReleaseMutex(m_record->handle);
}

GlobalMutex::GlobalMutex(const std::wstring& name) : Mutex(name) {}
