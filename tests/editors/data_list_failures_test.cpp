// The data list browser with hosts that fail.

#include <gtest/gtest.h>

#include "tests/editors/data_list_user.h"
#include "tests/host/raised.h"
#include "tests/tracing/fakes.h"

namespace canvas::editors {
namespace {

TEST_F(DataList, AMissingMemberIsTheCallersErrorAndNothingIsShown) {
    data->without("GetUserDefinedTableCol");
    script([&] { FAIL() << "shown"; });
    EXPECT_EQ(raisedBy([&] { show("Show_Data"); }), 438);
    EXPECT_EQ(strNewData, "before");
    controller->without("GetRWSystemBitVariableCol");
    EXPECT_EQ(raisedBy([&] { scope(scopeOfBits); }), 438);
}

TEST_F(DataList, NothingInPlaceOfAHostsObjectOrListIsError91) {
    script([&] { FAIL() << "shown"; });
    EXPECT_EQ(raisedBy([&] { invoke(*browser, "Show_Data", Ref<Object>(), Ref<Object>(controller), "x"); }), 91);
    EXPECT_EQ(raisedBy([&] { invoke(*browser, "Show_Data", Ref<Object>(data), Ref<Object>(), "x"); }), 91);
    data->method("GetSystemIOCol", [](Args) { return Value(Ref<Object>()); });
    EXPECT_EQ(raisedBy([&] { show("Show_Data"); }), 91);
}

TEST_F(DataList, AListThatBreaksOffCanBeUsedWithoutTheBrokenName) {
    data->method("GetSystemIOCol", [](Args) { return Value(countedNames(4, 2)); });
    tracing::ScriptedHandler handler({tracing::Answer::ignore});
    script([&] { EXPECT_EQ(shownIn(*at(list(2))), (Names{"Item1", "Item3", "Item4"})); });
    show("Show_Data");
    ASSERT_EQ(handler.asked.size(), 1u);
    EXPECT_EQ(handler.asked[0].number, 1234);
    EXPECT_EQ(handler.asked[0].module, "clsBVTDataList");
    EXPECT_EQ(handler.asked[0].procedure, "Show_Data");
}

TEST_F(DataList, LeavingAfterAFailureShowsNothingAndTheNextCallBeginsAfresh) {
    data->method("GetSystemIOCol", [](Args) { return Value(countedNames(4, 2)); });
    {
        tracing::ScriptedHandler handler({tracing::Answer::leave});
        script([&] { FAIL() << "shown"; });
        EXPECT_FALSE(show("Show_Data"));
    }
    data->method("GetSystemIOCol", [](Args) { return Value(countedNames(1)); });
    script([&] {
        EXPECT_EQ(shownIn(*at(list(0))), Names{"getuserdefinedvariablecol"});
        EXPECT_EQ(shownIn(*at(list(2))), Names{"Item1"});
    });
    show("Show_Data");
}

TEST_F(DataList, ANullOrAnObjectInPlaceOfANameIsAnError) {
    const auto of = [](Value item) {
        auto list = make<Collection>();
        list->Add(std::move(item));
        return list;
    };
    script([&] { FAIL() << "shown"; });
    data->method("GetSystemIOCol", [&](Args) { return Value(of(Value(Null{}))); });
    EXPECT_EQ(raisedBy([&] { show("Show_Data"); }), 94);
    data->method("GetSystemIOCol", [&](Args) { return Value("no list"); });
    EXPECT_EQ(raisedBy([&] { show("Show_Data"); }), 424);
}

TEST_F(DataList, AFailingTableRangeKeepsTheDialogOpen) {
    data->method("GetTableRange", [](Args) -> Value { throw RuntimeError(1234, "no range", "Host"); });
    tracing::ScriptedHandler handler({tracing::Answer::leave});
    script([&] {
        pick(3);
        EXPECT_TRUE(form->Visible());
    });
    EXPECT_FALSE(show("Show_Data"));
    ASSERT_EQ(handler.asked.size(), 1u);
    EXPECT_EQ(handler.asked[0].module, "frmDataList");
    EXPECT_EQ(handler.asked[0].procedure, "cmdOK_Click");
}

TEST_F(DataList, AFailingAddressGoesToTheCallerAndTheNextScopeWorks) {
    script([&] { pick(0); });
    EXPECT_EQ(raisedBy([&] { scope(scopeOfBits); }), 438);
    EXPECT_EQ(strNewAddress, "nowhere");
    data->method("GetUserDefinedVariableAddress", [](Args) { return Value("MB1"); });
    EXPECT_TRUE(scope(scopeOfBits));
    EXPECT_EQ(strNewAddress, "MB1");
}

TEST_F(DataList, AnAddressThatIsNotListedIsError5) {
    data->method("GetSystemIOAddressCol", [](Args) { return Value(make<Collection>()); });
    script([&] { pick(2); });
    EXPECT_EQ(raisedBy([&] { scope(scopeOfBits); }), 5);
}

TEST_F(DataList, TheSameBrowserCannotBeOpenedWhileItIsOpen) {
    script([&] {
        EXPECT_EQ(raisedBy([&] { show("Show_LSMV"); }), 5);
        EXPECT_EQ(shownIn(*at(list(0))), Names{"getuserdefinedvariablecol"});
        pick(4);
    });
    EXPECT_TRUE(show("Show_Data"));
    EXPECT_EQ(strNewData, "GetUserDefinedNetworkCol");
}

TEST_F(DataList, AFormThatItsHostUnloadsGivesNoResult) {
    script([&] {
        select(0);
        invoke(*form, "Unload");
    });
    EXPECT_FALSE(show("Show_Data"));
    EXPECT_EQ(strNewData, "before");
}

}  // namespace
}  // namespace canvas::editors
