#pragma once
// An object composed from lambdas: the short way for a host or a test to offer members by name.

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "host/convert.h"

namespace canvas {

/// Names match without regard to case, the empty name is the default member. Error 438 for a name that was not given,
/// and for writing what is read-only or reading what is write-only; 450 for indexes on a property that takes none.
class Composed final : public Object {
public:
    using Operation = std::function<Value(Args)>;

    explicit Composed(std::string className = "Object") : m_className(std::move(className)) {}

    /// An operation or read-only property. Replaces one of the same name.
    Composed& method(std::string name, Operation operation);
    /// A property that stores what is put.
    Composed& property(std::string name, Value value);
    /// A property with behaviour of its own; a null function leaves that side out.
    Composed& property(std::string name, Operation read, std::function<void(const Value&)> write);
    /// Takes a member away again.
    Composed& without(std::string_view name);

    std::string_view className() const noexcept override { return m_className; }
    Value get(std::string_view name, Args args = {}) override;
    void put(std::string_view name, const Value& value, Args args = {}) override;

private:
    struct Entry {
        Operation read;
        std::function<void(const Value&)> write;
        /// What a stored property holds; nothing for members with functions.
        std::optional<Value> stored;
    };
    struct IgnoringCase {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const noexcept;
    };
    Entry& found(std::string_view name);

    std::string m_className;
    std::map<std::string, Entry, IgnoringCase> m_members;
};

}  // namespace canvas
