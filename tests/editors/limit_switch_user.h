#pragma once
// Plays host and user of Programmable Limit Switch.

#include "tests/editors/grid_user.h"
#include "tests/tracing/fakes.h"

namespace canvas::editors {

inline const std::vector<std::string> kept{
    "localUserDefinedVariableCol",       "localUserDefinedConstantCol",   "localUserDefinedNetworkCol",
    "localReadableSystemVariableCol",    "localReadableSystemBitVariableCol", "localWritableSystemVariableCol",
    "localReadableSystemParameterCol",   "localUserDefinedBitVariableCol", "localUserDefniedBitNetworkCol",
    "localAllSystemBitVariableCol",      "localRWSystemVariableCol",      "localSystemIOCol",
    "localBitSystemIOCol"};

struct LimitSwitch : GridUser {
    LimitSwitch() : GridUser("frmProgrammableLimitSwitch", "VSPLSGrid") {
        EXPECT_TRUE(setData(checking.object()));
        checking.otherwise = {.dataType = 16, .isLValue = true};
    }
    /// Each list holds its own name alone.
    bool setData(Ref<Object> checker) {
        std::vector<Value> arguments;
        for (const std::string& name : kept) arguments.push_back(Value(listOf({name})));
        arguments.push_back(Value(checker));
        return form->call("SetData", arguments).toBoolean();
    }
    bool validation(int row, int col) { return invoke(*form, "Validation", row, col).toBoolean(); }
    Ref<Object> master() { return at("txbMasterVariable"); }
    int masterColor() { return master()->get("BackColor").toLong(); }
    /// Picks the only line of a tab in the list browser, after a look at all of them.
    std::function<void(Object&)> picks(int tab, std::vector<std::string> expected) {
        return [=](Object& opened) {
            EXPECT_EQ(opened.get("Name").toText(), "frmDataList");
            for (int i = 0; i < 5; ++i) {
                const Ref<Object> names = control(opened, "lstVariable(" + std::to_string(i) + ")");
                const std::string& only = expected[static_cast<std::size_t>(i)];
                EXPECT_EQ(names->get("ListCount").toLong(), only.empty() ? 0 : 1);
                if (!only.empty()) {
                    EXPECT_EQ(invoke(*names, "List", 0).toText(), only);
                }
                EXPECT_EQ(invoke(*control(opened, "SSDataTab"), "TabEnabled", i).toBoolean(), i != 3);
            }
            control(opened, "SSDataTab")->put("Tab", Value(tab));
            control(opened, "lstVariable(" + std::to_string(tab) + ")")->put("ListIndex", Value(0));
            invoke(*control(opened, "cmdOK"), "Click");
        };
    }
};

inline const std::vector<std::string> allLists{"localUserDefinedVariableCol", "localRWSystemVariableCol", "localSystemIOCol", "",
                                        "localUserDefinedNetworkCol"};
inline const std::vector<std::string> bitLists{"localUserDefinedBitVariableCol", "localReadableSystemBitVariableCol",
                                        "localBitSystemIOCol", "", "localUserDefniedBitNetworkCol"};

}  // namespace canvas::editors
