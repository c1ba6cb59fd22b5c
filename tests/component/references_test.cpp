// Arguments by reference as hosts pass them, and the ways to ask for a member.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "attributes/program_control.h"
#include "document/canvas.h"
#include "host/collection.h"
#include "tests/component/hostile.h"

namespace canvas::component::testing {
namespace {

/// A variant that leads to a place of a plain type.
VARIANT to(VARTYPE type, void* place) {
    VARIANT reference{};
    reference.vt = static_cast<VARTYPE>(VT_BYREF | type);
    reference.byref = place;
    return reference;
}

VARIANT number(std::int16_t value) {
    VARIANT variant{};
    variant.vt = VT_I2;
    variant.iVal = value;
    return variant;
}

TEST(References, ATextIsReplacedInItsPlace) {
    const auto document = make<clsBVTCanvas>();
    auto block = make<clsBVTBlock>();
    block->intBlockID = 5;
    block->setBlockType(2);
    document->AddBlock(*block);
    const auto canvas = dispatchOf(document);
    BSTR text = bstrOf("");
    const Outcome outcome =
        invokeRaw(canvas.get(), numberOf(canvas.get(), "CheckConnection"), DISPATCH_METHOD, {to(VT_BSTR, &text)});
    EXPECT_EQ(outcome.value, Value(false));
    EXPECT_EQ(utf8Of(text), "Error,5");
    SysFreeString(text);
}

/// A checker that complains.
Com<FakeHost> complaining() {
    auto host = makeHost();
    host.get()->members["checkexpression"] = giving(std::int32_t{1});
    host.get()->members["geterrorinfo"] = [](const HostCall& call) {
        giveBack(Value("not known"), call[0]);
        giveBack(Value(std::int32_t{3}), call[1]);
        giveBack(Value(std::int32_t{40000}), call[2]);
        return S_OK;
    };
    return host;
}

struct Cell {
    BSTR error = bstrOf("");
    std::int16_t start = 0;
    double length = 0;
    LONG type = 7;
    VARIANT_BOOL assignable = VARIANT_TRUE;
    OwnedVariant value;
    BSTR formatted = bstrOf("");
    ~Cell() {
        SysFreeString(error);
        SysFreeString(formatted);
    }

    /// UpdateElementInMatrix of row 0, its answers going where the references lead.
    Outcome commit(IDispatch* attribute, const Com<FakeHost>& checker, VARIANT lengthTo) {
        const OwnedText typed("what");
        IDispatch* object = checker.get();
        VARIANT text{};
        text.vt = VT_BSTR;
        text.bstrVal = typed.get();
        VARIANT general{};
        general.vt = VT_BOOL;
        general.boolVal = VARIANT_TRUE;
        return invokeRaw(attribute, numberOf(attribute, "UpdateElementInMatrix"), DISPATCH_METHOD,
                         {general, number(0), text, to(VT_BSTR, &error), to(VT_DISPATCH, &object), to(VT_I2, &start),
                          lengthTo, to(VT_I4, &type), to(VT_BOOL, &assignable), to(VT_VARIANT, &value),
                          to(VT_BSTR, &formatted)});
    }
};

TEST(References, EachIsWrittenInItsOwnType) {
    const auto attribute = dispatchOf(make<clsBVTAbortMotion>());
    Cell cell;
    const Outcome outcome = cell.commit(attribute.get(), complaining(), to(VT_R8, &cell.length));
    EXPECT_EQ(outcome.value, Value(false));
    EXPECT_EQ(utf8Of(cell.error), "not known");
    EXPECT_EQ(cell.start, 3);
    EXPECT_EQ(cell.length, 40000.0);
    EXPECT_EQ(cell.type, 7) << "kept";
    EXPECT_EQ(cell.assignable, VARIANT_TRUE) << "kept";
    EXPECT_EQ(utf8Of(cell.formatted), "what");
}

TEST(References, AnAnswerTooBigForItsPlaceIsAnOverflow) {
    const auto attribute = dispatchOf(make<clsBVTAbortMotion>());
    Cell cell;
    std::int16_t small = 1;
    EXPECT_EQ(cell.commit(attribute.get(), complaining(), to(VT_I2, &small)).result, DISP_E_OVERFLOW);
    EXPECT_EQ(small, 1);
}

TEST(References, ValuesServeWhereReferencesAreDue) {
    const auto attribute = dispatchOf(make<clsBVTAbortMotion>());
    Cell cell;
    EXPECT_EQ(cell.commit(attribute.get(), complaining(), number(4)).value, Value(false));
}

TEST(References, AnObjectIsReplacedInItsPlace) {
    const auto titles = make<Collection>();
    titles->Add(Value("a.bpg"));
    const auto block = dispatchOf(make<clsBVTSuperBlock>());
    put(block.get(), "SubroutineFilename", Value(Ref<Object>(titles)));
    const auto before = makeHost();
    bool ended = false;
    before.get()->ended = &ended;
    IDispatch* list = Com<FakeHost>(before).detach();
    std::int16_t row = 0;
    EXPECT_EQ(invokeRaw(block.get(), numberOf(block.get(), "GetComboItem"), DISPATCH_METHOD,
                        {to(VT_I2, &row), to(VT_DISPATCH, &list)}).result, S_OK);
    ASSERT_NE(list, before.get());
    EXPECT_EQ(call(list, "Item", {1}).value, Value("a.bpg"));
    list->Release();
    EXPECT_FALSE(ended) << "the host has it still";
}

TEST(References, ArraysComeByReferenceToo) {
    const auto document = make<clsBVTCanvas>();
    auto launch = make<clsBVTBlock>();
    launch->intBlockID = 3;
    launch->setBlockType(16);
    document->AddBlock(*launch);
    const auto canvas = dispatchOf(document);
    const auto launched = dispatchOf(document->BlockList()->GetBlockByBlockID(3)->BVTAttribute());
    for (const std::int16_t task : {std::int16_t{1}, std::int16_t{2}})
        call(launched.get(), "SetArChkTask", {task, true});
    SAFEARRAYBOUND bounds[] = {{8, 0}};
    SAFEARRAY* status = SafeArrayCreate(VT_BOOL, 1, bounds);
    LONG second = 1;
    VARIANT_BOOL yes = VARIANT_TRUE;
    ASSERT_EQ(SafeArrayPutElement(status, &second, &yes), S_OK);
    EXPECT_EQ(invokeRaw(canvas.get(), numberOf(canvas.get(), "UpdateRestartProgram"), DISPATCH_METHOD,
                        {to(VT_ARRAY | VT_BOOL, &status)}).value, Value(false));
    EXPECT_EQ(call(launched.get(), "ArChkTask", {1}).value, Value(false));
    EXPECT_EQ(call(launched.get(), "ArChkTask", {2}).value, Value(true));
    SafeArrayDestroy(status);
}

TEST(Invoke, EitherKindIsAskedEitherWay) {
    const auto canvas = dispatchOf(make<clsBVTCanvas>());
    for (const WORD flags : {WORD{DISPATCH_METHOD}, WORD{DISPATCH_PROPERTYGET}, WORD{DISPATCH_METHOD | DISPATCH_PROPERTYGET}}) {
        EXPECT_EQ(call(canvas.get(), "Changed", {}, flags).value, Value(false));
        EXPECT_EQ(call(canvas.get(), "CanUndo", {}, flags).value, Value(false));
        EXPECT_EQ(call(canvas.get(), "getBlockName", {2}, flags).value, Value("Move Axis"));
    }
    for (const WORD flags : {WORD{DISPATCH_PROPERTYPUT}, WORD{DISPATCH_PROPERTYPUTREF}}) {
        EXPECT_EQ(call(canvas.get(), "Name", {"a"}, flags).result, S_OK);
        EXPECT_EQ(call(canvas.get(), "BlockList", {Value(Ref<Object>(make<clsBVTBlockCol>()))}, flags).result, S_OK);
    }
}

/// A host whose names are known through the extended interface alone, as those of script classes are.
class Extended final : public Standalone<Extended, IDispatchEx, IID_IDispatchEx> {
public:
    int lookUps = 0;
    DWORD asked = 0;

    HRESULT GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) override {
        give(Value(number), *result);
        return S_OK;
    }
    HRESULT GetDispID(BSTR name, DWORD flags, DISPID* number) override {
        ++lookUps;
        asked = flags;
        *number = 40;
        return utf8Of(name) == "Left" ? S_OK : DISP_E_UNKNOWNNAME;
    }
    HRESULT InvokeEx(DISPID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, IServiceProvider*) override { return E_NOTIMPL; }
    HRESULT DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
    HRESULT DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
    HRESULT GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
    HRESULT GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
    HRESULT GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
    HRESULT GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }
};

TEST(HostObjects, NamesAreLookedUpOnceThroughTheExtendedInterface) {
    Com<Extended> host;
    *host.out() = new Extended;
    const Ref<Object> object = objectBehind(host.get());
    EXPECT_EQ(object->get("Left"), Value(DISPID{40}));
    EXPECT_EQ(object->get("LEFT"), Value(DISPID{40}));
    EXPECT_EQ(host->lookUps, 1);
    EXPECT_EQ(host->asked, DWORD{fdexNameCaseInsensitive});
    EXPECT_EQ(raisedBy([&] { object->get("Right"); }), 438);
}

}  // namespace
}  // namespace canvas::component::testing
