#include "host/ports.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include <pthread.h>

namespace canvas {
namespace {

/// What nobody's consent is asked for.
Reply safeReply(Buttons buttons) {
    switch (buttons) {
        case Buttons::ok: return Reply::ok;
        case Buttons::okCancel: return Reply::cancel;
        case Buttons::yesNo: return Reply::no;
        case Buttons::yesNoCancel: return Reply::cancel;
        case Buttons::abortRetryIgnore: return Reply::abort;
    }
    return Reply::cancel;
}

/// Asks nobody.
class Unattended final : public Interaction {
public:
    Reply messageBox(const MessageBox& box) override {
        std::string line = box.title.empty() ? box.text : box.title + ": " + box.text;
        line += '\n';
        std::fwrite(line.data(), 1, line.size(), stderr);
        return safeReply(box.buttons);
    }
    std::string inputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
    void beep() override {}
    std::int32_t openAddress(std::string_view) override { return 0; }
    void setClipboard(std::string_view) override {}
    bool showForm(Object&) override { return false; }
};

class SystemClock final : public Clock {
public:
    double now() override {
        const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
        return std::chrono::duration<double>(sinceEpoch).count();
    }
};

class ThisProcess final : public Process {
public:
    /// Without the destructors of statics: this is called from the middle of whatever still uses them.
    void exitProcess(int code) override {
        std::fflush(nullptr);
        std::quick_exit(code);
    }
    void exitThread(int code) override { ::pthread_exit(reinterpret_cast<void*>(static_cast<std::intptr_t>(code))); }
};

std::string folderOfProgram() {
    std::error_code unknown;
    return std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path().string();
}

constinit Environment* own = nullptr;

/// Not destroyed with the other statics: those that go later may still ask for it.
Environment& ownEnvironment() {
    static Environment& made = *(own = new Environment{
        .interaction = std::make_shared<Unattended>(),
        .files = makeDisk(),
        .clock = std::make_shared<SystemClock>(),
        .process = std::make_shared<ThisProcess>(),
        .utility = makeUtilityLibrary(),
        .application = {.path = folderOfProgram()},
    });
    return made;
}

thread_local Environment* innermost = nullptr;

}  // namespace

Environment& environment() { return innermost ? *innermost : ownEnvironment(); }

void endOwnEnvironment() noexcept { delete std::exchange(own, nullptr); }

WithEnvironment::WithEnvironment(Environment own) : m_own(std::move(own)), m_before(innermost) {
    const Environment& before = environment();
    const auto fill = [](auto& port, const auto& from) {
        if (!port) port = from;
    };
    fill(m_own.interaction, before.interaction);
    fill(m_own.files, before.files);
    fill(m_own.clock, before.clock);
    fill(m_own.process, before.process);
    fill(m_own.utility, before.utility);
    fill(m_own.help, before.help);
    fill(m_own.forms, before.forms);
    fill(m_own.timers, before.timers);
    if (m_own.application.path.empty()) m_own.application.path = before.application.path;
    innermost = &m_own;
}

WithEnvironment::~WithEnvironment() { innermost = m_before; }

void tell(std::string text, Icon icon, std::string title) {
    environment().interaction->messageBox({.text = std::move(text), .icon = icon, .title = std::move(title)});
}

}  // namespace canvas
