#include <optional>

#include "host/collection.h"
#include "host/numbers.h"
#include "tracing/branch.h"
#include "tracing/report.h"

namespace canvas::tracing {
namespace {

/// The objects that are being reported on this thread, each inside the one before.
class Following {
public:
    explicit Following(const Object& object) noexcept
        : m_object(object), m_outer(innermost), m_depth(m_outer ? m_outer->m_depth + 1 : 1) {
        innermost = this;
    }
    ~Following() { innermost = m_outer; }
    Following(const Following&) = delete;
    Following& operator=(const Following&) = delete;

    /// Why an object is told and not followed; empty when it may be.
    static std::string_view refusal(const Object& object) noexcept {
        for (const Following* at = innermost; at; at = at->m_outer)
            if (&at->m_object == &object) return "Object Inside Itself";
        return innermost && innermost->m_depth == deepest ? "Nested Too Deeply" : "";
    }

private:
    static constexpr int deepest = 100;
    static thread_local const Following* innermost;
    const Object& m_object;
    const Following* m_outer;
    int m_depth;
};

thread_local const Following* Following::innermost = nullptr;

/// The objects that a report has shown, so that one that many others hold is written once. Null outside a report.
thread_local std::set<Ref<Object>, detail::ByAddress>* shown = nullptr;

/// A property read; nothing when the object does not have it.
std::optional<Value> readIfThere(Object& object, std::string_view name) {
    try {
        return object.get(name);
    } catch (const RuntimeError& error) {
        if (error.number != static_cast<int>(Error::noSuchMember)) throw;
        return std::nullopt;
    }
}

std::string heading(std::string_view name, const Object& object) {
    return "**** " + std::string(object.className()) + ' ' + std::string(name) + " ****";
}

void writeControl(Object& control, std::int32_t place, int tab) {
    const std::optional<Value> name = readIfThere(control, "Name");
    detail::writeLine(tab, heading(name ? name->toText() : numbers::textOf(place), control));
    if (const std::optional<Value> value = readIfThere(control, "Value")) vbwReportVariable("Value", *value, tab + 1);
    else detail::writeMark(tab + 1, "Value", "No Value Property");
}

void writeControls(const Ref<Object>& controls, int tab) {
    detail::writeLine(tab, "Controls");
    std::int32_t place = 0;
    forEach(required(controls), [&](const Value& control) {
        ++place;
        try {
            writeControl(required(control.toObject()), place, tab + 1);
        } catch (...) {
            detail::writeMark(tab + 1, numbers::textOf(place), detail::variableFailed);
        }
        return true;
    });
}

void writeObject(std::string_view name, Object& object, int tab) {
    detail::writeLine(tab, heading(name, object));
    detail::writeMembers(object, std::string(name) + '.', tab + 1);
}

}  // namespace

namespace detail {

OneReport::OneReport() : m_before(shown) {
    if (!m_before) shown = &m_shown;
}

OneReport::~OneReport() { shown = m_before; }

void writeMembers(const Object& object, std::string_view prefix, int tab) {
    const Following following(object);
    ReportSink sink(tab, prefix);
    object.reportVariables(sink);
    // Only a form has controls; a host's form shows itself by them alone.
    const std::optional<Value> controls = readIfThere(const_cast<Object&>(object), "Controls");
    if (controls && controls->is(Kind::object)) writeControls(controls->toObject(), tab);
}

}  // namespace detail

void vbwReportObject(std::string_view lName, Ref<Object> lObject, int lTab) noexcept {
    try {
        const InLibrary inside;
        const detail::OneReport orPart;
        if (!lObject) return detail::writeMark(lTab, lName, "Nothing");
        const std::string_view refusal = Following::refusal(*lObject);
        if (!refusal.empty()) return detail::writeMark(lTab, lName, refusal);
        if (!shown->insert(lObject).second) return detail::writeMark(lTab, lName, "Object Shown Above");
        writeObject(lName, *lObject, lTab);
    } catch (...) {
        detail::writeMark(lTab, lName, detail::variableFailed);
    }
}

}  // namespace canvas::tracing
