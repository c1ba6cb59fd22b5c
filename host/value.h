#pragma once
// Value: the automation variant that crosses every late-bound call.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "host/object.h"

namespace canvas {

struct Array;

struct Empty {
    friend bool operator==(Empty, Empty) noexcept { return true; }
};
struct Null {
    friend bool operator==(Null, Null) noexcept { return true; }
};

/// An array held by value: copying a Value copies its array with all elements.
class ArrayBox {
public:
    explicit ArrayBox(Array array);
    ArrayBox(const ArrayBox& other);
    ArrayBox(ArrayBox&& other) noexcept = default;
    ArrayBox& operator=(ArrayBox other) noexcept {
        std::swap(m_array, other.m_array);
        return *this;
    }
    ~ArrayBox();
    Array& operator*() const noexcept { return *m_array; }
    Array* operator->() const noexcept { return m_array.get(); }

private:
    std::unique_ptr<Array> m_array;
};

/// Kinds in the order of the storage below.
enum class Kind { empty, null, boolean, integer, longInteger, singleFloat, doubleFloat, text, object, array };

/// Empty, null, boolean, 16- and 32-bit integer, single, double, text (UTF-8), object (or Nothing), array.
/// The `to...` conversions are those of automation: numeric text converts, a whole number rounds half to even,
/// what does not fit is error 6, what is no number is error 13, null is error 94, an object gives its default
/// member.
class Value {
public:
    using Storage = std::variant<Empty, Null, bool, std::int16_t, std::int32_t, float, double, std::string,
                                 Ref<Object>, ArrayBox>;

    Value() noexcept = default;
    Value(Empty) noexcept {}
    Value(Null) noexcept : m_storage(Null{}) {}
    Value(bool v) noexcept : m_storage(v) {}
    Value(std::int16_t v) noexcept : m_storage(v) {}
    Value(std::int32_t v) noexcept : m_storage(v) {}
    Value(float v) noexcept : m_storage(v) {}
    Value(double v) noexcept : m_storage(v) {}
    Value(std::string v) noexcept : m_storage(std::move(v)) {}
    Value(std::string_view v) : m_storage(std::string(v)) {}
    Value(const char* v) : m_storage(std::string(v)) {}
    template <class T>
        requires std::is_base_of_v<Object, T>
    Value(Ref<T> v) noexcept : m_storage(Ref<Object>(std::move(v))) {}
    Value(Array v);
    Value(const void*) = delete;  // a pointer would otherwise turn into a boolean

    Kind kind() const noexcept { return static_cast<Kind>(m_storage.index()); }
    bool is(Kind k) const noexcept { return kind() == k; }
    const Storage& storage() const noexcept { return m_storage; }

    std::string toText() const;
    std::int16_t toInteger() const;
    std::int32_t toLong() const;
    float toSingle() const;
    double toDouble() const;
    bool toBoolean() const;
    /// The object held, or Nothing; error 424 for any other kind.
    Ref<Object> toObject() const;
    /// The array held; error 13 for any other kind.
    const Array& toArray() const;
    Array& toArray();

    /// The text held, without a copy; null for any other kind.
    const std::string* text() const noexcept { return std::get_if<std::string>(&m_storage); }

    /// "String", "Integer", "Long", "Single", "Double", "Boolean", "Empty", "Null", "Nothing", an object's class
    /// name, or the element type followed by "()".
    std::string typeName() const;

    /// Same kind and same content; objects by identity.
    friend bool operator==(const Value& a, const Value& b);

private:
    Storage m_storage;
};

}  // namespace canvas
