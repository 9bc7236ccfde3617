#include "sync/CriticalSection.h"

#include <windows.h>

static_assert(sizeof(CriticalSection) == sizeof(void*), "one pointer wide");
static_assert(sizeof(CriticalToken) == sizeof(void*), "one pointer wide");

namespace {

// The steps both classes share, parameterised by the spin count: the one
// thing that sets the two classes apart.
template <DWORD SpinCount>
struct SectionSteps {
    static CRITICAL_SECTION* Create() {
        CRITICAL_SECTION* section = new CRITICAL_SECTION;
        // Cannot fail on the systems we run on (it could only before Vista,
        // out of memory); the result is not read.
        InitializeCriticalSectionAndSpinCount(section, SpinCount);
        return section;
    }
    static void Destroy(CRITICAL_SECTION* section) {
        if (section != nullptr) {
            DeleteCriticalSection(section);
            delete section;
        }
    }
    static void Lock(CRITICAL_SECTION* section) { EnterCriticalSection(section); }
    static bool TryLock(CRITICAL_SECTION* section) {
        return TryEnterCriticalSection(section) != FALSE;
    }
    static void Release(CRITICAL_SECTION* section) { LeaveCriticalSection(section); }
};

using CriticalSectionSteps = SectionSteps<1024>;
using CriticalTokenSteps = SectionSteps<0xFFFFFFFF>;

}  // namespace

CriticalSection::CriticalSection() : m_section(CriticalSectionSteps::Create()) {}
CriticalSection::~CriticalSection() {
    CriticalSectionSteps::Destroy(m_section);
}
void CriticalSection::Lock() {
    CriticalSectionSteps::Lock(m_section);
}
bool CriticalSection::TryLock() {
    return CriticalSectionSteps::TryLock(m_section);
}
void CriticalSection::Release() {
    CriticalSectionSteps::Release(m_section);
}

CriticalToken::CriticalToken() : m_section(CriticalTokenSteps::Create()) {}
CriticalToken::~CriticalToken() {
    CriticalTokenSteps::Destroy(m_section);
}
void CriticalToken::Lock() {
    CriticalTokenSteps::Lock(m_section);
}
bool CriticalToken::TryLock() {
    return CriticalTokenSteps::TryLock(m_section);
}
void CriticalToken::Release() {
    CriticalTokenSteps::Release(m_section);
}
