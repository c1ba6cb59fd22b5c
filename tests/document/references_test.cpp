// References from one program to others: subroutines that are called, tasks that are launched, tables of cams.

#include "document/references.h"

#include <array>

#include "attributes/cam.h"
#include "tests/attributes/cam_host.h"
#include "tests/attributes/task_project.h"
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
    EXPECT_EQ(calls, (Texts{"SetArChkTask 2 False", "SetArBlockNumber 2 1", "SetArChkTask 8 False",
                            "SetArBlockNumber 8 1"}));
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
        {"Sub.bpg", "SUB.bpg", true},        {"sub.bpg", "C:/lib/Sub.BPG", true}, {"größe.bpg", "GRÖßE.bpg", true},
        {"sub.bpg", "sub", false},           {"sub.bpg", "sub.bpg ", false},      {" sub.bpg", "sub.bpg", false},
        {"C:\\p\\sub.bpg", "sub.bpg", false}, {"sub.bpg", "", false},             {"", "", true},
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

/// A launch block and the programs of a project on a disk in memory.
struct LaunchCheck : References {
    testing::TaskProject host;
    std::string message;

    /// Block 12 launches the first task at a block.
    clsBVTRestartProgram& launchFirstAt(std::int16_t block) const {
        add(12, RESTARTPROGRAM);
        launch(12).SetArChkTask(1, true), launch(12).SetArBlockNumber(1, block);
        return launch(12);
    }
    bool check() { return launch(12).PropertiesSyntaxCheck(host.project, 12, message); }
    void program(const std::string& name, const std::string& blocks) const {
        disk->contents[name] =
            "VERSION_NUMBER 200\r\nNUM_BLOCKS 1\r\nWINDOW_PARAMS_DEFINE 0 0 1 1 100% 0 0 0\r\n" + blocks;
    }
    static constexpr const char* block5 = "BLOCK_DEFINE 5 10 \"Reset\" -1 -1 0 \"\" 0 0 0 0 0 \r\n";
    static constexpr const char* noBlock7 = "  (12,1) Error: BlockID 7 does not exist in 'Loader'.@";
};

TEST_F(LaunchCheck, ABlockOfTheProgramIsFound) {
    host.define(0, "D:\\p\\Loader.bpg", "Loader");
    program("D:\\p\\Loader.bpa", block5);
    launchFirstAt(5);
    EXPECT_TRUE(check());
    EXPECT_EQ(message, "");
    EXPECT_EQ(told(), Texts{});
}

TEST_F(LaunchCheck, ABlockThatTheProgramLacksIsRecorded) {
    host.define(0, "D:\\p\\Loader.bpg", "Loader");
    program("D:\\p\\Loader.bpa", block5);
    launchFirstAt(7);
    EXPECT_TRUE(check());
    EXPECT_EQ(message, noBlock7);
    EXPECT_EQ(told(), Texts{}) << "the program itself was good";
}

TEST_F(LaunchCheck, AProgramThatCannotBeReadIsToldAndRecorded) {
    host.define(0, "D:\\p\\Loader.bpg", "Loader");
    launchFirstAt(7);
    EXPECT_TRUE(check());
    EXPECT_EQ(message, noBlock7);
    EXPECT_EQ(boxes(), Texts{"critical|File Error|'D:\\p\\Loader.bpg' cannot be opened"});
    EXPECT_EQ(disk->calls, Texts{"read D:\\p\\Loader.bpa"});
}

TEST_F(LaunchCheck, BlocksBeforeADamageCount) {
    host.define(0, "Loader.bpg", "Loader");
    program("Loader.bpa", std::string(block5) + "BLOCK_DEFINE x 10 \"Reset\" -1 -1 0 \"\" 0 0 0 0 0 \r\n");
    launchFirstAt(5);
    EXPECT_TRUE(check());
    EXPECT_EQ(message, "");
    EXPECT_EQ(boxes(), Texts{"critical|File Error|'Loader.bpg' cannot be opened"});
}

TEST_F(LaunchCheck, ATemporaryFilesNameIsReadLikeAnyOther) {
    host.define(0, "D:\\p\\Loader.bpg", "Loader");
    program("D:\\p\\Loader.bpa", block5);
    disk->contents["C:\\Job\\Loader.bpg.tmp"] = "";
    launchFirstAt(7);
    EXPECT_TRUE(check());
    EXPECT_EQ(disk->calls, Texts{"read C:\\Job\\Loader.bpg.bpa"}) << "its last four characters give way";
    EXPECT_EQ(boxes(), Texts{"critical|File Error|'C:\\Job\\Loader.bpg.tmp' cannot be opened"});
    EXPECT_EQ(message, noBlock7);
    program("C:\\Job\\Loader.bpg.bpa", "BLOCK_DEFINE 7 10 \"Reset\" -1 -1 0 \"\" 0 0 0 0 0 \r\n");
    message.clear();
    EXPECT_TRUE(check());
    EXPECT_EQ(message, "");
}

TEST_F(LaunchCheck, AStaleTaskLosesItsFlagInSilence) {
    launchFirstAt(7);
    EXPECT_FALSE(check());
    EXPECT_EQ(message, "");
    EXPECT_EQ(told(), Texts{});
    EXPECT_FALSE(launch(12).ArChkTask(1));
    EXPECT_EQ(launch(12).ArBlockNumber(1), 7) << "the number stays";
}

TEST_F(LaunchCheck, TheDocumentItselfIsLeftAlone) {
    host.define(0, "Loader.bpg", "Loader");
    program("Loader.bpa", block5);
    launchFirstAt(5);
    document->strName = "Main.bpg";
    check();
    EXPECT_EQ(document->GetBlockCount(), 1);
    EXPECT_EQ(document->strName, "Main.bpg");
    EXPECT_FALSE(document->blnChanged);
}

TEST_F(LaunchCheck, ACopyLooksIntoProgramsToo) {
    host.define(0, "Loader.bpg", "Loader");
    program("Loader.bpa", block5);
    const auto copy = launchFirstAt(7).IsTheSame();
    EXPECT_TRUE(copy->PropertiesSyntaxCheck(host.project, 12, message));
    EXPECT_EQ(message, noBlock7);
}

/// A cam block in a document whose host has a project and a controller.
struct SavedCam : References {
    testing::CamHost host;
    Ref<Composed> main = make<Composed>("frmMain");

    void SetUp() override {
        main->property("ActiveForm", Ref<Object>()).property("currentproject", host.project);
        main->property("MPController", host.controller);
        document->frmParentForm = main;
        add(5, CAMONOFF, "Cam").BVTAttribute()->put("CAMProfileTable", "Cam1");
        document->blnChanged = true;
    }
    std::string saved() const {
        document->WriteFile("Main.bpg");
        return disk->contents["Main.bpa"];
    }
    static constexpr const char* lineBegin = "BLOCK_DEFINE 5 6 \"Cam\" -1 -1 0 \"\" 0 0 0 0 11 \"Cam1\" \"0\" 1 0 \"Cam1\" "
                                             "\"100.00\" \"300\" ";
};

TEST_F(SavedCam, HasThePointsOfItsTableInTheFile) {
    host.table("Cam1", "cam1.txt");
    EXPECT_TRUE(saved().ends_with(std::string(lineBegin) + R"("30" "40" "10" "20")" "\r\n")) << saved();
    EXPECT_EQ(host.calls[0], "C:\\Job\\cam1.txt,4096");
    EXPECT_EQ(told(), Texts{});
    EXPECT_FALSE(document->blnChanged);
}

TEST_F(SavedCam, WithoutItsTableIsWrittenAsItIs) {
    EXPECT_TRUE(saved().ends_with(std::string(lineBegin) + R"("0" "0" "0" "0")" "\r\n")) << saved();
    EXPECT_EQ(told(), Texts{}) << "nobody looks at the result";
    EXPECT_FALSE(document->blnChanged);
}

TEST_F(SavedCam, ThatCannotBeComputedFailsTheSave) {
    host.table("Cam1", "cam1.txt");
    disk->contents["Main.bpa"] = "the file before";
    host.controller->without("getCAMdata");
    EXPECT_EQ(saved(), "the file before");
    EXPECT_EQ(boxes(), Texts{"information|Canvas.WriteFile|Cannot Compute Cam Data"});
    EXPECT_TRUE(document->blnChanged);
    main->without("MPController");
    EXPECT_EQ(saved(), "the file before");
    EXPECT_EQ(boxes(), Texts{"information|Canvas.WriteFile|Object doesn't support this property or method"});
}

}  // namespace
}  // namespace canvas
