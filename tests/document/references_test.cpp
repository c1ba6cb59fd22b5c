// References from one program to others: subroutines that are called, tasks that are launched.

#include "document/references.h"

#include <array>

#include "attributes/program_control.h"
#include "tests/document/fixture.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using namespace fixture;
using Flags = std::array<bool, 8>;

/// The eight flags of tasks as a host hands them over.
Value statusOf(const Flags& flags) { return arrayOf("Boolean", flags); }

struct References : Drawing {
    clsBVTRestartProgram& launch(std::int16_t id) const {
        return *static_cast<clsBVTRestartProgram*>(at(id).BVTAttribute().get());
    }
    clsBVTSuperBlock& call(std::int16_t id) const {
        return *static_cast<clsBVTSuperBlock*>(at(id).BVTAttribute().get());
    }
    /// A block that launches all eight tasks at block 10 * task.
    clsBVTRestartProgram& addLaunch(std::int16_t id) const {
        add(id, RESTARTPROGRAM);
        for (std::int16_t task = 1; task <= 8; ++task) {
            launch(id).SetArChkTask(task, true);
            launch(id).SetArBlockNumber(task, static_cast<std::int16_t>(10 * task));
        }
        return launch(id);
    }
    clsBVTSuperBlock& addCall(std::int16_t id, std::string name, std::string title) const {
        add(id, SUPERBLOCK);
        call(id).strName = std::move(name), call(id).strTitle = std::move(title);
        return call(id);
    }
    std::string line(std::int16_t id) const { return launch(id).OutputToFile(""); }
};

constexpr const char* launchesAll = "16 1 10 1 20 1 30 1 40 1 50 1 60 1 70 1 80";

TEST_F(References, ADocumentKnowsWhetherItLaunchesOrCalls) {
    EXPECT_FALSE(document->HasRestartProgram());
    EXPECT_FALSE(document->HasSuperBlock());
    add(1, PROGRAMSTART), add(5, SUSPENDPROGRAM);
    EXPECT_FALSE(document->HasRestartProgram());
    add(6, RESTARTPROGRAM);
    EXPECT_TRUE(document->HasRestartProgram());
    EXPECT_FALSE(document->HasSuperBlock());
    add(7, SUPERBLOCK);
    EXPECT_EQ(document->call("HasSuperBlock"), Value(true));
    EXPECT_EQ(document->call("hasrestartprogram"), Value(true));
    document->RemoveBlock(6);
    EXPECT_FALSE(document->HasRestartProgram());
    EXPECT_TRUE(document->HasSuperBlock());
}

TEST_F(References, ATaskThatIsGoneIsUntickedAndItsBlockNumberPutBack) {
    addLaunch(3), addLaunch(9);
    add(4, SUSPENDPROGRAM);
    EXPECT_FALSE(document->UpdateRestartProgram(statusOf({true, false, true, true, true, true, true, false})));
    for (const std::int16_t id : Ids{3, 9}) EXPECT_EQ(line(id), "16 1 10 0 1 1 30 1 40 1 50 1 60 1 70 0 1") << id;
    EXPECT_FALSE(document->UpdateRestartProgram(statusOf({})));
    EXPECT_EQ(line(3), "16 0 1 0 1 0 1 0 1 0 1 0 1 0 1 0 1");
}

TEST_F(References, ChangedStaysAsItIs) {
    addLaunch(3), addCall(5, "C:\\p\\sub.bpg", "sub.bpg");
    for (const bool changed : {false, true}) {
        document->blnChanged = changed;
        document->UpdateRestartProgram(statusOf({}));
        EXPECT_TRUE(document->ReplaceThisSuperBlock("sub.bpg", "sub.bpg"));
        EXPECT_FALSE(document->UpdateSuperBlock());
        EXPECT_EQ(document->blnChanged, changed) << "the caller has to save";
    }
}

TEST_F(References, WithAllTasksThereNothingChanges) {
    addLaunch(3);
    Flags all;
    all.fill(true);
    EXPECT_FALSE(document->UpdateRestartProgram(statusOf(all)));
    EXPECT_EQ(line(3), launchesAll);
}

TEST_F(References, AStatusMustHaveEightEntriesFromZero) {
    EXPECT_FALSE(document->UpdateRestartProgram(arrayOf("Boolean", std::array<bool, 1>{})))
        << "without a launch block nobody looks";
    addLaunch(3);
    const std::array<bool, 7> seven{true, true, true, true, true, true, false};
    EXPECT_EQ(raisedBy([&] { document->UpdateRestartProgram(arrayOf("Boolean", seven)); }), 9);
    EXPECT_EQ(line(3), "16 1 10 1 20 1 30 1 40 1 50 1 60 0 1 1 80") << "the entries before the missing one count";
    EXPECT_EQ(raisedBy([&] { document->UpdateRestartProgram(arrayOf("Boolean", Flags{}, 1)); }), 9);
    EXPECT_EQ(raisedBy([&] { document->UpdateRestartProgram(Array::undimensioned("Boolean")); }), 9);
    EXPECT_EQ(raisedBy([&] { document->UpdateRestartProgram(true); }), 13);
    const std::array<bool, 9> nine{true, true, true, true, true, true, true, true, false};
    EXPECT_FALSE(document->UpdateRestartProgram(arrayOf("Boolean", nine))) << "a ninth entry is not looked at";
    EXPECT_EQ(line(3), "16 1 10 1 20 1 30 1 40 1 50 1 60 0 1 1 80");
}

TEST_F(References, StatusEntriesConvert) {
    addLaunch(3);
    const std::vector<Value> entries{std::int16_t{-1}, "True", 0.5, std::int32_t{1}, true, true, std::int16_t{0}, "0"};
    Value status = arrayOf("Variant", entries);
    EXPECT_EQ(document->call("UpdateRestartProgram", Args(&status, 1)), Value(false));
    EXPECT_EQ(line(3), "16 1 10 1 20 1 30 1 40 1 50 1 60 0 1 0 1");
}

TEST_F(References, AnAttributeOfAnotherLibraryIsAskedByName) {
    const auto foreign = foreignAttribute();
    Texts calls;
    for (const char* name : {"SetArChkTask", "SetArBlockNumber"})
        foreign->method(name, [&calls, name](Args args) {
            calls.push_back(std::string(name) + ' ' + args[0].toText() + ' ' + args[1].toText());
            return Value();
        });
    addForeign(3, RESTARTPROGRAM, foreign);
    document->UpdateRestartProgram(statusOf({true, false, true, true, true, true, true, false}));
    EXPECT_EQ(calls,
              (Texts{"SetArChkTask 2 False", "SetArBlockNumber 2 1", "SetArChkTask 8 False", "SetArBlockNumber 8 1"}));
    foreign->without("SetArBlockNumber");
    EXPECT_EQ(raisedBy([&] { document->UpdateRestartProgram(statusOf({})); }), 438);
}

TEST_F(References, ANewNameReachesEveryCallOfTheSubroutine) {
    addCall(3, "C:\\p\\Sub.bpg", "Sub.bpg"), addCall(4, "C:\\p\\other.bpg", "other.bpg");
    addCall(5, "", "SUB.BPG");
    EXPECT_TRUE(document->ReplaceThisSuperBlock("D:\\x\\sub.bpg", "E:\\new\\Fresh.bpg"));
    for (const std::int16_t id : Ids{3, 5}) {
        EXPECT_EQ(call(id).strName, "E:\\new\\Fresh.bpg") << id;
        EXPECT_EQ(call(id).strTitle, "Fresh.bpg") << id;
    }
    EXPECT_EQ(call(4).strName, "C:\\p\\other.bpg");
    EXPECT_EQ(call(4).strTitle, "other.bpg");
    EXPECT_FALSE(document->ReplaceThisSuperBlock("sub.bpg", "x.bpg")) << "nobody calls it any more";
}

TEST_F(References, ASubroutineIsFoundByItsTitleWithoutRegardToCase) {
    const struct {
        const char* title;
        const char* oldName;
        bool found;
    } rows[]{
        {"Sub.bpg", "SUB.bpg", true},
        {"sub.bpg", "C:/lib/Sub.BPG", true},
        {"größe.bpg", "GRÖßE.bpg", true},
        {"sub.bpg", "sub", false},
        {"sub.bpg", "sub.bpg ", false},
        {" sub.bpg", "sub.bpg", false},
        {"C:\\p\\sub.bpg", "sub.bpg", false},
        {"sub.bpg", "", false},
        {"", "", true},
    };
    addCall(3, "", "");
    for (const auto& row : rows) {
        call(3).strName = "before", call(3).strTitle = row.title;
        EXPECT_EQ(document->ReplaceThisSuperBlock(row.oldName, "new.bpg"), row.found) << row.title;
        EXPECT_EQ(call(3).strName, row.found ? "new.bpg" : "before") << row.title;
    }
}

TEST_F(References, OnlyCallsAreRenamed) {
    const auto foreign = foreignAttribute();
    foreign->property("title", "sub.bpg").property("Name", "C:\\p\\sub.bpg");
    addForeign(3, RESTARTPROGRAM, foreign);
    EXPECT_FALSE(document->ReplaceThisSuperBlock("sub.bpg", "x.bpg"));
    at(3).intBlockType = SUPERBLOCK;
    EXPECT_EQ(invoke(*document, "ReplaceThisSuperBlock", "sub.bpg", "D:\\y\\x.bpg"), Value(true));
    EXPECT_EQ(foreign->get("Name"), Value("D:\\y\\x.bpg")) << "by name";
    EXPECT_EQ(foreign->get("title"), Value("x.bpg"));
    foreign->without("title");
    EXPECT_EQ(raisedBy([&] { document->ReplaceThisSuperBlock("sub.bpg", "x.bpg"); }), 438);
    EXPECT_EQ(document->call("UpdateSuperBlock"), Value(false));
}

}  // namespace
}  // namespace canvas
