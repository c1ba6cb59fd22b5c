#pragma once
// One form opened by a host, with what its tests do over and over.

#include <gtest/gtest.h>

#include "tests/editors/host_objects.h"

namespace canvas::editors {

struct HelpCount final : Help {
    int shown = 0;
    void show() override { ++shown; }
};

/// "btnOK" or "cmdOK" for "OK"; empty when the form has neither.
inline std::string buttonOf(Form& form, std::string_view plain) {
    for (const std::string prefix : {"btn", "cmd"})
        if (form.find(prefix + std::string(plain))) return prefix + std::string(plain);
    return {};
}

struct Editing : testing::Test {
    Playing play;
    Script& user = *play.user;
    Host host;
    Ref<Form> form;

    Ref<Object> at(std::string_view name) { return control(*form, name); }
    std::string text(std::string_view name) { return at(name)->get("Text").toText(); }
    void type(std::string_view name, std::string_view keys) { invoke(*at(name), "Type", keys); }
    void put(std::string_view name, std::string_view value) { at(name)->put("Text", Value(value)); }
    void click(std::string_view name) { invoke(*at(name), "Click"); }
    Ref<Object> attribute() { return form->get("BVTAttribute").toObject(); }
    std::string stored(std::string_view property) { return attribute()->get(property).toText(); }

    /// A new form of that name, given the host's objects and `checker`.
    void open(std::string_view name, const Ref<Composed>& checker = editors::checker()) {
        form = makeForm(name);
        form->put("UserUnit", Value("mm"));
        form->call("Load");
        invoke(*form, "SetData", host.controller, host.data, checker);
    }
    /// Shows it and runs `script` in the user's place.
    void show(const std::function<void()>& script) {
        user.script = [&](Object& shown) {
            if (&shown == form.get()) script();
        };
        form->call("Show");
    }
};

}  // namespace canvas::editors
