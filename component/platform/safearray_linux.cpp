// Arrays as the component's callers own them.

#include "component/platform/safearray_linux.h"

#include <cstdlib>

using canvas::component::copySafeArray;

namespace {

constexpr UINT mostDimensions = 60;
constexpr std::uint64_t mostBytes = 0x7FFFFFFF;

/// The element's type stands in the bytes just before the array, as FADF_HAVEVARTYPE says.
struct Prefix {
    std::uint32_t padding[3];
    std::uint32_t type;
};
Prefix* prefixOf(SAFEARRAY* array) noexcept { return reinterpret_cast<Prefix*>(array) - 1; }

ULONG sizeOf(VARTYPE type) noexcept {
    switch (type) {
        case VT_I1: case VT_UI1: return 1;
        case VT_I2: case VT_UI2: case VT_BOOL: return 2;
        case VT_I4: case VT_UI4: case VT_INT: case VT_UINT: case VT_R4: case VT_ERROR: return 4;
        case VT_R8: case VT_CY: case VT_DATE: case VT_I8: case VT_UI8: return 8;
        case VT_BSTR: case VT_DISPATCH: case VT_UNKNOWN: return sizeof(void*);
        case VT_VARIANT: return sizeof(VARIANT);
        default: return 0;
    }
}

USHORT featuresOf(VARTYPE type) noexcept {
    switch (type) {
        case VT_BSTR: return FADF_HAVEVARTYPE | FADF_BSTR;
        case VT_DISPATCH: return FADF_HAVEVARTYPE | FADF_DISPATCH;
        case VT_UNKNOWN: return FADF_HAVEVARTYPE | FADF_UNKNOWN;
        case VT_VARIANT: return FADF_HAVEVARTYPE | FADF_VARIANT;
        default: return FADF_HAVEVARTYPE;
    }
}

std::size_t countOf(const SAFEARRAY* array) noexcept {
    std::size_t count = 1;
    for (UINT d = 0; d < array->cDims; ++d) count *= array->rgsabound[d].cElements;
    return count;
}

bool owned(USHORT features) noexcept { return (features & (FADF_BSTR | FADF_DISPATCH | FADF_UNKNOWN | FADF_VARIANT)) != 0; }

void clearElement(USHORT features, void* at) {
    if (features & FADF_BSTR) SysFreeString(*static_cast<BSTR*>(at));
    else if (features & FADF_VARIANT) VariantClear(static_cast<VARIANT*>(at));
    else if (features & (FADF_DISPATCH | FADF_UNKNOWN))
        if (auto* object = *static_cast<IUnknown**>(at)) object->Release();
}

/// `to` holds nothing yet.
HRESULT copyElement(const SAFEARRAY* array, const void* from, void* to) {
    std::memset(to, 0, array->cbElements);
    if (array->fFeatures & FADF_VARIANT) return VariantCopy(static_cast<VARIANT*>(to), static_cast<const VARIANT*>(from));
    if (array->fFeatures & FADF_BSTR) {
        const BSTR text = *static_cast<const BSTR*>(from);
        if (text && !(*static_cast<BSTR*>(to) = SysAllocStringLen(text, SysStringLen(text)))) return E_OUTOFMEMORY;
        return S_OK;
    }
    std::memcpy(to, from, array->cbElements);
    if (array->fFeatures & (FADF_DISPATCH | FADF_UNKNOWN))
        if (auto* object = *static_cast<IUnknown**>(to)) object->AddRef();
    return S_OK;
}

/// Null when an index is out of bounds.
void* elementAt(SAFEARRAY* array, const LONG* indexes) noexcept {
    std::size_t offset = 0, stride = 1;
    for (UINT d = 0; d < array->cDims; ++d) {
        const SAFEARRAYBOUND& bound = array->rgsabound[array->cDims - 1 - d];
        const std::int64_t place = std::int64_t{indexes[d]} - bound.lLbound;
        if (place < 0 || place >= bound.cElements) return nullptr;
        offset += static_cast<std::size_t>(place) * stride;
        stride *= bound.cElements;
    }
    return static_cast<char*>(array->pvData) + offset * array->cbElements;
}

SAFEARRAY* allocate(VARTYPE type, UINT dimensions, std::size_t bytes) {
    const std::size_t header = sizeof(Prefix) + sizeof(SAFEARRAY) + (dimensions - 1) * sizeof(SAFEARRAYBOUND);
    auto* prefix = static_cast<Prefix*>(std::calloc(1, header));
    void* data = prefix ? std::calloc(1, bytes ? bytes : 1) : nullptr;
    if (!data) {
        std::free(prefix);
        return nullptr;
    }
    prefix->type = type;
    auto* array = reinterpret_cast<SAFEARRAY*>(prefix + 1);
    array->cDims = static_cast<USHORT>(dimensions);
    array->fFeatures = featuresOf(type);
    array->cbElements = sizeOf(type);
    array->pvData = data;
    return array;
}

}  // namespace

SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds) {
    if (!sizeOf(type) || !bounds || dimensions == 0 || dimensions > mostDimensions) return nullptr;
    std::uint64_t bytes = sizeOf(type);
    for (UINT d = 0; d < dimensions; ++d) {
        if (bounds[d].cElements && bytes > mostBytes / bounds[d].cElements) return nullptr;
        bytes *= bounds[d].cElements;
    }
    SAFEARRAY* array = allocate(type, dimensions, bytes);
    if (!array) return nullptr;
    for (UINT d = 0; d < dimensions; ++d) array->rgsabound[dimensions - 1 - d] = bounds[d];
    return array;
}

HRESULT SafeArrayDestroy(SAFEARRAY* array) {
    if (!array) return S_OK;
    if (array->cLocks) return DISP_E_ARRAYISLOCKED;
    if (owned(array->fFeatures))
        for (std::size_t i = 0, count = countOf(array); i < count; ++i)
            clearElement(array->fFeatures, static_cast<char*>(array->pvData) + i * array->cbElements);
    std::free(array->pvData);
    std::free(prefixOf(array));
    return S_OK;
}

HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indexes, void* element) {
    if (!array || !indexes || !element) return E_INVALIDARG;
    const void* at = elementAt(array, indexes);
    return at ? copyElement(array, at, element) : DISP_E_BADINDEX;
}

/// Text and variants are copied; an object is passed as itself and gets a reference, as on the platform that made
/// this interface.
HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indexes, void* element) {
    if (!array || !indexes) return E_INVALIDARG;
    void* at = elementAt(array, indexes);
    if (!at) return DISP_E_BADINDEX;
    alignas(VARIANT) char fresh[sizeof(VARIANT)], old[sizeof(VARIANT)];
    const bool pointer = (array->fFeatures & (FADF_BSTR | FADF_DISPATCH | FADF_UNKNOWN)) != 0;
    if (!pointer && !element) return E_INVALIDARG;
    if (const HRESULT result = copyElement(array, pointer ? &element : element, fresh); FAILED(result)) return result;
    std::memcpy(old, at, array->cbElements);
    std::memcpy(at, fresh, array->cbElements);
    clearElement(array->fFeatures, old);  // last: a Release may come back here
    return S_OK;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
    if (!array || !bound) return E_INVALIDARG;
    if (dimension == 0 || dimension > array->cDims) return DISP_E_BADINDEX;
    *bound = array->rgsabound[array->cDims - dimension].lLbound;
    return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
    const HRESULT result = SafeArrayGetLBound(array, dimension, bound);
    if (SUCCEEDED(result)) *bound += static_cast<LONG>(array->rgsabound[array->cDims - dimension].cElements) - 1;
    return result;
}

UINT SafeArrayGetDim(SAFEARRAY* array) { return array ? array->cDims : 0; }

HRESULT canvas::component::copySafeArray(SAFEARRAY* from, SAFEARRAY*& to) {
    to = nullptr;
    if (!from) return S_OK;
    const std::size_t count = countOf(from);
    to = allocate(static_cast<VARTYPE>(prefixOf(from)->type), from->cDims, count * from->cbElements);
    if (!to) return E_OUTOFMEMORY;
    std::memcpy(to->rgsabound, from->rgsabound, from->cDims * sizeof(SAFEARRAYBOUND));
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t offset = i * from->cbElements;
        const HRESULT result =
            copyElement(from, static_cast<char*>(from->pvData) + offset, static_cast<char*>(to->pvData) + offset);
        if (SUCCEEDED(result)) continue;
        SafeArrayDestroy(to);
        to = nullptr;
        return result;
    }
    return S_OK;
}
