// The end points of a cam, which the host's controller reads from the table's file.

#include <functional>

#include <gtest/gtest.h>

#include "attributes/cam.h"
#include "cam_host.h"
#include "panel.h"
#include "print.h"

namespace canvas {
namespace {

using testing::CamHost;
using Calls = std::vector<std::string>;
using Points = std::array<std::int32_t, 4>;

struct CamData : ::testing::Test {
    CamHost host;
    Ref<clsBVTCAMOnOff> block = make<clsBVTCAMOnOff>();
    Ref<Object> project = host.project, controller = host.controller;

    CamData() { block->strCAMProfileTable = "Cam1"; }

    Value compute() { return block->ComputeCAMData(project, controller); }
    /// First x and y, last x and y.
    Points points() const {
        return {block->strFirstCAM_X, block->strFirstCAM_Y, block->strLastCAM_X, block->strLastCAM_Y};
    }
    /// "number|source|description" of what a computation raises; empty when nothing is.
    std::string raised() {
        try {
            compute();
            return {};
        } catch (const RuntimeError& error) {
            return std::to_string(error.number) + '|' + error.source + '|' + error.description;
        }
    }
    static std::string cannot(int number) {
        return std::to_string(number) + "|clsBVTCAMOnOff::ComputeCAMData|Cannot Compute Cam Data";
    }
};

TEST_F(CamData, TakesThePointsOfItsTable) {
    host.table("Other", "other.txt");
    host.table("Cam1", "D:\\shared\\tables\\cam1.txt", std::int32_t{123456});
    EXPECT_EQ(compute(), Value(true));
    EXPECT_EQ(host.calls, Calls{"C:\\Job\\cam1.txt,123456"}) << "the file is looked for in the project's folder";
    EXPECT_EQ(points(), (Points{10, 20, 30, 40}));
}

TEST_F(CamData, HandsThePresentPointsOver) {
    host.table("Cam1", "cam1.txt");
    block->strFirstCAM_X = 1, block->strFirstCAM_Y = 2, block->strLastCAM_X = 3, block->strLastCAM_Y = -70000;
    compute();
    EXPECT_EQ(host.before,
              (std::vector<Value>{std::int32_t{1}, std::int32_t{2}, std::int32_t{3}, std::int32_t{-70000}}));
}

TEST_F(CamData, ABaseAddressIsHandedOnAsItIs) {
    host.table("Cam1", "cam1.txt", "CW_1000");
    compute();
    EXPECT_EQ(host.calls, Calls{"C:\\Job\\cam1.txt,CW_1000"});
}

TEST_F(CamData, WithoutATableOfThatNameNothingHappens) {
    block->strFirstCAM_X = 7;
    EXPECT_EQ(compute(), Value()) << "no table at all";
    for (const char* name : {"cam1", "CAM1", "Cam1 ", " Cam1", "Cam", "Cam10", ""}) host.table(name, "x.txt");
    host.controller->without("getCAMdata");
    host.project->without("WorkingDirectory");
    EXPECT_EQ(raised(), "");
    EXPECT_EQ(compute(), Value());
    EXPECT_EQ(points(), (Points{7, 0, 0, 0}));
}

TEST_F(CamData, BlanksOfItsOwnNameMatter) {
    host.table("Cam1", "cam1.txt");
    block->strCAMProfileTable = "Cam1 ";
    EXPECT_EQ(compute(), Value());
    host.table("Cam1 ", "cam2.txt");
    EXPECT_EQ(compute(), Value(true));
    EXPECT_EQ(host.calls, Calls{"C:\\Job\\cam2.txt,4096"});
}

TEST_F(CamData, ALaterTableOfTheNameOverwritesThePoints) {
    host.table("Cam1", "a.txt", std::int32_t{1});
    host.table("Other", "b.txt");
    host.table("Cam1", "c.txt", std::int32_t{3});
    host.points = {{1, 2, 3, 4}, {5, 6, 7, 8}};
    EXPECT_EQ(compute(), Value(true));
    EXPECT_EQ(host.calls, (Calls{"C:\\Job\\a.txt,1", "C:\\Job\\c.txt,3"}));
    EXPECT_EQ(host.before[0], Value(std::int32_t{1})) << "the second table was given the first one's points";
    EXPECT_EQ(points(), (Points{5, 6, 7, 8}));
}

TEST_F(CamData, AFileThatCouldNotBeReadLeavesTheResultEmpty) {
    host.table("Cam1", "cam1.txt");
    host.answer = false;
    EXPECT_EQ(compute(), Value());
    EXPECT_EQ(host.calls.size(), 1u);
    EXPECT_EQ(points(), (Points{10, 20, 30, 40})) << "what the controller wrote is there all the same";
}

TEST_F(CamData, OneTableThatWasReadIsEnough) {
    host.table("Cam1", "a.txt"), host.table("Cam1", "b.txt");
    host.controller->method("getCAMdata", [](Args args) { return Value(args[0].toText().ends_with("a.txt")); });
    EXPECT_EQ(compute(), Value(true)) << "the second one's False does not take it back";
}

TEST_F(CamData, TheControllersAnswerIsConverted) {
    host.table("Cam1", "cam1.txt");
    host.answer = std::int16_t{-1};
    EXPECT_EQ(compute(), Value(true));
    host.answer = Value();
    EXPECT_EQ(compute(), Value());
    host.answer = "maybe";
    EXPECT_EQ(raised(), cannot(13));
}

TEST_F(CamData, APointMustBeAWholeNumberOf32Bits) {
    host.table("Cam1", "cam1.txt");
    const auto write = [&](Value point) {
        host.controller->method("getCAMdata", [point](Args args) {
            args[2] = point;
            return Value(true);
        });
    };
    write("12"), compute();
    EXPECT_EQ(block->strFirstCAM_X, 12);
    write(2.5), compute();
    EXPECT_EQ(block->strFirstCAM_X, 2);
    write("far");
    EXPECT_EQ(raised(), cannot(13));
    write(3e9);
    EXPECT_EQ(raised(), cannot(6));
}

TEST_F(CamData, EveryMemberThatTheHostLacksIsTold) {
    const struct {
        const char* what;
        std::function<void(CamHost&, Composed& table)> spoil;
    } rows[]{
        {"Data", [](CamHost& h, Composed&) { h.project->without("Data"); }},
        {"UserTable", [](CamHost& h, Composed&) { h.data->without("UserTable"); }},
        {"TableList", [](CamHost& h, Composed&) { h.userTable->without("TableList"); }},
        {"TableName", [](CamHost&, Composed& table) { table.without("TableName"); }},
        {"TableIncludeFilename", [](CamHost&, Composed& table) { table.without("TableIncludeFilename"); }},
        {"tablebaseaddress", [](CamHost&, Composed& table) { table.without("tablebaseaddress"); }},
        {"WorkingDirectory", [](CamHost& h, Composed&) { h.project->without("WorkingDirectory"); }},
        {"getCAMdata", [](CamHost& h, Composed&) { h.controller->without("getCAMdata"); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        CamHost spoilt;
        const auto table = spoilt.table("Cam1", "cam1.txt");
        row.spoil(spoilt, *table);
        project = spoilt.project, controller = spoilt.controller;
        testing::Answering nobody{tracing::Answer::leave};
        EXPECT_EQ(raised(), cannot(438));
        EXPECT_EQ(nobody.failures.size(), 0u) << "the caller is told, and nobody is asked";
        EXPECT_EQ(points(), (Points{0, 0, 0, 0}));
    }
}

TEST_F(CamData, AnObjectThatIsNotSetIsTold) {
    controller = nullptr;
    EXPECT_EQ(raised(), "") << "without a table nobody needs the controller";
    host.table("Cam1", "cam1.txt");
    EXPECT_EQ(raised(), cannot(91));
    controller = host.controller;
    host.userTable->property("TableList", Ref<Object>());
    EXPECT_EQ(raised(), cannot(91));
    host.data->property("UserTable", Ref<Object>());
    EXPECT_EQ(raised(), cannot(91));
    host.project->property("Data", Ref<Object>());
    EXPECT_EQ(raised(), cannot(91));
    host.project->property("Data", "text");
    EXPECT_EQ(raised(), cannot(424));
    project = nullptr;
    EXPECT_EQ(raised(), cannot(91));
}

TEST_F(CamData, TheTablesMustBeACollection) {
    host.userTable->property("TableList", make<Composed>());
    EXPECT_EQ(raised(), cannot(451));
    const auto hosts = make<Composed>();
    const auto table = host.table("Cam1", "cam1.txt");
    hosts->property("Count", std::int32_t{1}).method("Item", [&](Args) { return Value(table); });
    host.userTable->property("TableList", hosts);
    EXPECT_EQ(compute(), Value(true)) << "one of the host's own is walked by Count and Item";
}

TEST_F(CamData, AHostsOwnErrorKeepsItsNumberAlone) {
    host.table("Cam1", "a.txt"), host.table("Cam1", "b.txt");
    host.controller->method("getCAMdata", [](Args args) -> Value {
        if (args[0].toText().ends_with("b.txt")) throw RuntimeError(53, "No such file", "Controller");
        args[2] = std::int32_t{99};
        return true;
    });
    EXPECT_EQ(raised(), cannot(53));
    EXPECT_EQ(points(), (Points{99, 0, 0, 0})) << "the table before stays read";
}

TEST_F(CamData, IsReachedByName) {
    host.table("Cam1", "cam1.txt");
    Object& named = *block;
    EXPECT_EQ(invoke(named, "computecamdata", std::ref(project), std::ref(controller)), Value(true));
    EXPECT_EQ(named.get("LastCAM_Y"), Value(std::int32_t{40}));
    block->strCAMProfileTable = "none";
    EXPECT_EQ(invoke(named, "ComputeCAMData", project, controller), Value());
}

}  // namespace
}  // namespace canvas
