// Every behaviour of a host's member wherever the library asks for one: as a method, a property, an item of a
// collection and a checker, in calls that a host makes into the library.

#include <gtest/gtest.h>

#include "attributes/axis_motion.h"
#include "attributes/cam.h"
#include "document/edge.h"
#include "tests/component/hostile.h"

namespace canvas::component::testing {
namespace {

/// A host with one cam table, and the blocks that ask for it.
struct World {
    Com<IDispatch> cam = dispatchOf(make<clsBVTCAMOnOff>());
    Com<IDispatch> stop = dispatchOf(make<clsBVTAbortMotion>());
    Com<FakeHost> project = makeHost(), data = makeHost(), tables = makeHost(), list = makeHost(), table = makeHost();
    Com<FakeHost> controller = makeHost(), names = makeHost(), checker = makeHost();

    World() {
        put(cam.get(), "CAMProfileTable", "Lift");
        project.get()->members = {{"data", giving(Value(asObject(data)))}, {"workingdirectory", giving("C:\\Job")}};
        data.get()->members = {{"usertable", giving(Value(asObject(tables)))}};
        tables.get()->members = {{"tablelist", giving(Value(asObject(list)))}};
        list.get()->members = {{"count", giving(std::int32_t{1})}, {"item", giving(Value(asObject(table)))}};
        table.get()->members = {{"tablename", giving("Lift")},
                                {"tableincludefilename", giving("lift.cam")},
                                {"tablebaseaddress", giving(std::int32_t{5})}};
        controller.get()->members = {{"getcamdata", giving(true)}};
        names.get()->members = {{"count", giving(std::int32_t{1})}, {"item", giving("Lift")}};
        checker.get()->members = {
            {"checkexpression", giving(std::int32_t{1})}, {"getresult", giving({})}, {"geterrorinfo", giving({})}};
    }
};

using Make = std::function<FakeHost::Member(World&, Com<FakeHost>&)>;

/// Where the library meets the behaviour, by what it asks for.
struct Place {
    const char* name;
    const char* member;
    Com<FakeHost> World::*host;
    std::function<Outcome(World&)> use;
};

const Place places[] = {
    {"method", "getcamdata", &World::controller,
     [](World& w) {
         return call(w.cam.get(), "ComputeCAMData", {Value(asObject(w.project)), Value(asObject(w.controller))});
     }},
    {"property", "workingdirectory", &World::project,
     [](World& w) {
         return call(w.cam.get(), "ComputeCAMData", {Value(asObject(w.project)), Value(asObject(w.controller))});
     }},
    {"item", "item", &World::names,
     [](World& w) { return call(w.cam.get(), "ValidateTableName", {Value(asObject(w.names)), 1}); }},
    {"checker", "checkexpression", &World::checker,
     [](World& w) { return call(w.stop.get(), "PropertiesSyntaxCheck", {Value(asObject(w.checker)), 5, ""}); }},
};

struct Behaviour {
    const char* name;
    Make make;  ///< null takes the member away
    int errors[4];  ///< in the order of the places; 0 is a result
};

Make always(FakeHost::Member member) {
    return [member](World&, Com<FakeHost>&) { return member; };
}

TEST(HostileEverywhere, EachBehaviourEndsInAnErrorOrAResult) {
    const Value ofTheLibrary(Ref<Object>(make<clsBVTEdge>()));
    const Behaviour behaviours[] = {
        {"is missing", nullptr, {438, 438, 451, 438}},
        {"is of another type", always(giving("maybe")), {13, 0, 0, 13}},
        {"is empty", always(giving({})), {0, 0, 0, 0}},
        {"is null", always(giving(Null{})), {94, 94, 94, 94}},
        {"is Nothing", always(giving(Ref<Object>())), {91, 91, 91, 91}},
        {"is an array", always(giving(numbers(2))), {13, 13, 13, 13}},
        {"takes another count", always(failing(DISP_E_BADPARAMCOUNT)), {450, 450, 450, 450}},
        {"raises with information", always(raising(1234, "mine")), {1234, 1234, 1234, 1234}},
        {"raises without information", always(failing(DISP_E_EXCEPTION)), {440, 440, 440, 440}},
        {"fails without a word", always(failing(E_FAIL)), {440, 440, 440, 440}},
        {"hands out an object of the library", always(giving(ofTheLibrary)), {438, 438, 438, 438}},
        {"hands out itself",
         [](World&, Com<FakeHost>& host) {
             IDispatch* const self = host.get();
             return [self](const HostCall& call) { return call.answer(Value(objectBehind(self))); };
         },
         {438, 438, 438, 438}},
        {"hands out itself, whose default member is itself",
         [](World&, Com<FakeHost>& host) {
             IDispatch* const self = host.get();
             const auto itself = [self](const HostCall& call) { return call.answer(Value(objectBehind(self))); };
             host.get()->byDefault = itself;
             return itself;
         },
         {13, 13, 13, 13}},
        {"calls back into the library",
         [](World& w, Com<FakeHost>&) {
             return [&w](const HostCall& call) {
                 EXPECT_EQ(testing::call(w.cam.get(), "FillMatrix").result, S_OK);
                 EXPECT_EQ(testing::call(w.stop.get(), "IsTheSame").result, S_OK);
                 return call.answer(std::int32_t{0});
             };
         },
         {0, 0, 0, 0}},
        {"edits what it is asked about",
         [](World& w, Com<FakeHost>&) {
             return [&w](const HostCall& call) {
                 EXPECT_EQ(put(w.cam.get(), "CAMProfileTable", "another").result, S_OK);
                 EXPECT_EQ(put(w.stop.get(), "Deceleration", "another").result, S_OK);
                 return call.answer(std::int32_t{0});
             };
         },
         {0, 0, 0, 0}},
        {"lets itself and the library's objects go",
         [](World& w, Com<FakeHost>& host) {
             return [&w, &host](const HostCall& call) {
                 w.cam = w.stop = {};
                 host = {};
                 return call.answer(std::int32_t{0});
             };
         },
         {0, 0, 0, 0}},
    };
    for (const Behaviour& behaviour : behaviours) {
        SCOPED_TRACE(behaviour.name);
        for (std::size_t i = 0; i < std::size(places); ++i) {
            const Place& place = places[i];
            SCOPED_TRACE(place.name);
            World world;
            Com<FakeHost>& host = world.*place.host;
            if (behaviour.make) host.get()->members[place.member] = behaviour.make(world, host);
            else host.get()->members.erase(place.member);
            const Outcome outcome = place.use(world);
            const int error = behaviour.errors[i];
            EXPECT_EQ(outcome.result, error ? DISP_E_EXCEPTION : S_OK);
            EXPECT_EQ(static_cast<unsigned>(outcome.scode), error ? 0x800A0000u + static_cast<unsigned>(error) : 0u);
        }
    }
}

}  // namespace
}  // namespace canvas::component::testing
