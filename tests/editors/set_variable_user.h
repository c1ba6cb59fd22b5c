#pragma once
// Plays host and user of Set Variable.

#include "tests/editors/grid_user.h"
#include "tests/tracing/fakes.h"

namespace canvas::editors {

struct SetVariable : GridUser {
    SetVariable() : GridUser("frmSetVariable", "VSGridUserVariable") {
        invoke(*form, "SetData", Ref<Object>(host.controller), Ref<Object>(host.data), checking.object());
        checking.otherwise = {.dataType = 16, .isLValue = true};
    }
    bool validation(int row, int col) { return invoke(*form, "Validation", row, col).toBoolean(); }
    std::string saved() { return invoke(*form, "SaveGridContent").toText(); }
};

}  // namespace canvas::editors
