#pragma once
// The dialogs that choose what a block calls or controls: subroutines and tasks.

#include "editors/attribute_form.h"

namespace canvas::editors {

Ref<Form> makeSuperBlock();
Ref<Form> makeListSubroutine();
Ref<Form> makeRestartProgram();
Ref<Form> makeSuspendProgram();

}  // namespace canvas::editors
