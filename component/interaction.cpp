#include "component/interaction.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "component/host_object.h"
#include "editors/own_view.h"
#include "host/convert.h"

namespace canvas::component {
namespace {

constexpr std::string_view buttonWords[] = {"OK", "OKCancel", "YesNo", "YesNoCancel", "AbortRetryIgnore"};
constexpr std::string_view iconWords[] = {"", "Critical", "Question", "Exclamation", "Information"};
constexpr std::string_view replyWords[] = {"OK", "Cancel", "Yes", "No", "Abort", "Retry", "Ignore"};

template <class Enum, std::size_t N>
std::string_view wordOf(Enum value, const std::string_view (&words)[N]) {
    return words[static_cast<std::size_t>(value)];
}

std::optional<Reply> replyOf(std::string_view word) {
    const auto found = std::find_if(std::begin(replyWords), std::end(replyWords),
                                    [&](std::string_view known) { return sameName(known, word); });
    if (found == std::end(replyWords)) return {};
    return static_cast<Reply>(found - std::begin(replyWords));
}

/// Nothing when the host has no such member.
template <class... A>
std::optional<Value> asked(Object& host, std::string_view member, A&&... arguments) {
    try {
        return invoke(host, member, std::forward<A>(arguments)...);
    } catch (const RuntimeError& error) {
        if (error.number != static_cast<int>(Error::noSuchMember)) throw;
        return {};
    }
}

}  // namespace

Interaction& OwnInteraction::way() {
    m_view = editors::ownView();
    return m_view ? *m_view : *m_before;
}

Reply HostInteraction::messageBox(const MessageBox& box) {
    const auto answer = asked(*m_host, "MessageBox", box.text, wordOf(box.buttons, buttonWords),
                              wordOf(box.icon, iconWords), box.title);
    const auto reply = answer ? replyOf(answer->toText()) : std::nullopt;
    return reply ? *reply : m_fallback->messageBox(box);
}

std::string HostInteraction::inputBox(std::string_view prompt, std::string_view title, std::string_view preset) {
    const auto answer = asked(*m_host, "InputBox", prompt, title, preset);
    return answer ? answer->toText() : m_fallback->inputBox(prompt, title, preset);
}

void HostInteraction::beep() {
    if (!asked(*m_host, "Beep")) m_fallback->beep();
}

std::int32_t HostInteraction::openAddress(std::string_view address) {
    const auto answer = asked(*m_host, "OpenAddress", address);
    return answer ? answer->toLong() : m_fallback->openAddress(address);
}

void HostInteraction::setClipboard(std::string_view text) {
    if (!asked(*m_host, "SetClipboard", text)) m_fallback->setClipboard(text);
}

bool HostInteraction::showForm(Object& form) {
    const auto answer = asked(*m_host, "ShowForm", Ref<Object>(&form));
    return answer ? answer->toBoolean() : m_fallback->showForm(form);
}

bool HostInteraction::takesForms() {
    const auto* host = faceOf<HostObject>(*m_host);
    if (host && host->offers("ShowForm")) return true;
    auto* const own = dynamic_cast<AskingInteraction*>(m_fallback.get());
    return own && own->takesForms();
}

}  // namespace canvas::component
