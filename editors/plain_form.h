#pragma once
// A small dialog that edits no attribute: its buttons by their roles.

#include "editors/form.h"

namespace canvas::editors {

class PlainForm : public Form {
public:
    using Form::Form;

protected:
    void on(Event event, Control& control) override;
    /// The OK button.
    virtual void ok() {}
};

}  // namespace canvas::editors
