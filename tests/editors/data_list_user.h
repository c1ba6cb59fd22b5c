#pragma once
// The data list browser between a host and a user.

#include "editors/data_list.h"

#include <gtest/gtest.h>

#include "tests/editors/name_lists.h"

namespace canvas::editors {

using Names = std::vector<std::string>;

constexpr std::int16_t scopeOfBits = 1, scopeOfOthers = 0;

struct DataList : testing::Test {
    Playing play;
    std::shared_ptr<Script> user = play.user;
    Ref<Object> browser = make<clsBVTDataList>();
    Ref<Composed> data =
        listsNamed({"getuserdefinedvariablecol", "getuserdefinedbitvariablecol", "GetUserDefinedNotBitVariableCol",
                    "GetUserDefinedNetworkCol", "GetUserDefinedBitNetworkCol", "GetUserDefinedNotBitNetworkCol",
                    "GetUserDefinedTableCol", "GetUserDefinedTableNonConCol", "GetSystemIOCol", "GetBitSystemIOCol",
                    "GetNotBitSystemIOCol"});
    Ref<Composed> controller = listsNamed({"GetReadableSystemBitVariablecol", "GetRWSystemVariableCol",
                                           "GetRWSystemBitVariableCol", "GetRWSystemNotBitVariableCol"});
    Ref<Form> form;  ///< the one shown last
    std::int32_t tableSize = 5;
    bool tableIndexed = true;

    std::string strNewData = "before";
    std::string strNewAddress = "nowhere";

    DataList() {
        data->method("GetTableRange", [this](Args args) {
            args[1] = Value(tableSize);
            return Value(tableIndexed);
        });
    }

    void script(std::function<void()> steps) {
        user->script = [this, steps = std::move(steps)](Object& shown) {
            form = Ref<Form>(&dynamic_cast<Form&>(shown));
            steps();
        };
    }
    Ref<Object> at(std::string_view name) { return control(*form, name); }
    static std::string list(int tab) { return "lstVariable(" + std::to_string(tab) + ")"; }
    void select(int tab, int index = 0) {
        at("SSDataTab")->put("Tab", Value(tab));
        at(list(tab))->put("ListIndex", Value(index));
    }
    void click(std::string_view button) { invoke(*at(button), "Click"); }
    void pick(int tab, int index = 0) {
        select(tab, index);
        click("cmdOK");
    }

    bool show(std::string_view operation) {
        return invoke(*browser, operation, Ref<Object>(data), Ref<Object>(controller), std::ref(strNewData))
            .toBoolean();
    }
    bool scope(std::int16_t iType) {
        return invoke(*browser, "Show_Scope", Ref<Object>(controller), Ref<Object>(data), std::ref(strNewData),
                      std::ref(strNewAddress), iType)
            .toBoolean();
    }
    bool showAny(std::string_view operation) {
        if (operation == "scope of bits") return scope(scopeOfBits);
        if (operation == "scope of others") return scope(scopeOfOthers);
        return show(operation);
    }
};

}  // namespace canvas::editors
