// The block that calls a subroutine: its two names in files, the list of subroutines, and the call of itself.

#include <gtest/gtest.h>

#include "attributes/program_control.h"
#include "host/composed.h"
#include "known_files.h"
#include "panel.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

using testing::commitCell;
using testing::commitPanel;
using testing::panelOf;
using Texts = std::vector<std::string>;

struct CallSubroutine : ::testing::Test {
    std::shared_ptr<testing::KnownFiles> files = std::make_shared<testing::KnownFiles>();
    WithEnvironment inForce{testing::withFiles(files)};
    Ref<clsBVTSuperBlock> block = make<clsBVTSuperBlock>();

    void fill(std::string_view name, std::string_view title) const { block->strName = name, block->strTitle = title; }
    std::string checked() const {
        std::string message;
        EXPECT_TRUE(block->PropertiesSyntaxCheck(nullptr, 12, message)) << "no checker is called";
        return message;
    }
};

TEST_F(CallSubroutine, AFileKeepsNamesInTheirFormOnDisk) {
    const struct {
        const char* name;
        const char* title;
        const char* line;
    } rows[]{
        {".\\sub.bpg", "sub.bpg", R"(2 ".\sub.bpa" "sub.bpa")"},
        {"C:\\Project\\sub.bpg", "sub.bpg", R"(2 ".\sub.bpa" "sub.bpa")"},
        {"D:\\lib\\x\\Two Words.bpg", "Two Words.bpg", R"(2 ".\Two Words.bpa" "Two Words.bpa")"},
        {"/home/job/sub.bpg", "sub.bpg", R"(2 ".\sub.bpa" "sub.bpa")"},
        {"sub.bpg", "sub.bpg", R"(2 ".\sub.bpa" "sub.bpa")"},
        {".\\größe.bpg", "größe.bpg", R"(2 ".\größe.bpa" "größe.bpa")"},
        {".\\sub.bpä", "sub.bpä", R"(2 ".\sub.bpa" "sub.bpa")"},
        {"", "", R"(2 "" "")"},
        {"", "sub.bpg", R"(2 "" "sub.bpa")"},
        {"C:\\Project\\sub.bpg", "", R"(2 ".\sub.bpa" "")"},
    };
    for (const auto& row : rows) {
        fill(row.name, row.title);
        EXPECT_EQ(block->OutputToFile("9 "), std::string("9 ") + row.line) << row.name;
    }
}

TEST_F(CallSubroutine, AFilesNameComesBackInTheCurrentFolder) {
    const struct {
        const char* read;
        const char* name;
    } rows[]{
        {".\\sub.bpa", "C:\\Project\\sub.bpg"},     {".\\sub.bpg", "C:\\Project\\sub.bpg"},
        {".\\größe.bpa", "C:\\Project\\größe.bpg"}, {".\\sub.bpä", "C:\\Project\\sub.bpg"},
        {".\\a.b.bpa", "C:\\Project\\a.b.bpg"},     {"", ""},
    };
    for (const auto& row : rows) {
        fill("before", "title");
        block->AssignFromFile(1, row.read);
        EXPECT_EQ(block->strName, row.name) << row.read;
        EXPECT_EQ(block->strTitle, "title");
    }
    files->folder = "/home/job";
    block->AssignFromFile(1, ".\\sub.bpa");
    EXPECT_EQ(block->strName, "/home/job\\sub.bpg") << "the separator is the file's on every platform";
    EXPECT_EQ(block->OutputToFile(""), R"(2 ".\sub.bpa" "titla")") << "the last letter is an a whatever it was";
}

TEST_F(CallSubroutine, AFilesTitleComesBackAndAnEmptyOneClearsTheName) {
    fill("C:\\Project\\sub.bpg", "before");
    block->AssignFromFile(2, "Sub.bpa");
    EXPECT_EQ(block->strTitle, "Sub.bpg");
    EXPECT_EQ(block->strName, "C:\\Project\\sub.bpg");
    block->AssignFromFile(2, "");
    EXPECT_EQ(block->strTitle, "Sub.bpg") << "the title stays";
    EXPECT_EQ(block->strName, "");
}

TEST_F(CallSubroutine, OtherFileNumbersAreIgnored) {
    fill("n.bpg", "t.bpg");
    for (const int number : {-1, 0, 3, 32767}) block->AssignFromFile(static_cast<std::int16_t>(number), "x");
    EXPECT_EQ(block->strName, "n.bpg");
    EXPECT_EQ(block->strTitle, "t.bpg");
}

TEST_F(CallSubroutine, WhatWasWrittenReadsBack) {
    fill("C:\\Project\\sub.bpg", "sub.bpg");
    const auto reread = make<clsBVTSuperBlock>();
    reread->AssignFromFile(1, ".\\sub.bpa");
    reread->AssignFromFile(2, "sub.bpa");
    EXPECT_TRUE(reread->SameAs(block));
    EXPECT_EQ(reread->OutputToFile(""), block->OutputToFile(""));
}

TEST_F(CallSubroutine, ItIsRecursiveWhenItCallsItsOwnDocument) {
    const struct {
        const char* title;
        const char* document;
        bool recursive;
    } rows[]{
        {"Main", " MAIN ", true},    {"  main.bpg", "Main.BPG  ", true},
        {"Main", "Main.bpg", false}, {"Main", "C:\\Project\\Main", false},
        {"Größe", "GRÖSSE", false},  {"größe ä", "GRößE Ä", true},
        {"Ma in", "Main", false},    {"Main", "", false},
        {"", "Main", false},
    };
    for (const auto& row : rows) {
        block->strTitle = row.title;
        block->put("DocumentName", row.document);
        EXPECT_EQ(block->IsRecursive(), row.recursive) << row.title << " in " << row.document;
        EXPECT_EQ(static_cast<Object&>(*block).call("IsRecursive"), Value(row.recursive));
    }
}

TEST_F(CallSubroutine, AProgramCheckWantsATitleThatIsNotItsOwn) {
    EXPECT_EQ(checked(), "Error:  (12,1) Empty Expression@");
    block->strTitle = "   ";
    EXPECT_EQ(checked(), "Error:  (12,1) Empty Expression@");
    block->setDocumentName("Main.bpg");
    block->strTitle = "main.bpg ";
    EXPECT_EQ(
        checked(),
        "Error:  (12,1) This block calls the program or subroutine contains it, creating a recursive reference.@");
    block->strTitle = "sub.bpg";
    EXPECT_EQ(checked(), "");
}

TEST_F(CallSubroutine, OffersTheTitlesOfTheProjectsSubroutines) {
    const auto names = make<Collection>();
    for (const char* name : {"C:\\Project\\one.bpg", "/lib/two.bpg", "three.bpg"}) names->Add(name);
    block->put("SubroutineFilename", Ref<Object>(names));
    const auto offered = [&](IBlockAttribute& from) {
        Ref<Object> items = make<Collection>();
        std::int16_t row = 0;
        EXPECT_FALSE(from.GetComboItem(row, items));
        Texts texts;
        forEach(*items, [&](const Value& item) { return texts.push_back(item.toText()), true; });
        return texts;
    };
    EXPECT_EQ(offered(*block), (Texts{"one.bpg", "two.bpg", "three.bpg"}));
    const auto copy = block->IsTheSame();
    EXPECT_EQ(offered(*copy), (Texts{"one.bpg", "two.bpg", "three.bpg"}));
    const auto other = make<Collection>();
    other->Add("four.bpg");
    block->setSubroutineFilename(other);
    EXPECT_EQ(offered(*block), Texts{"four.bpg"}) << "the titles before are dropped";
    EXPECT_EQ(offered(*copy), (Texts{"one.bpg", "two.bpg", "three.bpg"}));
    block->setSubroutineFilename(make<Collection>());
    EXPECT_EQ(offered(*block), Texts());
}

TEST_F(CallSubroutine, TheCallersCollectionIsReplacedNotFilled) {
    const auto names = make<Collection>();
    names->Add("C:\\Project\\one.bpg");
    block->setSubroutineFilename(names);
    const auto mine = make<Collection>();
    Value arguments[]{std::int16_t{0}, Ref<Object>(mine)};
    static_cast<Object&>(*block).call("GetComboItem", arguments);
    EXPECT_EQ(mine->Count(), 0);
    ASSERT_TRUE(arguments[1].is(Kind::object));
    EXPECT_EQ(arguments[1].toObject()->get("Count"), Value(std::int32_t{1}));
}

TEST_F(CallSubroutine, ASubroutineListIsACollection) {
    EXPECT_EQ(raisedBy([&] { block->setSubroutineFilename(nullptr); }), 91);
    EXPECT_EQ(raisedBy([&] { block->setSubroutineFilename(make<Composed>()); }), 451);
    EXPECT_EQ(raisedBy([&] { block->put("SubroutineFilename", "text"); }), 424);
    for (const char* name : {"SubroutineFilename", "DocumentName"})
        EXPECT_EQ(raisedBy([&] { block->get(name); }), 438) << name << " is only handed in";
}

TEST_F(CallSubroutine, ACellTakesAnyTitleButAnEmptyOne) {
    for (const int row : {-1, 0, 1}) {
        for (const char* text : {"", "   "}) {
            const auto out = commitCell(*block, row, text, nullptr);
            EXPECT_FALSE(out.result) << row;
            EXPECT_EQ(out.strError, "Empty Expression!");
            EXPECT_EQ(out.FormattedText, "before");
        }
    }
    EXPECT_TRUE(commitCell(*block, -1, "x", nullptr).result);
    EXPECT_TRUE(commitCell(*block, 1, "x", nullptr).result);
    EXPECT_EQ(block->strTitle, "");
    const auto out = commitCell(*block, 0, " sub.bpg ", nullptr);
    EXPECT_TRUE(out.result);
    EXPECT_EQ(out.strError, "before");
    EXPECT_EQ(out.FormattedText, " sub.bpg ");
    EXPECT_EQ(block->strTitle, " sub.bpg ") << "stored as typed";
    EXPECT_EQ(block->strName, "");
}

TEST_F(CallSubroutine, APanelTakesTheTitleWithoutAChecker) {
    const auto out = commitPanel(*block, 0, panelOf({"sub.bpg"}), nullptr);
    EXPECT_TRUE(out.result);
    EXPECT_EQ(out.iIndex, 77);
    EXPECT_EQ(block->strTitle, "sub.bpg");
    EXPECT_TRUE(commitPanel(*block, 0, panelOf({""}), nullptr).result);
    EXPECT_EQ(block->strTitle, "");
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 0, nullptr, nullptr); }), 91);
    EXPECT_EQ(raisedBy([&] { commitPanel(*block, 0, panelOf({}), nullptr); }), 9);
}

}  // namespace
}  // namespace canvas
