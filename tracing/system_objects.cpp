#include "tracing/system_objects.h"

#include <utility>
#include <vector>

#include "host/ports.h"
#include "host/value.h"

namespace canvas::tracing {
namespace {

using Properties = std::vector<std::pair<std::string_view, Value>>;

class SystemObject final : public Object {
public:
    SystemObject(std::string_view className, Properties properties)
        : m_className(className), m_properties(std::move(properties)) {}

    std::string_view className() const noexcept override { return m_className; }
    void reportVariables(VariableSink& sink) const override {
        for (const auto& [name, value] : m_properties) sink.variable(name, value);
    }

private:
    std::string_view m_className;
    Properties m_properties;
};

Properties ofApplication() {
    const Application& application = environment().application;
    return {{"EXEName", application.exeName}, {"Major", application.major},       {"Minor", application.minor},
            {"Path", application.path},       {"Revision", application.revision}, {"Title", application.title}};
}

Properties ofError(const RuntimeError& error) {
    // No help belongs to an error here, and no library call that leaves a code.
    return {{"Description", error.description}, {"HelpContext", 0},       {"HelpFile", ""},
            {"LastDllError", 0},                {"Number", error.number}, {"Source", error.source}};
}

}  // namespace

std::array<NamedObject, 4> systemObjects(const RuntimeError& error) {
    // The library has no screen and no printer of its own: only their headings show.
    return {{{"App", make<SystemObject>("App", ofApplication())},
             {"Err", make<SystemObject>("ErrObject", ofError(error))},
             {"Screen", make<SystemObject>("Screen", Properties{})},
             {"Printer", make<SystemObject>("Printer", Properties{})}}};
}

}  // namespace canvas::tracing
