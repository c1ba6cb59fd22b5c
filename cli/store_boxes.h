#pragma once
// Message boxes of the library where nobody sits: their texts are kept for the command's own answer.

#include <memory>
#include <string>
#include <vector>

#include "host/ports.h"

namespace canvas::cli {

/// In force until the end of its scope.
class HeardBoxes {
public:
    HeardBoxes() : m_listener(std::make_shared<Listener>()), m_environment(withListener(m_listener)) {}

    const std::vector<std::string>& texts() const noexcept { return m_listener->texts; }

private:
    struct Listener final : Interaction {
        Reply messageBox(const MessageBox& box) override {
            texts.push_back(box.text);
            return Reply::ok;
        }
        std::string inputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
        void beep() override {}
        std::int32_t openAddress(std::string_view) override { return 0; }
        void setClipboard(std::string_view) override {}
        bool showForm(Object&) override { return false; }

        std::vector<std::string> texts;
    };

    static Environment withListener(std::shared_ptr<Interaction> listener) {
        Environment own = environment();
        own.interaction = std::move(listener);
        return own;
    }

    std::shared_ptr<Listener> m_listener;
    WithEnvironment m_environment;
};

}  // namespace canvas::cli
