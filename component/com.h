#pragma once
// References to interfaces, and the count of what a host holds.

#include <utility>

#include "component/failure.h"

namespace canvas::component {

/// Owns one reference of an interface; null when there is none.
template <class T>
class Com {
public:
    Com() noexcept = default;
    /// Takes a reference of its own.
    explicit Com(T* object) noexcept : m_object(object) {
        if (m_object) outside([&] { return m_object->AddRef(); });
    }
    Com(const Com& other) noexcept : Com(other.m_object) {}
    Com(Com&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    ~Com() {
        if (m_object) outside([&] { return m_object->Release(); });
    }
    Com& operator=(Com other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }

    T* get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }
    /// Hands the reference over to the caller.
    [[nodiscard]] T* detach() noexcept { return std::exchange(m_object, nullptr); }
    /// Where a callee puts a reference that it hands over.
    T** out() noexcept {
        *this = Com();
        return &m_object;
    }

private:
    T* m_object = nullptr;
};

/// What the object answers for an interface; null also when it says yes and gives nothing.
template <class T>
Com<T> ask(IUnknown* object, REFIID iid) {
    void* answer = nullptr;
    Com<T> result;
    if (object && SUCCEEDED(outside([&] { return object->QueryInterface(iid, &answer); })))
        *result.out() = static_cast<T*>(answer);
    return result;
}

/// Counts what keeps the library in memory. An interface is called on the thread of its object, so plain integers do.
struct Held {
    inline static LONG objects = 0;  ///< objects of the library that a host holds
    inline static LONG others = 0;   ///< enumerators, class factories and their locks
};
template <LONG* Count>
class Counting {
public:
    Counting() noexcept { ++*Count; }
    ~Counting() { --*Count; }
    Counting(const Counting&) = delete;
    Counting& operator=(const Counting&) = delete;
};

/// IUnknown of an object with one interface and a count of its own. Begins with the one reference of its maker.
template <class Self, class Interface, const IID& iid>
class Standalone : public Interface {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID asked, void** answer) override {
        if (!answer) return E_POINTER;
        const bool known = asked == iid || asked == IID_IUnknown;
        *answer = known ? static_cast<Interface*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --m_references;
        if (left == 0) guarded([&] { return delete static_cast<Self*>(this), S_OK; });
        return left;
    }

private:
    Counting<&Held::others> m_counting;
    ULONG m_references = 1;
};

}  // namespace canvas::component
