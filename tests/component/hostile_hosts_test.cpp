// What a host's object may do to the library, and how each ends: in a run-time error or in a plain result.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "document/canvas.h"
#include "host/convert.h"
#include "tests/component/hostile.h"

namespace canvas::component::testing {
namespace {

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
/// GetErrorInfo(message, start, length), all three by reference.
Use askingForError() {
    return [](Object& host) {
        std::string message = "before";
        std::int32_t start = 1, length = 2;
        invoke(host, "GetErrorInfo", std::ref(message), std::ref(start), std::ref(length));
        return Value(message + "/" + std::to_string(start) + "/" + std::to_string(length));
    };
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

TEST(HostileHosts, ANumberThatNoLongerHoldsIsLookedUpAgain) {
    /// Each look-up gives another number, and only the last one holds, for one call.
    struct Forgetful final : FakeHost {
        DISPID last = 0;
        HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* numbers) override {
            numbers[0] = last = 100 + ++lookUps;
            return S_OK;
        }
        HRESULT Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) override {
            if (number != std::exchange(last, 0)) return DISP_E_MEMBERNOTFOUND;
            if (result) give(Value(number), *result);
            return S_OK;
        }
    };
    Com<FakeHost> host;
    *host.out() = new Forgetful;
    const Ref<Object> object = asObject(host);
    EXPECT_EQ(object->get("Left"), Value(DISPID{101}));
    EXPECT_EQ(raisedBy([&] { object->get("Left"); }), 438);
    EXPECT_EQ(object->get("Left"), Value(DISPID{102}));
    EXPECT_EQ(raisedBy([&] { object->put("Left", 1); }), 438);
    object->put("Left", 1);
}

TEST(HostileHosts, AnObjectThatLeavesOutPropertiesIsNoTwin) {
    const auto attribute = dispatchOf(make<clsBVTMoveAxis>());
    const auto host = makeHost();
    const Outcome outcome = call(attribute.get(), "SameAs", {Value(asObject(host))});
    EXPECT_EQ(static_cast<unsigned>(outcome.scode), 0x800A01B6u);
}

}  // namespace
}  // namespace canvas::component::testing
