#pragma once
// Object: anything that answers to members by name, this library's own classes and a host's objects alike.

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "host/ref.h"

namespace canvas {

class Value;

/// Arguments of a late-bound call. All go by reference: a callee that declares one so writes its answer there.
using Args = std::span<Value>;

/// Walks a collection once, in order.
class Enumerator {
public:
    virtual ~Enumerator() = default;
    /// False at the end; `item` is then left alone.
    virtual bool next(Value& item) = 0;
};

/// Takes an object's variables one by one, for the variable report.
class VariableSink {
public:
    virtual void variable(std::string_view name, const Value& value) = 0;

protected:
    ~VariableSink() = default;
};

/// Counted: an object is made by `make<T>()` and lives as long as a Ref holds it, never on the stack or as a member,
/// since every late-bound call holds it for the time of the call.
class Object {
public:
    Object() noexcept = default;
    /// A copy is an object of its own, with no references yet.
    Object(const Object&) noexcept {}
    Object& operator=(const Object&) noexcept { return *this; }
    virtual ~Object() = default;

    void retain() noexcept { ++m_count; }
    void release() noexcept {
        if (--m_count == 0) delete this;
    }

    /// The name that type tests and reports show.
    virtual std::string_view className() const noexcept = 0;

    /// Reads a property or calls an operation; names match without regard to case, the empty name is the default
    /// member. Error 438 when there is no such member, 450 for a wrong number of arguments.
    virtual Value get(std::string_view name, Args args = {});
    /// Writes a property; `args` are its indexes.
    virtual void put(std::string_view name, const Value& value, Args args = {});
    /// Calls an operation; a property answers too.
    virtual Value call(std::string_view name, Args args = {});

    /// Null when the object cannot be enumerated (it may still offer Count and Item).
    virtual std::unique_ptr<Enumerator> enumerate();

    /// The object's variables in their order, under their own names.
    virtual void reportVariables(VariableSink&) const {}

    /// The object's C++ side, for callers on a fast path: the address that belongs to `tag`, or null.
    virtual void* face(const void* tag) noexcept;

private:
    std::int32_t m_count = 0;
};

/// The C++ face T of an object, or null. T declares `static constexpr char tag = 0;` and answers `face(&tag)`.
template <class T>
T* faceOf(Object& object) noexcept {
    return static_cast<T*>(object.face(&T::tag));
}

/// Members are matched by name without regard to case (ASCII letters).
bool sameName(std::string_view a, std::string_view b) noexcept;

}  // namespace canvas
