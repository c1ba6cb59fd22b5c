#include "component/asking.h"

#include "component/interaction.h"
#include "host/ports.h"

namespace canvas::component {
namespace {

thread_local int depth = 0;

bool somebodyCanBeAsked() {
    auto* const asking = dynamic_cast<AskingInteraction*>(environment().interaction.get());
    return !asking || asking->takesForms();
}

}  // namespace

tracing::Answer AskWherePossible::ask(const tracing::Failure& failure) {
    return somebodyCanBeAsked() ? m_dialog.ask(failure) : tracing::Answer::handOn;
}

Asking::Asking() noexcept {
    if (depth++ == 0) m_inForce.emplace();
}

Asking::~Asking() { --depth; }

}  // namespace canvas::component
