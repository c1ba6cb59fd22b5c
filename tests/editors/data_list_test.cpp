// The data list browser: its tabs, what OK makes of a line, and what reaches the caller.

#include <gtest/gtest.h>

#include "tests/editors/data_list_user.h"
#include "tests/host/raised.h"

namespace canvas::editors {
namespace {

TEST_F(DataList, HasItsCaptionAndFiveTabsWithPaddedCaptions) {
    script([&] {
        EXPECT_EQ(form->Name(), "frmDataList");
        EXPECT_EQ(form->Caption(), "Data");
        const Names expected{"User Variable ", " System Variable ", "       I/O       ", "    Table     ",
                             "    Network    "};
        Names captions;
        for (std::int32_t tab = 0; tab < at("SSDataTab")->get("TabCount").toLong(); ++tab)
            captions.push_back(invoke(*at("SSDataTab"), "TabCaption", tab).toText());
        EXPECT_EQ(captions, expected);
        EXPECT_EQ(at("SSDataTab")->get("Tab").toLong(), 0);
    });
    show("Show_Data");
}

struct Filling {
    std::string operation;
    Names tabs[5];
    bool tables;  ///< the tab of tables can be brought to the front
};

struct FilledLists : DataList, testing::WithParamInterface<Filling> {};

TEST_P(FilledLists, AreThoseOfTheOperation) {
    bool shown = false;
    script([&] {
        shown = true;
        for (int tab = 0; tab < 5; ++tab) {
            EXPECT_EQ(shownIn(*at(list(tab))), GetParam().tabs[tab]) << tab;
            EXPECT_EQ(invoke(*at("SSDataTab"), "TabEnabled", tab).toBoolean(), tab != 3 || GetParam().tables) << tab;
        }
        at("SSDataTab")->put("Tab", Value(3));
        EXPECT_EQ(at("SSDataTab")->get("Tab").toLong(), GetParam().tables ? 3 : 0);
    });
    showAny(GetParam().operation);
    EXPECT_TRUE(shown);
}

INSTANTIATE_TEST_SUITE_P(
    DataList, FilledLists,
    testing::Values(
        Filling{"Show_Output",
                {{"getuserdefinedbitvariablecol"}, {"GetReadableSystemBitVariablecol"}, {"GetBitSystemIOCol"}, {}, {}},
                false},
        Filling{"Show_LSMV",
                {{"getuserdefinedvariablecol"}, {"GetRWSystemVariableCol"}, {"GetSystemIOCol"}, {}, {}},
                false},
        Filling{"Show_Data",
                {{"getuserdefinedvariablecol"},
                 {"GetRWSystemVariableCol"},
                 {"GetSystemIOCol"},
                 {"GetUserDefinedTableCol"},
                 {"GetUserDefinedNetworkCol"}},
                true},
        Filling{"scope of bits",
                {{"getuserdefinedbitvariablecol"},
                 {"GetRWSystemBitVariableCol"},
                 {"GetBitSystemIOCol"},
                 {},
                 {"GetUserDefinedBitNetworkCol"}},
                true},
        Filling{"scope of others",
                {{"GetUserDefinedNotBitVariableCol"},
                 {"GetRWSystemNotBitVariableCol"},
                 {"GetNotBitSystemIOCol"},
                 {"GetUserDefinedTableNonConCol"},
                 {"GetUserDefinedNotBitNetworkCol"}},
                true}),
    [](const auto& info) { return "Case" + std::to_string(info.index); });

TEST_F(DataList, AnyTypeButNoneIsAScopeOfBits) {
    script([&] { EXPECT_EQ(shownIn(*at(list(0))), Names{"getuserdefinedbitvariablecol"}); });
    scope(-1);
    scope(7);
}

TEST_F(DataList, NamesStandInTheHostsOrderTwiceWhereItHasThemTwice) {
    data->method("getuserdefinedvariablecol", [](Args) { return Value(listOf({"b", "a", "b", "ZÄ", "日本", "😀"})); });
    script([&] { EXPECT_EQ(shownIn(*at(list(0))), (Names{"b", "a", "b", "ZÄ", "日本", "😀"})); });
    show("Show_Data");
}

TEST_F(DataList, AHostsListMayOfferCountAndItemAlone) {
    data->method("GetSystemIOCol", [](Args) { return Value(countedNames(3)); });
    script([&] { EXPECT_EQ(shownIn(*at(list(2))), (Names{"Item1", "Item2", "Item3"})); });
    show("Show_Data");
}

TEST_F(DataList, TenThousandNamesAreShown) {
    data->method("getuserdefinedvariablecol", [](Args) { return Value(manyNames(10000)); });
    script([&] {
        EXPECT_EQ(at(list(0))->get("ListCount").toLong(), 10000);
        pick(0, 9999);
    });
    EXPECT_TRUE(show("Show_Data"));
    EXPECT_EQ(strNewData, "Name9999");
}

TEST_F(DataList, DisplayTypeSwitchesTheTableTabAndIsTrueForEveryType) {
    const Ref<Object> browsed = make<frmDataList>();
    const auto tableOffered = [&] { return invoke(*control(*browsed, "SSDataTab"), "TabEnabled", 3).toBoolean(); };
    const struct {
        int type;
        bool tables;
    } rows[] = {{1, false}, {0, true}, {2, false}, {3, true}, {4, true}, {2, false}, {4, false}, {-1, false}};
    for (const auto& row : rows) {
        EXPECT_TRUE(invoke(*browsed, "DisplayType", row.type).toBoolean());
        EXPECT_EQ(tableOffered(), row.tables) << row.type;
        for (const int tab : {0, 1, 2, 4})
            EXPECT_TRUE(invoke(*control(*browsed, "SSDataTab"), "TabEnabled", tab).toBoolean());
    }
}

TEST_F(DataList, EveryOperationGivesTheSelectedLineOfTheTabInFront) {
    for (const std::string operation : {"Show_Output", "Show_LSMV", "Show_Data"}) {
        script([&] {
            select(1);
            pick(2);
            EXPECT_FALSE(form->Visible());
        });
        EXPECT_TRUE(show(operation));
        EXPECT_EQ(strNewData, operation == "Show_Output" ? "GetBitSystemIOCol" : "GetSystemIOCol");
    }
}

TEST_F(DataList, ADoubleClickOnALineIsOK) {
    script([&] {
        select(1);
        invoke(*at(list(1)), "DblClick");
        EXPECT_FALSE(form->Visible());
        EXPECT_EQ(form->get("Selected").toText(), "GetRWSystemVariableCol");
    });
    EXPECT_TRUE(show("Show_Data"));
    EXPECT_EQ(strNewData, "GetRWSystemVariableCol");
}

TEST_F(DataList, CancelAndTheCloseBoxLeaveTheCallersTextAlone) {
    script([&] {
        select(0);
        click("cmdCancel");
        EXPECT_FALSE(form->Visible());
    });
    EXPECT_FALSE(show("Show_Data"));
    EXPECT_FALSE(scope(scopeOfBits));
    script([&] {
        select(0);
        form->Close();
    });
    EXPECT_FALSE(show("Show_Data"));
    EXPECT_FALSE(scope(scopeOfOthers));
    EXPECT_EQ(strNewData, "before");
    EXPECT_EQ(strNewAddress, "nowhere");
}

TEST_F(DataList, OKWithoutALineGivesAnEmptyResult) {
    script([&] {
        click("cmdOK");
        EXPECT_FALSE(form->Visible());
        EXPECT_EQ(form->get("Selected").toText(), "");
    });
    EXPECT_FALSE(show("Show_Data"));
    EXPECT_FALSE(scope(scopeOfBits));
    EXPECT_EQ(strNewData, "before");
    EXPECT_EQ(strNewAddress, "nowhere");
}

TEST_F(DataList, AnotherTabsLineIsNoResult) {
    script([&] {
        select(0);
        at("SSDataTab")->put("Tab", Value(4));
        click("cmdOK");
    });
    EXPECT_FALSE(show("Show_Data"));
    EXPECT_EQ(strNewData, "before");
}

TEST_F(DataList, EachShowingBeginsAfresh) {
    script([&] { pick(1); });
    EXPECT_TRUE(show("Show_Data"));
    strNewData = "before";
    script([&] {
        EXPECT_EQ(at("SSDataTab")->get("Tab").toLong(), 0);
        EXPECT_EQ(shownIn(*at(list(0))), Names{"getuserdefinedvariablecol"});
        EXPECT_EQ(at(list(1))->get("ListIndex").toLong(), -1);
        EXPECT_EQ(form->get("Selected").toText(), "");
        click("cmdCancel");
    });
    EXPECT_FALSE(show("Show_LSMV"));
    EXPECT_EQ(strNewData, "before");
    script([&] { EXPECT_TRUE(invoke(*at("SSDataTab"), "TabEnabled", 3).toBoolean()); });
    show("Show_Data");
}

// Tables

TEST_F(DataList, ATableAsksForAnIndex) {
    user->typed = {"3"};
    script([&] {
        pick(3);
        EXPECT_EQ(form->get("Selected").toText(), "GetUserDefinedTableCol[3]");
        EXPECT_EQ(form->get("TableIndex").toLong(), 3);
        EXPECT_FALSE(form->Visible());
    });
    EXPECT_TRUE(show("Show_Data"));
    ASSERT_EQ(user->asked.size(), 1u);
    EXPECT_EQ(user->asked[0].prompt, "Please enter table index between 0 and 4");
    EXPECT_EQ(user->asked[0].title, "Index");
    EXPECT_EQ(user->asked[0].preset, "0");
    EXPECT_TRUE(user->boxes.empty());
}

TEST_F(DataList, TheIndexDoesNotReachTheCallerOfShowData) {
    user->typed = {"3"};
    script([&] { pick(3); });
    EXPECT_TRUE(show("Show_Data"));
    EXPECT_EQ(strNewData, "GetUserDefinedTableCol");
}

TEST_F(DataList, TheDataObjectIsAskedForTheRangeByTheTablesName) {
    std::string asked;
    data->method("GetTableRange", [&](Args args) {
        asked = args[0].toText();
        return Value(false);
    });
    script([&] { pick(3); });
    show("Show_Data");
    EXPECT_EQ(asked, "GetUserDefinedTableCol");
}

TEST_F(DataList, ATableWithOneElementPromptsWithZero) {
    tableSize = 1;
    user->typed = {"1", "0"};
    script([&] {
        pick(3);
        EXPECT_TRUE(form->Visible());
        click("cmdOK");
        EXPECT_EQ(form->get("Selected").toText(), "GetUserDefinedTableCol[0]");
    });
    EXPECT_TRUE(show("Show_Data"));
    EXPECT_EQ(user->asked[0].prompt, "Please enter table index between 0 and 0");
    ASSERT_EQ(user->boxes.size(), 1u);
    EXPECT_EQ(user->boxes[0].text, "Range error.  Expecting an integer between 0 and 0");
}

TEST_F(DataList, AnIndexOutOfRangeOrNoNumberKeepsTheDialogOpen) {
    for (const std::string typed : {"-1", "-1.5", "5", "5.01", "99", "1E300", "-1E400", "x", "3x", " ", "1 2"}) {
        user->asked.clear();
        user->boxes.clear();
        user->typed = {typed};
        script([&] {
            pick(3);
            EXPECT_TRUE(form->Visible()) << typed;
            EXPECT_EQ(form->get("Selected").toText(), "");
            EXPECT_EQ(form->get("TableIndex").toLong(), 0);
        });
        EXPECT_FALSE(show("Show_Data"));
        ASSERT_EQ(user->boxes.size(), 1u) << typed;
        EXPECT_EQ(user->boxes[0].text, "Range error.  Expecting an integer between 0 and 4");
        EXPECT_EQ(user->boxes[0].icon, Icon::exclamation);
        EXPECT_EQ(user->boxes[0].title, "");
    }
    EXPECT_EQ(strNewData, "before");
}

TEST_F(DataList, CancellingTheIndexKeepsTheDialogOpenWithoutAWord) {
    user->typed = {"", "2"};
    script([&] {
        pick(3);
        EXPECT_TRUE(form->Visible());
        EXPECT_TRUE(user->boxes.empty());
        click("cmdOK");
        EXPECT_EQ(form->get("Selected").toText(), "GetUserDefinedTableCol[2]");
    });
    EXPECT_TRUE(show("Show_Data"));
}

TEST_F(DataList, AFractionAboveMinusOneOrBelowTheSizePassesAndIsRounded) {
    const struct {
        std::string typed;
        std::int32_t index;
    } rows[] = {{"-0.4", 0}, {"-0.5", 0}, {"-0.6", -1}, {"-0.999", -1}, {"0.5", 0}, {"1.5", 2}, {"2.5", 2},
                {"4.4", 4},  {"4.6", 5},  {" 3 ", 3},   {"&H2", 2},     {"4E0", 4}, {"+1", 1}};
    for (const auto& row : rows) {
        user->asked.clear();
        user->typed = {row.typed};
        script([&] {
            pick(3);
            EXPECT_FALSE(form->Visible()) << row.typed;
            EXPECT_EQ(form->get("TableIndex").toLong(), row.index) << row.typed;
            EXPECT_EQ(form->get("Selected").toText(), "GetUserDefinedTableCol[" + std::to_string(row.index) + "]");
        });
        EXPECT_TRUE(show("Show_Data"));
    }
    EXPECT_TRUE(user->boxes.empty());
}

TEST_F(DataList, ATableThatCannotBeIndexedGivesItsNameAlone) {
    tableIndexed = false;
    script([&] {
        pick(3);
        EXPECT_FALSE(form->Visible());
        EXPECT_EQ(form->get("Selected").toText(), "GetUserDefinedTableCol");
    });
    EXPECT_TRUE(show("Show_Data"));
    EXPECT_TRUE(user->asked.empty());
}

// Addresses

TEST_F(DataList, AUserVariablesAddressIsAskedOfTheData) {
    data->method("GetUserDefinedVariableAddress", [](Args args) {
        EXPECT_EQ(args[0].toText(), "GetUserDefinedNotBitVariableCol");
        return Value("MW100");
    });
    script([&] { pick(0); });
    EXPECT_TRUE(scope(scopeOfOthers));
    EXPECT_EQ(strNewData, "GetUserDefinedNotBitVariableCol");
    EXPECT_EQ(strNewAddress, "MW100");
}

TEST_F(DataList, TheNameGoesToTheDataByReference) {
    data->method("GetUserDefinedVariableAddress", [](Args args) {
        args[0] = Value("renamed");
        return Value("MW100");
    });
    script([&] { pick(0); });
    EXPECT_TRUE(scope(scopeOfOthers));
    EXPECT_EQ(strNewData, "renamed");
}

TEST_F(DataList, SystemVariablesAndIOHaveTheirAddressesInListsKeyedByName) {
    auto addresses = make<Collection>();
    addresses->Add(Value("SB1"), "GetRWSystemBitVariableCol");
    addresses->Add(Value("IB2"), "GetBitSystemIOCol");
    controller->method("GetAllSystemVariableAddressCol", [=](Args) { return Value(addresses); });
    data->method("GetSystemIOAddressCol", [=](Args) { return Value(addresses); });
    script([&] { pick(1); });
    EXPECT_TRUE(scope(scopeOfBits));
    EXPECT_EQ(strNewAddress, "SB1");
    script([&] { pick(2); });
    EXPECT_TRUE(scope(scopeOfBits));
    EXPECT_EQ(strNewData, "GetBitSystemIOCol");
    EXPECT_EQ(strNewAddress, "IB2");
}

TEST_F(DataList, ATablesElementHasTheAddressThatTheDataFillsIn) {
    user->typed = {"0"};
    data->method("GetTableElementAddress", [](Args args) {
        EXPECT_EQ(args[0].toText(), "GetUserDefinedTableNonConCol[0]");
        args[1] = Value("MF20");
        return Value(true);
    });
    script([&] { pick(3); });
    EXPECT_TRUE(scope(scopeOfOthers));
    EXPECT_EQ(strNewData, "GetUserDefinedTableNonConCol[0]");
    EXPECT_EQ(strNewAddress, "MF20");
}

TEST_F(DataList, AnElementsAddressIsTakenOnlyWhenTheDataSaysSo) {
    user->typed = {"4"};
    data->method("GetTableElementAddress", [](Args args) {
        args[1] = Value("MF20");
        return Value(false);
    });
    script([&] { pick(3); });
    EXPECT_TRUE(scope(scopeOfOthers));
    EXPECT_EQ(strNewData, "GetUserDefinedTableNonConCol[4]");
    EXPECT_EQ(strNewAddress, "nowhere");
}

TEST_F(DataList, NetworkDataLeavesTheAddressAlone) {
    script([&] { pick(4); });
    EXPECT_TRUE(scope(scopeOfBits));
    EXPECT_EQ(strNewData, "GetUserDefinedBitNetworkCol");
    EXPECT_EQ(strNewAddress, "nowhere");
}

// The form's other members

TEST_F(DataList, AddressListsAreMadeOnDemandKeptAndReleasedOnClosing) {
    const Ref<Object> browsed = make<frmDataList>();
    const Ref<Object> variables = browsed->get("VariableAddressList").toObject();
    ASSERT_TRUE(variables);
    EXPECT_EQ(variables->className(), "Collection");
    EXPECT_EQ(browsed->get("VariableAddressList").toObject(), variables);
    const Ref<Collection> given = listOf({"IB1"});
    browsed->put("SystemIOAddressList", Value(given));
    EXPECT_EQ(browsed->get("SystemIOAddressList").toObject(), Ref<Object>(given));
    user->script = [&](Object&) {};  // the close box
    invoke(*browsed, "Show");
    EXPECT_NE(browsed->get("VariableAddressList").toObject(), variables);
    EXPECT_EQ(browsed->get("SystemIOAddressList").toObject()->get("Count").toLong(), 0);
}

TEST_F(DataList, TheDataObjectIsWrittenOnlyAndTheResultsAreReadOnly) {
    const Ref<Object> browsed = make<frmDataList>();
    browsed->put("Data", Value(Ref<Object>(data)));
    EXPECT_EQ(raisedBy([&] { browsed->get("Data"); }), 438);
    EXPECT_EQ(raisedBy([&] { browsed->put("Selected", Value("x")); }), 438);
    EXPECT_EQ(raisedBy([&] { browsed->put("TableIndex", Value(1)); }), 438);
}

TEST_F(DataList, NothingOfTheHostIsKeptAfterTheShowing) {
    struct Watched final : Object {
        explicit Watched(bool& gone) : m_gone(gone) {}
        ~Watched() override { m_gone = true; }
        std::string_view className() const noexcept override { return "Watched"; }
        bool& m_gone;
    };
    bool gone = false;
    const Ref<frmDataList> browsed = make<frmDataList>();
    browsed->setData(Ref<Object>(new Watched(gone)));
    user->script = [&](Object&) {};
    browsed->Show();
    EXPECT_FALSE(gone);
    browsed->Unload();
    EXPECT_TRUE(gone);
}

}  // namespace
}  // namespace canvas::editors
