#pragma once
// Who answers for the failures of calls through the component.

#include <optional>

#include "editors/error_form.h"
#include "tracing/handler.h"

namespace canvas::component {

/// Asks with the error dialog where a person can be asked; else the error goes to the caller, and nothing is heard of
/// it here.
class AskWherePossible final : public tracing::ErrorHandler {
public:
    tracing::Answer ask(const tracing::Failure& failure) override;

private:
    editors::ErrorDialog m_dialog;
};

/// In force on a thread from its outermost call into the library to that call's end. Calls inside it keep the handler
/// that they find: the library may have put a quiet one there, and an error inside a report belongs to that report.
class Asking {
public:
    Asking() noexcept;
    ~Asking();
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

private:
    struct InForce {
        AskWherePossible handler;
        tracing::WithErrorHandler with{handler};
    };
    std::optional<InForce> m_inForce;
};

}  // namespace canvas::component
