#pragma once
// The host's own way to ask the user, behind the library's port.

#include <memory>

#include "host/ports.h"

namespace canvas::component {

/// Calls the host's members by name. One that the host lacks, or an answer that is none of the known words, falls back
/// on the way that was there before.
class HostInteraction final : public Interaction {
public:
    HostInteraction(Ref<Object> host, std::shared_ptr<Interaction> fallback) noexcept
        : m_host(std::move(host)), m_fallback(std::move(fallback)) {}

    Reply messageBox(const MessageBox& box) override;
    std::string inputBox(std::string_view prompt, std::string_view title, std::string_view preset) override;
    void beep() override;
    std::int32_t openAddress(std::string_view address) override;
    void setClipboard(std::string_view text) override;
    bool showForm(Object& form) override;

private:
    Ref<Object> m_host;
    std::shared_ptr<Interaction> m_fallback;
};

}  // namespace canvas::component
