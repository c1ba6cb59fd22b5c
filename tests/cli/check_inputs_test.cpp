// Which files a line names.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/cli/program.h"
#include "tests/document/check_cases.h"

using namespace canvas;
using program::run;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

/// a.bpa, B.bpa, notes.txt, sub/c.bpa, sub/deep/d.bpa, sub/é.bpa and .hidden/e.bpa, all good programs.
class Inputs : public ::testing::Test {
protected:
    Inputs() {
        for (const char* name : {"sub", "sub/deep", ".hidden", "empty"})
            std::filesystem::create_directory(m_folder / name);
        for (const char* name :
             {"a.bpa", "B.bpa", "notes.txt", "sub/c.bpa", "sub/deep/d.bpa", "sub/é.bpa", ".hidden/e.bpa"})
            put(name);
    }

    void put(const std::string& name) { scratch::put(m_folder / name, check_cases::edited({})); }

    program::Said check(std::vector<std::string> words) {
        words.insert(words.begin(), "check");
        return run(words, {.folder = m_folder.path()});
    }

    /// The files checked, in their order.
    std::vector<std::string> files(std::vector<std::string> words) {
        words.insert(words.begin(), "--json");
        const auto said = check(words);
        std::vector<std::string> names;
        if (said.code == 2) return {said.err};
        const nlohmann::json json = nlohmann::json::parse(said.out);
        for (const auto& report : json["files"]) names.push_back(report["file"]);
        return names;
    }

    const scratch::Folder m_folder;
};

}  // namespace

TEST_F(Inputs, AreSortedAndEachCheckedOnce) {
    EXPECT_THAT(files({"sub/c.bpa", "a.bpa", "./a.bpa", "B.bpa", "a.bpa"}), ElementsAre("B.bpa", "a.bpa", "sub/c.bpa"));
}

TEST_F(Inputs, OfAFolderAreAllProgramsBelowIt) {
    EXPECT_THAT(files({"sub"}), ElementsAre("sub/c.bpa", "sub/deep/d.bpa", "sub/é.bpa"));
    EXPECT_THAT(files({"."}),
                ElementsAre(".hidden/e.bpa", "B.bpa", "a.bpa", "sub/c.bpa", "sub/deep/d.bpa", "sub/é.bpa"));
}

TEST_F(Inputs, OfAPatternAreThoseThatFit) {
    EXPECT_THAT(files({"*.bpa"}), ElementsAre("B.bpa", "a.bpa"));
    EXPECT_THAT(files({"?.bpa"}), ElementsAre("B.bpa", "a.bpa"));
    EXPECT_THAT(files({"[a-z].bpa"}), ElementsAre("a.bpa"));
    EXPECT_THAT(files({"[!a-z].bpa"}), ElementsAre("B.bpa"));
    EXPECT_THAT(files({"*/*.bpa"}), ElementsAre("sub/c.bpa", "sub/é.bpa"));
    EXPECT_THAT(files({"sub/?.bpa"}), ElementsAre("sub/c.bpa", "sub/é.bpa"));
    EXPECT_THAT(files({"**/*.bpa"}), ElementsAre("B.bpa", "a.bpa", "sub/c.bpa", "sub/deep/d.bpa", "sub/é.bpa"));
    EXPECT_THAT(files({"sub/**/d*"}), ElementsAre("sub/deep/d.bpa"));
    EXPECT_THAT(files({"n*"}), ElementsAre("notes.txt"));
    EXPECT_THAT(files({"su*"}), ElementsAre("sub/c.bpa", "sub/deep/d.bpa", "sub/é.bpa"));
    EXPECT_THAT(files({".h*/*.bpa"}), ElementsAre(".hidden/e.bpa"));
    EXPECT_THAT(files({m_folder / "*a.bpa"}), ElementsAre(m_folder / "a.bpa"));
}

TEST_F(Inputs, WithPatternSignsInTheirNamesAreTakenAsTheyAre) {
    put("[a].bpa");
    EXPECT_THAT(files({"[a].bpa"}), ElementsAre("[a].bpa"));
}

TEST_F(Inputs, AsUsersNameThemAreTheFilesOnDisk) {
    EXPECT_THAT(files({"a.bpg"}), ElementsAre("a.bpa"));
    EXPECT_THAT(files({"sub\\c.bpg"}), ElementsAre("sub/c.bpa"));
}

TEST_F(Inputs, ThatNoNameFitsAreWrongUsage) {
    for (const char* path : {"*.txtx", "empty", "**/none", "[z-a].bpa"}) {
        const auto said = check({"a.bpa", path});
        EXPECT_EQ(said.code, 2) << path;
        EXPECT_EQ(said.out, "");
        EXPECT_EQ(said.err, "canvas: no file matches '" + std::string(path) + "'\n");
    }
}

TEST_F(Inputs, AreReadThroughLinksButNotThroughLinkedFolders) {
    std::filesystem::create_directory_symlink("..", m_folder / "sub/up");
    std::filesystem::create_symlink("../a.bpa", m_folder / "sub/link.bpa");
    std::filesystem::create_symlink("nowhere", m_folder / "sub/lost.bpa");
    EXPECT_THAT(files({"sub"}),
                ElementsAre("sub/c.bpa", "sub/deep/d.bpa", "sub/link.bpa", "sub/lost.bpa", "sub/é.bpa"));
    EXPECT_EQ(check({"sub"}).code, 3);
}

TEST_F(Inputs, ThatCannotBeReadAreFindings) {
    const auto said = check({"none.bpa", "a.bpa/b.bpa", "/dev/null"});
    EXPECT_EQ(said.code, 3);
    EXPECT_EQ(said.out,
              "/dev/null: unreadable: it is a folder, or something else that is no file (Path/File access error)\n"
              "a.bpa/b.bpa: unreadable: the file cannot be opened (Path not found)\n"
              "none.bpa: unreadable: the file cannot be opened (File not found)\n"
              "3 files checked: 0 good, 3 unreadable; 3 findings\n");
}

TEST_F(Inputs, WithoutPermissionAreFindings) {
    std::filesystem::permissions(m_folder / "a.bpa", std::filesystem::perms::none);
    std::filesystem::permissions(m_folder / "sub/deep", std::filesystem::perms::none);
    const auto said = run({"check", "-q", "a.bpa", "sub"}, {.folder = m_folder.path(), .asNobody = true});
    std::filesystem::permissions(m_folder / "sub/deep", std::filesystem::perms::all);
    if (said.code >= 126) GTEST_SKIP() << "the program cannot be run without the rights of root here";
    EXPECT_EQ(said.code, 3);
    EXPECT_EQ(said.out,
              "a.bpa: unreadable: the file cannot be opened (Permission denied)\n"
              "sub/deep: unreadable: the file cannot be opened (Permission denied)\n");
}
