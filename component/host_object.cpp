#include "component/host_object.h"

#include <algorithm>
#include <array>

#include "component/enumerators.h"
#include "component/failure.h"
#include "component/text.h"
#include "component/values.h"
#include "component/variant.h"
#include "component/wrappers.h"
#include "host/required.h"

namespace canvas::component {
namespace {

constexpr WORD reading = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

/// Of the row of that name; a name that no host is required to have gets everything by value.
std::uint32_t referencesOf(std::string_view name) {
    for (const RequiredMember& row : requiredMembers())
        if (sameName(row.member, name)) return row.byReference;
    return 0;
}

/// The arguments of one call, last one first, those by reference leading to variants beside them.
class Parameters {
public:
    Parameters(Args args, std::uint32_t byReference) : Parameters(args, byReference, args.size()) {
        for (std::size_t i = 0; i < args.size(); ++i) {
            VARIANT& place = m_variants[m_variants.size() - 1 - i];
            if (!goesByReference(i)) {
                give(args[i], place);
                continue;
            }
            give(args[i], m_referenced[i]);
            place.pvarVal = &m_referenced[i];
            place.vt = VT_BYREF | VT_VARIANT;
        }
    }
    ~Parameters() {
        for (VARIANT& variant : std::span(m_variants).last(m_used)) clear(variant);
        for (VARIANT& variant : std::span(m_referenced).first(m_args.size())) clear(variant);
    }
    Parameters(const Parameters&) = delete;
    Parameters& operator=(const Parameters&) = delete;

    /// A value to write stands behind its indexes.
    void addValue(const Value& value) {
        ++m_used;
        give(value, *first());
    }
    DISPPARAMS pack(DISPID* nameOfValue = nullptr) noexcept {
        return {m_used ? first() : nullptr, nameOfValue, static_cast<UINT>(m_used), nameOfValue ? 1u : 0u};
    }
    void takeBack() {
        for (std::size_t i = 0; i < m_args.size(); ++i)
            if (goesByReference(i)) m_args[i] = valueOf(m_referenced[i]);
    }

private:
    /// Complete before anything is converted, so that what was converted is freed when the next one fails.
    Parameters(Args args, std::uint32_t byReference, std::size_t used)
        : m_args(args), m_byReference(byReference), m_used(used) {
        if (used > Values::most) raise(Error::argumentCount);
    }
    bool goesByReference(std::size_t i) const noexcept { return (m_byReference >> i & 1U) != 0; }
    VARIANT* first() noexcept { return m_variants.data() + m_variants.size() - m_used; }

    Args m_args;
    std::uint32_t m_byReference;
    std::size_t m_used;
    std::array<VARIANT, Values::most + 1> m_variants{};
    std::array<VARIANT, Values::most> m_referenced{};
};

}  // namespace

HostObject::HostObject(IDispatch* dispatch)
    : m_dispatch(dispatch), m_extended(ask<IDispatchEx>(dispatch, IID_IDispatchEx)) {
    Wrappers::add(dispatch, this);
}

HostObject::~HostObject() { Wrappers::remove(m_dispatch.get()); }

DISPID HostObject::lookUp(std::string_view name) const {
    DISPID number = DISPID_UNKNOWN;
    OwnedText text(name);
    HRESULT result = DISP_E_UNKNOWNNAME;
    if (m_extended) {
        result = outside([&] { return m_extended->GetDispID(text.get(), fdexNameCaseInsensitive, &number); });
    } else {
        LPOLESTR names[] = {text.get()};
        result = outside([&] { return m_dispatch->GetIDsOfNames(IID_NULL, names, 1, 0, &number); });
    }
    return FAILED(result) ? DISPID_UNKNOWN : number;
}

HostObject::Name HostObject::found(std::string_view name) {
    if (name.empty()) return {{}, DISPID_VALUE, 0};
    for (const Name& known : m_names)
        if (sameName(known.name, name)) return known;
    const DISPID number = lookUp(name);
    if (number == DISPID_UNKNOWN) raise(Error::noSuchMember);
    m_names.push_back({std::string(name), number, referencesOf(name)});
    return m_names.back();
}

void HostObject::forget(std::string_view name) noexcept {
    std::erase_if(m_names, [&](const Name& known) { return sameName(known.name, name); });
}

HRESULT HostObject::called(DISPID number, WORD flags, DISPPARAMS& parameters, VARIANT* answer, EXCEPINFO& exception) {
    return outside([&] {
        return m_dispatch->Invoke(number, IID_NULL, 0, flags, &parameters, answer, &exception, nullptr);
    });
}

Value HostObject::get(std::string_view name, Args args) {
    const Ref<Object> alive(this);
    const Name member = found(name);
    Parameters parameters(args, member.byReference);
    DISPPARAMS packed = parameters.pack();
    OwnedVariant answer;
    EXCEPINFO exception{};
    const HRESULT result = called(member.number, reading, packed, &answer, exception);
    if (result == DISP_E_MEMBERNOTFOUND) forget(name);
    if (FAILED(result)) throw errorOf(result, exception);
    parameters.takeBack();
    return valueOf(answer);
}

void HostObject::put(std::string_view name, const Value& value, Args args) {
    const Ref<Object> alive(this);
    const Name member = found(name);
    Parameters parameters(args, 0);
    parameters.addValue(value);
    DISPID nameOfValue = DISPID_PROPERTYPUT;
    DISPPARAMS packed = parameters.pack(&nameOfValue);
    const auto write = [&](WORD flags) {
        EXCEPINFO exception{};
        const HRESULT result = called(member.number, flags, packed, nullptr, exception);
        if (FAILED(result) && result != DISP_E_MEMBERNOTFOUND) throw errorOf(result, exception);
        return SUCCEEDED(result);
    };
    // A property that holds objects may offer either way.
    if (value.is(Kind::object) && write(DISPATCH_PROPERTYPUTREF)) return;
    if (write(DISPATCH_PROPERTYPUT)) return;
    forget(name);
    raise(Error::noSuchMember);
}

std::unique_ptr<Enumerator> HostObject::enumerate() {
    const Ref<Object> alive(this);
    DISPPARAMS none{};
    OwnedVariant answer;
    EXCEPINFO exception{};
    const HRESULT result = called(DISPID_NEWENUM, reading, none, &answer, exception);
    if (result == DISP_E_EXCEPTION) {
        RuntimeError error = errorOf(result, exception);
        if (error.number != static_cast<int>(Error::noSuchMember)) throw error;
    }
    const bool gives = SUCCEEDED(result) && (answer.vt == VT_UNKNOWN || answer.vt == VT_DISPATCH);
    Com<IEnumVARIANT> enumerator = ask<IEnumVARIANT>(gives ? answer.punkVal : nullptr, IID_IEnumVARIANT);
    return enumerator ? std::make_unique<HostEnumerator>(std::move(enumerator)) : nullptr;
}

}  // namespace canvas::component
