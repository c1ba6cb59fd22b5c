#include "host/value.h"

#include "host/array.h"
#include "host/numbers.h"

namespace canvas {
namespace {

/// What a conversion works on: an object stands for its default member.
template <class F>
auto onPlain(const Value& value, F&& convert) {
    if (!value.is(Kind::object)) return convert(value);
    return convert(required(value.toObject()).get(""));
}

/// The number behind a value; whole kinds are exact in a double.
double number(const Value& value) {
    switch (value.kind()) {
        case Kind::empty: return 0;
        case Kind::null: raise(Error::invalidNull);
        case Kind::boolean: return std::get<bool>(value.storage()) ? -1 : 0;
        case Kind::integer: return std::get<std::int16_t>(value.storage());
        case Kind::longInteger: return std::get<std::int32_t>(value.storage());
        case Kind::singleFloat: return static_cast<double>(std::get<float>(value.storage()));
        case Kind::doubleFloat: return std::get<double>(value.storage());
        case Kind::text: return numbers::toDouble(*value.text());
        case Kind::object:
        case Kind::array: break;
    }
    raise(Error::typeMismatch);
}

std::string plainText(const Value& value) {
    switch (value.kind()) {
        case Kind::empty: return {};
        case Kind::null: raise(Error::invalidNull);
        case Kind::boolean: return std::get<bool>(value.storage()) ? "True" : "False";
        case Kind::integer: return numbers::textOf(std::int32_t{std::get<std::int16_t>(value.storage())});
        case Kind::longInteger: return numbers::textOf(std::get<std::int32_t>(value.storage()));
        case Kind::singleFloat: return numbers::textOf(std::get<float>(value.storage()));
        case Kind::doubleFloat: return numbers::textOf(std::get<double>(value.storage()));
        case Kind::text: return *value.text();
        case Kind::object:
        case Kind::array: break;
    }
    raise(Error::typeMismatch);
}

}  // namespace

ArrayBox::ArrayBox(Array array) : m_array(std::make_unique<Array>(std::move(array))) {}
ArrayBox::ArrayBox(const ArrayBox& other) : m_array(std::make_unique<Array>(*other.m_array)) {}
ArrayBox::~ArrayBox() = default;

Value::Value(Array v) : m_storage(ArrayBox(std::move(v))) {}

std::string Value::toText() const { return onPlain(*this, plainText); }

std::int16_t Value::toInteger() const {
    return onPlain(*this, [](const Value& v) { return numbers::roundToInteger(number(v)); });
}

std::int32_t Value::toLong() const {
    return onPlain(*this, [](const Value& v) { return numbers::roundToLong(number(v)); });
}

float Value::toSingle() const {
    return onPlain(*this, [](const Value& v) { return numbers::roundToSingle(number(v)); });
}

double Value::toDouble() const { return onPlain(*this, number); }

bool Value::toBoolean() const {
    return onPlain(*this, [](const Value& v) { return v.text() ? numbers::toBoolean(*v.text()) : number(v) != 0; });
}

Ref<Object> Value::toObject() const {
    if (const auto* object = std::get_if<Ref<Object>>(&m_storage)) return *object;
    raise(Error::objectRequired);
}

const Array& Value::toArray() const {
    if (const auto* box = std::get_if<ArrayBox>(&m_storage)) return **box;
    raise(Error::typeMismatch);
}

Array& Value::toArray() { return const_cast<Array&>(std::as_const(*this).toArray()); }

std::string Value::typeName() const {
    switch (kind()) {
        case Kind::empty: return "Empty";
        case Kind::null: return "Null";
        case Kind::boolean: return "Boolean";
        case Kind::integer: return "Integer";
        case Kind::longInteger: return "Long";
        case Kind::singleFloat: return "Single";
        case Kind::doubleFloat: return "Double";
        case Kind::text: return "String";
        case Kind::object: {
            const auto& object = std::get<Ref<Object>>(m_storage);
            return object ? std::string(object->className()) : "Nothing";
        }
        case Kind::array: return toArray().elementType + "()";
    }
    return "Unknown";
}

bool operator==(const Value& a, const Value& b) {
    if (a.kind() != b.kind()) return false;
    if (a.is(Kind::array)) return a.toArray() == b.toArray();
    return std::visit(
        [](const auto& x, const auto& y) {
            using X = std::decay_t<decltype(x)>;
            if constexpr (std::is_same_v<X, std::decay_t<decltype(y)>> && !std::is_same_v<X, ArrayBox>) return x == y;
            else return false;
        },
        a.m_storage, b.m_storage);
}

}  // namespace canvas
