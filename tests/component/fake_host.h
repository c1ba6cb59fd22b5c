#pragma once
// A host's object made of lambdas, and calls into the library as a host makes them.

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "component/com.h"
#include "component/text.h"
#include "component/variant.h"
#include "component/wrappers.h"
#include "host/array.h"

namespace canvas::component::testing {

/// One call that a host is given: arguments first one first.
struct HostCall {
    DISPID number;
    WORD flags;
    DISPPARAMS& parameters;
    VARIANT* result;
    EXCEPINFO* exception;

    UINT count() const { return parameters.cArgs; }
    VARIANT& operator[](UINT i) const { return parameters.rgvarg[parameters.cArgs - 1 - i]; }
    HRESULT answer(const Value& value) const {
        if (result) give(value, *result);
        return S_OK;
    }
};

/// Answers IDispatch. Numbers are given out in the order of the members' names.
class FakeHost : public IDispatch {
public:
    using Member = std::function<HRESULT(const HostCall&)>;

    /// Names in lower case.
    std::map<std::string, Member> members;
    /// What every look-up adds to the numbers before it.
    DISPID drift = 0;
    int lookUps = 0;
    bool* ended = nullptr;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** answer) override {
        const bool known = riid == IID_IUnknown || riid == IID_IDispatch;
        *answer = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --m_references;
        if (left == 0) {
            if (ended) *ended = true;
            delete this;
        }
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* numbers) override {
        ++lookUps;
        std::string name = utf8OfName(names[0]);
        for (char& c : name) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
        DISPID number = 1;
        for (const auto& [known, member] : members) {
            if (known == name) {
                numbers[0] = number + 1000 * (drift++);
                return S_OK;
            }
            ++number;
        }
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* exception, UINT*) override {
        const HostCall call{number, flags, *parameters, result, exception};
        if (number == DISPID_NEWENUM) return enumerate ? enumerate(call) : DISP_E_MEMBERNOTFOUND;
        if (number == DISPID_VALUE) return byDefault ? byDefault(call) : DISP_E_MEMBERNOTFOUND;
        if (numbered) return numbered(call);
        DISPID next = 1;
        for (const auto& [name, member] : members)
            if (next++ == number % 1000) return Member(member)(call);
        return DISP_E_MEMBERNOTFOUND;
    }

    Member enumerate, byDefault;
    /// When set, answers for every number, as an event sink does.
    Member numbered;

protected:
    virtual ~FakeHost() = default;

private:
    ULONG m_references = 1;
};

inline Com<FakeHost> makeHost() {
    Com<FakeHost> host;
    *host.out() = new FakeHost;
    return host;
}

inline Ref<Object> asObject(const Com<FakeHost>& host) { return objectBehind(host.get()); }

/// A member that always gives one value.
inline FakeHost::Member giving(Value value) {
    return [value](const HostCall& call) { return call.answer(value); };
}

/// Fails with an error's number, source and description.
inline HRESULT fail(const HostCall& call, int number, std::string_view description, std::string_view source = "Host") {
    if (call.exception) {
        *call.exception = EXCEPINFO{};
        call.exception->scode = static_cast<SCODE>(0x800A0000u + static_cast<unsigned>(number));
        call.exception->bstrDescription = bstrOf(description);
        call.exception->bstrSource = bstrOf(source);
    }
    return DISP_E_EXCEPTION;
}

/// What a call gave.
struct Outcome {
    HRESULT result = S_OK;
    Value value;
    SCODE scode = 0;
    std::string source, description;
    UINT wrongArgument = 99;
};

/// The number of a name; DISPID_UNKNOWN when there is none.
inline DISPID numberOf(IDispatch* object, std::string_view name) {
    const OwnedText text(name);
    LPOLESTR names[] = {text.get()};
    DISPID number = DISPID_UNKNOWN;
    object->GetIDsOfNames(IID_NULL, names, 1, 0, &number);
    return number;
}

/// Calls with VARIANTs as they are, first one first.
inline Outcome invokeRaw(IDispatch* object, DISPID number, WORD flags, std::vector<VARIANT> arguments) {
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPID put = DISPID_PROPERTYPUT;
    const bool writes = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{reversed.data(), writes ? &put : nullptr, static_cast<UINT>(reversed.size()), writes ? 1u : 0u};
    Outcome outcome;
    OwnedVariant answer;
    EXCEPINFO exception{};
    outcome.result = object->Invoke(number, IID_NULL, 0, flags, &parameters, &answer, &exception, &outcome.wrongArgument);
    outcome.scode = exception.scode;
    outcome.source = utf8Of(exception.bstrSource);
    outcome.description = utf8Of(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    outcome.value = valueOf(answer);
    return outcome;
}

inline Outcome call(IDispatch* object, std::string_view name, std::vector<Value> arguments = {},
                    WORD flags = DISPATCH_METHOD) {
    std::vector<OwnedVariant> owned(arguments.size());
    std::vector<VARIANT> variants;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        give(arguments[i], owned[i]);
        variants.push_back(owned[i]);
    }
    return invokeRaw(object, numberOf(object, name), flags, std::move(variants));
}

/// The VARTYPE of a member's result; -1 when the call fails.
inline int kindOf(IDispatch* object, std::string_view name, const std::vector<Value>& arguments = {}) {
    std::vector<OwnedVariant> reversed(arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i) give(arguments[i], reversed[arguments.size() - 1 - i]);
    std::vector<VARIANT> variants(reversed.begin(), reversed.end());
    DISPPARAMS parameters{variants.data(), nullptr, static_cast<UINT>(variants.size()), 0};
    OwnedVariant answer;
    const HRESULT result = object->Invoke(numberOf(object, name), IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                          &parameters, &answer, nullptr, nullptr);
    return SUCCEEDED(result) ? answer.vt : -1;
}

inline Outcome put(IDispatch* object, std::string_view name, Value value) {
    return call(object, name, {std::move(value)}, DISPATCH_PROPERTYPUT);
}

/// An argument by reference to a VARIANT.
inline VARIANT referenceTo(VARIANT& variant) {
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &variant;
    return reference;
}

}  // namespace canvas::component::testing
