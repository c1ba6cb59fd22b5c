// Null pointers in every function of every interface: refused where one is due, fine where the caller may leave it out.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "component/factory.h"
#include "component/identifiers.h"
#include "document/canvas.h"
#include "host/collection.h"
#include "tests/component/fake_host.h"

CANVAS_EXPORT HRESULT DllGetClassObject(REFCLSID, REFIID, void**);

namespace canvas::component::testing {
namespace {

struct NullPointers : ::testing::Test {
    Com<IDispatch> canvas = dispatchOf(make<clsBVTCanvas>());
    Com<IDispatchEx> extended = ask<IDispatchEx>(canvas.get(), IID_IDispatchEx);
    Com<IConnectionPointContainer> container =
        ask<IConnectionPointContainer>(canvas.get(), IID_IConnectionPointContainer);
    Com<IConnectionPoint> point = [&] {
        Com<IConnectionPoint> found;
        container->FindConnectionPoint(DIID_CanvasEvents, found.out());
        return found;
    }();
    DISPID blockName = numberOf(canvas.get(), "BlockName");
    DISPPARAMS none{};

    /// BlockName with one argument, everything else null.
    HRESULT ask1(VARIANT argument) {
        DISPPARAMS one{&argument, nullptr, 1, 0};
        return canvas->Invoke(blockName, IID_NULL, 0, DISPATCH_METHOD, &one, nullptr, nullptr, nullptr);
    }
    static VARIANT of(VARTYPE type, std::int16_t number = 0) {
        VARIANT variant{};
        variant.vt = type;
        variant.iVal = number;
        return variant;
    }
};

TEST_F(NullPointers, ForAnAnswerAreRefused) {
    const CLSID& clsid = identifiersOf("clsBVTCanvas")->clsid;
    EXPECT_EQ(DllGetClassObject(clsid, IID_IClassFactory, nullptr), E_POINTER);
    Com<IClassFactory> factory;
    ASSERT_EQ(DllGetClassObject(clsid, IID_IClassFactory, reinterpret_cast<void**>(factory.out())), S_OK);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, nullptr), E_POINTER);
    for (IUnknown* interface :
         std::initializer_list<IUnknown*>{factory.get(), canvas.get(), extended.get(), container.get(), point.get()})
        EXPECT_EQ(interface->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(canvas->GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(canvas->GetTypeInfo(0, 0, nullptr), E_POINTER);
    EXPECT_EQ(extended->GetMemberName(1, nullptr), E_POINTER);
    EXPECT_EQ(extended->GetMemberProperties(1, 0, nullptr), E_POINTER);
    EXPECT_EQ(extended->GetNextDispID(0, 1, nullptr), E_POINTER);
    EXPECT_EQ(extended->GetNameSpaceParent(nullptr), E_POINTER);
    EXPECT_EQ(container->FindConnectionPoint(DIID_CanvasEvents, nullptr), E_POINTER);
    EXPECT_EQ(container->EnumConnectionPoints(nullptr), E_POINTER);
    EXPECT_EQ(point->GetConnectionInterface(nullptr), E_POINTER);
    EXPECT_EQ(point->GetConnectionPointContainer(nullptr), E_POINTER);
    EXPECT_EQ(point->EnumConnections(nullptr), E_POINTER);
    DWORD cookie = 0;
    EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(point->Advise(canvas.get(), nullptr), E_POINTER);
}

TEST_F(NullPointers, ForANameOrANumberAreRefused) {
    const OwnedText name("BlockName");
    LPOLESTR given[] = {name.get()}, missing[] = {nullptr};
    DISPID number = 0;
    const auto face = ask<IDispatch>(dispatchOf(make<clsBVTMoveAxis>()).get(), IID_IBlockAttribute);
    for (IDispatch* object : {canvas.get(), face.get()}) {
        EXPECT_EQ(object->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &number), E_INVALIDARG);
        EXPECT_EQ(object->GetIDsOfNames(IID_NULL, missing, 1, 0, &number), E_INVALIDARG);
        EXPECT_EQ(object->GetIDsOfNames(IID_NULL, given, 1, 0, nullptr), E_INVALIDARG);
        EXPECT_EQ(object->GetIDsOfNames(IID_NULL, given, 0, 0, &number), E_INVALIDARG);
        EXPECT_EQ(object->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), E_INVALIDARG);
    }
    EXPECT_EQ(extended->GetDispID(nullptr, 0, &number), E_POINTER);
    EXPECT_EQ(extended->GetDispID(name.get(), 0, nullptr), E_POINTER);
    EXPECT_EQ(extended->InvokeEx(1, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(extended->DeleteMemberByName(nullptr, 0), S_FALSE);
}

TEST_F(NullPointers, ForArgumentsAreRefusedUnlessThereAreNone) {
    DISPPARAMS unnamed{nullptr, nullptr, 2, 0};
    EXPECT_EQ(canvas->Invoke(blockName, IID_NULL, 0, DISPATCH_METHOD, &unnamed, nullptr, nullptr, nullptr), E_INVALIDARG);
    VARIANT value = of(VT_I2, 3);
    DISPPARAMS named{&value, nullptr, 1, 1};
    EXPECT_EQ(canvas->Invoke(numberOf(canvas.get(), "Changed"), IID_NULL, 0, DISPATCH_PROPERTYPUT, &named, nullptr,
                             nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(canvas->Invoke(numberOf(canvas.get(), "Changed"), IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr,
                             nullptr, nullptr), S_OK);
}

TEST_F(NullPointers, ForResultExceptionAndArgumentMayBeLeftOut) {
    EXPECT_EQ(ask1(of(VT_I2, 2)), S_OK);
    EXPECT_EQ(ask1(of(VT_I2, 99)), DISP_E_EXCEPTION);
    EXPECT_EQ(ask1(of(VT_NULL)), DISP_E_TYPEMISMATCH);
    VARIANT two[] = {of(VT_I2), of(VT_I2)};
    DISPPARAMS tooMany{two, nullptr, 2, 0};
    EXPECT_EQ(canvas->Invoke(blockName, IID_NULL, 0, DISPATCH_METHOD, &tooMany, nullptr, nullptr, nullptr),
              DISP_E_BADPARAMCOUNT);
    VARIANT good = of(VT_I2, 2);
    DISPPARAMS one{&good, nullptr, 1, 0};
    EXPECT_EQ(extended->InvokeEx(blockName, 0, DISPATCH_METHOD, &one, nullptr, nullptr, nullptr), S_OK);
    const auto collection = dispatchOf(make<Collection>());
    EXPECT_EQ(collection->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr), S_OK);
}

TEST_F(NullPointers, InsideArgumentsAreValuesOrAMismatch) {
    for (const VARTYPE type : {VT_I2, VT_BSTR, VT_DISPATCH, VT_VARIANT})
        EXPECT_EQ(ask1(of(static_cast<VARTYPE>(VT_BYREF | type))), DISP_E_TYPEMISMATCH) << type;
    EXPECT_EQ(ask1(of(VT_BYREF | VT_ARRAY | VT_VARIANT)), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call(canvas.get(), "OpenQuote", {""}).value, Value(false));
    VARIANT text = of(VT_BSTR);
    DISPPARAMS one{&text, nullptr, 1, 0};
    OwnedVariant answer;
    EXPECT_EQ(canvas->Invoke(numberOf(canvas.get(), "OpenQuote"), IID_NULL, 0, DISPATCH_METHOD, &one, &answer, nullptr,
                             nullptr), S_OK) << "the empty text";
    for (const VARTYPE type : {VT_DISPATCH, VT_UNKNOWN}) {
        VARIANT nothing = of(type);
        EXPECT_EQ(invokeRaw(canvas.get(), numberOf(canvas.get(), "frmParentForm"), DISPATCH_PROPERTYPUT, {nothing}).result,
                  S_OK) << "Nothing";
    }
    EXPECT_EQ(invokeRaw(canvas.get(), numberOf(canvas.get(), "UpdateRestartProgram"), DISPATCH_METHOD,
                        {of(VT_ARRAY | VT_BOOL)}).result, S_OK) << "an array without dimensions, of which no block reads";
}

TEST_F(NullPointers, OfAWalkAreRefusedButForTheCountOfOne) {
    const auto items = make<Collection>();
    items->Add(Value(1));
    items->Add(Value(2));
    OwnedVariant given;
    ASSERT_EQ(dispatchOf(items)->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_METHOD, &none, &given, nullptr, nullptr), S_OK);
    const auto walk = ask<IEnumVARIANT>(given.punkVal, IID_IEnumVARIANT);
    VARIANT item[2]{};
    ULONG fetched = 7;
    EXPECT_EQ(walk->Next(1, nullptr, &fetched), E_POINTER);
    EXPECT_EQ(fetched, 0u);
    EXPECT_EQ(walk->Next(2, item, nullptr), E_POINTER);
    EXPECT_EQ(walk->Next(1, item, nullptr), S_OK);
    EXPECT_EQ(walk->Clone(nullptr), E_POINTER);
    EXPECT_EQ(walk->QueryInterface(IID_IUnknown, nullptr), E_POINTER);

    Com<IEnumConnectionPoints> points;
    Com<IEnumConnections> connections;
    ASSERT_EQ(container->EnumConnectionPoints(points.out()), S_OK);
    ASSERT_EQ(point->EnumConnections(connections.out()), S_OK);
    EXPECT_EQ(points->Next(1, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(points->Clone(nullptr), E_POINTER);
    EXPECT_EQ(points->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(connections->Next(1, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(connections->Clone(nullptr), E_POINTER);
    EXPECT_EQ(connections->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(NullPointers, OfMemoryFunctionsAreRefused) {
    SAFEARRAYBOUND bounds[] = {{2, 0}};
    SAFEARRAY* const numbers = SafeArrayCreate(VT_I4, 1, bounds);
    LONG index = 0, number = 0;
    EXPECT_EQ(SafeArrayGetElement(numbers, nullptr, &number), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetElement(numbers, &index, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayPutElement(numbers, nullptr, &number), E_INVALIDARG);
    EXPECT_EQ(SafeArrayPutElement(numbers, &index, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayPutElement(nullptr, &index, &number), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetLBound(numbers, 1, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetLBound(nullptr, 1, &number), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetUBound(numbers, 1, nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayDestroy(numbers), S_OK);
    SAFEARRAY* const texts = SafeArrayCreate(VT_BSTR, 1, bounds);
    EXPECT_EQ(SafeArrayPutElement(texts, &index, nullptr), S_OK) << "the empty text";
    EXPECT_EQ(SafeArrayDestroy(texts), S_OK);
    VARIANT variant{};
    EXPECT_EQ(VariantCopy(nullptr, &variant), E_INVALIDARG);
}

}  // namespace
}  // namespace canvas::component::testing
