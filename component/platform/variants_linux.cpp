// Life of the VARIANT: what it owns it frees, and copies in full.

#include "component/platform/automation.h"
#include "component/platform/safearray_linux.h"

namespace {

HRESULT copyOwned(VARIANT& copy) {
    if (copy.vt & VT_ARRAY) {
        SAFEARRAY* elements = nullptr;
        const HRESULT result = canvas::component::copySafeArray(copy.parray, elements);
        if (SUCCEEDED(result)) copy.parray = elements;
        return result;
    }
    if (copy.vt == VT_BSTR && copy.bstrVal) {
        copy.bstrVal = SysAllocStringLen(copy.bstrVal, SysStringLen(copy.bstrVal));
        return copy.bstrVal ? S_OK : E_OUTOFMEMORY;
    }
    if ((copy.vt == VT_DISPATCH || copy.vt == VT_UNKNOWN) && copy.punkVal) copy.punkVal->AddRef();
    return S_OK;
}

}  // namespace

void VariantInit(VARIANTARG* variant) {
    if (variant) *variant = VARIANT{};
}

/// A reference owns nothing: what it leads to stays.
HRESULT VariantClear(VARIANTARG* variant) {
    if (!variant) return E_INVALIDARG;
    const VARIANT old = *variant;
    if (!(old.vt & VT_BYREF) && (old.vt & VT_ARRAY) && old.parray && old.parray->cLocks) return DISP_E_ARRAYISLOCKED;
    *variant = VARIANT{};  // first: a Release may come back here
    if (old.vt & VT_BYREF) return S_OK;
    if (old.vt & VT_ARRAY) return SafeArrayDestroy(old.parray);
    if (old.vt == VT_BSTR) SysFreeString(old.bstrVal);
    if ((old.vt == VT_DISPATCH || old.vt == VT_UNKNOWN) && old.punkVal) old.punkVal->Release();
    return S_OK;
}

HRESULT VariantCopy(VARIANTARG* to, const VARIANTARG* from) {
    if (!to || !from) return E_INVALIDARG;
    if (to == from) return S_OK;
    VARIANT copy = *from;
    if (!(copy.vt & VT_BYREF))
        if (const HRESULT result = copyOwned(copy); FAILED(result)) return result;
    if (const HRESULT result = VariantClear(to); FAILED(result)) {
        VariantClear(&copy);
        return result;
    }
    *to = copy;
    return S_OK;
}
