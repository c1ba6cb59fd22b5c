#pragma once
// Between C++ types and values.

#include <cstdint>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>

#include "host/array.h"

namespace canvas {

template <class T>
struct IsRef : std::false_type {};
template <class T>
struct IsRef<Ref<T>> : std::true_type {
    using Target = T;
};

/// Automation's conversion of a value to T. An object of another class than the one asked for is error 13.
template <class T>
T fromValue(const Value& value) {
    if constexpr (std::is_same_v<T, Value>) return value;
    else if constexpr (std::is_same_v<T, bool>) return value.toBoolean();
    else if constexpr (std::is_same_v<T, std::int16_t>) return value.toInteger();
    else if constexpr (std::is_same_v<T, std::int32_t>) return value.toLong();
    else if constexpr (std::is_same_v<T, float>) return value.toSingle();
    else if constexpr (std::is_same_v<T, double>) return value.toDouble();
    else if constexpr (std::is_same_v<T, std::string>) return value.toText();
    else if constexpr (std::is_enum_v<T>) return static_cast<T>(fromValue<std::underlying_type_t<T>>(value));
    else if constexpr (std::is_same_v<T, Ref<Object>>) return value.toObject();
    else if constexpr (IsRef<T>::value) {
        using Target = typename IsRef<T>::Target;
        const Ref<Object> object = value.toObject();
        auto* target = dynamic_cast<Target*>(object.get());
        if constexpr (requires { Target::tag; })  // a class may withhold a face that its C++ type has
            if (target && !object->face(&Target::tag)) target = nullptr;
        if (object && !target) raise(Error::typeMismatch);
        return T(target);
    } else static_assert(sizeof(T) == 0, "no conversion from Value");
}

template <class T>
Value toValue(T&& v) {
    using Plain = std::remove_cvref_t<T>;
    if constexpr (std::is_enum_v<Plain>) return Value(static_cast<std::underlying_type_t<Plain>>(v));
    else return Value(std::forward<T>(v));
}

/// Calls `object.name(args...)`. An argument wrapped in std::ref goes by reference: after the call it holds what
/// the callee left there, converted to its own type.
template <class... A>
Value invoke(Object& object, std::string_view name, A&&... arguments) {
    if constexpr (sizeof...(A) == 0) {
        return object.call(name);
    } else {
        const auto pack = [](auto& a) {
            if constexpr (requires { a.get(); } && !IsRef<std::remove_cvref_t<decltype(a)>>::value) return toValue(a.get());
            else return toValue(a);
        };
        Value values[] = {pack(arguments)...};
        Value result = object.call(name, values);
        const auto unpack = [](auto& a, const Value& value) {
            if constexpr (requires { a.get(); } && !IsRef<std::remove_cvref_t<decltype(a)>>::value)
                a.get() = fromValue<std::remove_cvref_t<decltype(a.get())>>(value);
        };
        std::size_t i = 0;
        (unpack(arguments, values[i++]), ...);
        return result;
    }
}

/// The object that a member gives; Nothing is error 91, anything else but an object error 424.
inline Ref<Object> objectAt(Object& object, std::string_view name) {
    Ref<Object> result = object.get(name).toObject();
    required(result);
    return result;
}

}  // namespace canvas
