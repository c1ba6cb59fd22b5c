// The program check of blocks that launch and suspend tasks: they are given the host's project in place of a checker.

#include <functional>
#include <set>

#include <gtest/gtest.h>

#include "attributes/program_control.h"
#include "known_files.h"
#include "panel.h"
#include "print.h"
#include "task_project.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::TaskProject;
using Texts = std::vector<std::string>;

/// Programs that all have the same blocks.
class Programs final : public ProgramLookup {
public:
    std::set<std::int16_t> ids;
    mutable Texts asked;  ///< "file,block"

    bool hasBlock(const std::string& fileName, std::int16_t blockId) const override {
        asked.push_back(fileName + "," + std::to_string(blockId));
        return ids.contains(blockId);
    }
};

struct TaskCheck : ::testing::Test {
    std::shared_ptr<testing::KnownFiles> files = std::make_shared<testing::KnownFiles>();
    WithEnvironment inForce{testing::withFiles(files)};
    Programs programs;
    TaskProject host;
    Ref<clsBVTRestartProgram> launch = make<clsBVTRestartProgram>();
    Ref<clsBVTSuspendProgram> suspend = make<clsBVTSuspendProgram>();
    std::string message;

    TaskCheck() { launch->programs = &programs; }
    bool check(AttributeObject& block) { return block.PropertiesSyntaxCheck(host.project, 12, message); }
};

TEST_F(TaskCheck, ALaunchAsksAboutTheEightTasksInOrder) {
    EXPECT_TRUE(check(*launch));
    EXPECT_EQ(host.asked, (std::vector<std::int32_t>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(programs.asked, Texts());
    EXPECT_EQ(message, "");
}

TEST_F(TaskCheck, ALaunchAtABlockThatIsThereIsSilent) {
    host.define(2, "Loader.bpg", "Loader");
    launch->SetArChkTask(3, true);
    launch->SetArBlockNumber(3, 7);
    programs.ids = {7};
    message = "earlier@";
    EXPECT_TRUE(check(*launch));
    EXPECT_EQ(programs.asked, Texts{"Loader.bpg,7"});
    EXPECT_EQ(message, "earlier@");
    EXPECT_TRUE(launch->ArChkTask(3));
}

TEST_F(TaskCheck, ALaunchAtABlockThatIsAbsentIsRecordedAndStillTrue) {
    host.define(0, "Main.bpg", "Main program");
    host.define(7, "Rest.bpg", "It's the rest");
    launch->SetArChkTask(1, true), launch->SetArBlockNumber(1, 99);
    launch->SetArChkTask(8, true), launch->SetArBlockNumber(8, -4);
    message = "earlier@";
    EXPECT_TRUE(check(*launch));
    EXPECT_EQ(message,
              "earlier@"
              "  (12,1) Error: BlockID 99 does not exist in 'Main program'.@"
              "  (12,8) Error: BlockID -4 does not exist in 'It's the rest'.@");
    EXPECT_TRUE(launch->ArChkTask(1)) << "the flag stays";
}

TEST_F(TaskCheck, ATaskThatIsNotLaunchedIsLookedAtToo) {
    host.define(1, "Loader.bpg", "Loader");
    EXPECT_TRUE(check(*launch));
    EXPECT_EQ(programs.asked, Texts{"Loader.bpg,0"});
    EXPECT_EQ(message, "  (12,2) Error: BlockID 0 does not exist in 'Loader'.@");
}

TEST_F(TaskCheck, ATemporaryFileOfTheProjectsFolderGoesFirst) {
    host.define(0, "D:\\shared\\Main.bpg", "Main");
    host.define(1, "Loader.bpg", "Loader");
    host.define(2, "E:/x/Rest.bpg", "Rest");
    files->names = {"C:\\Job\\Main.bpg.tmp", "Loader.bpg.tmp", "C:\\Job\\Rest.tmp"};
    check(*launch);
    EXPECT_EQ(programs.asked, (Texts{"C:\\Job\\Main.bpg.tmp,0", "Loader.bpg,0", "E:/x/Rest.bpg,0"}));
}

TEST_F(TaskCheck, AStaleLaunchLosesItsFlagInSilence) {
    host.define(0, "Main.bpg", "Main");
    programs.ids = {5};
    for (const std::int16_t task : {std::int16_t{1}, std::int16_t{4}, std::int16_t{8}}) {
        launch->SetArChkTask(task, true);
        launch->SetArBlockNumber(task, 5);
    }
    EXPECT_FALSE(check(*launch));
    EXPECT_EQ(message, "");
    EXPECT_EQ(launch->OutputToFile(""), "16 1 5 0 0 0 0 0 5 0 0 0 0 0 0 0 5");
    EXPECT_TRUE(check(*launch)) << "nothing is stale any more";
}

TEST_F(TaskCheck, AStaleSuspensionLosesItsFlagInSilence) {
    host.define(1, "Loader.bpg", "Loader");
    for (std::int16_t task = 1; task <= 3; ++task) suspend->SetArTask(task, true);
    message = "earlier@";
    EXPECT_FALSE(check(*suspend));
    EXPECT_EQ(message, "earlier@");
    EXPECT_EQ(suspend->OutputToFile(""), "8 0 1 0 0 0 0 0 0");
    EXPECT_TRUE(check(*suspend));
    EXPECT_EQ(message, "earlier@");
}

TEST_F(TaskCheck, ASuspensionReadsNoFiles) {
    host.tasks[0]->property("IsTaskDefined", true);
    host.project->without("WorkingDirectory");
    suspend->SetArTask(1, true);
    EXPECT_TRUE(check(*suspend)) << "neither names nor folder are needed";
    EXPECT_TRUE(suspend->ArTask(1));
}

TEST_F(TaskCheck, EveryMemberThatTheHostLacksFails) {
    const struct {
        const char* what;
        std::function<void(TaskProject&)> spoil;
        bool suspensionToo;
    } rows[]{
        {"TaskList", [](TaskProject& h) { h.project->without("TaskList"); }, true},
        {"GetTaskAt", [](TaskProject& h) { h.list->without("GetTaskAt"); }, true},
        {"IsTaskDefined", [](TaskProject& h) { h.tasks[0]->without("IsTaskDefined"); }, true},
        {"TaskName", [](TaskProject& h) { h.tasks[0]->without("TaskName"); }, false},
        {"TaskTitle", [](TaskProject& h) { h.tasks[0]->without("TaskTitle"); }, false},
        {"WorkingDirectory", [](TaskProject& h) { h.project->without("WorkingDirectory"); }, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        TaskProject spoilt;
        spoilt.define(0, "Main.bpg", "Main");
        row.spoil(spoilt);
        EXPECT_EQ(raisedBy([&] { launch->PropertiesSyntaxCheck(spoilt.project, 12, message); }), 438);
        EXPECT_EQ(raisedBy([&] { suspend->PropertiesSyntaxCheck(spoilt.project, 12, message); }),
                  row.suspensionToo ? 438 : 0);
        EXPECT_EQ(message, "");
    }
}

TEST_F(TaskCheck, AnObjectThatIsNotSetFails) {
    for (AttributeObject* block :
         {static_cast<AttributeObject*>(launch.get()), static_cast<AttributeObject*>(suspend.get())}) {
        TaskProject spoilt;
        EXPECT_EQ(raisedBy([&] { block->PropertiesSyntaxCheck(nullptr, 12, message); }), 91);
        spoilt.tasks[0] = nullptr;
        EXPECT_EQ(raisedBy([&] { block->PropertiesSyntaxCheck(spoilt.project, 12, message); }), 91);
        spoilt.project->property("TaskList", Ref<Object>());
        EXPECT_EQ(raisedBy([&] { block->PropertiesSyntaxCheck(spoilt.project, 12, message); }), 91);
        spoilt.project->property("TaskList", std::int16_t{3});
        EXPECT_EQ(raisedBy([&] { block->PropertiesSyntaxCheck(spoilt.project, 12, message); }), 424);
    }
    EXPECT_EQ(message, "");
}

TEST_F(TaskCheck, AFailingTaskReachesTheErrorHandler) {
    host.tasks[0]->method("IsTaskDefined", [](Args) -> Value { throw RuntimeError(1000, "The project is closed"); });
    testing::Answering handler{tracing::Answer::leave};
    check(*launch), check(*suspend);
    ASSERT_EQ(handler.failures.size(), 2u);
    EXPECT_EQ(handler.failures[0].number, 1000);
    EXPECT_EQ(handler.failures[0].module, "clsBVTRestartProgram");
    EXPECT_EQ(handler.failures[1].module, "clsBVTSuspendProgram");
}

TEST_F(TaskCheck, ATaskThatFailsCanBeTriedAgainOrPassedOver) {
    int failures = 0;
    host.tasks[0]->method("IsTaskDefined", [&](Args) {
        if (failures-- > 0) throw RuntimeError(1000, "Busy");
        return Value(false);
    });
    host.define(1, "Loader.bpg", "Loader");
    const char* record = "  (12,2) Error: BlockID 0 does not exist in 'Loader'.@";
    {
        failures = 2;
        testing::Answering handler{tracing::Answer::retry};
        launch->SetArChkTask(1, true);
        EXPECT_FALSE(check(*launch));
        EXPECT_EQ(handler.failures.size(), 2u);
        EXPECT_EQ(message, record);
        EXPECT_FALSE(launch->ArChkTask(1));
    }
    failures = 1, message.clear();
    testing::Answering handler{tracing::Answer::ignore};
    check(*launch);
    EXPECT_TRUE(message.ends_with(record)) << "the tasks behind it are looked at";
    failures = 1;
    suspend->SetArTask(8, true);
    EXPECT_FALSE(check(*suspend));
    EXPECT_FALSE(suspend->ArTask(8));
}

TEST_F(TaskCheck, WorksByNameUnderBothNames) {
    launch->SetArChkTask(1, true);
    for (const char* name : {"PropertiesSyntaxCheck", "IBlockAttribute_PropertiesSyntaxCheck"}) {
        launch->SetArChkTask(1, true);
        EXPECT_EQ(
            invoke(static_cast<Object&>(*launch), name, Ref<Object>(host.project), std::int32_t{12}, std::ref(message)),
            Value(false));
        EXPECT_FALSE(launch->ArChkTask(1));
    }
}

}  // namespace
}  // namespace canvas
