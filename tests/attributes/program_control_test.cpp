// Blocks that launch and suspend the project's tasks: their eight entries in files, panel and copies.

#include "attributes/program_control.h"

#include <gtest/gtest.h>

#include "fake_checker.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::bad;
using testing::comboItems;
using testing::commitCell;
using testing::commitPanel;
using testing::FakeChecker;
using testing::panelOf;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

Ref<Object> namesOf(const Texts& names) {
    const auto list = make<Collection>();
    for (const std::string& name : names) list->Add(name);
    return list;
}

/// Column 1 of the rows, as FillMatrix shows it.
Texts shown(AttributeObject& block) {
    block.FillMatrix();
    Texts texts;
    for (std::int16_t row = 0; row <= block.MatrixRow(); ++row) texts.push_back(block.GetElementFromMatrix(row, 1));
    return texts;
}

TEST(LaunchProgram, ReadsPairsOfFlagAndBlockNumber) {
    const auto block = make<clsBVTRestartProgram>();
    std::string line = "16";
    for (std::int16_t task = 1; task <= 8; ++task) {
        const bool flag = task % 3 == 0;
        block->AssignFromFile(static_cast<std::int16_t>(2 * task - 1), flag ? "1" : "False");
        block->AssignFromFile(static_cast<std::int16_t>(2 * task), std::to_string(100 * task));
        line += (flag ? " 1 " : " 0 ") + std::to_string(100 * task);
    }
    for (std::int16_t task = 1; task <= 8; ++task) {
        EXPECT_EQ(block->ArChkTask(task), task % 3 == 0) << task;
        EXPECT_EQ(block->ArBlockNumber(task), 100 * task);
    }
    for (const int beyond : {-1, 0, 17, 18, 32767}) block->AssignFromFile(static_cast<std::int16_t>(beyond), "1");
    EXPECT_EQ(block->OutputToFile(""), line);
}

TEST(LaunchProgram, WritesNumbersOfAnySignWithoutQuotes) {
    const auto block = make<clsBVTRestartProgram>();
    block->SetArChkTask(1, true);
    block->SetArBlockNumber(1, -5);
    block->SetArBlockNumber(8, 32767);
    block->SetArTask(1, "Main");
    EXPECT_EQ(block->OutputToFile("7 16 "), "7 16 16 1 -5 0 0 0 0 0 0 0 0 0 0 0 0 0 32767") << "names are the host's";
}

TEST(LaunchProgram, ValuesOfAFileMustConvert) {
    const auto block = make<clsBVTRestartProgram>();
    EXPECT_EQ(raisedBy([&] { block->AssignFromFile(1, "maybe"); }), 13);
    EXPECT_EQ(raisedBy([&] { block->AssignFromFile(2, "many"); }), 13);
    EXPECT_EQ(raisedBy([&] { block->AssignFromFile(16, "32768"); }), 6);
    EXPECT_EQ(block->OutputToFile(""), "16 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0");
    block->AssignFromFile(2, "2.5");
    EXPECT_EQ(block->ArBlockNumber(1), 2);
}

TEST(TaskEntries, AreCountedFromOneToEight) {
    const auto launch = make<clsBVTRestartProgram>();
    const auto suspend = make<clsBVTSuspendProgram>();
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{0}, std::int16_t{9}, std::int16_t{32767}}) {
        EXPECT_EQ(raisedBy([&] { launch->ArChkTask(index); }), 9) << index;
        EXPECT_EQ(raisedBy([&] { launch->SetArChkTask(index, true); }), 9);
        EXPECT_EQ(raisedBy([&] { launch->ArTask(index); }), 9);
        EXPECT_EQ(raisedBy([&] { launch->SetArTask(index, "x"); }), 9);
        EXPECT_EQ(raisedBy([&] { launch->ArBlockNumber(index); }), 9);
        EXPECT_EQ(raisedBy([&] { launch->SetArBlockNumber(index, 1); }), 9);
        EXPECT_EQ(raisedBy([&] { suspend->ArTask(index); }), 9);
        EXPECT_EQ(raisedBy([&] { suspend->SetArTask(index, true); }), 9);
        EXPECT_EQ(raisedBy([&] { suspend->ArTaskExist(index); }), 9);
        EXPECT_EQ(raisedBy([&] { suspend->SetArTaskExist(index, true); }), 9);
        EXPECT_EQ(raisedBy([&] { invoke(static_cast<Object&>(*launch), "ArTask", index); }), 9);
    }
    EXPECT_EQ(launch->OutputToFile(""), "16 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0");
    EXPECT_EQ(suspend->OutputToFile(""), "8 0 0 0 0 0 0 0 0");
}

TEST(TaskEntries, AreReachedByName) {
    const Ref<Object> launch = make<clsBVTRestartProgram>();
    const Ref<Object> suspend = make<clsBVTSuspendProgram>();
    for (const Ref<Object>& block : {launch, suspend}) {
        EXPECT_EQ(block->get("TaskCount"), Value(std::int16_t{8}));
        EXPECT_EQ(raisedBy([&] { block->put("TaskCount", std::int16_t{9}); }), 438);
        EXPECT_EQ(raisedBy([&] { block->get("TaskName"); }), 438) << "names are only handed in";
    }
    for (const std::int16_t task : {std::int16_t{1}, std::int16_t{8}}) {
        invoke(*launch, "SetArChkTask", task, true);
        invoke(*launch, "SetArTask", task, "Main");
        invoke(*launch, "SetArBlockNumber", task, "17");
        EXPECT_EQ(invoke(*launch, "ArChkTask", task), Value(true));
        EXPECT_EQ(invoke(*launch, "ArTask", task), Value("Main"));
        EXPECT_EQ(invoke(*launch, "ArBlockNumber", task), Value(std::int16_t{17}));
        invoke(*suspend, "SetArTask", task, true);
        invoke(*suspend, "SetArTaskExist", task, "True");
        EXPECT_EQ(invoke(*suspend, "ArTask", task), Value(true));
        EXPECT_EQ(invoke(*suspend, "ArTaskExist", task), Value(true));
    }
}

TEST(LaunchProgram, TakesItsTasksNamesFromTheHost) {
    const auto block = make<clsBVTRestartProgram>();
    EXPECT_EQ(comboItems(*block, 0), Texts());
    block->put("TaskName", namesOf({"Main", "", "Loader", "", "", "", "", "Rest"}));
    EXPECT_EQ(block->ArTask(1), "Main");
    EXPECT_EQ(block->ArTask(2), "");
    EXPECT_EQ(block->ArTask(8), "Rest");
    EXPECT_EQ(comboItems(*block, 0), (Texts{"Program 1", "Program 3", "Program 8"}));
    EXPECT_EQ(comboItems(*block, 1), (Texts{"True", "False"}));
    for (const int row : {-1, 2, 3, 4}) EXPECT_EQ(comboItems(*block, row), Texts()) << row;
    EXPECT_EQ(raisedBy([&] { block->put("TaskName", Ref<Object>()); }), 91);
}

TEST(LaunchProgram, ShowsTheSelectedTask) {
    const auto block = make<clsBVTRestartProgram>();
    EXPECT_EQ(shown(*block), (Texts{"Program 1", "False", "0", "Show Detail Window"}));
    block->SetArChkTask(4, true);
    block->SetArBlockNumber(4, 12);
    EXPECT_FALSE(block->UpdateMatrix(3));
    EXPECT_EQ(block->GetElementFromMatrix(0, 1), "Program 1") << "until the matrix is filled again";
    EXPECT_EQ(shown(*block), (Texts{"Program 4", "True", "12", "Show Detail Window"}));
    EXPECT_EQ(invoke(static_cast<Object&>(*block), "UpdateMatrix", std::int16_t{7}), Value(false));
    EXPECT_EQ(shown(*block)[0], "Program 8");
}

TEST(TaskEntries, ASelectionWithoutATaskIsOutOfRange) {
    const auto launch = make<clsBVTRestartProgram>();
    const auto suspend = make<clsBVTSuspendProgram>();
    for (const std::int16_t beyond : {std::int16_t{-1}, std::int16_t{8}}) {
        launch->UpdateMatrix(beyond);
        suspend->UpdateMatrix(beyond);
        EXPECT_EQ(raisedBy([&] { launch->FillMatrix(); }), 9) << beyond;
        EXPECT_EQ(raisedBy([&] { suspend->FillMatrix(); }), 9) << beyond;
    }
}

TEST(LaunchProgram, OnlyTheBlockNumberOfACellIsStored) {
    const auto block = make<clsBVTRestartProgram>();
    block->UpdateMatrix(1);
    for (const int row : {0, 1, 3}) {
        const auto out = commitCell(*block, row, "True", nullptr);
        EXPECT_TRUE(out.result) << row;
        EXPECT_EQ(out.FormattedText, "True");
    }
    EXPECT_EQ(block->OutputToFile(""), "16 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0");
    FakeChecker checker;
    checker.verdicts["5 + 7"].formatted = "12";
    const auto out = commitCell(*block, 2, "5 + 7", checker.object());
    EXPECT_TRUE(out.result);
    EXPECT_EQ(checker.calls, (Calls{"checkexpression(5 + 7,1,1)", "GetResult"}));
    EXPECT_EQ(out.FormattedText, "12");
    EXPECT_EQ(block->ArBlockNumber(2), 12) << "the checker's form of the text, as a number";
    EXPECT_TRUE(commitCell(*block, -1, "5", nullptr).result);
    EXPECT_EQ(block->ArBlockNumber(2), 12);
}

TEST(LaunchProgram, ABlockNumberOutOfRangeIsNotStored) {
    const auto block = make<clsBVTRestartProgram>();
    for (const std::string text : {"-1", "32768", "1.5"}) {
        const auto out = commitCell(*block, 2, text, nullptr);
        EXPECT_FALSE(out.result) << text;
        EXPECT_EQ(out.strError, "Expecting a postion integer in the range of [0 To 32767].");
        EXPECT_EQ(out.selStart, 1);
        EXPECT_EQ(out.selLength, static_cast<std::int32_t>(text.size()));
        EXPECT_FALSE(commitPanel(*block, 2, panelOf({"", "True", text, ""}), nullptr).result);
    }
    EXPECT_EQ(block->OutputToFile(""), "16 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0");
}

TEST(LaunchProgram, ABlockNumberThatIsNoNumberFails) {
    const auto block = make<clsBVTRestartProgram>();
    FakeChecker checker;
    EXPECT_EQ(raisedBy([&] { commitCell(*block, 2, "x", checker.object()); }), 13);
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 2, panelOf({"", "False", "x", ""}), checker.object()); }), 13);
    checker.verdicts["12"] = bad("Not today");
    EXPECT_FALSE(commitCell(*block, 2, "12", checker.object()).result);
    EXPECT_EQ(block->ArBlockNumber(1), 12) << "a text of wrong syntax is stored all the same";
}

TEST(LaunchProgram, APanelStoresFlagAndNumberOfTheSelectedTask) {
    const auto block = make<clsBVTRestartProgram>();
    FakeChecker checker;
    block->UpdateMatrix(2);
    const auto panel = [](const char* flag) { return panelOf({"Program 8", flag, "7", "Show Detail Window"}); };
    EXPECT_TRUE(commitPanel(*block, 2, panel("True"), checker.object()).result);
    EXPECT_EQ(checker.checks(), Calls{"checkexpression(7,1,1)"});
    EXPECT_EQ(block->OutputToFile(""), "16 0 0 0 0 1 7 0 0 0 0 0 0 0 0 0 0");
    for (const char* text : {"true", "1", ""}) {
        block->SetArChkTask(3, true);
        EXPECT_TRUE(commitPanel(*block, 2, panel(text), checker.object()).result);
        EXPECT_FALSE(block->ArChkTask(3)) << text;
    }
    checker.verdicts["True"] = bad("Unknown name");
    EXPECT_FALSE(commitPanel(*block, 1, panel("True"), checker.object()).result);
    EXPECT_FALSE(block->ArChkTask(3));
    EXPECT_TRUE(commitPanel(*block, -1, nullptr, nullptr).result);
}

TEST(SuspendProgram, ReadsOneFlagForEachTask) {
    const auto block = make<clsBVTSuspendProgram>();
    for (const std::int16_t task : {std::int16_t{2}, std::int16_t{8}}) block->AssignFromFile(task, "1");
    for (const int beyond : {-1, 0, 9, 32767}) block->AssignFromFile(static_cast<std::int16_t>(beyond), "1");
    EXPECT_EQ(block->OutputToFile("x "), "x 8 0 1 0 0 0 0 0 1");
    EXPECT_EQ(block->GetNumOfProperties(), 8);
    for (std::int16_t task = 1; task <= 8; ++task)
        EXPECT_EQ(block->GetPropertyAt(task), task == 2 || task == 8 ? "True" : "False") << task;
    EXPECT_EQ(raisedBy([&] { block->AssignFromFile(2, "maybe"); }), 13);
    EXPECT_TRUE(block->ArTask(2));
}

TEST(SuspendProgram, KnowsATaskByItsName) {
    const auto block = make<clsBVTSuspendProgram>();
    EXPECT_EQ(comboItems(*block, 0), Texts());
    block->put("TaskName", namesOf({"", "Loader", "", "", "", "", " ", "Rest"}));
    for (std::int16_t task = 1; task <= 8; ++task) EXPECT_EQ(block->ArTaskExist(task), task == 2 || task >= 7) << task;
    EXPECT_EQ(comboItems(*block, 0), (Texts{"Program 2", "Program 7", "Program 8"}));
    EXPECT_EQ(comboItems(*block, 1), (Texts{"True", "False"}));
    for (const int row : {-1, 2, 3}) EXPECT_EQ(comboItems(*block, row), Texts()) << row;
    block->SetArTaskExist(7, false);
    EXPECT_EQ(comboItems(*block, 0), (Texts{"Program 2", "Program 8"}));
    EXPECT_EQ(block->OutputToFile(""), "8 0 0 0 0 0 0 0 0");
}

TEST(SuspendProgram, NeedsEightNames) {
    const auto block = make<clsBVTSuspendProgram>();
    EXPECT_EQ(raisedBy([&] { block->setTaskName(namesOf({"a", "b"})); }), 9);
    EXPECT_EQ(raisedBy([&] { block->setTaskName(nullptr); }), 91);
    EXPECT_EQ(raisedBy([&] { block->setTaskName(namesOf(Texts(12, "x"))); }), 0) << "more than eight are not looked at";
    EXPECT_TRUE(block->ArTaskExist(8));
}

TEST(SuspendProgram, ShowsTheSelectedTask) {
    const auto block = make<clsBVTSuspendProgram>();
    EXPECT_EQ(shown(*block), (Texts{"Program 1", "False"}));
    block->SetArTask(6, true);
    EXPECT_FALSE(block->UpdateMatrix(5));
    EXPECT_EQ(shown(*block), (Texts{"Program 6", "True"}));
}

TEST(SuspendProgram, ACellStoresNothingAndAPanelTheFlag) {
    const auto block = make<clsBVTSuspendProgram>();
    FakeChecker checker;
    for (const int row : {0, 1}) {
        const auto out = commitCell(*block, row, "True", checker.object());
        EXPECT_TRUE(out.result);
        EXPECT_EQ(out.FormattedText, "True");
    }
    EXPECT_EQ(checker.calls, Calls());
    EXPECT_EQ(block->OutputToFile(""), "8 0 0 0 0 0 0 0 0");
    block->UpdateMatrix(5);
    EXPECT_TRUE(commitPanel(*block, 1, panelOf({"Program 1", "True"}), checker.object()).result);
    EXPECT_EQ(checker.checks(), Calls{"checkexpression(True,1,1)"});
    EXPECT_EQ(block->OutputToFile(""), "8 0 0 0 0 0 1 0 0");
    EXPECT_TRUE(commitPanel(*block, 0, panelOf({"Program 1", "true"}), checker.object()).result);
    EXPECT_EQ(block->OutputToFile(""), "8 0 0 0 0 0 0 0 0");
}

TEST(TaskEntries, ACopyHasAllOfThemAndItsOwn) {
    const auto launch = make<clsBVTRestartProgram>();
    launch->SetArChkTask(8, true), launch->SetArBlockNumber(8, 5), launch->SetArTask(8, "Rest");
    launch->UpdateMatrix(7);
    const auto copy = launch->IsTheSame();
    EXPECT_EQ(shown(*copy), (Texts{"Program 8", "True", "5", "Show Detail Window"}));
    EXPECT_EQ(comboItems(*copy, 0), Texts{"Program 8"});
    EXPECT_TRUE(launch->SameAs(copy));
    launch->SetArBlockNumber(8, 6);
    EXPECT_EQ(shown(*copy)[2], "5");
    EXPECT_FALSE(launch->SameAs(copy));
    launch->SetArBlockNumber(8, 5), launch->SetArChkTask(1, true);
    EXPECT_FALSE(launch->SameAs(copy));
    EXPECT_FALSE(copy->SameAs(launch));

    const auto suspend = make<clsBVTSuspendProgram>();
    suspend->SetArTask(3, true), suspend->SetArTaskExist(3, true), suspend->UpdateMatrix(2);
    const auto other = suspend->IsTheSame();
    EXPECT_EQ(shown(*other), (Texts{"Program 3", "True"}));
    EXPECT_EQ(comboItems(*other, 0), Texts{"Program 3"});
    EXPECT_TRUE(suspend->SameAs(other));
    suspend->SetArTask(3, false);
    EXPECT_FALSE(suspend->SameAs(other));
    EXPECT_EQ(other->OutputToFile(""), "8 0 0 1 0 0 0 0 0");
}

}  // namespace
}  // namespace canvas
