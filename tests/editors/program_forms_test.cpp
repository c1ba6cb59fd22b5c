// Call Subroutine, its list, Launch Program and Suspend Program.

#include <gtest/gtest.h>

#include "attributes/program_control.h"
#include "document/catalogue.h"
#include "tests/editors/host_objects.h"

namespace canvas::editors {
namespace {

struct Disk final : Files {
    std::vector<std::string> there;
    bool exists(const std::string& path) override { return std::count(there.begin(), there.end(), path) > 0; }
    std::string read(const std::string&, std::uint64_t) override { raise(Error::fileNotFound); }
    std::unique_ptr<Replacement> replace(const std::string&) override { raise(Error::permissionDenied); }
    int open(const std::string&, OpenMode) override { raise(Error::fileNotFound); }
    void close(int) override {}
    std::string readLine(int) override { raise(Error::badFileNumber); }
    bool atEnd(int) override { return true; }
    void writeLine(int, std::string_view) override {}
    bool isFolder(const std::string&) override { return false; }
    void remove(const std::string&) override {}
    void rename(const std::string&, const std::string&) override {}
    void makeFolder(const std::string&) override {}
    std::string currentFolder() override { return "/"; }
};

struct CallSubroutine : testing::Test {
    Playing play;
    std::shared_ptr<Disk> disk = std::make_shared<Disk>();
    WithEnvironment with{Environment{.files = disk}};
    Host host;
    Ref<Form> form = makeForm("frmSuperBlock");
    Ref<Object> attribute{newAttribute(SUPERBLOCK)};
    bool isSubroutine = true, isListed = true;

    CallSubroutine() {
        host.project->property("WorkingDirectory", Value("C:\\p"));
        host.project->method("IsASubroutine", [this](Args) { return Value(isSubroutine); });
        host.project->method("IsWithinSubroutineList", [this](Args) { return Value(isListed); });
        disk->there = {"C:\\p\\pick.bpg", "C:\\p\\main.bpg"};
        attribute->put("Name", Value("C:\\p\\old.bpg"));
        attribute->put("title", Value("old.bpg"));
    }
    void open() {
        form->put("BVTAttribute", Value(attribute));
        form->put("UserUnit", Value("mm"));
        form->put("MainForm", Value(host.form));
        form->put("CanvasName", Value("main.bpg"));
    }
    /// Types a name, clicks a button, and gives the boxes' texts.
    std::vector<std::string> enter(std::string_view name, std::string_view button = "btnOK") {
        open();
        play.user->script = [&](Object& shown) {
            control(shown, "txbName")->put("Text", Value(name));
            invoke(*control(shown, button), "Click");
            stayedOpen = form->Visible();
        };
        form->Show();
        std::vector<std::string> texts;
        for (const MessageBox& box : play.user->boxes) texts.push_back(box.text);
        return texts;
    }
    std::string stored() { return attribute->get("Name").toText() + "|" + attribute->get("title").toText(); }
    Icon icon() const { return play.user->boxes.back().icon; }
    bool stayedOpen = false;
};

using Strings = std::vector<std::string>;

TEST_F(CallSubroutine, WritingTheAttributeFillsTheNameAndMakesOpenAvailable) {
    EXPECT_FALSE(control(*form, "cmdOpen")->get("Enabled").toBoolean());
    open();
    EXPECT_EQ(control(*form, "txbName")->get("Text").toText(), "old.bpg");
    EXPECT_TRUE(control(*form, "cmdOpen")->get("Enabled").toBoolean());
    control(*form, "txbName")->put("Text", Value("   "));
    EXPECT_FALSE(control(*form, "cmdOpen")->get("Enabled").toBoolean());
}

TEST_F(CallSubroutine, ANameWithoutExtensionIsLookedForWithIt) {
    EXPECT_EQ(enter(" pick "), Strings{});
    EXPECT_EQ(stored(), "C:\\p\\pick.bpg|pick.bpg");
    EXPECT_TRUE(form->get("OKClicked").toBoolean());
    EXPECT_FALSE(form->get("CreateNew").toBoolean());
    EXPECT_TRUE(host.project->get("NeedsSaving").toBoolean());
    EXPECT_FALSE(stayedOpen);
}

TEST_F(CallSubroutine, TheExtensionIsKnownInAnyCase) {
    disk->there = {"C:\\p\\pick.BPG"};
    EXPECT_EQ(enter("pick.BPG"), Strings{});
    EXPECT_EQ(stored(), "C:\\p\\pick.BPG|pick.BPG");
}

TEST_F(CallSubroutine, AnEmptyNameAnsweredWithYesClearsTheSubroutine) {
    play.user->replies = {Reply::yes};
    EXPECT_EQ(enter(""), Strings{"No subroutine is selected. Do you want to exit Call Subroutine?"});
    EXPECT_EQ(play.user->boxes[0].buttons, Buttons::yesNo);
    EXPECT_EQ(icon(), Icon::exclamation);
    EXPECT_EQ(stored(), "|");
    EXPECT_FALSE(stayedOpen);
    EXPECT_FALSE(form->get("OKClicked").toBoolean());
}

TEST_F(CallSubroutine, AnEmptyNameAnsweredWithNoStays) {
    play.user->replies = {Reply::no};
    enter("");
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(stored(), "C:\\p\\old.bpg|old.bpg");
}

TEST_F(CallSubroutine, ANameThatCannotBeAFileIsRefused) {
    const std::string text =
        "Invalid subroutine name.\r\rA filename can contain up to 255 characters, including spaces.\r"
        "But, it cannot contain any of the following characters: \\ / : * ? \" < > |";
    for (const std::string& name : {std::string("a\\b"), std::string("a/b"), std::string("a:b"), std::string("a*"),
                                    std::string("a?"), std::string("a\""), std::string("a<"), std::string("a>"),
                                    std::string("a|"), std::string(256, 'x')}) {
        play.user->boxes.clear();
        EXPECT_EQ(enter(name), Strings{text}) << name;
        EXPECT_EQ(icon(), Icon::critical);
        EXPECT_TRUE(stayedOpen);
    }
    EXPECT_EQ(stored(), "C:\\p\\old.bpg|old.bpg");
}

TEST_F(CallSubroutine, ANameOf255CharactersPassesTheNameRule) {
    const Strings boxes = enter(std::string(255, 'x'));
    EXPECT_EQ(boxes, Strings{"Subroutine does not exist in current project!\rChoose an existing subroutine in the project."});
}

TEST_F(CallSubroutine, AFileThatIsNotThereIsRefused) {
    EXPECT_EQ(enter("gone"),
              Strings{"Subroutine does not exist in current project!\rChoose an existing subroutine in the project."});
    EXPECT_EQ(icon(), Icon::exclamation);
    EXPECT_TRUE(stayedOpen);
}

TEST_F(CallSubroutine, TheDocumentItselfIsRefusedThoughTheFileExists) {
    EXPECT_EQ(enter("main"), Strings{"Subroutine cannot call itself.\r\rPlease choose another subroutine."});
    EXPECT_EQ(icon(), Icon::critical);
}

TEST_F(CallSubroutine, AFileOutsideTheProjectIsRefusedEitherWay) {
    const Strings text{"Subroutine does not exist in current project!\r"
                       "Add/import subroutine to project before making call for it."};
    isSubroutine = false;
    EXPECT_EQ(enter("pick"), text);
    EXPECT_EQ(icon(), Icon::exclamation);
    play.user->boxes.clear();
    isSubroutine = true, isListed = false;
    EXPECT_EQ(enter("pick"), text);
    EXPECT_EQ(stored(), "C:\\p\\old.bpg|old.bpg");
}

TEST_F(CallSubroutine, OpenAcceptsAFileThatIsThereAndRefusesAnyOther) {
    EXPECT_EQ(enter("pick", "cmdOpen"), Strings{});
    EXPECT_TRUE(form->get("OKClicked").toBoolean());
    form = makeForm("frmSuperBlock");
    EXPECT_EQ(enter("gone", "cmdOpen"), Strings{"Specified file cannot be opened."});
    EXPECT_EQ(icon(), Icon::exclamation);
    EXPECT_TRUE(stayedOpen);
}

TEST_F(CallSubroutine, CancelLeavesTheAttribute) {
    EXPECT_EQ(enter("pick", "btnCancel"), Strings{});
    EXPECT_EQ(stored(), "C:\\p\\old.bpg|old.bpg");
    EXPECT_FALSE(form->get("OKClicked").toBoolean());
}

TEST_F(CallSubroutine, TheListOffersAllButTheDocumentAndGivesNameAndTitle) {
    host.project->property("SubroutineList",
                           Value(listOf({"C:\\p\\pick.bpg", "C:\\p\\MAIN.bpg", "D:\\shared\\feed.bpg"})));
    disk->there.push_back("C:\\p\\feed.bpg");
    open();
    Strings titles, names;
    play.user->script = [&](Object& shown) {
        if (shown.className() == "frmListSubroutine") {
            for (std::int32_t i = 0; i < control(shown, "lstItem")->get("ListCount").toLong(); ++i) {
                titles.push_back(invoke(*control(shown, "lstItem"), "List", i).toText());
                names.push_back(invoke(*control(shown, "lstItemInvisible"), "List", i).toText());
            }
            EXPECT_FALSE(control(shown, "lstItemInvisible")->get("Visible").toBoolean());
            control(shown, "lstItem")->put("ListIndex", Value(std::int16_t{1}));
            invoke(*control(shown, "btnOK"), "Click");
            return;
        }
        invoke(*control(shown, "btnSelect"), "Click");
        EXPECT_EQ(control(shown, "txbName")->get("Text").toText(), "feed.bpg");
        invoke(*control(shown, "btnOK"), "Click");
    };
    form->Show();
    EXPECT_EQ(titles, (Strings{"pick.bpg", "feed.bpg"}));
    EXPECT_EQ(names, (Strings{"C:\\p\\pick.bpg", "D:\\shared\\feed.bpg"}));
    EXPECT_EQ(stored(), "D:\\shared\\feed.bpg|feed.bpg");
}

TEST_F(CallSubroutine, OkInTheListWithoutASelectionChoosesNothing) {
    open();
    play.user->script = [&](Object& shown) {
        if (shown.className() != "frmListSubroutine") return invoke(*control(shown, "btnSelect"), "Click"), void();
        invoke(*control(shown, "btnOK"), "Click");
        EXPECT_FALSE(shown.get("Visible").toBoolean());
        EXPECT_FALSE(shown.get("ClickedOK").toBoolean());
    };
    form->Show();
    EXPECT_EQ(control(*form, "txbName")->get("Text").toText(), "old.bpg");
}

TEST_F(CallSubroutine, AFailingListIsToldAndTheDialogStays) {
    host.project->without("SubroutineList");
    const Strings boxes = enter("pick", "btnSelect");
    EXPECT_EQ(boxes, Strings{"frmSuperBlock.btnSelect_Click: [438] Object doesn't support this property or method"});
    EXPECT_TRUE(stayedOpen);
}

std::string task(std::string_view name, int i) { return std::string(name) + "(" + std::to_string(i) + ")"; }

struct Tasks : testing::Test {
    Playing play;
};

TEST_F(Tasks, LaunchShowsEightTasksAndDisablesThoseThatAreNotThere) {
    const Ref<Form> form = makeForm("frmRestartProgram");
    const Ref<Object> attribute = newAttribute(RESTARTPROGRAM);
    attribute->put("TaskName", Value(listOf({"one.bpg", "", "three.bpg", "", "", "", "", ""})));
    invoke(*attribute, "SetArChkTask", std::int16_t{1}, true);
    invoke(*attribute, "SetArBlockNumber", std::int16_t{1}, std::int16_t{12});
    invoke(*attribute, "SetArChkTask", std::int16_t{2}, true);
    invoke(*attribute, "SetArBlockNumber", std::int16_t{2}, std::int16_t{9});
    form->put("BVTAttribute", Value(attribute));
    play.user->script = [&](Object& shown) {
        for (int i = 0; i < 8; ++i) {
            EXPECT_EQ(control(shown, task("ChkTask", i))->get("Caption").toText(), "Program " + std::to_string(i + 1));
            const bool there = i == 0 || i == 2;
            EXPECT_EQ(control(shown, task("ChkTask", i))->get("Enabled").toBoolean(), there);
            EXPECT_EQ(control(shown, task("txbTask", i))->get("Enabled").toBoolean(), there);
        }
        EXPECT_TRUE(control(shown, "ChkTask(0)")->get("Value").toBoolean());
        EXPECT_EQ(control(shown, "txbTask(0)")->get("Text").toText(), "12");
        EXPECT_FALSE(control(shown, "ChkTask(1)")->get("Value").toBoolean());
        EXPECT_EQ(control(shown, "txbTask(1)")->get("Text").toText(), "1");
        control(shown, "ChkTask(2)")->put("Value", Value(true));
        control(shown, "txbTask(2)")->put("Text", Value("40"));
        invoke(*control(shown, "btnOK"), "Click");
    };
    form->Show();
    EXPECT_TRUE(form->get("OKClicked").toBoolean());
    EXPECT_TRUE(invoke(*attribute, "ArChkTask", std::int16_t{3}).toBoolean());
    EXPECT_EQ(invoke(*attribute, "ArBlockNumber", std::int16_t{3}), Value(std::int16_t{40}));
    // what the dialog shows for absent tasks is written too
    EXPECT_FALSE(invoke(*attribute, "ArChkTask", std::int16_t{2}).toBoolean());
    EXPECT_EQ(invoke(*attribute, "ArBlockNumber", std::int16_t{2}), Value(std::int16_t{1}));
}

TEST_F(Tasks, SuspendTicksAndDisablesWhatDoesNotExist) {
    const Ref<Form> form = makeForm("frmSuspendProgram");
    const Ref<Object> attribute = newAttribute(SUSPENDPROGRAM);
    attribute->put("TaskName", Value(listOf({"one.bpg", "", "three.bpg", "", "", "", "", ""})));
    invoke(*attribute, "SetArTask", std::int16_t{2}, true);
    form->put("BVTAttribute", Value(attribute));
    play.user->script = [&](Object& shown) {
        EXPECT_TRUE(control(shown, "ChkTask(1)")->get("Value").toBoolean());
        EXPECT_FALSE(control(shown, "ChkTask(1)")->get("Enabled").toBoolean());
        EXPECT_TRUE(control(shown, "ChkTask(0)")->get("Enabled").toBoolean());
        control(shown, "ChkTask(0)")->put("Value", Value(true));
        control(shown, "ChkTask(1)")->put("Value", Value(false));  // disabled: a hand could not
        invoke(*control(shown, "btnOK"), "Click");
    };
    form->Show();
    EXPECT_TRUE(invoke(*attribute, "ArTask", std::int16_t{1}).toBoolean());
    EXPECT_TRUE(invoke(*attribute, "ArTask", std::int16_t{2}).toBoolean());
}

TEST_F(Tasks, OkAsksNobody) {
    for (const auto* name : {"frmRestartProgram", "frmSuspendProgram"}) {
        const Ref<Form> form = makeForm(name);
        EXPECT_THROW(form->call("CheckParameter"), RuntimeError) << name;
        play.user->script = [](Object& shown) { invoke(*control(shown, "btnOK"), "Click"); };
        form->Show();
        EXPECT_TRUE(form->get("OKClicked").toBoolean()) << name;
        EXPECT_TRUE(play.user->boxes.empty());
    }
}

}  // namespace
}  // namespace canvas::editors
