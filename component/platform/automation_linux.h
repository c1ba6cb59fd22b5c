#pragma once
// Component types for a platform that has none of its own: the names, vtable orders and struct layouts of 64-bit
// Windows ([MS-OAUT], [MS-DCOM]) with this platform's calling convention. Characters are UTF-16 units.

#include <cstdint>
#include <cstring>

using HRESULT = std::int32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using WORD = std::uint16_t;
using USHORT = std::uint16_t;
using BOOL = std::int32_t;
using LCID = std::uint32_t;
using SCODE = std::int32_t;
using DISPID = std::int32_t;
using VARTYPE = std::uint16_t;
using VARIANT_BOOL = std::int16_t;
using OLECHAR = char16_t;
using LPOLESTR = OLECHAR*;
using BSTR = OLECHAR*;  ///< a 32-bit count of bytes stands just before the text; null is the empty text

#define STDMETHODCALLTYPE

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2, Data3;
    std::uint8_t Data4[8];
};
using IID = GUID;
using CLSID = GUID;
using REFIID = const IID&;
using REFCLSID = const CLSID&;
inline bool operator==(const GUID& a, const GUID& b) noexcept { return std::memcmp(&a, &b, sizeof(GUID)) == 0; }

constexpr HRESULT failureCode(std::uint32_t code) noexcept { return static_cast<HRESULT>(code); }
inline constexpr HRESULT S_OK = 0, S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = failureCode(0x80004001), E_NOINTERFACE = failureCode(0x80004002),
                         E_POINTER = failureCode(0x80004003), E_FAIL = failureCode(0x80004005),
                         E_UNEXPECTED = failureCode(0x8000FFFF), E_OUTOFMEMORY = failureCode(0x8007000E),
                         E_INVALIDARG = failureCode(0x80070057);
inline constexpr HRESULT DISP_E_UNKNOWNINTERFACE = failureCode(0x80020001),
                         DISP_E_MEMBERNOTFOUND = failureCode(0x80020003),
                         DISP_E_PARAMNOTFOUND = failureCode(0x80020004), DISP_E_TYPEMISMATCH = failureCode(0x80020005),
                         DISP_E_UNKNOWNNAME = failureCode(0x80020006), DISP_E_BADVARTYPE = failureCode(0x80020008),
                         DISP_E_EXCEPTION = failureCode(0x80020009), DISP_E_OVERFLOW = failureCode(0x8002000A),
                         DISP_E_BADINDEX = failureCode(0x8002000B), DISP_E_ARRAYISLOCKED = failureCode(0x8002000D),
                         DISP_E_BADPARAMCOUNT = failureCode(0x8002000E),
                         DISP_E_PARAMNOTOPTIONAL = failureCode(0x8002000F);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = failureCode(0x80040110),
                         CLASS_E_CLASSNOTAVAILABLE = failureCode(0x80040111),
                         CONNECT_E_NOCONNECTION = failureCode(0x80040200),
                         CONNECT_E_CANNOTCONNECT = failureCode(0x80040202), SELFREG_E_CLASS = failureCode(0x80040201);
constexpr bool SUCCEEDED(HRESULT result) noexcept { return result >= 0; }
constexpr bool FAILED(HRESULT result) noexcept { return result < 0; }

enum : VARTYPE {
    VT_EMPTY = 0, VT_NULL = 1, VT_I2 = 2, VT_I4 = 3, VT_R4 = 4, VT_R8 = 5, VT_CY = 6, VT_DATE = 7, VT_BSTR = 8,
    VT_DISPATCH = 9, VT_ERROR = 10, VT_BOOL = 11, VT_VARIANT = 12, VT_UNKNOWN = 13, VT_I1 = 16, VT_UI1 = 17,
    VT_UI2 = 18, VT_UI4 = 19, VT_I8 = 20, VT_UI8 = 21, VT_INT = 22, VT_UINT = 23, VT_ARRAY = 0x2000, VT_BYREF = 0x4000,
    VT_TYPEMASK = 0xFFF
};
inline constexpr VARIANT_BOOL VARIANT_TRUE = -1, VARIANT_FALSE = 0;

struct SAFEARRAYBOUND {
    ULONG cElements;
    LONG lLbound;
};
enum : USHORT {
    FADF_AUTO = 1, FADF_STATIC = 2, FADF_FIXEDSIZE = 0x10, FADF_HAVEVARTYPE = 0x80, FADF_BSTR = 0x100,
    FADF_UNKNOWN = 0x200, FADF_DISPATCH = 0x400, FADF_VARIANT = 0x800
};
/// One bound for each dimension, the last dimension's first; elements with the first index running fastest.
struct SAFEARRAY {
    USHORT cDims;
    USHORT fFeatures;
    ULONG cbElements;
    ULONG cLocks;
    void* pvData;
    SAFEARRAYBOUND rgsabound[1];
};

struct IUnknown;
struct IDispatch;
union CY {
    std::int64_t int64;
};
struct VARIANT {
    VARTYPE vt;
    WORD wReserved1, wReserved2, wReserved3;
    union {
        std::int16_t iVal;
        LONG lVal;
        float fltVal;
        double dblVal;
        CY cyVal;
        VARIANT_BOOL boolVal;
        SCODE scode;
        std::int64_t llVal;
        BSTR bstrVal;
        IUnknown* punkVal;
        IDispatch* pdispVal;
        SAFEARRAY* parray;
        std::int16_t* piVal;
        LONG* plVal;
        float* pfltVal;
        double* pdblVal;
        VARIANT_BOOL* pboolVal;
        BSTR* pbstrVal;
        IDispatch** ppdispVal;
        SAFEARRAY** pparray;
        VARIANT* pvarVal;
        void* byref;
        struct {
            void* pvRecord;
            void* pRecInfo;
        } record;
    };
};
using VARIANTARG = VARIANT;

struct DISPPARAMS {
    VARIANTARG* rgvarg;  ///< the last argument first
    DISPID* rgdispidNamedArgs;
    UINT cArgs, cNamedArgs;
};
struct EXCEPINFO {
    WORD wCode, wReserved;
    BSTR bstrSource, bstrDescription, bstrHelpFile;
    DWORD dwHelpContext;
    void* pvReserved;
    HRESULT (*pfnDeferredFillIn)(EXCEPINFO*);
    SCODE scode;
};
static_assert(sizeof(GUID) == 16 && sizeof(VARIANT) == 24 && sizeof(DISPPARAMS) == 24 && sizeof(EXCEPINFO) == 64 &&
              sizeof(SAFEARRAY) == 32);

inline constexpr DISPID DISPID_VALUE = 0, DISPID_UNKNOWN = -1, DISPID_STARTENUM = -1, DISPID_PROPERTYPUT = -3,
                        DISPID_NEWENUM = -4;
enum : WORD { DISPATCH_METHOD = 1, DISPATCH_PROPERTYGET = 2, DISPATCH_PROPERTYPUT = 4, DISPATCH_PROPERTYPUTREF = 8 };
enum : DWORD {
    fdexNameCaseSensitive = 1, fdexNameCaseInsensitive = 8, fdexPropCanGet = 1, fdexPropCannotGet = 2, fdexPropCanPut = 4,
    fdexPropCannotPut = 8, fdexPropCanPutRef = 0x10, fdexPropCannotPutRef = 0x20, fdexPropCanCall = 0x100,
    fdexPropCannotCall = 0x200, fdexEnumDefault = 1, fdexEnumAll = 2
};

inline constexpr GUID IID_NULL{};
constexpr GUID automationId(std::uint32_t first) noexcept {
    return {first, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
}
inline constexpr GUID IID_IUnknown = automationId(0), IID_IClassFactory = automationId(1),
                      IID_IDispatch = automationId(0x00020400), IID_IEnumVARIANT = automationId(0x00020404);
inline constexpr GUID IID_IDispatchEx{0xA6EF9860, 0xC720, 0x11D0, {0x93, 0x37, 0, 0xA0, 0xC9, 0x0D, 0xCA, 0xA9}};
inline constexpr GUID IID_IEnumConnectionPoints{0xB196B285, 0xBAB4, 0x101A, {0xB6, 0x9C, 0, 0xAA, 0, 0x34, 0x1D, 0x07}};
inline constexpr GUID IID_IConnectionPoint{0xB196B286, 0xBAB4, 0x101A, {0xB6, 0x9C, 0, 0xAA, 0, 0x34, 0x1D, 0x07}};
inline constexpr GUID IID_IEnumConnections{0xB196B287, 0xBAB4, 0x101A, {0xB6, 0x9C, 0, 0xAA, 0, 0x34, 0x1D, 0x07}};
inline constexpr GUID IID_IConnectionPointContainer{
    0xB196B284, 0xBAB4, 0x101A, {0xB6, 0x9C, 0, 0xAA, 0, 0x34, 0x1D, 0x07}};

struct IUnknown {
    virtual HRESULT QueryInterface(REFIID riid, void** ppvObject) = 0;
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;
};
struct ITypeInfo;
struct IServiceProvider;
struct IDispatch : IUnknown {
    virtual HRESULT GetTypeInfoCount(UINT* pctinfo) = 0;
    virtual HRESULT GetTypeInfo(UINT iTInfo, LCID lcid, ITypeInfo** ppTInfo) = 0;
    virtual HRESULT GetIDsOfNames(REFIID riid, LPOLESTR* rgszNames, UINT cNames, LCID lcid, DISPID* rgDispId) = 0;
    virtual HRESULT Invoke(DISPID dispIdMember, REFIID riid, LCID lcid, WORD wFlags, DISPPARAMS* pDispParams,
                           VARIANT* pVarResult, EXCEPINFO* pExcepInfo, UINT* puArgErr) = 0;
};
struct IDispatchEx : IDispatch {
    virtual HRESULT GetDispID(BSTR bstrName, DWORD grfdex, DISPID* pid) = 0;
    virtual HRESULT InvokeEx(DISPID id, LCID lcid, WORD wFlags, DISPPARAMS* pdp, VARIANT* pvarRes, EXCEPINFO* pei,
                             IServiceProvider* pspCaller) = 0;
    virtual HRESULT DeleteMemberByName(BSTR bstrName, DWORD grfdex) = 0;
    virtual HRESULT DeleteMemberByDispID(DISPID id) = 0;
    virtual HRESULT GetMemberProperties(DISPID id, DWORD grfdexFetch, DWORD* pgrfdex) = 0;
    virtual HRESULT GetMemberName(DISPID id, BSTR* pbstrName) = 0;
    virtual HRESULT GetNextDispID(DWORD grfdex, DISPID id, DISPID* pid) = 0;
    virtual HRESULT GetNameSpaceParent(IUnknown** ppunk) = 0;
};
struct IClassFactory : IUnknown {
    virtual HRESULT CreateInstance(IUnknown* pUnkOuter, REFIID riid, void** ppvObject) = 0;
    virtual HRESULT LockServer(BOOL fLock) = 0;
};
struct IEnumVARIANT : IUnknown {
    virtual HRESULT Next(ULONG celt, VARIANT* rgVar, ULONG* pCeltFetched) = 0;
    virtual HRESULT Skip(ULONG celt) = 0;
    virtual HRESULT Reset() = 0;
    virtual HRESULT Clone(IEnumVARIANT** ppEnum) = 0;
};
struct CONNECTDATA {
    IUnknown* pUnk;
    DWORD dwCookie;
};
struct IEnumConnections : IUnknown {
    virtual HRESULT Next(ULONG cConnections, CONNECTDATA* rgcd, ULONG* pcFetched) = 0;
    virtual HRESULT Skip(ULONG cConnections) = 0;
    virtual HRESULT Reset() = 0;
    virtual HRESULT Clone(IEnumConnections** ppEnum) = 0;
};
struct IConnectionPointContainer;
struct IConnectionPoint : IUnknown {
    virtual HRESULT GetConnectionInterface(IID* pIID) = 0;
    virtual HRESULT GetConnectionPointContainer(IConnectionPointContainer** ppCPC) = 0;
    virtual HRESULT Advise(IUnknown* pUnkSink, DWORD* pdwCookie) = 0;
    virtual HRESULT Unadvise(DWORD dwCookie) = 0;
    virtual HRESULT EnumConnections(IEnumConnections** ppEnum) = 0;
};
struct IEnumConnectionPoints : IUnknown {
    virtual HRESULT Next(ULONG cConnections, IConnectionPoint** ppCP, ULONG* pcFetched) = 0;
    virtual HRESULT Skip(ULONG cConnections) = 0;
    virtual HRESULT Reset() = 0;
    virtual HRESULT Clone(IEnumConnectionPoints** ppEnum) = 0;
};
struct IConnectionPointContainer : IUnknown {
    virtual HRESULT EnumConnectionPoints(IEnumConnectionPoints** ppEnum) = 0;
    virtual HRESULT FindConnectionPoint(REFIID riid, IConnectionPoint** ppCP) = 0;
};

#define AUTOMATION_FUNCTION extern "C" __attribute__((visibility("default")))
AUTOMATION_FUNCTION BSTR SysAllocString(const OLECHAR* text);
AUTOMATION_FUNCTION BSTR SysAllocStringLen(const OLECHAR* text, UINT units);
AUTOMATION_FUNCTION void SysFreeString(BSTR text);
AUTOMATION_FUNCTION UINT SysStringLen(BSTR text);
AUTOMATION_FUNCTION void VariantInit(VARIANTARG* variant);
AUTOMATION_FUNCTION HRESULT VariantClear(VARIANTARG* variant);
AUTOMATION_FUNCTION HRESULT VariantCopy(VARIANTARG* to, const VARIANTARG* from);
AUTOMATION_FUNCTION SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds);
AUTOMATION_FUNCTION HRESULT SafeArrayDestroy(SAFEARRAY* array);
AUTOMATION_FUNCTION HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indexes, void* element);
AUTOMATION_FUNCTION HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indexes, void* element);
AUTOMATION_FUNCTION HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
AUTOMATION_FUNCTION HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
AUTOMATION_FUNCTION UINT SafeArrayGetDim(SAFEARRAY* array);
#undef AUTOMATION_FUNCTION
