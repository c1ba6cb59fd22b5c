#pragma once
// Counted references to objects. An object belongs to the thread that made it: counts are plain integers.

#include <cstddef>
#include <utility>

#include "host/errors.h"

namespace canvas {

/// Owns one count of a T that offers `retain()` and `release()`. Null means "Nothing".
template <class T>
class Ref {
public:
    Ref() noexcept = default;
    Ref(std::nullptr_t) noexcept {}
    /// Takes a count of its own.
    explicit Ref(T* object) noexcept : m_object(object) {
        if (m_object) m_object->retain();
    }
    Ref(const Ref& other) noexcept : Ref(other.m_object) {}
    Ref(Ref&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    template <class U>
    Ref(const Ref<U>& other) noexcept : Ref(other.get()) {}
    template <class U>
    Ref(Ref<U>&& other) noexcept : m_object(other.detach()) {}
    ~Ref() {
        if (m_object) m_object->release();
    }

    Ref& operator=(Ref other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }

    T* get() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    T* operator->() const noexcept { return m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }
    /// Hands the count over to the caller.
    [[nodiscard]] T* detach() noexcept { return std::exchange(m_object, nullptr); }

    friend bool operator==(const Ref& a, const Ref& b) noexcept { return a.m_object == b.m_object; }
    friend bool operator==(const Ref& a, std::nullptr_t) noexcept { return a.m_object == nullptr; }

private:
    T* m_object = nullptr;
};

/// A new object with the one count of its first reference. A class that has a way of its own to begin offers `create`.
template <class T, class... Args>
Ref<T> make(Args&&... args) {
    if constexpr (requires { T::create(std::forward<Args>(args)...); }) return T::create(std::forward<Args>(args)...);
    else return Ref<T>(new T(std::forward<Args>(args)...));
}

/// The object behind a reference that may be Nothing, which is error 91.
template <class T>
T& required(const Ref<T>& reference) {
    if (!reference) raise(Error::objectNotSet);
    return *reference;
}

template <class T>
T& required(T* object) {
    if (!object) raise(Error::objectNotSet);
    return *object;
}

}  // namespace canvas
