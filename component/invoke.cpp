#include "component/invoke.h"

#include "attributes/attribute.h"
#include "component/enumerators.h"
#include "component/failure.h"
#include "component/text.h"
#include "component/values.h"
#include "component/variant.h"

namespace canvas::component {
namespace {

constexpr WORD reading = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr WORD writing = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

/// The caller's arguments, first one first; for a write the value is apart.
struct Given {
    std::span<VARIANT> reversed;
    const VARIANT* value = nullptr;

    std::size_t count() const noexcept { return reversed.size(); }
    VARIANT& operator[](std::size_t i) const noexcept { return reversed[reversed.size() - 1 - i]; }
    /// Place in the caller's own list.
    UINT placeOf(int argument) const noexcept {
        const UINT values = value ? 1 : 0;
        if (value && static_cast<std::size_t>(argument) >= count()) return 0;
        return values + static_cast<UINT>(count()) - 1 - static_cast<UINT>(argument);
    }
};

HRESULT arrange(const Call& call, bool writes, Given& given) {
    const DISPPARAMS& p = *call.parameters;
    if ((p.cArgs && !p.rgvarg) || (p.cNamedArgs && !p.rgdispidNamedArgs)) return E_INVALIDARG;
    const bool namesValue = writes && p.cNamedArgs == 1 && p.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    if (p.cNamedArgs && !namesValue) return DISP_E_UNKNOWNNAME;
    given.reversed = {p.rgvarg, p.cArgs};
    if (writes) {
        if (p.cArgs == 0) return DISP_E_BADPARAMCOUNT;
        given.value = &p.rgvarg[0];
        given.reversed = given.reversed.subspan(1);
    }
    while (given.count() && isLeftOut(given[given.count() - 1])) given.reversed = given.reversed.subspan(1);
    return S_OK;
}

/// Counts that the member does not take, and left-out arguments among those it needs.
HRESULT checkCount(const NumberedMember& row, const Given& given, const Call& call) {
    const Member* member = row.member;
    if (!member) return (row.field || row.isPart) && given.count() ? DISP_E_BADPARAMCOUNT : S_OK;
    const auto most = static_cast<std::size_t>(member->arguments);
    const std::size_t least = most - static_cast<std::size_t>(member->optional);
    if (given.count() > most || given.count() < least) return DISP_E_BADPARAMCOUNT;
    for (std::size_t i = 0; i < least; ++i) {
        if (!isLeftOut(given[i])) continue;
        if (call.argument) *call.argument = given.placeOf(static_cast<int>(i));
        return DISP_E_PARAMNOTOPTIONAL;
    }
    return S_OK;
}

void convert(const Given& given, Values& values) {
    for (std::size_t i = 0; i < given.count(); ++i) {
        try {
            values.add(isLeftOut(given[i]) ? Value() : valueOf(given[i]));
        } catch (const RuntimeError& error) {
            throw ArgumentError(error, static_cast<int>(i));
        }
    }
}

Value read(Object& object, const NumberedMember& row, Args args) {
    if (row.field) return row.field->at.asValue(static_cast<AttributeObject&>(object));
    if (row.member) return row.member->read(object, args);
    return object.call(row.name, args);
}

void write(Object& object, const NumberedMember& row, Args args, const VARIANT& given) {
    Value value;
    detail::convert([&](int& at) {
        at = static_cast<int>(args.size());
        value = valueOf(given);
        if (row.field) row.field->at.assign(static_cast<AttributeObject&>(object), value);
    });
    if (row.member) row.member->write(object, args, value);
    else if (!row.field) object.put(row.name, value, args);
}

void giveBackReferences(const NumberedMember& row, const Given& given, Values& values) {
    const std::uint32_t mask = row.member ? row.member->byReference : row.field ? 0 : ~0u;
    for (std::size_t i = 0; i < given.count() && i < 32; ++i)
        if (mask >> i & 1U) giveBack(values[i], given[i]);
}

HRESULT run(Object& object, const NumberedMember& row, const Given& given, bool writes, const Call& call) {
    Values values;
    convert(given, values);
    if (writes) {
        write(object, row, values.args(), *given.value);
        return S_OK;
    }
    const Value result = read(object, row, values.args());
    OwnedVariant answer;
    give(result, answer);
    try {
        giveBackReferences(row, given, values);
    } catch (const RuntimeError& error) {
        return refusalOf(error);
    }
    if (call.result) std::swap(*call.result, static_cast<VARIANT&>(answer));
    return S_OK;
}

/// A failure of an object that is only known by name tells also whether it has the member.
HRESULT failed(const NumberedMember& row, const RuntimeError& error, EXCEPINFO* info) {
    const bool unknown = !row.member && !row.field && (error.number == static_cast<int>(Error::noSuchMember) ||
                                                       error.number == static_cast<int>(Error::argumentCount));
    return unknown ? refusalOf(error) : exceptionOf(error, info);
}

/// Not so Nothing where an object must be, and what an object raises when its default member is asked for.
bool isConversion(const ArgumentError& error) {
    switch (static_cast<Error>(error.number)) {
        case Error::typeMismatch:
        case Error::overflow:
        case Error::invalidNull:
        case Error::objectRequired: return true;
        default: return false;
    }
}

HRESULT attempt(Object& object, const NumberedMember& row, const Given& given, bool writes, const Call& call) {
    try {
        return run(object, row, given, writes, call);
    } catch (const ArgumentError& error) {
        if (!isConversion(error)) return exceptionOf(error, call.exception);
        if (call.argument) *call.argument = given.placeOf(error.argument);
        return refusalOf(error);
    } catch (const RuntimeError& error) {
        return failed(row, error, call.exception);
    }
}

}  // namespace

HRESULT invoke(Object& object, const MemberList& members, const Call& call) {
    if (!call.parameters || !(call.flags & (reading | writing))) return E_INVALIDARG;
    if (call.result) *call.result = VARIANT{};
    const bool writes = (call.flags & writing) != 0;
    Given given;
    if (const HRESULT result = arrange(call, writes, given); FAILED(result)) return result;
    if (call.number == DISPID_NEWENUM)
        return writes ? DISP_E_MEMBERNOTFOUND : giveEnumerator(object, given.count(), call);
    const NumberedMember* row = members.find(call.number, given.count());
    if (!row || !(writes ? row->isWritable() : row->isReadable())) return DISP_E_MEMBERNOTFOUND;
    if (given.count() > Values::most) return DISP_E_BADPARAMCOUNT;
    if (const HRESULT result = checkCount(*row, given, call); FAILED(result)) return result;
    const Ref<Object> alive(&object);
    return attempt(object, *row, given, writes, call);
}

HRESULT numbersOf(const MemberList& members, LPOLESTR* names, UINT count, DISPID* numbers) {
    if (!names || !numbers || count == 0) return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i) numbers[i] = DISPID_UNKNOWN;
    if (!names[0]) return E_INVALIDARG;
    numbers[0] = members.numberOf(utf8OfName(names[0]));
    const bool named = count > 1;  // arguments have no names
    return named || numbers[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
}

}  // namespace canvas::component
