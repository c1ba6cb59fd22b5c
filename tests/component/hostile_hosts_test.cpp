// What a host's object may do to the library, and how each ends: in a run-time error or in a plain result.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "component/enumerators.h"
#include "component/host_object.h"
#include "document/canvas.h"
#include "host/collection.h"
#include "host/convert.h"
#include "tests/component/fake_host.h"
#include "tests/host/raised.h"

namespace canvas::component::testing {
namespace {

using Be = std::function<void(FakeHost&)>;
using Use = std::function<Value(Object&)>;

struct Hostile {
    const char* behaviour;
    Be be;
    Use use;
    Value gives;    ///< when no error is raised
    int error = 0;  ///< else
};

void run(const Hostile& row) {
    SCOPED_TRACE(row.behaviour);
    const auto host = makeHost();
    row.be(*host.get());
    const Ref<Object> object = asObject(host);
    Value given;
    EXPECT_EQ(raisedBy([&] { given = row.use(*object); }), row.error);
    if (row.error == 0) {
        EXPECT_EQ(given, row.gives);
    }
}

Use reading(std::string name) {
    return [name](Object& host) { return host.get(name); };
}
Use readingText(std::string name) {
    return [name](Object& host) { return Value(host.get(name).toText()); };
}
Use writing(std::string name) {
    return [name](Object& host) {
        host.put(name, true);
        return Value();
    };
}
Use walking() {
    return [](Object& host) {
        std::int32_t count = 0;
        forEach(host, [&](const Value&) { return ++count < 2'000'000; });
        return Value(count);
    };
}
/// GetErrorInfo(message, start, length), all three by reference.
Use askingForError() {
    return [](Object& host) {
        std::string message = "before";
        std::int32_t start = 1, length = 2;
        invoke(host, "GetErrorInfo", std::ref(message), std::ref(start), std::ref(length));
        return Value(message + "/" + std::to_string(start) + "/" + std::to_string(length));
    };
}

Value numbers(int count) {
    Array array = Array::of("Variant", {{0, count - 1}});
    for (int i = 0; i < count; ++i) array.at(i) = Value(std::int32_t{i});
    return Value(std::move(array));
}

FakeHost::Member failing(HRESULT result) {
    return [result](const HostCall&) { return result; };
}
FakeHost::Member raising(int number, std::string description) {
    return [=](const HostCall& call) { return fail(call, number, description); };
}

TEST(HostileHosts, MembersAndProperties) {
    const Hostile rows[] = {
        {"member missing", [](FakeHost&) {}, reading("Left"), {}, 438},
        {"member missing on a write", [](FakeHost&) {}, writing("NeedsSaving"), {}, 438},
        {"default member missing", [](FakeHost&) {}, readingText(""), {}, 438},
        {"wrong type where a number is due", [](FakeHost& h) { h.members["left"] = giving("wide"); },
         [](Object& o) { return Value(o.get("Left").toLong()); }, {}, 13},
        {"text that is a number", [](FakeHost& h) { h.members["left"] = giving("12"); },
         [](Object& o) { return Value(o.get("Left").toLong()); }, Value(std::int32_t{12})},
        {"null for text", [](FakeHost& h) { h.members["tablename"] = giving(Null{}); }, readingText("TableName"), {}, 94},
        {"array where text is due", [](FakeHost& h) { h.members["tablename"] = giving(numbers(2)); },
         readingText("TableName"), {}, 13},
        {"text where an object is due", [](FakeHost& h) { h.members["currentproject"] = giving("x"); },
         [](Object& o) { return Value(objectAt(o, "currentproject")); }, {}, 424},
        {"Nothing where an object is due", [](FakeHost& h) { h.members["currentproject"] = giving(Ref<Object>()); },
         [](Object& o) { return Value(objectAt(o, "currentproject")); }, {}, 91},
        {"wrong count", [](FakeHost& h) { h.members["gettaskat"] = failing(DISP_E_BADPARAMCOUNT); }, reading("GetTaskAt"),
         {}, 450},
        {"overflow", [](FakeHost& h) { h.members["left"] = failing(DISP_E_OVERFLOW); }, reading("Left"), {}, 6},
        {"out of memory", [](FakeHost& h) { h.members["left"] = failing(E_OUTOFMEMORY); }, reading("Left"), {}, 7},
        {"fails without a word", [](FakeHost& h) { h.members["left"] = failing(E_FAIL); }, reading("Left"), {}, 440},
        {"raises", [](FakeHost& h) { h.members["left"] = raising(1234, "mine"); }, reading("Left"), {}, 1234},
        {"raises without information", [](FakeHost& h) { h.members["left"] = failing(DISP_E_EXCEPTION); },
         reading("Left"), {}, 440},
        {"raises while it is written", [](FakeHost& h) { h.members["needssaving"] = raising(70, "no"); },
         writing("NeedsSaving"), {}, 70},
        {"a kind of value unknown here",
         [](FakeHost& h) {
             h.members["left"] = [](const HostCall& call) {
                 call.result->vt = 36;  // a record
                 return S_OK;
             };
         },
         reading("Left"), {}, 13},
        {"a reference to nowhere",
         [](FakeHost& h) {
             h.members["left"] = [](const HostCall& call) {
                 call.result->vt = VT_BYREF | VT_BSTR;
                 return S_OK;
             };
         },
         reading("Left"), {}, 13},
        {"a number found anew each time is looked up once",
         [](FakeHost& h) {
             h.drift = 1;
             h.members["left"] = giving(std::int32_t{7});
         },
         [](Object& o) { return Value(o.get("Left").toLong() + o.get("LEFT").toLong()); }, Value(std::int32_t{14})},
        {"seventeen arguments", [](FakeHost& h) { h.members["left"] = giving(1); },
         [](Object& o) {
             std::vector<Value> many(17);
             return o.call("Left", many);
         },
         {}, 450},
    };
    for (const Hostile& row : rows) run(row);
}

TEST(HostileHosts, AHostsErrorKeepsItsSourceAndDescription) {
    const auto host = makeHost();
    host.get()->members["left"] = [](const HostCall& call) { return fail(call, 1234, "no such luck", "Form1"); };
    try {
        asObject(host)->get("Left");
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.description, "no such luck");
        EXPECT_EQ(error.source, "Form1");
    }
}

TEST(HostileHosts, ArgumentsByReference) {
    const auto writes = [](Value message, Value start, Value length) -> Be {
        return [=](FakeHost& h) {
            h.members["geterrorinfo"] = [=](const HostCall& call) {
                giveBack(message, call[0]);
                giveBack(start, call[1]);
                giveBack(length, call[2]);
                return S_OK;
            };
        };
    };
    const Hostile rows[] = {
        {"all written", writes("m", std::int32_t{5}, std::int32_t{6}), askingForError(), Value("m/5/6")},
        {"left untouched", [](FakeHost& h) { h.members["geterrorinfo"] = giving({}); }, askingForError(),
         Value("before/1/2")},
        {"given another type that converts", writes(std::int32_t{3}, "5", 6.4), askingForError(), Value("3/5/6")},
        {"given a type that does not", writes("m", "five", std::int32_t{6}), askingForError(), {}, 13},
        {"given null", writes(Null{}, std::int32_t{5}, std::int32_t{6}), askingForError(), {}, 94},
        {"given an array", writes(numbers(3), std::int32_t{5}, std::int32_t{6}), askingForError(), {}, 13},
        {"freed under the caller",
         [](FakeHost& h) {
             h.members["geterrorinfo"] = [](const HostCall& call) {
                 VariantClear(call[0].pvarVal);
                 return S_OK;
             };
         },
         askingForError(), Value("/1/2")},
        {"written before it raises",
         [](FakeHost& h) {
             h.members["geterrorinfo"] = [](const HostCall& call) {
                 giveBack(Value("half"), call[0]);
                 return fail(call, 5, "then no");
             };
         },
         askingForError(), {}, 5},
    };
    for (const Hostile& row : rows) run(row);
}

/// A host's enumerator that gives what a function says.
class FakeEnumerator final : public Standalone<FakeEnumerator, IEnumVARIANT, IID_IEnumVARIANT> {
public:
    using Next1 = std::function<HRESULT(int, VARIANT&)>;
    explicit FakeEnumerator(Next1 next) : m_next(std::move(next)) {}
    HRESULT STDMETHODCALLTYPE Next(ULONG, VARIANT* item, ULONG* fetched) override {
        const HRESULT result = m_next(m_at++, *item);
        if (fetched) *fetched = result == S_OK ? 1 : 0;
        return result;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

private:
    Next1 m_next;
    int m_at = 0;
};

Be walkedBy(FakeEnumerator::Next1 next) {
    return [next](FakeHost& h) {
        h.enumerate = [next](const HostCall& call) {
            call.result->vt = VT_UNKNOWN;
            call.result->punkVal = new FakeEnumerator(next);
            return S_OK;
        };
        h.members["count"] = giving(std::int32_t{3});
    };
}

FakeEnumerator::Next1 counting(int items) {
    return [items](int at, VARIANT& item) {
        if (at >= items) return S_FALSE;
        give(Value(std::int32_t{at}), item);
        return S_OK;
    };
}

TEST(HostileHosts, Collections) {
    const auto byItem = [](FakeHost& h) {
        h.members["count"] = giving(std::int32_t{3});
        h.members["item"] = [](const HostCall& call) { return call.answer(valueOf(call[0])); };
    };
    const Hostile rows[] = {
        {"walked", walkedBy(counting(3)), walking(), Value(std::int32_t{3})},
        {"fewer items than its count", walkedBy(counting(1)), walking(), Value(std::int32_t{1})},
        {"an enumerator that fails", walkedBy([](int, VARIANT&) { return E_FAIL; }), walking(), {}, 440},
        {"an enumerator without an end", walkedBy([](int, VARIANT&) { return S_OK; }), walking(), {}, 7},
        {"no enumerator, but count and item", byItem, walking(), Value(std::int32_t{3})},
        {"neither", [](FakeHost&) {}, walking(), {}, 451},
        {"an enumeration that is text", [](FakeHost& h) { h.enumerate = giving("x"); }, walking(), {}, 451},
        {"an enumeration that raises", [](FakeHost& h) { h.enumerate = raising(57, "x"); }, walking(), {}, 57},
        {"a count that is no number",
         [](FakeHost& h) {
             h.members["count"] = giving("many");
             h.members["item"] = giving(1);
         },
         walking(), {}, 13},
        {"fewer items than counted",
         [](FakeHost& h) {
             h.members["count"] = giving(std::int32_t{3});
             h.members["item"] = [](const HostCall& call) {
                 return valueOf(call[0]).toLong() > 1 ? fail(call, 9, "changed meanwhile") : call.answer(1);
             };
         },
         walking(), {}, 9},
    };
    for (const Hostile& row : rows) run(row);
}

TEST(HostileHosts, AnObjectKeepsItsIdentityOnTheWayInAndOut) {
    const auto host = makeHost();
    const Ref<Object> object = asObject(host);
    host.get()->members["self"] = [&](const HostCall& call) { return call.answer(Value(object)); };
    EXPECT_EQ(object->get("Self").toObject(), object) << "hands out itself";
    EXPECT_EQ(dispatchOf(object).get(), host.get());
    const auto document = make<clsBVTCanvas>();
    host.get()->members["canvas"] = giving(Value(Ref<Object>(document)));
    EXPECT_EQ(object->get("Canvas").toObject(), Ref<Object>(document)) << "hands out an object of the library";
    host.get()->byDefault = [&](const HostCall& call) { return call.answer(Value(object)); };
    EXPECT_EQ(raisedBy([&] { Value(object).toText(); }), 13) << "its default member is itself";
    host.get()->members.clear();
    host.get()->byDefault = nullptr;
}

TEST(HostileHosts, AnObjectMayBeLetGoDuringItsOwnCall) {
    auto host = makeHost();
    bool ended = false;
    host.get()->ended = &ended;
    Ref<Object> object = asObject(host);
    host.get()->members["left"] = [&](const HostCall& call) {
        object = nullptr;  // the last the library holds
        host = {};         // and the host's own
        return call.answer(std::int32_t{3});
    };
    Object& callee = *object;
    EXPECT_EQ(callee.get("Left"), Value(std::int32_t{3}));
    EXPECT_TRUE(ended);
}

/// checkexpression as `member`; the other answers are those of a checker that is content.
Com<FakeHost> checker(FakeHost::Member member) {
    auto host = makeHost();
    host.get()->members["checkexpression"] = std::move(member);
    host.get()->members["getresult"] = [](const HostCall& call) {
        giveBack(Value(std::int32_t{16}), call[0]);
        giveBack(Value(true), call[1]);
        giveBack(Value("v"), call[2]);
        giveBack(Value("n"), call[3]);
        return S_OK;
    };
    host.get()->members["geterrorinfo"] = giving({});
    return host;
}

Outcome check(IDispatch* attribute, const Com<FakeHost>& host) {
    return call(attribute, "PropertiesSyntaxCheck", {Value(asObject(host)), 5, ""});
}

struct Checking {
    const char* behaviour;
    FakeHost::Member answers;
    HRESULT result = S_OK;
    unsigned scode = 0;
};

TEST(HostileHosts, Checkers) {
    const Checking rows[] = {
        {"content", giving(std::int32_t{0})},
        {"not content", giving(std::int32_t{1})},
        {"raises", raising(1234, "x"), DISP_E_EXCEPTION, 0x800A04D2},
        {"raises without information", failing(DISP_E_EXCEPTION), DISP_E_EXCEPTION, 0x800A01B8},
        {"takes fewer arguments", failing(DISP_E_BADPARAMCOUNT), DISP_E_EXCEPTION, 0x800A01C2},
        {"gives text", giving("maybe"), DISP_E_EXCEPTION, 0x800A000D},
        {"gives null", giving(Null{}), DISP_E_EXCEPTION, 0x800A005E},
        {"gives an array", giving(numbers(2)), DISP_E_EXCEPTION, 0x800A000D},
    };
    const auto attribute = dispatchOf(make<clsBVTAbortMotion>());
    for (const Checking& row : rows) {
        SCOPED_TRACE(row.behaviour);
        const Outcome outcome = check(attribute.get(), checker(row.answers));
        EXPECT_EQ(outcome.result, row.result);
        EXPECT_EQ(static_cast<unsigned>(outcome.scode), row.scode);
    }
}

TEST(HostileHosts, ACheckerMayCallBackAndEditWhatIsAskedAbout) {
    auto attribute = dispatchOf(make<clsBVTAbortMotion>());
    IDispatch* const raw = attribute.get();
    const auto editor = checker([&](const HostCall& call) {
        put(raw, "Deceleration", "changed meanwhile");
        testing::call(raw, "FillMatrix");
        return call.answer(std::int32_t{0});
    });
    EXPECT_EQ(check(raw, editor).value, Value(true));
    EXPECT_EQ(call(raw, "Deceleration").value, Value("changed meanwhile"));
    const auto releaser = checker([&](const HostCall& call) {
        attribute = {};  // the host's one reference, in the middle of the call
        return call.answer(std::int32_t{0});
    });
    EXPECT_EQ(check(raw, releaser).value, Value(true));
}

TEST(HostileHosts, AHostThatCallsBackWithoutEndEndsAsAnError) {
    const auto attribute = dispatchOf(make<clsBVTAbortMotion>());
    Com<FakeHost> host;
    int depth = 0;
    host = checker([&](const HostCall& call) {
        if (++depth == 200) return fail(call, 28, "deep enough");
        const Outcome inner = check(attribute.get(), host);
        return inner.result == DISP_E_EXCEPTION ? fail(call, static_cast<int>(inner.scode & 0xFFFF), inner.description)
                                                : call.answer(std::int32_t{0});
    });
    const Outcome outcome = check(attribute.get(), host);
    EXPECT_EQ(static_cast<unsigned>(outcome.scode), 0x800A001Cu);
    host.get()->members.clear();
}

TEST(HostileHosts, AnObjectThatLeavesOutPropertiesIsNoTwin) {
    const auto attribute = dispatchOf(make<clsBVTMoveAxis>());
    const auto host = makeHost();
    const Outcome outcome = call(attribute.get(), "SameAs", {Value(asObject(host))});
    EXPECT_EQ(static_cast<unsigned>(outcome.scode), 0x800A01B6u);
}

}  // namespace
}  // namespace canvas::component::testing
