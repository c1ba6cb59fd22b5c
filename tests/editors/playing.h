#pragma once
// Plays the host and the user of a dialog: a checker, a script in place of the screen, and what was shown.

#include <functional>
#include <string>
#include <vector>

#include "editors/forms.h"
#include "host/composed.h"
#include "host/convert.h"

namespace canvas::editors {

/// A checker that takes every text, or refuses one field by its shown name.
inline Ref<Composed> checker(std::string refused = {}) {
    auto object = make<Composed>("Checker");
    object->method("ValidateUserInput", [refused](Args args) {
        if (args[1].toText() != refused) return Value(true);
        args[4] = Value("bad " + refused);
        return Value(false);
    });
    return object;
}

/// Runs `script` for each form that is shown (nested ones too), keeps the boxes, and answers them.
struct Script final : Interaction {
    std::function<void(Object& form)> script;
    std::vector<MessageBox> boxes;
    std::vector<Reply> replies;  ///< to the boxes in turn; OK when they run out
    struct Asked {
        std::string prompt, title, preset;
    };
    std::vector<Asked> asked;
    std::vector<std::string> typed;  ///< answers to the input boxes in turn; empty when they run out
    Reply messageBox(const MessageBox& box) override {
        boxes.push_back(box);
        return boxes.size() <= replies.size() ? replies[boxes.size() - 1] : Reply::ok;
    }
    std::string inputBox(std::string_view prompt, std::string_view title, std::string_view preset) override {
        asked.push_back({std::string(prompt), std::string(title), std::string(preset)});
        return asked.size() <= typed.size() ? typed[asked.size() - 1] : std::string();
    }
    void beep() override {}
    std::int32_t openAddress(std::string_view) override { return 0; }
    void setClipboard(std::string_view) override {}
    bool showForm(Object& form) override {
        if (script) script(form);
        return static_cast<bool>(script);
    }
};

/// Puts a Script in force for a scope.
struct Playing {
    std::shared_ptr<Script> user = std::make_shared<Script>();
    WithEnvironment with{Environment{.interaction = user, .forms = dialogs()}};
};

inline Ref<Object> control(Object& form, std::string_view name) { return invoke(form, "Control", name).toObject(); }

}  // namespace canvas::editors
