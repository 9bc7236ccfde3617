#pragma once

#include <windows.h>

// The heap record behind Mutex, GlobalMutex and SignalledObject: the handle
// of one kernel object, null when the platform refused to create it. Each
// object owns its record alone, so the object stays one pointer wide and the
// public headers need no Windows header. The three classes share the steps
// below: closing the record and waiting on its object.
namespace zrk::detail {

struct HandleRecord {
    HANDLE handle;
};

// Closes the handle and frees the record; nothing for a null record. Closing
// a null handle fails unseen, which is all a refused object needs.
inline void DestroyHandleRecord(HandleRecord* record) {
    if (record != nullptr) {
        CloseHandle(record->handle);
        delete record;
    }
}

// Waits up to `milliseconds` (INFINITE: without limit) for the record's
// object: true only for WAIT_OBJECT_0, so an abandoned mutex, a time-out and
// a failed wait (a null handle fails at once) are all false.
inline bool WaitOnRecord(const HandleRecord* record, DWORD milliseconds) {
    return WaitForSingleObject(record->handle, milliseconds) == WAIT_OBJECT_0;
}

}  // namespace zrk::detail
