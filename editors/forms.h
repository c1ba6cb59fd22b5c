#pragma once
// All forms by name: one explicit list.

#include <memory>
#include <span>
#include <string_view>

#include "editors/form.h"
#include "host/ports.h"

namespace canvas::editors {

struct FormEntry {
    std::string_view name;
    Ref<Form> (*make)();
};

std::span<const FormEntry> forms() noexcept;
/// Case is ignored. Null for a name that is none.
Ref<Form> makeForm(std::string_view name);

/// For `Environment::forms`: lets the canvas open dialogs.
std::shared_ptr<Forms> dialogs();

}  // namespace canvas::editors
