#pragma once
// Member tables: one list per class says which names it answers to late-bound, in slot order.
//
//     std::span<const Member> clsBVTCanvas::table() noexcept {
//         static constexpr Member members[] = {
//             property<&clsBVTCanvas::strName>("Name"),
//             method<&clsBVTCanvas::AddEdge>("AddEdge"),
//         };
//         return members;
//     }
//
// Argument counts, types and what goes by reference (non-const references) are read off the C++ declaration.

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "host/convert.h"

namespace canvas {

struct Member {
    using Read = Value (*)(Object&, Args);
    using Write = void (*)(Object&, Args, const Value&);
    // Both raise ArgumentError for what does not convert; through a name it arrives as a plain run-time error.

    std::string_view name;
    /// Property read or operation call; null for a write-only property.
    Read read = nullptr;
    /// Null for operations and read-only properties.
    Write write = nullptr;
    bool isProperty = false;
    /// Arguments of an operation, or indexes of a property.
    int arguments = 0;
    /// How many of the last arguments may be left out.
    int optional = 0;
    /// The operation or property that the empty name reaches.
    bool isDefault = false;
    /// Arguments that the operation may write: bit 0 is the first.
    std::uint32_t byReference = 0;
};

/// The member of that name, or null. A name may stand twice with different counts of arguments: then the count
/// decides, and the first row serves a count that fits neither.
const Member* findMember(std::span<const Member> members, std::string_view name, std::size_t arguments);
Value readMember(std::span<const Member> members, Object& self, std::string_view name, Args args);
void writeMember(std::span<const Member> members, Object& self, std::string_view name, const Value& value, Args args);

/// Base of a class that answers by its table `static const std::span<const Member> T::table()`.
template <class T, class Base = Object>
class Tabled : public Base {
public:
    using Base::Base;
    Value get(std::string_view name, Args args = {}) override { return readMember(T::table(), *this, name, args); }
    void put(std::string_view name, const Value& value, Args args = {}) override {
        writeMember(T::table(), *this, name, value, args);
    }
    std::string_view className() const noexcept override { return T::name; }
    /// Identifies the class itself to `faceOf`.
    static constexpr char tag = 0;
    void* face(const void* asked) noexcept override {
        return asked == &tag ? static_cast<T*>(this) : Base::face(asked);
    }
};

namespace detail {

/// Holds one argument for the time of a call, as the C++ declaration wants it.
template <class A>
struct Held {
    using Plain = std::remove_cvref_t<A>;
    static constexpr bool isObject = std::is_base_of_v<Object, Plain>;
    static constexpr bool byReference =
        std::is_lvalue_reference_v<A> && !std::is_const_v<std::remove_reference_t<A>> && !isObject;
    using Stored = std::conditional_t<isObject, Ref<Plain>,
                                      std::conditional_t<std::is_same_v<Plain, std::string_view>, std::string, Plain>>;
    Stored stored{};

    void take(const Value& value) {
        stored = fromValue<Stored>(value);
        if constexpr (isObject) required(stored);
    }
    A pass() {
        if constexpr (isObject) return *stored;
        else return static_cast<A>(stored);
    }
    void give(Value& value) const {
        if constexpr (byReference) value = toValue(stored);
    }
};

/// Runs conversions of arguments; `at` is the place of the one under way.
template <class Conversions>
void convert(Conversions&& conversions) {
    int at = 0;
    try {
        conversions(at);
    } catch (const RuntimeError& reason) {
        throw ArgumentError(reason, at);
    }
}

template <class F>
struct Signature;
template <class T, class R, class... A>
struct Signature<R (T::*)(A...)> {
    using Class = T;
    using Result = R;
    static constexpr int count = sizeof...(A);
    static constexpr std::uint32_t byReference = [] {
        std::uint32_t bits = 0, bit = 1;
        ((bits |= Held<A>::byReference ? bit : 0, bit <<= 1), ...);
        return bits;
    }();
    using Holders = std::tuple<Held<A>...>;
    template <auto F>
    static Value call(Object& self, Args args) {
        Holders held;
        return callHeld<F>(static_cast<T&>(self), args, held, std::index_sequence_for<A...>{});
    }

private:
    template <auto F, std::size_t... I>
    static Value callHeld(T& self, Args args, Holders& held, std::index_sequence<I...>) {
        convert([&](int& at) {
            ((I < args.size() ? (at = static_cast<int>(I), std::get<I>(held).take(args[I])) : void()), ...);
        });
        const auto giveBack = [&] { ((I < args.size() ? std::get<I>(held).give(args[I]) : void()), ...); };
        if constexpr (std::is_void_v<R>) {
            (self.*F)(std::get<I>(held).pass()...);
            giveBack();
            return {};
        } else {
            Value result = toValue((self.*F)(std::get<I>(held).pass()...));
            giveBack();
            return result;
        }
    }
};
template <class T, class R, class... A>
struct Signature<R (T::*)(A...) const> : Signature<R (T::*)(A...)> {};
template <class T, class R, class... A>
struct Signature<R (T::*)(A...) noexcept> : Signature<R (T::*)(A...)> {};
template <class T, class R, class... A>
struct Signature<R (T::*)(A...) const noexcept> : Signature<R (T::*)(A...)> {};

template <auto M>
struct DataOf;
template <class T, class V, V T::*M>
struct DataOf<M> {
    static Value read(Object& self, Args) { return toValue(static_cast<T&>(self).*M); }
    static void write(Object& self, Args, const Value& value) {
        convert([&](int&) { static_cast<T&>(self).*M = fromValue<V>(value); });
    }
};

template <auto F>
using SignatureOf = Signature<decltype(F)>;

/// Indexes first, then the value.
template <auto F>
void writeThrough(Object& self, Args args, const Value& value) {
    using S = SignatureOf<F>;
    std::array<Value, S::count> all;
    std::copy(args.begin(), args.end(), all.begin());  // `writeMember` lets at most count - 1 pass
    all[args.size()] = value;
    S::template call<F>(self, Args(all.data(), args.size() + 1));
}

}  // namespace detail

/// A property that stores and returns a public data member.
template <auto M>
    requires std::is_member_object_pointer_v<decltype(M)>
constexpr Member property(std::string_view name) {
    return {.name = name, .read = &detail::DataOf<M>::read, .write = &detail::DataOf<M>::write, .isProperty = true};
}

/// A property read and written through functions; `nullptr` leaves that side out.
template <auto Get, auto Put>
constexpr Member property(std::string_view name) {
    Member member{.name = name, .isProperty = true};
    if constexpr (!std::is_null_pointer_v<decltype(Get)>) {
        if constexpr (std::is_member_object_pointer_v<decltype(Get)>) member.read = &detail::DataOf<Get>::read;
        else {
            member.read = &detail::SignatureOf<Get>::template call<Get>;
            member.arguments = detail::SignatureOf<Get>::count;
            member.byReference = detail::SignatureOf<Get>::byReference;
        }
    }
    if constexpr (!std::is_null_pointer_v<decltype(Put)>) {
        if constexpr (std::is_member_object_pointer_v<decltype(Put)>) member.write = &detail::DataOf<Put>::write;
        else {
            member.write = &detail::writeThrough<Put>;
            member.arguments = detail::SignatureOf<Put>::count - 1;
        }
    }
    return member;
}

template <auto F>
constexpr Member method(std::string_view name, int optional = 0) {
    return {.name = name,
            .read = &detail::SignatureOf<F>::template call<F>,
            .arguments = detail::SignatureOf<F>::count,
            .optional = optional,
            .byReference = detail::SignatureOf<F>::byReference};
}

/// The member that the empty name reaches.
constexpr Member byDefault(Member member) {
    member.isDefault = true;
    return member;
}

}  // namespace canvas
