#include "component/failure.h"

#include <new>
#include <utility>

#include "component/text.h"

namespace canvas::component {
namespace {

SCODE codeOf(int number) noexcept {
    if (number > 0 && number <= 0xFFFF) return static_cast<SCODE>(errorFacility + static_cast<std::uint32_t>(number));
    if (number < 0) return number;  // a host's own code, on its way back
    return static_cast<SCODE>(errorFacility + static_cast<std::uint32_t>(Error::automation));
}

int numberOf(SCODE code) noexcept {
    const auto bits = static_cast<std::uint32_t>(code);
    return (bits & 0xFFFF0000) == errorFacility ? static_cast<int>(bits & 0xFFFF) : code;
}

/// The number that a code without further information stands for.
Error plainError(HRESULT result) noexcept {
    switch (result) {
        case DISP_E_MEMBERNOTFOUND:
        case DISP_E_UNKNOWNNAME: return Error::noSuchMember;
        case DISP_E_TYPEMISMATCH:
        case DISP_E_BADVARTYPE: return Error::typeMismatch;
        case DISP_E_OVERFLOW: return Error::overflow;
        case DISP_E_BADINDEX: return Error::subscript;
        case DISP_E_BADPARAMCOUNT:
        case DISP_E_PARAMNOTOPTIONAL:
        case DISP_E_PARAMNOTFOUND: return Error::argumentCount;
        case E_OUTOFMEMORY: return Error::outOfMemory;
        case E_INVALIDARG: return Error::invalidCall;
        case E_NOTIMPL: return Error::actionNotSupported;
        default: return Error::automation;
    }
}

}  // namespace

HRESULT exceptionOf(const RuntimeError& error, EXCEPINFO* info) {
    if (!info) return DISP_E_EXCEPTION;
    *info = EXCEPINFO{};
    info->scode = codeOf(error.number);
    info->bstrSource = bstrOf(error.source);
    info->bstrDescription = bstrOf(error.description);
    return DISP_E_EXCEPTION;
}

HRESULT refusalOf(const RuntimeError& error) noexcept {
    switch (static_cast<Error>(error.number)) {
        case Error::overflow: return DISP_E_OVERFLOW;
        case Error::argumentCount: return DISP_E_BADPARAMCOUNT;
        case Error::noSuchMember: return DISP_E_MEMBERNOTFOUND;
        case Error::outOfMemory: return E_OUTOFMEMORY;
        default: return DISP_E_TYPEMISMATCH;
    }
}

RuntimeError errorOf(HRESULT result, EXCEPINFO& info) {
    if (result != DISP_E_EXCEPTION) return RuntimeError(plainError(result));
    if (info.pfnDeferredFillIn) outside([&] { return info.pfnDeferredFillIn(&info); });
    int number = info.wCode ? info.wCode : numberOf(info.scode);
    if (number == 0) number = static_cast<int>(Error::automation);
    const auto taken = [](BSTR& text) {
        std::string utf8 = utf8Of(text);
        SysFreeString(std::exchange(text, nullptr));
        return utf8;
    };
    std::string description = taken(info.bstrDescription);
    std::string source = taken(info.bstrSource);
    taken(info.bstrHelpFile);
    if (description.empty()) description = descriptionOf(number > 0 ? number : static_cast<int>(Error::automation));
    return RuntimeError(number, std::move(description), std::move(source));
}

HRESULT resultOfCaught(EXCEPINFO* info) noexcept {
    try {
        throw;
    } catch (const RuntimeError& error) {
        try {
            return exceptionOf(error, info);
        } catch (...) {
            return E_OUTOFMEMORY;
        }
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;  // a programmer's mistake
    }
}

}  // namespace canvas::component
