// References between the programs of a folder, on the damaged project among the examples: each of its faults, which
// examples/README.md lists, is named at its line, and nothing else is.

#include <gtest/gtest.h>

#include <set>

#include "tests/cli/program.h"

namespace canvas {
namespace {

program::Said check(std::string folder, bool quiet) {
    folder.insert(0, CANVAS_SOURCE_DIR "/examples/");
    std::vector<std::string> words{"check"};
    if (quiet) words.emplace_back("-q");
    words.push_back(std::move(folder));
    return program::run(words);
}

/// "file:line rule" of each finding in what the program printed.
std::set<std::string> findingsIn(const std::string& out) {
    std::set<std::string> found;
    std::size_t begin = 0;
    for (std::size_t end; (end = out.find('\n', begin)) != std::string::npos; begin = end + 1) {
        std::string line = out.substr(begin, end - begin);
        const std::size_t slash = line.rfind('/', line.find(':'));
        line = line.substr(slash + 1);
        const std::size_t place = line.find(": ");
        std::size_t rule = place + 2;
        if (line.compare(rule, 6, "block ") == 0) rule = line.find(": ", rule) + 2;
        found.insert(line.substr(0, place) + " " + line.substr(rule, line.find(": ", rule) - rule));
    }
    return found;
}

TEST(CheckFolders, NamesEveryFaultOfTheDamagedProjectAndNothingElse) {
    const auto said = check("broken_project", true);
    EXPECT_EQ(said.code, 1);
    const std::set<std::string> expected{
        "tasks.txt:4 missing-task",
        "tasks.txt:5 outside-folder",
        "sealer.bpa:12 launch-block",
        "sealer.bpa:17 title",
        "sealer.bpa:18 missing-task",
        "sealer.bpa:20 missing-subroutine",
        "sealer.bpa:21 no-subroutine",
        "sealer.bpa:24 missing-task",
        "belts.bpa:11 recursive-subroutine",
        "lamps.bpa:11 launch-block",
        "lift.bpa:8 recursive-subroutine",
        "open_flaps.bpa:9 recursive-subroutine",
        "close_flaps.bpa:9 recursive-subroutine",
        "fold_front.bpa:8 recursive-subroutine",
        "fold_rear.bpa:8 recursive-subroutine",
        "fold_top.bpa:8 recursive-subroutine",
        "imported.bpa:7 outside-folder",
        "imported.bpa:8 outside-folder",
        "imported.bpa:9 outside-folder",
        "imported.bpa:10 outside-folder",
        "imported.bpa:11 outside-folder",
        "imported.bpa:12 outside-folder",
        "imported.bpa:13 outside-folder",
        "imported.bpa:14 outside-folder",
        "imported.bpa:15 outside-folder",
        "imported.bpa:16 outside-folder",
        "imported.bpa:17 outside-folder",
        "imported.bpa:18 outside-folder",
        "imported.bpa:19 outside-folder",
        "imported.bpa:20 outside-folder",
        "imported.bpa:21 outside-folder",
    };
    EXPECT_EQ(findingsIn(said.out), expected);
}

TEST(CheckFolders, FindsNothingInTheGoodProject) {
    const auto said = check("packaging_line", false);
    EXPECT_EQ(said.code, 0);
    EXPECT_EQ(said.out, "10 files checked: 10 good\n");
}

}  // namespace
}  // namespace canvas
