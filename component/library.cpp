#include "component/library.h"

#include "component/com.h"
#include "component/interaction.h"
#include "editors/forms.h"
#include "host/ports.h"

namespace canvas::component {
namespace {

/// The Utility library that was there before, with another file format version.
class OtherVersion final : public UtilityLibrary {
public:
    OtherVersion(std::shared_ptr<UtilityLibrary> before, std::string_view version)
        : m_before(std::move(before)), m_version(version) {}

    std::string FileTitleOf(std::string_view path) override { return m_before->FileTitleOf(path); }
    std::string HexText(std::string_view digits) override { return m_before->HexText(digits); }
    std::array<std::string, 9> SplitLine(std::string_view line) override { return m_before->SplitLine(line); }
    std::string StripQuotes(std::string_view token) override { return m_before->StripQuotes(token); }
    std::string ConvertLabel(std::string_view text, bool flag1, bool flag2) override {
        return m_before->ConvertLabel(text, flag1, flag2);
    }
    std::string FileFormatVersion() override { return m_version; }
    bool plain() const noexcept override { return m_before->plain(); }

private:
    std::shared_ptr<UtilityLibrary> m_before;
    std::string m_version;
};

constinit Library* library = nullptr;

/// The library's own ports, which its first use puts in force for the process.
const Environment& ownPorts() {
    static const Environment own = [] {
        Environment& process = environment();  // no other is in force when a host first calls
        process.interaction = std::make_shared<OwnInteraction>(process.interaction);
        if (!process.forms) process.forms = editors::dialogs();
        return process;
    }();
    return own;
}

}  // namespace

std::span<const Member> Library::table() noexcept {
    using L = Library;
    static constexpr Member members[] = {
        property<&L::Interaction, &L::setInteraction>("Interaction"),
        property<&L::FileFormatVersion, &L::setFileFormatVersion>("FileFormatVersion"),
        property<&L::LiveObjects, nullptr>("LiveObjects"),
        property<&L::Version, nullptr>("Version"),
    };
    return members;
}

void Library::setInteraction(Ref<Object> object) {
    const auto& own = ownPorts().interaction;
    environment().interaction = object ? std::make_shared<HostInteraction>(object, own) : own;
    m_interaction = std::move(object);
}

std::string Library::FileFormatVersion() const { return environment().utility->FileFormatVersion(); }

void Library::setFileFormatVersion(std::string_view version) {
    environment().utility = std::make_shared<OtherVersion>(ownPorts().utility, version);
}

std::int32_t Library::LiveObjects() const noexcept { return Held::objects; }

void startLibrary() { ownPorts(); }

Ref<Object> theLibrary() {
    ownPorts();
    if (!library) library = make<Library>().detach();
    return Ref<Library>(library);
}

void endLibrary() noexcept {
    if (Held::objects || Held::others || (library && library->Interaction())) return;
    if (library) library->release();
    endOwnEnvironment();
}

}  // namespace canvas::component
