// A note's text, a block's name, the compile mode, and the rule for file names.

#include "editors/file_names.h"
#include "editors/small_forms.h"
#include "tests/editors/editing.h"

namespace canvas::editors {
namespace {

TEST(FileNames, TheNineCharactersOfPathsAreRefused) {
    for (const char bad : {'\\', '/', ':', '*', '?', '"', '<', '>', '|'}) {
        EXPECT_FALSE(IsValidFilename(std::string("a") + bad + "b")) << bad;
        EXPECT_FALSE(IsValidFilename(std::string(1, bad))) << bad;
    }
    for (const auto* good : {"a", "a b", "a.bpg", " ", "a;b", "a'b", "\xC3\xA9"})
        EXPECT_TRUE(IsValidFilename(good)) << good;
}

TEST(FileNames, UpTo255CharactersPassAndTheEmptyNameToo) {
    EXPECT_TRUE(IsValidFilename(std::string(255, 'a')));
    EXPECT_FALSE(IsValidFilename(std::string(256, 'a')));
    EXPECT_TRUE(IsValidFilename(""));
    std::string accents;
    for (int i = 0; i < 255; ++i) accents += "\xC3\xA9";
    EXPECT_TRUE(IsValidFilename(accents)) << "characters count, not bytes";
}

struct NodeTextForm : Editing {
    NodeTextForm() { form = makeForm("frmNodeText"); }
};

TEST_F(NodeTextForm, OpensWithTheNameItIsGivenAndGivesTheTextBack) {
    form->put("NodeName", Value("before"));
    form->call("Load");
    show([&] {
        EXPECT_EQ(text("txbNodeText"), "before");
        put("txbNodeText", "after");
        click("cmdOK");
        EXPECT_FALSE(form->Visible());
    });
    EXPECT_EQ(form->get("NodeName").toText(), "after");
}

TEST_F(NodeTextForm, CancelAndTheCloseBoxLeaveTheNameAsItCame) {
    form->put("NodeName", Value("before"));
    for (const bool closeBox : {false, true}) {
        show([&] {
            put("txbNodeText", "after");
            if (closeBox) form->Close();
            else click("cmdCancel");
            EXPECT_FALSE(form->Visible());
        });
        EXPECT_EQ(form->get("NodeName").toText(), "before");
    }
}

TEST_F(NodeTextForm, UndoGoesBackToTheOpeningAfterAnyNumberOfEdits) {
    form->put("NodeName", Value("before"));
    show([&] {
        EXPECT_EQ(at("cmdUndo")->get("Caption").toText(), "&Undo");
        type("txbNodeText", "x");
        click("cmdUndo");
        EXPECT_EQ(text("txbNodeText"), "before");
        type("txbNodeText", "x");
        type("txbNodeText", "yz");
        put("txbNodeText", "quite another");
        click("cmdUndo");
        EXPECT_EQ(text("txbNodeText"), "before");
        click("cmdUndo");
        EXPECT_EQ(text("txbNodeText"), "before");
    });
}

TEST_F(NodeTextForm, AQuoteIsRefusedAndEnterBelongsToTheText) {
    show([&] {
        type("txbNodeText", "a\"b\rc;");
        EXPECT_EQ(text("txbNodeText"), "ab\r\nc;");
        EXPECT_TRUE(form->Visible());
    });
}

TEST_F(NodeTextForm, OffersOnlyTheMembersOfANote) {
    for (const auto* member : {"OKClicked", "SetData", "CheckParameter", "ExpressionBuilder"})
        EXPECT_THROW(form->call(member), RuntimeError) << member;
    EXPECT_NO_THROW(form->put("UserUnit", Value("mm")));
    EXPECT_EQ(attribute()->className(), "clsBVTNodeText");
}

TEST_F(NodeTextForm, ANoteOpensWithItsLinesAndTakesThemBackWithItsCounts) {
    attribute()->put("NodeText", Value("first line¶two¶"));
    form->put("BVTAttribute", Value(attribute()));
    form->call("Load");
    show([&] {
        EXPECT_EQ(text("txbNodeText"), "first line\r\ntwo");
        put("txbNodeText", "first line\r\nsecond \xF0\x9F\x9A\x80 line\r\n3");
        click("cmdOK");
    });
    EXPECT_EQ(stored("NodeText"), "first line¶second \xF0\x9F\x9A\x80 line¶3¶");
    EXPECT_EQ(stored("LineCount"), "3");
    EXPECT_EQ(stored("MaxCharPerLine"), "14");
    EXPECT_EQ(stored("CharCount"), "28");
}

TEST_F(NodeTextForm, AnUnchangedNoteKeepsItsCountsAndEquals) {
    form->put("BVTAttribute", Value(attribute()));
    form->call("Load");
    const Ref<Object> before = invoke(*attribute(), "IsTheSame").toObject();
    show([&] {
        EXPECT_EQ(text("txbNodeText"), "Untitled");
        click("cmdOK");
    });
    EXPECT_TRUE(invoke(*attribute(), "SameAs", before).toBoolean());
    EXPECT_EQ(stored("MaxCharPerLine"), "5");
}

TEST_F(NodeTextForm, CancelLeavesTheNote) {
    form->put("BVTAttribute", Value(attribute()));
    show([&] {
        put("txbNodeText", "other");
        click("cmdCancel");
    });
    EXPECT_EQ(stored("NodeText"), "Untitled");
}

struct EditNodeNameForm : Editing {
    EditNodeNameForm() { form = makeForm("frmEditNodeName"); }
};

TEST_F(EditNodeNameForm, BothFieldsShowTheLabelAndTheNewOneIsSelected) {
    form->put("NodeLabel", Value("Move 1"));
    EXPECT_EQ(text("txbNewName"), "") << "filled when it is shown";
    show([&] {
        EXPECT_EQ(text("txbOriginalName"), "Move 1");
        EXPECT_EQ(text("txbNewName"), "Move 1");
        EXPECT_EQ(at("txbNewName")->get("SelStart").toLong(), 0);
        EXPECT_EQ(at("txbNewName")->get("SelLength").toLong(), 6);
        type("txbOriginalName", "x");
        EXPECT_EQ(text("txbOriginalName"), "Move 1") << "only a view";
        type("txbNewName", "\"Go\"; 2\r");
        EXPECT_FALSE(form->Visible());
    });
    EXPECT_EQ(form->get("NodeLabel"), Value("Go; 2"));
}

TEST_F(EditNodeNameForm, CancelKeepsTheLabelAndNoNameIsChecked) {
    form->put("NodeLabel", Value("a"));
    show([&] {
        put("txbNewName", "b");
        click("btnCancel");
    });
    EXPECT_EQ(form->get("NodeLabel"), Value("a"));
    show([&] {
        put("txbNewName", "");
        click("btnOK");
    });
    EXPECT_EQ(form->get("NodeLabel"), Value(""));
}

TEST_F(EditNodeNameForm, TheLabelIsAVariant) {
    form->put("NodeLabel", Value(std::int32_t{17}));
    show([&] {
        EXPECT_EQ(text("txbNewName"), "17");
        click("btnCancel");
    });
    EXPECT_EQ(form->get("NodeLabel"), Value(std::int32_t{17}));
    form->put("NodeLabel", Value(Null{}));
    EXPECT_THROW(show([&] {}), RuntimeError);
    EXPECT_FALSE(form->Visible());
}

TEST_F(EditNodeNameForm, LabelsReadReplaceAndWith) {
    EXPECT_EQ(at("lblOriginalName")->get("Caption").toText(), "Replace");
    EXPECT_EQ(at("lblNewName")->get("Caption").toText(), "With");
}

TEST_F(EditNodeNameForm, TheClassForHostsShowsItAndKeepsTheName) {
    const auto rename = make<clsBVTEditNodeName>();
    EXPECT_EQ(rename->get("OriginalName"), Value(""));
    rename->put("OriginalName", Value("old"));
    std::string button = "btnOK";
    user.script = [&](Object& shown) {
        EXPECT_EQ(shown.get("Name").toText(), "frmEditNodeName");
        EXPECT_EQ(control(shown, "txbOriginalName")->get("Text").toText(), "old");
        control(shown, "txbNewName")->put("Text", Value("new"));
        invoke(*control(shown, button), "Click");
    };
    rename->call("Show");
    EXPECT_EQ(rename->get("OriginalName"), Value("new"));
    rename->call("Unload_Form");
    rename->put("OriginalName", Value("old"));
    button = "btnCancel";
    rename->call("Show");
    EXPECT_EQ(rename->get("OriginalName"), Value("old"));
}

struct CompileOptionsForm : Editing {
    CompileOptionsForm() { form = makeForm("frmCompileOptions"); }
    std::string chosen() {
        std::string names;
        for (const auto* option : {"OptDebug", "OptNormal", "OptOptimized"})
            if (at(option)->get("Value").toBoolean()) names += option;
        return names;
    }
};

TEST_F(CompileOptionsForm, TheNumberSelectsAnOption) {
    const struct {
        std::int16_t number;
        const char* option;
    } cases[] = {{0, "OptNormal"}, {1, "OptOptimized"}, {2, "OptDebug"}, {3, "OptDebug"}, {-1, "OptDebug"}};
    for (const auto& c : cases) {
        form->put("CompileOption", Value(c.number));
        show([&] { EXPECT_EQ(chosen(), c.option) << c.number; });
        EXPECT_EQ(form->get("CompileOption"), Value(c.number)) << "closing keeps it";
    }
}

TEST_F(CompileOptionsForm, OkStoresTheOptionAndCancelKeepsTheOldOne) {
    const struct {
        const char* option;
        std::int16_t number;
    } cases[] = {{"OptNormal", 0}, {"OptOptimized", 1}, {"OptDebug", 2}};
    for (const auto& c : cases) {
        form->put("CompileOption", Value(std::int16_t{7}));
        show([&] {
            at(c.option)->put("Value", Value(true));
            click("btnCancel");
        });
        EXPECT_EQ(form->get("CompileOption"), Value(std::int16_t{7}));
        show([&] {
            at(c.option)->put("Value", Value(true));
            click("btnOK");
            EXPECT_FALSE(form->Visible());
        });
        EXPECT_EQ(form->get("CompileOption"), Value(c.number));
    }
}

TEST_F(CompileOptionsForm, ANewFormIsNormal) {
    show([&] { EXPECT_EQ(chosen(), "OptNormal"); });
}

TEST_F(CompileOptionsForm, CaptionsHaveMnemonics) {
    EXPECT_EQ(at("OptDebug")->get("Caption").toText(), "&Debug");
    EXPECT_EQ(at("OptNormal")->get("Caption").toText(), "&Normal");
    EXPECT_EQ(at("OptOptimized")->get("Caption").toText(), "&Optimized");
    EXPECT_EQ(at("fraCompileMode")->get("Caption").toText(), "Compile Mode:");
}

}  // namespace
}  // namespace canvas::editors
