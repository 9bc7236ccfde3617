#include "memory/SmartPtr.h"

#include <windows.h>

static_assert(sizeof(SmartPtr<SmartPtrTarget>) == sizeof(void*), "a holder is one pointer");
static_assert(sizeof(long) == 4, "the count is 32 bits");

SmartPtrTarget::SmartPtrTarget() : m_refCount(0) {}

SmartPtrTarget::~SmartPtrTarget() {}

void SmartPtrTarget::Claim() {
    ++m_refCount;
}

void SmartPtrTarget::Release() {
    // The object is gone after the delete: nothing may touch the count then.
    if (--m_refCount == 0) {
        delete this;
    }
}

SmartPtrTarget_ts::SmartPtrTarget_ts() : m_refCount(0) {}

SmartPtrTarget_ts::~SmartPtrTarget_ts() {}

void SmartPtrTarget_ts::Claim() {
    InterlockedIncrement(&m_refCount);
}

void SmartPtrTarget_ts::Release() {
    // Decide by the value before the decrement, which exactly one of any
    // number of concurrent releases sees as 1. Full barrier, so every write a
    // holder made to the object before releasing is visible to the thread
    // that runs the destructor.
    if (InterlockedExchangeAdd(&m_refCount, -1) == 1) {
        delete this;
    }
}
