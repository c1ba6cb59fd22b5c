// Programmable Limit Switch: when the encoder's field and a cell can be left.

#include "tests/editors/limit_switch_user.h"

namespace canvas::editors {
namespace {

// The encoder variable

TEST_F(LimitSwitch, TheEncoderIsCheckedWhenItsFieldIsLeft) {
    show([&] {
        invoke(*master(), "Type", "Encoder");
        invoke(*master(), "Leave");
        EXPECT_EQ(checking.calls, (std::vector<std::string>{"checkexpression(Encoder,0,0)", "GetResult"}));
        EXPECT_EQ(masterColor(), white);
        EXPECT_FALSE(master()->get("HasFocus").toBoolean());
    });
    EXPECT_TRUE(user->boxes.empty());
}

TEST_F(LimitSwitch, AMarkedEncoderTurnsYellow) {
    good("Old", 16, true, Value("ôOldôrenamed"));
    show([&] {
        invoke(*master(), "Type", "Old");
        invoke(*master(), "Leave");
        EXPECT_EQ(masterColor(), yellow);
    });
}

TEST_F(LimitSwitch, ABadEncoderTurnsRedAndTakesTheFocusBackBeforeItsMessage) {
    bad("1+", "Operand expected");
    bool focused = false;
    show([&] {
        invoke(*master(), "Type", "1+");
        invoke(*master(), "Leave");
        focused = master()->get("HasFocus").toBoolean();
        EXPECT_EQ(masterColor(), red);
        ASSERT_EQ(user->boxes.size(), 1u);
        expectBox(0, "Operand expected", Icon::exclamation);
        // and nothing else can be done before it is good
        EXPECT_FALSE(edit(1, 1, "5"));
        press("btnOK");
        EXPECT_TRUE(form->Visible());
        EXPECT_EQ(user->boxes.size(), 3u);
        press("btnCancel");
        EXPECT_FALSE(form->Visible());
    });
    EXPECT_TRUE(focused);
}

/// Notes how many boxes had been shown when the focus came to the encoder's field.
struct FocusWatch final : FormWatcher {
    explicit FocusWatch(Script& script) : user(script) {}
    void controlChanged(Control&) override {}
    void focusMoved(Control* to) override {
        if (to && to->Name() == "txbMasterVariable") boxesBefore.push_back(user.boxes.size());
    }
    void formChanged() override {}
    Script& user;
    std::vector<std::size_t> boxesBefore;
};

TEST_F(LimitSwitch, TheFocusIsBackWhenTheMessageIsShown) {
    bad("1+", "Operand expected");
    FocusWatch watch(*user);
    show([&] {
        invoke(*master(), "Type", "1+");
        form->setWatcher(&watch);
        invoke(*master(), "Leave");
        form->setWatcher(nullptr);
    });
    EXPECT_EQ(watch.boxesBefore, (std::vector<std::size_t>{0}));
    EXPECT_EQ(user->boxes.size(), 1u);
}

TEST_F(LimitSwitch, ABlankEncoderIsNotChecked) {
    show([&] {
        invoke(*master(), "Type", "  ");
        invoke(*master(), "Leave");
    });
    EXPECT_TRUE(checking.calls.empty());
    EXPECT_EQ(masterColor(), untouched);
}

TEST_F(LimitSwitch, ADoubleClickOnTheEncoderOpensNothing) {
    show([&] { invoke(*master(), "DblClick"); });
    EXPECT_EQ(raisedBy([&] { invoke(*form, "ExpressionBuilder", "a"); }), 438);
}

// Cells

TEST_F(LimitSwitch, ABlankCellIsGood) {
    list("1,2,o,1;");
    for (int col = 1; col < 4; ++col) EXPECT_TRUE(edit(1, col, col == 2 ? "  " : ""));
    EXPECT_TRUE(checking.calls.empty());
    EXPECT_EQ(color(1, 1), untouched);
}

TEST_F(LimitSwitch, ABadTextIsToldAndHoldsTheCellInItsColour) {
    bad("1+", "Operand expected");
    EXPECT_FALSE(edit(1, 1, "1+"));
    ASSERT_EQ(user->boxes.size(), 1u);
    expectBox(0, "Operand expected", Icon::exclamation);
    EXPECT_EQ(color(1, 1), untouched);
    EXPECT_TRUE(inEdit());
    EXPECT_FALSE(edit(1, 2, "5"));
    EXPECT_EQ(checking.calls[0], "checkexpression(1+,0,0)");
}

TEST_F(LimitSwitch, AMarkedValueTurnsTheCellYellowAndAnyOtherWhite) {
    good("Old", 16, true, Value("ôOldôrenamed"));
    EXPECT_TRUE(edit(1, 1, "Old"));
    EXPECT_EQ(color(1, 1), yellow);
    EXPECT_TRUE(edit(1, 1, "5"));
    EXPECT_EQ(color(1, 1), white);
    EXPECT_TRUE(user->boxes.empty());
}

TEST_F(LimitSwitch, EveryTypeIsJudgedByTheColumnsOwn) {
    struct Row {
        int source;
        int value;   ///< entry for a value, whose type is 16
        int output;  ///< entry for an output, whose type is 1
        const char* word;
    };
    constexpr Row types[] = {
        {0, 0, 0, "none"},       {1, 0, 0, "a bit"},      {2, 0, 0, "a byte"},      {4, 0, 2, "an integer"},
        {6, 0, 2, "an integer"}, {8, 1, 2, "a long"},     {10, 1, 2, "a long"},     {14, 0, 2, "an integer"},
        {16, 0, 2, "a float"},   {18, 0, 2, "a float"},   {32, 0, 0, "a double"},   {48, 0, 2, "a real"},
        {62, 0, 2, "a number"},
    };
    for (const Row& type : types) {
        SCOPED_TRACE(type.source);
        good("x", type.source);
        for (const int col : {1, 2}) {
            user->boxes.clear();
            EXPECT_TRUE(edit(1, col, "x"));
            EXPECT_EQ(color(1, col), type.value == 1 ? yellow : white);
            ASSERT_EQ(user->boxes.size(), type.value == 1 ? 1u : 0u);
            if (type.value == 1)
                expectBox(0, "Assigning " + std::string(type.word) +
                                 " value to a float variable may result in loss of data.", Icon::exclamation);
        }
        user->boxes.clear();
        EXPECT_EQ(edit(1, 3, "x"), type.output == 0);
        EXPECT_EQ(color(1, 3), white);
        ASSERT_EQ(user->boxes.size(), type.output == 2 ? 1u : 0u);
        if (type.output == 2)
            expectBox(0, "Cannot assign " + std::string(type.word) + " value to a bit variable.", Icon::critical);
        EXPECT_EQ(Reported(*form).of("iDataTypeStatus"), Value(static_cast<std::int16_t>(type.output)));
        invoke(*grid, "Cancel", 1, 3);
    }
}

TEST_F(LimitSwitch, TheConstants0And1AreNoOutputs) {
    good("1", 4, false);
    EXPECT_FALSE(edit(1, 3, "1"));
    expectBox(0, "Cannot assign an integer value to a bit variable.", Icon::critical);
}

TEST_F(LimitSwitch, NoKeyIsRefusedAndNoPastedTextToldOf) {
    EXPECT_TRUE(edit(1, 1, "a\";b"));
    EXPECT_EQ(cell(1, 1), "a\";b");
    EXPECT_TRUE(user->boxes.empty());
}

TEST_F(LimitSwitch, AnExpressionIsGoodInEveryColumn) {
    good("a+b", 1, false);
    for (int col = 1; col < 4; ++col) EXPECT_TRUE(edit(1, col, "a+b"));
}

TEST_F(LimitSwitch, ATypeOutsideTheTableIsError9AndHoldsTheCell) {
    good("Odd", -1);
    EXPECT_EQ(raisedBy([&] { edit(1, 1, "Odd"); }), 9);
    EXPECT_TRUE(inEdit());
}

}  // namespace
}  // namespace canvas::editors
