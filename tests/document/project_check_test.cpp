// Programs of one folder against each other.

#include "document/project_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace canvas {
namespace {

struct Folder {
    struct Program {
        std::string name;
        ProgramLinks links;
        std::vector<Finding> findings;
    };
    std::deque<Program> programs;
    std::optional<TaskFiles> tasks;
    std::vector<Finding> taskFindings;
    std::vector<std::string> otherFiles;

    Program& program(std::string name, std::vector<std::int16_t> blocks = {1, 2}) {
        programs.push_back({std::move(name), {}, {}});
        programs.back().links.blocks = std::move(blocks);
        return programs.back();
    }

    void task(std::size_t number, std::string file) {
        if (!tasks) tasks = TaskFiles{.files = {}, .findings = &taskFindings};
        tasks->files[number - 1] = std::move(file);
    }

    /// All findings as "file:line rule".
    std::vector<std::string> check() {
        std::vector<ProjectProgram> all;
        for (Program& p : programs) all.push_back({p.name, &p.links, &p.findings});
        checkProject(all, tasks, [&](const std::string& name) {
            return std::find(otherFiles.begin(), otherFiles.end(), name) != otherFiles.end();
        });
        std::vector<std::string> found;
        const auto tell = [&](const std::string& file, const std::vector<Finding>& findings) {
            for (const Finding& f : findings)
                found.push_back(file + ":" + std::to_string(f.line) + " " + std::string(nameOf(f.rule)));
        };
        for (const Program& p : programs) tell(p.name, p.findings);
        tell("tasks", taskFindings);
        return found;
    }
};

void calls(Folder::Program& program, int line, std::string name, std::string title) {
    program.links.calls.push_back({line, 5, std::move(name), std::move(title)});
}

void calls(Folder::Program& program, int line, const std::string& title) { calls(program, line, ".\\" + title, title); }

using Found = std::vector<std::string>;

TEST(NameOutside, StaysInsideForNamesOfTheFolderAndBelow) {
    for (const auto* name : {".\\sub.bpa", "sub.bpa", "./sub.bpa", ".\\parts\\sub.bpa", "nullify.bpa", "com.bpa", "COM10.bpa", "a..b.bpa"})
        EXPECT_EQ(whyOutside(name), "") << name;
}

TEST(NameOutside, TellsEachWayOut) {
    const struct {
        const char* name;
        std::string_view why;
    } cases[] = {
        {"", "names no file"},
        {"C:\\a.bpa", "names a drive"},
        {"c:a.bpa", "names a drive"},
        {"\\\\plant\\a.bpa", "names another computer"},
        {"//plant/a.bpa", "names another computer"},
        {"\\a.bpa", "begins at the root"},
        {"/a.bpa", "begins at the root"},
        {"..\\a.bpa", "leads out of the folder"},
        {".\\b\\..\\a.bpa", "leads out of the folder"},
        {"./../a.bpa", "leads out of the folder"},
        {".. \\a.bpa", "leads out of the folder"},
        {".\\NUL", "names a device"},
        {".\\nul.bpa", "names a device"},
        {".\\COM1.bpa", "names a device"},
        {".\\lpt9.x.bpa", "names a device"},
        {".\\COM¹.bpa", "names a device"},
        {".\\aux .bpa", "names a device"},
        {".\\a.bpa:b", "names a stream of a file"},
        {".\\a.bpa::$DATA", "names a stream of a file"},
        {".\\a\n.bpa", "holds a control character, which no file name does"},
    };
    for (const auto& c : cases) EXPECT_EQ(whyOutside(c.name), c.why) << c.name;
}

TEST(ProjectCheck, FindsNothingWhereAllCallsLeadToProgramsOfTheFolder) {
    Folder folder;
    calls(folder.program("main.bpa"), 4, "home.bpa");
    folder.program("home.bpa");
    EXPECT_EQ(folder.check(), Found());
}

TEST(ProjectCheck, MatchesFileNamesWithoutRegardToCase) {
    Folder folder;
    calls(folder.program("main.bpa"), 4, "HOME.bpa");
    folder.program("home.bpa");
    EXPECT_EQ(folder.check(), Found());
}

TEST(ProjectCheck, NamesASubroutineThatIsNotThere) {
    Folder folder;
    calls(folder.program("main.bpa"), 4, "home.bpa");
    EXPECT_EQ(folder.check(), Found{"main.bpa:4 missing-subroutine"});
    EXPECT_EQ(folder.programs[0].findings[0].reason, "calls \"home.bpa\", which is not in the folder");
}

TEST(ProjectCheck, TakesAFileThatIsThereButWasNotChecked) {
    Folder folder;
    calls(folder.program("main.bpa"), 4, "home.bpa");
    folder.otherFiles = {"home.bpa"};
    EXPECT_EQ(folder.check(), Found());
}

TEST(ProjectCheck, NamesAProgramThatCallsItself) {
    Folder folder;
    calls(folder.program("main.bpa"), 4, "Main.bpa");
    EXPECT_EQ(folder.check(), Found{"main.bpa:4 recursive-subroutine"});
}

TEST(ProjectCheck, NamesACircleThroughSeveralFilesAtEachOfItsCalls) {
    Folder folder;
    calls(folder.program("a.bpa"), 4, "b.bpa");
    calls(folder.program("b.bpa"), 5, "c.bpa");
    calls(folder.program("c.bpa"), 6, "a.bpa");
    calls(folder.program("main.bpa"), 7, "a.bpa");
    EXPECT_EQ(folder.check(), (Found{"a.bpa:4 recursive-subroutine", "b.bpa:5 recursive-subroutine", "c.bpa:6 recursive-subroutine"}));
    EXPECT_EQ(folder.programs[0].findings[0].reason, "calls lead back here: b.bpa > c.bpa > a.bpa");
}

TEST(ProjectCheck, NamesACallWithoutASubroutineAndATitleOfAnotherFile) {
    Folder folder;
    auto& main = folder.program("main.bpa");
    calls(main, 4, "", "");
    calls(main, 5, ".\\home.bpa", "old.bpa");
    folder.program("home.bpa");
    EXPECT_EQ(folder.check(), (Found{"main.bpa:4 no-subroutine", "main.bpa:5 title"}));
}

TEST(ProjectCheck, DoesNotFollowANameOutOfTheFolder) {
    Folder folder;
    calls(folder.program("main.bpa"), 4, "..\\main.bpa", "main.bpa");
    EXPECT_EQ(folder.check(), Found{"main.bpa:4 outside-folder"});
}

TEST(ProjectCheck, NamesALaunchAtABlockThatIsNotThereTickedOrNot) {
    Folder folder;
    auto& main = folder.program("main.bpa");
    main.links.tasks = {{4, 3, 1, true, true, 9}, {4, 3, 2, true, false, 7}, {4, 3, 2, true, true, 2}, {5, 4, 1, false, true, 0}};
    folder.program("one.bpa", {1, 2, 3});
    folder.program("two.bpa", {1, 2, 3});
    folder.task(1, "one.bpa");
    folder.task(2, "TWO.bpa");
    EXPECT_EQ(folder.check(), (Found{"main.bpa:4 launch-block", "main.bpa:4 launch-block"}));
    EXPECT_EQ(folder.programs[0].findings[0].reason, "block 9, where task 1 is launched, does not exist in \"one.bpa\"");
}

TEST(ProjectCheck, NamesATaskThatIsNotDefinedOnlyWhereItIsTicked) {
    Folder folder;
    auto& main = folder.program("main.bpa");
    main.links.tasks = {{4, 3, 2, true, true, 1}, {5, 4, 3, false, true, 0}, {6, 5, 4, true, false, 1}};
    folder.task(1, "");
    EXPECT_EQ(folder.check(), (Found{"main.bpa:4 missing-task", "main.bpa:5 missing-task"}));
}

TEST(ProjectCheck, NamesATasksProgramThatIsMissingOrOutsideOnce) {
    Folder folder;
    auto& main = folder.program("main.bpa");
    main.links.tasks = {{4, 3, 1, true, true, 1}, {4, 3, 2, true, true, 1}};
    folder.task(1, "gone.bpa");
    folder.task(2, "..\\other.bpa");
    EXPECT_EQ(folder.check(), (Found{"tasks:1 missing-task", "tasks:2 outside-folder"}));
}

TEST(ProjectCheck, LooksAtNoLaunchWithoutATaskList) {
    Folder folder;
    folder.program("main.bpa").links.tasks = {{4, 3, 1, true, true, 99}};
    EXPECT_EQ(folder.check(), Found());
}

}  // namespace
}  // namespace canvas
