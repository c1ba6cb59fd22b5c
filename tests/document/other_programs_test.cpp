// What a program takes from the files of others: blocks at which tasks are launched, end points of cams.

#include "attributes/program_control.h"
#include "tests/attributes/cam_host.h"
#include "tests/attributes/task_project.h"
#include "tests/document/fixture.h"

namespace canvas {
namespace {

using namespace fixture;

/// A launch block and the programs of a project on a disk in memory.
struct LaunchCheck : Drawing {
    testing::TaskProject host;
    std::string message;

    clsBVTRestartProgram& launch(std::int16_t id) const {
        return *static_cast<clsBVTRestartProgram*>(at(id).BVTAttribute().get());
    }
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
struct SavedCam : Drawing {
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
    static constexpr const char* lineBegin =
        "BLOCK_DEFINE 5 6 \"Cam\" -1 -1 0 \"\" 0 0 0 0 11 \"Cam1\" \"0\" 1 0 \"Cam1\" "
        "\"100.00\" \"300\" ";
};

TEST_F(SavedCam, HasThePointsOfItsTableInTheFile) {
    host.table("Cam1", "cam1.txt");
    EXPECT_TRUE(saved().ends_with(std::string(lineBegin) + R"("30" "40" "10" "20")"
                                                           "\r\n"))
        << saved();
    EXPECT_EQ(host.calls[0], "C:\\Job\\cam1.txt,4096");
    EXPECT_EQ(told(), Texts{});
    EXPECT_FALSE(document->blnChanged);
}

TEST_F(SavedCam, WithoutItsTableIsWrittenAsItIs) {
    EXPECT_TRUE(saved().ends_with(std::string(lineBegin) + R"("0" "0" "0" "0")"
                                                           "\r\n"))
        << saved();
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
