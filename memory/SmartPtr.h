#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "frame/Export.h"
#include "frame/NoCopy.h"

// Shared ownership by a count that lives inside the object.
//
// A class that is to be shared derives from SmartPtrTarget (plain count, for
// objects that stay on one thread or whose holders the user guards) or from
// SmartPtrTarget_ts (atomic count, for holders on several threads), and is
// created with new. SmartPtr<T> holders keep it alive: the first holder takes
// the count from 0 to 1, and the holder that gives back the last reference
// deletes the object through its virtual destructor.
//
// Unlike std::shared_ptr there is no control block: sharing allocates
// nothing, a holder is one pointer wide, and a raw pointer to a live target
// can always be turned into one more holder. The price is that the count
// belongs to the object, so a target must come from new, must not be deleted
// by hand while holders remain, and is not copyable.

template <class T>
class SmartPtr;

// A target with a plain 32-bit count.
//
// Threads: none of its own. All holders of one object must live on one
// thread, or their user must guard them.
class ZRK_API SmartPtrTarget : public NoCopy {
public:
    // The count starts at 0: the object has no holder yet.
    SmartPtrTarget();
    // Does not look at the count, so a target that was never shared can be
    // destroyed like any object.
    virtual ~SmartPtrTarget();

private:
    template <class T>
    friend class SmartPtr;

    // Adds one reference.
    void Claim();
    // Gives back one reference and deletes the object when that was the
    // last. Unpaired, on a count of 0, it takes the count to -1 and deletes
    // nothing.
    void Release();

    long m_refCount;
};

// A target with an atomic 32-bit count: Claim and Release are full-barrier
// interlocked operations, so holders of one object may be made and dropped on
// any threads at once. Of any number of concurrent last releases exactly one
// deletes the object. A separate class, not a kind of SmartPtrTarget.
//
// Threads: the count is safe; each SmartPtr holder itself is not, so two
// threads must not change one and the same holder at once.
class ZRK_API SmartPtrTarget_ts : public NoCopy {
public:
    SmartPtrTarget_ts();
    virtual ~SmartPtrTarget_ts();

private:
    template <class T>
    friend class SmartPtr;

    void Claim();
    // Deletes the object when the count was 1 before this release.
    void Release();

    volatile long m_refCount;
};

// A holder of one reference to a T, or of nothing. T derives from
// SmartPtrTarget or SmartPtrTarget_ts; the holder uses that base's Claim and
// Release, so one template serves both.
//
// Every reference a holder claims it gives back exactly once: when it is
// destroyed, reset or assigned another pointer. Copies claim one more
// reference; moves hand the reference over and claim nothing, leaving the
// source empty. There is deliberately no way to detach the pointer without
// giving the reference back.
//
// Operation names follow the standard smart pointers (get, reset, swap), so
// code written for those reads the same here.
//
// Threads: a holder is a plain value; two threads must not change one holder
// at once. Whether holders of one object may live on several threads is the
// target's choice of base.
template <class T>
class SmartPtr {
public:
    using element_type = T;

    // An empty holder.
    constexpr SmartPtr() noexcept : m_ptr(nullptr) {}
    constexpr SmartPtr(std::nullptr_t) noexcept : m_ptr(nullptr) {}

    // Holds `ptr` and claims a reference to it if it is not null. A fresh
    // object from new thus gets the count 1 and this single holder.
    explicit SmartPtr(T* ptr) noexcept : m_ptr(ptr) {
        if (m_ptr != nullptr) {
            m_ptr->Claim();
        }
    }

    // One more holder of the same object: claims a reference.
    SmartPtr(const SmartPtr& other) noexcept : SmartPtr(other.m_ptr) {}
    // Takes over the other holder's reference; `other` is left empty.
    SmartPtr(SmartPtr&& other) noexcept : m_ptr(other.m_ptr) { other.m_ptr = nullptr; }

    // The same from a holder of a class derived from T.
    template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    SmartPtr(const SmartPtr<U>& other) noexcept : SmartPtr(static_cast<T*>(other.m_ptr)) {}
    template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    SmartPtr(SmartPtr<U>&& other) noexcept : m_ptr(other.m_ptr) {
        other.m_ptr = nullptr;
    }

    // Gives back the reference held, which may delete the object.
    ~SmartPtr() {
        if (m_ptr != nullptr) {
            m_ptr->Release();
        }
    }

    // Assignment claims the new reference before it gives back the old one,
    // so assigning a holder to itself, or to a holder of the same object,
    // never lets the count reach 0 on the way.
    SmartPtr& operator=(const SmartPtr& other) noexcept {
        SmartPtr(other).swap(*this);
        return *this;
    }
    // Self-move leaves the holder as it was.
    SmartPtr& operator=(SmartPtr&& other) noexcept {
        SmartPtr(std::move(other)).swap(*this);
        return *this;
    }
    template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    SmartPtr& operator=(const SmartPtr<U>& other) noexcept {
        SmartPtr(other).swap(*this);
        return *this;
    }
    template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    SmartPtr& operator=(SmartPtr<U>&& other) noexcept {
        SmartPtr(std::move(other)).swap(*this);
        return *this;
    }
    // Gives back the reference held and becomes empty.
    SmartPtr& operator=(std::nullptr_t) noexcept {
        reset();
        return *this;
    }

    // Gives back the reference held and becomes empty.
    void reset() noexcept { SmartPtr().swap(*this); }
    // Claims a reference to `ptr` (if not null), then gives back the old
    // one: the same as assigning SmartPtr<T>(ptr).
    void reset(T* ptr) noexcept { SmartPtr(ptr).swap(*this); }

    // Exchanges the objects of two holders; no count changes.
    void swap(SmartPtr& other) noexcept {
        T* held = m_ptr;
        m_ptr = other.m_ptr;
        other.m_ptr = held;
    }

    // The object held, or null. The pointer stays valid for as long as some
    // holder keeps the object.
    T* get() const noexcept { return m_ptr; }
    // Access to the object held; the holder must not be empty.
    T* operator->() const noexcept { return m_ptr; }
    T& operator*() const noexcept { return *m_ptr; }

    // True if the holder holds an object.
    explicit operator bool() const noexcept { return m_ptr != nullptr; }

private:
    template <class U>
    friend class SmartPtr;

    T* m_ptr;
};

template <class T>
void swap(SmartPtr<T>& a, SmartPtr<T>& b) noexcept {
    a.swap(b);
}

// Holders compare by the objects they hold, empty holders equal to null.
template <class T, class U>
bool operator==(const SmartPtr<T>& a, const SmartPtr<U>& b) noexcept {
    return a.get() == b.get();
}
template <class T, class U>
bool operator!=(const SmartPtr<T>& a, const SmartPtr<U>& b) noexcept {
    return a.get() != b.get();
}
template <class T>
bool operator==(const SmartPtr<T>& a, std::nullptr_t) noexcept {
    return a.get() == nullptr;
}
template <class T>
bool operator==(std::nullptr_t, const SmartPtr<T>& a) noexcept {
    return a.get() == nullptr;
}
template <class T>
bool operator!=(const SmartPtr<T>& a, std::nullptr_t) noexcept {
    return a.get() != nullptr;
}
template <class T>
bool operator!=(std::nullptr_t, const SmartPtr<T>& a) noexcept {
    return a.get() != nullptr;
}
