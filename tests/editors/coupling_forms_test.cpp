// Own rules of the dialogs of gearing, cam and latch.

#include "editors/two_decimals.h"
#include "tests/editors/editing.h"

namespace canvas::editors {
namespace {

TEST(TwoDecimals, FollowTheMaskWithoutALeadingZero) {
    const struct {
        const char *text, *shown;
    } cases[] = {
        {"12", "12.00"},        {"12.5", "12.50"},   {"100.00", "100.00"},     {"0.5", ".50"},
        {"0", ".00"},           {"-0.5", "-.50"},    {"-3", "-3.00"},          {"1.005", "1.01"},
        {"0.125", ".13"},       {"-0.125", "-.13"},  {"2.675", "2.68"},        {"0.004", ".00"},
        {"-0.004", ".00"},      {"0.995", "1.00"},   {"9.999", "10.00"},       {"99.995", "100.00"},
        {"1E3", "1000.00"},     {"1E-3", ".00"},     {"12345.678", "12345.68"}, {"1,234.5", "1234.50"},
        {" 7 ", "7.00"},        {"&HFF", "255.00"},  {"1E20", "100000000000000000000.00"},
        {"1E-300", ".00"},      {"+4", "4.00"},
    };
    for (const auto& c : cases) EXPECT_EQ(withTwoDecimals(c.text), c.shown) << c.text;
}

TEST(TwoDecimals, TextThatIsNoNumberStays) {
    for (const auto* text : {"", "speed", "1 + 2", "12,", "--1", "1E400", "\xF0\x9F\x9A\x80"})
        EXPECT_EQ(withTwoDecimals(text), text);
}

struct ScaleCamForm : Editing {
    ScaleCamForm() { open("frmScaleCAM"); }
};

TEST_F(ScaleCamForm, LeavingTheFactorShowsTwoDecimals) {
    show([&] {
        type("txbScaleFactor", "");
        put("txbScaleFactor", "7.5");
        EXPECT_EQ(text("txbScaleFactor"), "7.5");
        invoke(*at("txbScaleFactor"), "Leave");
        EXPECT_EQ(text("txbScaleFactor"), "7.50");
    });
}

TEST_F(ScaleCamForm, OkLeavesTheFieldFirst) {
    show([&] {
        put("txbScaleFactor", "");
        type("txbScaleFactor", "0.333\r");
    });
    EXPECT_EQ(stored("ScaleFactor"), ".33");
}

TEST_F(ScaleCamForm, AnExpressionIsLeftAlone) {
    show([&] {
        put("txbScaleFactor", "");
        type("txbScaleFactor", "a * 2\t");
        EXPECT_EQ(text("txbScaleFactor"), "a * 2");
    });
}

struct GearForms : Editing {};

TEST_F(GearForms, TheRatioHasItsCaptionAndAColonBetweenTheFields) {
    open("frmGearRatio");
    std::string captions;
    for (const Ref<Control>& each : form->controls())
        if (each->row().kind == ControlKind::label) captions += each->get("Caption").toText() + "|";
    EXPECT_EQ(captions, "Gear Ratio (External : Main)| : |");
}

TEST_F(GearForms, GearingHasNoDoubleClickAndNoBuilder) {
    open("frmGearingOnOff");
    bool opened = false;
    user.script = [&](Object& shown) {
        if (&shown != form.get()) return void(opened = true);
        at("chkAdvanced")->put("Value", Value(true));
        at("SSGearingTab")->put("Tab", Value(std::int16_t{1}));
        put("txbFFGain", "17");
        invoke(*at("txbFFGain"), "DblClick");
        EXPECT_EQ(text("txbFFGain"), "17");
    };
    form->call("Show");
    EXPECT_FALSE(opened);
    EXPECT_THROW(invoke(*form, "ExpressionBuilder", "17"), RuntimeError);
}

TEST_F(GearForms, GearingIsFilledWhenItIsShown) {
    open("frmGearingOnOff");
    attribute()->put("FeedForwardGain", Value("42"));
    attribute()->put("Gearing", Value(false));
    EXPECT_EQ(text("txbFFGain"), "");
    show([&] {
        EXPECT_EQ(text("txbFFGain"), "42");
        EXPECT_FALSE(at("OptEnable")->get("Value").toBoolean());
        EXPECT_TRUE(at("OptDisable")->get("Value").toBoolean());
        click("btnOK");
    });
    EXPECT_EQ(stored("Gearing"), "False");
}

TEST_F(GearForms, TheAdvancedTabFollowsItsCheckBox) {
    for (const auto& [name, tabs] : {std::pair{"frmGearingOnOff", "SSGearingTab"}, {"frmCAMOnOff", "SSCAMTab"}}) {
        open(name);
        show([&] {
            EXPECT_EQ(at("chkAdvanced")->get("Caption").toText(), "Advanced");
            EXPECT_FALSE(invoke(*at(tabs), "TabEnabled", std::int16_t{1}).toBoolean());
            at(tabs)->put("Tab", Value(std::int16_t{1}));
            EXPECT_EQ(at(tabs)->get("Tab").toLong(), 0) << "it is closed";
            at("chkAdvanced")->put("Value", Value(true));
            EXPECT_TRUE(invoke(*at(tabs), "TabEnabled", std::int16_t{1}).toBoolean());
            at(tabs)->put("Tab", Value(std::int16_t{1}));
            EXPECT_EQ(at(tabs)->get("Tab").toLong(), 1);
            at("chkAdvanced")->put("Value", Value(false));
            EXPECT_EQ(at(tabs)->get("Tab").toLong(), 0) << "closing it brings the first one back";
        });
    }
}

TEST_F(GearForms, AnAdvancedBlockOpensWithTheTab) {
    form = makeForm("frmGearingOnOff");
    attribute()->put("Advanced", Value(true));
    show([&] { EXPECT_TRUE(invoke(*at("SSGearingTab"), "TabEnabled", std::int16_t{1}).toBoolean()); });
}

TEST_F(GearForms, TheTabKeyPassesOverWhatStandsOnATabBehind) {
    open("frmGearingOnOff");
    show([&] {
        std::string walk;
        invoke(*at("chkAdvanced"), "SetFocus");
        form->focusNext();
        EXPECT_EQ(form->focused()->Name(), "btnOK");
        form->focusNext(true);
        EXPECT_EQ(form->focused()->Name(), "chkAdvanced");
    });
}

struct CamOnOffForm : Editing {
    /// As the canvas does it.
    void openCam(std::initializer_list<std::string_view> tables, std::string_view profile, std::string_view speed) {
        form = makeForm("frmCAMOnOff");
        attribute()->put("CAMProfileTable", Value(profile));
        attribute()->put("SpeedFeedForwardAddress", Value(speed));
        form->call("Load");
        for (const std::string_view table : tables)
            for (const auto* combo : {"cmbCAMProfileTable", "cmbSpeedFFAddress"})
                invoke(*form->get(combo).toObject(), "AddItem", table);
        form->put("VariableNameList", Value(listOf({})));
        form->put("tableNameList", Value(listOf(tables)));
        invoke(*form, "SetData", host.controller, host.data, checker());
        form->call("SetCAMProfileTable");
    }
};

TEST_F(CamOnOffForm, TheTablesAreSelectedWhereTheyAreInTheLists) {
    openCam({"one", "two", "three"}, "two", "three");
    EXPECT_EQ(text("cmbCAMProfileTable"), "two");
    EXPECT_EQ(text("cmbSpeedFFAddress"), "three");
    openCam({"one"}, "two", "ONE");
    EXPECT_EQ(at("cmbCAMProfileTable")->get("ListIndex").toLong(), -1);
    EXPECT_EQ(at("cmbSpeedFFAddress")->get("ListIndex").toLong(), -1) << "case counts";
}

TEST_F(CamOnOffForm, ATableThatIsNotInTheListLeavesTheSelection) {
    openCam({"one", "two"}, "gone", "two");
    at("cmbCAMProfileTable")->put("ListIndex", Value(std::int16_t{1}));
    form->call("SetCAMProfileTable");
    EXPECT_EQ(text("cmbCAMProfileTable"), "two");
}

TEST_F(CamOnOffForm, OkWritesTheSelectedTables) {
    openCam({"one", "two"}, "one", "one");
    show([&] {
        at("cmbCAMProfileTable")->put("ListIndex", Value(std::int16_t{1}));
        click("btnOK");
    });
    EXPECT_EQ(stored("CAMProfileTable"), "two");
    EXPECT_EQ(stored("SpeedFeedForwardAddress"), "one");
}

TEST_F(CamOnOffForm, ATableThatTheProjectHasLostIsWrittenAsTheEmptySelection) {
    openCam({"one"}, "gone", "one");
    show([&] { click("btnCancel"); });
    EXPECT_EQ(stored("CAMProfileTable"), "gone");
    show([&] { click("btnOK"); });
    EXPECT_EQ(stored("CAMProfileTable"), "");
    EXPECT_EQ(stored("SpeedFeedForwardAddress"), "one");
}

TEST_F(CamOnOffForm, TenThousandTablesAreTaken) {
    form = makeForm("frmCAMOnOff");
    attribute()->put("CAMProfileTable", Value("table 9999"));
    form->call("Load");
    for (int i = 0; i < 10000; ++i) invoke(*at("cmbCAMProfileTable"), "AddItem", "table " + std::to_string(i));
    form->call("SetCAMProfileTable");
    EXPECT_EQ(at("cmbCAMProfileTable")->get("ListIndex").toLong(), 9999);
    EXPECT_THROW(invoke(*at("cmbCAMProfileTable"), "AddItem", Null{}), RuntimeError) << "a host's null is no name";
}

TEST_F(CamOnOffForm, GainAndModulusTakeTwoDecimalsWhenLeftAndNoOtherFieldDoes) {
    openCam({}, "", "");
    show([&] {
        at("chkAdvanced")->put("Value", Value(true));
        at("SSCAMTab")->put("Tab", Value(std::int16_t{1}));
        for (const auto* name : {"txbAngleUnit", "txbFFGain", "txbMasterAxisMaxCycle", "txbMasterPosition"}) {
            put(name, "");
            type(name, "36");
            invoke(*at(name), "Leave");
        }
        EXPECT_EQ(text("txbAngleUnit"), "36.00");
        EXPECT_EQ(text("txbFFGain"), "36.00");
        EXPECT_EQ(text("txbMasterAxisMaxCycle"), "36");
        EXPECT_EQ(text("txbMasterPosition"), "36");
    });
}

TEST_F(CamOnOffForm, ItsLabelsAreThoseThatUsersKnow) {
    openCam({}, "", "");
    std::string captions = "|";
    for (const Ref<Control>& each : form->controls())
        if (each->row().kind == ControlKind::label) captions += each->get("Caption").toText() + "|";
    for (const auto* caption : {"Position Data:", "Velocity Data:", "External Position:", "Master Modulus:",
                                "Master Maximum Velocity:", "Feed Forward Gain:", "SPM"})
        EXPECT_NE(captions.find("|" + std::string(caption) + "|"), std::string::npos) << caption;
}

TEST_F(CamOnOffForm, TheStoredNamesStandBesideTheListsAndOpenTheBuilder) {
    openCam({"one"}, "gone", "one");
    EXPECT_EQ(text("txbCAMProfileTable"), "gone");
    EXPECT_EQ(text("txbSpeedFFAddress"), "one");
    user.script = [&](Object& shown) {
        if (&shown == form.get()) {
            invoke(*at("txbCAMProfileTable"), "DblClick");
            invoke(*at("txbSpeedFFAddress"), "DblClick");
            return;
        }
        control(shown, "txbExpression")->put("Text", Value("built"));
        auto good = make<Composed>("Checker");
        shown.put("SyntaxValidation", Value(good));
        shown.call("Close");
    };
    form->call("Show");
    EXPECT_EQ(stored("CAMProfileTable"), "gone") << "only OK writes";
}

struct LatchForms : Editing {};

TEST_F(LatchForms, FramesAndOptionsAreNamedAsTheyRead) {
    open("frmLatchOnOff");
    EXPECT_EQ(at("fraLatchState")->get("Caption").toText(), "Latch State");
    EXPECT_EQ(at("fraLatchAxis")->get("Caption").toText(), "Latch Axis");
    EXPECT_EQ(at("OptEnable")->get("Caption").toText(), "Enabled");
    EXPECT_EQ(at("OptDisable")->get("Caption").toText(), "Disabled");
    EXPECT_EQ(at("optExternal")->get("Caption").toText(), "External");
    EXPECT_EQ(at("optMain")->get("Caption").toText(), "Main");
}

TEST_F(LatchForms, TheTwoPairsAreIndependent) {
    open("frmLatchOnOff");
    show([&] {
        EXPECT_TRUE(at("OptEnable")->get("Value").toBoolean());
        EXPECT_TRUE(at("optExternal")->get("Value").toBoolean());
        at("optMain")->put("Value", Value(true));
        EXPECT_FALSE(at("optExternal")->get("Value").toBoolean());
        EXPECT_TRUE(at("OptEnable")->get("Value").toBoolean());
        at("OptEnable")->put("Value", Value(false));
        EXPECT_TRUE(at("OptEnable")->get("Value").toBoolean()) << "the other one must be clicked";
        click("btnOK");
    });
    EXPECT_EQ(stored("Latch"), "True");
    EXPECT_EQ(stored("MainLatchaxis"), "True");
    EXPECT_THROW(invoke(*form, "CheckParameter", "x"), RuntimeError) << "nothing is checked";
}

TEST_F(LatchForms, TheSecondFailureOfSevenLeavesTheFirstUnwritten) {
    open("frmLatchTarget", checker("Velocity"));
    show([&] {
        put("txbDistanceAfterLatch", "11");
        put("txbDefaultDistance", "22");
        click("btnOK");
    });
    EXPECT_EQ(stored("DistanceAfterLatch"), "0.0");
    EXPECT_EQ(stored("DefaultDistance"), "0.0");
    EXPECT_EQ(text("txbDistanceAfterLatch"), "11");
}

}  // namespace
}  // namespace canvas::editors
