// The entry points and the class factory, bad input included. The entry points here are those linked into the test;
// loaded_test.cpp loads the shared library.

#include <gtest/gtest.h>

#include "component/class_list.h"
#include "component/identifiers.h"
#include "host/collection.h"
#include "tests/component/fake_host.h"

CANVAS_EXPORT HRESULT DllGetClassObject(REFCLSID, REFIID, void**);
CANVAS_EXPORT HRESULT DllCanUnloadNow();

namespace canvas::component::testing {
namespace {

Com<IClassFactory> factoryOf(std::string_view name) {
    Com<IClassFactory> factory;
    DllGetClassObject(identifiersOf(name)->clsid, IID_IClassFactory, reinterpret_cast<void**>(factory.out()));
    return factory;
}

Com<IDispatch> create(std::string_view name) {
    Com<IDispatch> object;
    factoryOf(name)->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(object.out()));
    return object;
}

TEST(EntryPoints, AnUnknownClassIsNotAvailable) {
    void* answer = &answer;
    EXPECT_EQ(DllGetClassObject(IID_IUnknown, IID_IClassFactory, &answer), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(answer, nullptr);
}

TEST(EntryPoints, AggregationIsRefused) {
    const auto host = makeHost();
    void* answer = nullptr;
    EXPECT_EQ(factoryOf("clsBVTCanvas")->CreateInstance(host.get(), IID_IUnknown, &answer), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(answer, nullptr);
}

TEST(EntryPoints, AnInterfaceThatIsNotOfferedIsRefused) {
    void* answer = &answer;
    EXPECT_EQ(DllGetClassObject(identifiersOf("clsBVTCanvas")->clsid, IID_IDispatch, &answer), E_NOINTERFACE);
    EXPECT_EQ(answer, nullptr);
    EXPECT_EQ(factoryOf("clsBVTBlock")->CreateInstance(nullptr, IID_IConnectionPointContainer, &answer), E_NOINTERFACE);
    EXPECT_EQ(DllCanUnloadNow(), S_OK) << "what was made for the question is gone again";
}

TEST(EntryPoints, TheLibraryStaysWhileSomethingIsHeld) {
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
    {
        const auto factory = factoryOf("clsBVTEdge");
        EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
        EXPECT_EQ(factory->LockServer(1), S_OK);
    }
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE) << "locked";
    EXPECT_EQ(factoryOf("clsBVTEdge")->LockServer(0), S_OK);
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
    EXPECT_EQ(factoryOf("clsBVTEdge")->LockServer(0), E_UNEXPECTED);
    {
        const auto blocks = create("clsBVTBlockCol");
        EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    }
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST(EntryPoints, EveryClassCanBeCreated) {
    for (const Class& row : classes()) {
        if (!row.create) continue;
        SCOPED_TRACE(row.name);
        ASSERT_NE(identifiersOf(row.name), nullptr);
        const auto object = create(row.name);
        ASSERT_TRUE(object);
        EXPECT_TRUE(ask<IDispatch>(object.get(), identifiersOf(row.name)->iid)) << "the default interface";
        EXPECT_EQ(valueOf([&] {
            VARIANT v{};
            v.vt = VT_DISPATCH;
            v.pdispVal = object.get();
            return v;
        }()).toObject()->className(), row.name);
    }
}

TEST(Dispatch, BadCallsAreRefusedBeforeTheyReachTheLibrary) {
    const auto canvas = create("clsBVTCanvas");
    EXPECT_EQ(invokeRaw(canvas.get(), 5000, DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invokeRaw(canvas.get(), -77, DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invokeRaw(canvas.get(), 0, DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND) << "no default member";
    EXPECT_EQ(invokeRaw(canvas.get(), 1, 0, {}).result, E_INVALIDARG);
    EXPECT_EQ(call(canvas.get(), "BlockName").result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(canvas.get(), "BlockName", {1, 2}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(canvas.get(), "Changed", {1}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(canvas.get(), "BlockName", std::vector<Value>(40, Value(1))).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(put(canvas.get(), "BottomPortSelected", true).result, DISP_E_MEMBERNOTFOUND) << "read-only";
    EXPECT_EQ(put(canvas.get(), "Clear", true).result, DISP_E_MEMBERNOTFOUND) << "an operation";
    EXPECT_EQ(call(canvas.get(), "FormPreviousHeight").result, DISP_E_MEMBERNOTFOUND) << "write-only";
    EXPECT_EQ(numberOf(canvas.get(), "NoSuchName"), DISPID_UNKNOWN);
    DISPID number = 0;
    DISPPARAMS none{};
    EXPECT_EQ(canvas->Invoke(1, IID_IUnknown, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr), DISP_E_UNKNOWNINTERFACE);
    OwnedText name("BlockName"), other("BlockType");
    LPOLESTR names[] = {name.get(), other.get()};
    DISPID numbers[] = {0, 0};
    EXPECT_EQ(canvas->GetIDsOfNames(IID_IUnknown, names, 1, 0, &number), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(canvas->GetIDsOfNames(IID_NULL, names, 2, 0, numbers), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(numbers[0], numberOf(canvas.get(), "BLOCKNAME"));
    EXPECT_EQ(numbers[1], DISPID_UNKNOWN);
}

TEST(Dispatch, NamedArgumentsAreUnknown) {
    const auto canvas = create("clsBVTCanvas");
    VARIANT argument{};
    argument.vt = VT_I4;
    DISPID named[] = {1};
    DISPPARAMS parameters{&argument, named, 1, 1};
    EXPECT_EQ(canvas->Invoke(numberOf(canvas.get(), "BlockName"), IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr,
                             nullptr, nullptr), DISP_E_UNKNOWNNAME);
    named[0] = DISPID_PROPERTYPUT;
    EXPECT_EQ(canvas->Invoke(numberOf(canvas.get(), "BlockName"), IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr,
                             nullptr, nullptr), DISP_E_UNKNOWNNAME);
}

TEST(Dispatch, ArgumentsConvertAsAutomationConvertsThem) {
    const auto canvas = create("clsBVTCanvas");
    EXPECT_EQ(call(canvas.get(), "BlockName", {"2"}).value, Value("Move Axis"));
    EXPECT_EQ(call(canvas.get(), "BlockName", {2.4}).value, Value("Move Axis"));
    EXPECT_EQ(call(canvas.get(), "BlockName", {40000}).result, DISP_E_OVERFLOW);
    EXPECT_EQ(call(canvas.get(), "BlockName", {"many"}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call(canvas.get(), "BlockName", {Null{}}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call(canvas.get(), "SelectPort", {1, "x", 3}).wrongArgument, 1u);
    EXPECT_EQ(call(canvas.get(), "SelectPort", {"x", 2, 3}).wrongArgument, 2u) << "places count from the last one";
    EXPECT_EQ(put(canvas.get(), "MaxNumberOfBlock", 40000).result, DISP_E_OVERFLOW);
    EXPECT_EQ(put(canvas.get(), "MaxNumberOfBlock", "12").result, S_OK);
    EXPECT_EQ(call(canvas.get(), "maxnumberofblock").value, Value(std::int16_t{12}));
    const auto block = create("clsBVTEdge");
    EXPECT_EQ(call(canvas.get(), "AddBlock", {Value(objectBehind(block.get()))}).result, DISP_E_TYPEMISMATCH)
        << "an object of another class";
    EXPECT_EQ(call(canvas.get(), "AddBlock", {"text"}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(static_cast<std::uint32_t>(call(canvas.get(), "AddBlock", {Value(Ref<Object>())}).scode), 0x800A005Bu)
        << "Nothing is a run-time error";
    EXPECT_EQ(static_cast<std::uint32_t>(call(canvas.get(), "OpenQuote", {Value(objectBehind(block.get()))}).scode), 0x800A01B6u)
        << "an object without a default member";
    EXPECT_EQ(static_cast<std::uint32_t>(
                  call(canvas.get(), "OpenQuote", {Value(objectBehind(create("clsBVTBlockCol").get()))}).scode), 0x800A01C2u)
        << "one whose default member takes an argument";
    const auto attribute = create("clsBVTMoveAxis");
    EXPECT_EQ(put(attribute.get(), "WaitForCompletion", "maybe").result, DISP_E_TYPEMISMATCH);
}

TEST(Dispatch, WhatTheLibraryRaisesIsAnException) {
    const auto canvas = create("clsBVTCanvas");
    const Outcome outcome = call(canvas.get(), "BlockName", {99});
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(static_cast<std::uint32_t>(outcome.scode), 0x800A0009u);
    EXPECT_EQ(outcome.description, "Subscript out of range");
}

TEST(Dispatch, LeftOutArgumentsComeShortOrAsMissing) {
    const auto collection = dispatchOf(make<Collection>());
    VARIANT item{}, missing{};
    item.vt = VT_I4;
    missing.vt = VT_ERROR;
    missing.scode = DISP_E_PARAMNOTFOUND;
    const DISPID add = numberOf(collection.get(), "Add");
    EXPECT_EQ(invokeRaw(collection.get(), add, DISPATCH_METHOD, {item}).result, S_OK);
    EXPECT_EQ(invokeRaw(collection.get(), add, DISPATCH_METHOD, {item, missing}).result, S_OK);
    EXPECT_EQ(invokeRaw(collection.get(), add, DISPATCH_METHOD, {missing, item}).result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(invokeRaw(collection.get(), add, DISPATCH_METHOD, {missing}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(collection.get(), "Count").value, Value(std::int32_t{2}));
}

TEST(Dispatch, TheSameObjectHasTheSamePointer) {
    const auto canvas = create("clsBVTCanvas");
    VARIANT first{}, second{};
    DISPPARAMS none{};
    const DISPID blocks = numberOf(canvas.get(), "BlockList");
    canvas->Invoke(blocks, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &first, nullptr, nullptr);
    canvas->Invoke(blocks, IID_NULL, 0, DISPATCH_METHOD, &none, &second, nullptr, nullptr);
    EXPECT_EQ(first.vt, VT_DISPATCH);
    EXPECT_EQ(first.pdispVal, second.pdispVal);
    VariantClear(&first);
    VariantClear(&second);
    EXPECT_EQ(call(canvas.get(), "frmParentForm").value, Value(Ref<Object>()));
}

TEST(Dispatch, TheInterfaceHasItsOwnPlainNames) {
    const auto launch = create("clsBVTRestartProgram");
    const auto plain = ask<IDispatch>(launch.get(), IID_IBlockAttribute);
    ASSERT_TRUE(plain);
    EXPECT_EQ(call(plain.get(), "UpdateMatrix", {1}).result, DISP_E_BADPARAMCOUNT) << "its thirteen arguments only";
    EXPECT_EQ(numberOf(plain.get(), "TaskName"), DISPID_UNKNOWN);
    EXPECT_EQ(numberOf(plain.get(), "FillMatrix"), 1);
    EXPECT_EQ(ask<IUnknown>(plain.get(), IID_IUnknown).get(), ask<IUnknown>(launch.get(), IID_IUnknown).get());
    EXPECT_EQ(objectBehind(plain.get()), objectBehind(launch.get()));
    EXPECT_FALSE(ask<IDispatch>(create("clsBVTEdge").get(), IID_IBlockAttribute));
    EXPECT_FALSE(ask<IDispatch>(create("clsBVTMessageIn").get(), IID_IBlockAttribute)) << "a plain record";
}

TEST(Dispatch, AWalkOutlivesItsCollection) {
    for (const char* name : {"clsBVTBlockCol", "clsBVTEdgeCol"}) {
        SCOPED_TRACE(name);
        auto collection = create(name);
        const std::string element = std::string(name).substr(0, std::string_view(name).size() - 3);
        ASSERT_EQ(call(collection.get(), "Add", {Value([&] {
            const auto block = create(element);
            put(block.get(), "BVTAttribute", Value(objectBehind(create("clsBVTStart").get())));
            return objectBehind(block.get());
        }())}).result, S_OK);
        DISPPARAMS none{};
        OwnedVariant walk;
        ASSERT_EQ(collection->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_METHOD, &none, &walk, nullptr, nullptr), S_OK);
        const auto items = ask<IEnumVARIANT>(walk.punkVal, IID_IEnumVARIANT);
        const auto byName = call(collection.get(), "NewEnum").value.toObject();
        EXPECT_TRUE(ask<IEnumVARIANT>(dispatchOf(byName).get(), IID_IEnumVARIANT));
        collection = {};
        OwnedVariant item, end;
        EXPECT_EQ(items->Next(1, &item, nullptr), S_OK);
        EXPECT_EQ(valueOf(item).toObject()->className(), element);
        EXPECT_EQ(items->Next(1, &end, nullptr), S_FALSE);
    }
}

TEST(Dispatch, CollectionsAreWalkedAndIndexed) {
    const auto collection = make<Collection>();
    collection->Add(Value("a"), "first");
    collection->Add(Value(std::int16_t{2}));
    const auto dispatch = dispatchOf(collection);
    EXPECT_EQ(invokeRaw(dispatch.get(), DISPID_VALUE, DISPATCH_METHOD, [] {
        VARIANT place{};
        place.vt = VT_I2;
        place.iVal = 2;
        return std::vector{place};
    }()).value, Value(std::int16_t{2}));
    EXPECT_EQ(call(dispatch.get(), "Item", {"FIRST"}).value, Value("a"));
    DISPPARAMS none{};
    VARIANT walk{};
    ASSERT_EQ(dispatch->Invoke(numberOf(dispatch.get(), "_newenum"), IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &walk,
                               nullptr, nullptr), S_OK);
    ASSERT_EQ(walk.vt, VT_UNKNOWN);
    const auto items = ask<IEnumVARIANT>(walk.punkVal, IID_IEnumVARIANT);
    VariantClear(&walk);
    VARIANT given[3]{};
    ULONG fetched = 0;
    EXPECT_EQ(items->Next(3, given, nullptr), E_POINTER);
    EXPECT_EQ(items->Next(3, given, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 2u);
    EXPECT_EQ(valueOf(given[0]), Value("a"));
    EXPECT_EQ(items->Next(1, given + 2, nullptr), S_FALSE);
    EXPECT_EQ(items->Reset(), S_OK);
    EXPECT_EQ(items->Skip(1), S_OK);
    Com<IEnumVARIANT> copy;
    EXPECT_EQ(items->Clone(copy.out()), S_OK);
    EXPECT_EQ(copy->Next(1, given + 2, nullptr), S_OK);
    EXPECT_EQ(valueOf(given[2]), Value(std::int16_t{2}));
    EXPECT_EQ(items->Skip(2), S_FALSE);
    for (VARIANT& v : given) VariantClear(&v);
    EXPECT_EQ(invokeRaw(create("clsBVTEdge").get(), DISPID_NEWENUM, DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND);
}

}  // namespace
}  // namespace canvas::component::testing
