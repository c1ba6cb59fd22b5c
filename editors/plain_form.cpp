#include "editors/plain_form.h"

#include "editors/attribute_form.h"

namespace canvas::editors {

void PlainForm::on(Event event, Control& control) {
    if (event != Event::click) return;
    switch (control.row().role) {
        case Role::ok: return ok();
        case Role::cancel: return Hide();
        case Role::help: return showHelp();
        case Role::none: return;
    }
}

}  // namespace canvas::editors
