#include "sync/SignalledObject.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

#include "sync/EventName.h"
#include "sync/HandleRecord.h"

using zrk::detail::HandleRecord;

static_assert(sizeof(SignalledObject) == sizeof(void*), "one pointer wide");

SignalledObject::SignalledObject() {
    std::unique_ptr<HandleRecord> record(new HandleRecord{nullptr});
    // Named after the record's address: unique among this process's objects.
    const std::string name =
        zrk::detail::SignalledObjectName(reinterpret_cast<std::uintptr_t>(record.get()));
    record->handle = CreateEventA(nullptr, TRUE, FALSE, name.c_str());
    m_record = record.release();
}

SignalledObject::~SignalledObject() {
    zrk::detail::DestroyHandleRecord(m_record);
}

void SignalledObject::Set() {
    SetEvent(m_record->handle);
}

void SignalledObject::Reset() {
    ResetEvent(m_record->handle);
}

void SignalledObject::Pulse() {
    PulseEvent(m_record->handle);
}

void SignalledObject::WaitFor() {
    zrk::detail::WaitOnRecord(m_record, INFINITE);
}

bool SignalledObject::IsSet() {
    return zrk::detail::WaitOnRecord(m_record, 0);
}

bool SignalledObject::WaitForCompletionWithTimeout(int milliseconds) {
    // -1 becomes all 32 bits set: INFINITE.
    return zrk::detail::WaitOnRecord(m_record, static_cast<DWORD>(milliseconds));
}

void SignalledObject::WaitFor(std::vector<SignalledObject*>& objects) {
    std::vector<HANDLE> handles;
    handles.reserve(objects.size());
    for (const SignalledObject* object : objects) {
        handles.push_back(object->m_record->handle);
    }
    // A count the platform cannot take fails the wait at once; the cap only
    // keeps a vast vector from wrapping to a small count.
    const auto count = static_cast<DWORD>(std::min<std::size_t>(handles.size(), MAXDWORD));
    WaitForMultipleObjects(count, handles.data(), TRUE, INFINITE);
}
