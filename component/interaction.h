#pragma once
// Ways to ask the user: the library's own, and a host's behind the library's port.

#include <memory>

#include "host/ports.h"

namespace canvas::component {

/// A way to ask that knows before it is asked whether anybody is there for a dialog.
class AskingInteraction : public Interaction {
public:
    virtual bool takesForms() = 0;
};

/// The library's own view where it can be loaded, which is first tried when there is something to show; else the way
/// that was there before.
class OwnInteraction final : public AskingInteraction {
public:
    explicit OwnInteraction(std::shared_ptr<Interaction> before) noexcept : m_before(std::move(before)) {}

    Reply messageBox(const MessageBox& box) override { return way().messageBox(box); }
    std::string inputBox(std::string_view prompt, std::string_view title, std::string_view preset) override {
        return way().inputBox(prompt, title, preset);
    }
    /// A sound alone does not load the view.
    void beep() override { (m_view ? *m_view : *m_before).beep(); }
    std::int32_t openAddress(std::string_view address) override { return way().openAddress(address); }
    void setClipboard(std::string_view text) override { way().setClipboard(text); }
    bool showForm(Object& form) override { return way().showForm(form); }
    bool takesForms() override { return &way() != m_before.get(); }

private:
    Interaction& way();

    std::shared_ptr<Interaction> m_before;
    Interaction* m_view = nullptr;  ///< once it was there
};

/// Calls the host's members by name. One that the host lacks, or an answer that is none of the known words, falls back
/// on the library's own way.
class HostInteraction final : public AskingInteraction {
public:
    HostInteraction(Ref<Object> host, std::shared_ptr<Interaction> fallback) noexcept
        : m_host(std::move(host)), m_fallback(std::move(fallback)) {}

    Reply messageBox(const MessageBox& box) override;
    std::string inputBox(std::string_view prompt, std::string_view title, std::string_view preset) override;
    void beep() override;
    std::int32_t openAddress(std::string_view address) override;
    void setClipboard(std::string_view text) override;
    bool showForm(Object& form) override;
    /// Where the host has the member; whether it takes this form or that one only it knows.
    bool takesForms() override;

private:
    Ref<Object> m_host;
    std::shared_ptr<Interaction> m_fallback;
};

}  // namespace canvas::component
