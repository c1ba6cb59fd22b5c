#include "editors/error_form.h"

#include "host/ports.h"
#include "host/text.h"
#include "tracing/options.h"

namespace canvas::editors {

using tracing::Answer;
using tracing::Failure;
using tracing::ReportMail;
using tracing::vbwErrHandler;

namespace {

constexpr std::string_view describeHere =
    "\r\n< Please describe here what you were doing exactly when this error occurred >";

constexpr std::string_view beforeReport =
    "We are very sorry for this inconvenience and we would like to provide a fix for this error. "
    "You may help us a great deal by reporting this error via email. "
    "If you allow this, please fill the text box below and press the Report Error button. "
    "Thanks for your time.";

constexpr std::string_view afterReport =
    "\r\nThanks for having reported this error !\r\nPlease select a continuation below...";

constexpr std::string_view aboutToCollect =
    "This application will now retrieve some data needed to fix this error, open your email messenger and prepare a "
    "message to send. Then please press the \"Send Message\" button.\r\n"
    "This may take from a few seconds up to a few minutes depending on the amount of data to retrieve.\r\n"
    "During this time, you should normally notice hard drive and floppy drive activity.";

constexpr ControlRow controls[] = {
    caption("Image1", "", 0),
    caption("lblErrorString", "", 0, 1),
    caption("lblReport", "", 1, 1),
    text("txtDescribe", {}, 2).onDoubleClick(DoubleClick::nothing).withLines().named("What happened"),
    button("cmdSendMail", "Report &Error", 3, 1),
    frame("picButtons", "", 4, 1),
    button("cmdAction(0)", "&Abort", 0, 0).within("picButtons"),
    button("cmdAction(1)", "&Retry", 0, 1).within("picButtons"),
    button("cmdAction(2)", "&Ignore", 0, 2).within("picButtons"),
};

constexpr Form::Design errorDesign{.name = "vbwFrmErrHandler", .caption = "Error", .controls = controls, .closeBox = false,
                              .topmost = true};

/// Neither the package nor a host's port may stop the choice.
template <class Step>
void attempt(Step&& step) noexcept {
    try {
        step();
    } catch (...) {
    }
}

/// Switches the application's timers off, so that none fires into a procedure that waits for an answer.
class TimersOff {
public:
    TimersOff() : m_timers(environment().timers) {
        if (m_timers) attempt([&] { m_names = m_timers->enabled(); });
        for (const std::string& name : m_names) attempt([&] { m_timers->enable(name, false); });
    }
    ~TimersOff() {
        for (const std::string& name : m_names) attempt([&] { m_timers->enable(name, true); });
    }
    TimersOff(const TimersOff&) = delete;
    TimersOff& operator=(const TimersOff&) = delete;

private:
    std::shared_ptr<Timers> m_timers;
    std::vector<std::string> m_names;
};

bool agreed(std::string text, Buttons buttons, Reply yes) {
    return environment().interaction->messageBox({std::move(text), buttons, Icon::question, {}}) == yes;
}

void send(const ReportMail& mail) {
    const bool started = environment().interaction->openAddress(mail.link()) > 32;
    if (started && agreed("Have you been able to send the message successfully ?", Buttons::yesNo, Reply::yes)) return;
    if (agreed(mail.fallback(), Buttons::yesNo, Reply::yes)) environment().interaction->setClipboard(mail.fallback());
}

}  // namespace

vbwFrmErrHandler::vbwFrmErrHandler() : Form(errorDesign) {}

std::span<const Member> vbwFrmErrHandler::ownMembers() const {
    static constexpr Member members[] = {property<&vbwFrmErrHandler::vbwRetCode, nullptr>("vbwRetCode")};
    return members;
}

void vbwFrmErrHandler::loaded() {
    attempt([] { environment().interaction->beep(); });
    the<Label>("lblErrorString").setCaption(vbwErrHandler.vbwMessageString);
    the<Label>("lblReport").setCaption(reported ? afterReport : beforeReport);
    the<TextControl>("txtDescribe").setText(describeHere);
    if (!reported) return;
    the<TextControl>("txtDescribe").setVisible(false);
    the<Button>("cmdSendMail").setVisible(false);
}

void vbwFrmErrHandler::on(Event event, Control& control) {
    const std::string_view name = control.row().name;
    if (event == Event::gotFocus && name == "txtDescribe") {
        auto& describe = static_cast<TextControl&>(control);
        if (describe.Text() == describeHere) describe.selectAll();
        return;
    }
    if (event != Event::click) return;
    if (name == "cmdSendMail") return sendMail();
    constexpr std::string_view actions[] = {"cmdAction(0)", "cmdAction(1)", "cmdAction(2)"};
    for (std::int32_t i = 0; i < 3; ++i) {
        if (name != actions[i]) continue;
        vbwRetCode = 3 + i;
        Unload();
    }
}

void vbwFrmErrHandler::sendMail() {
    vbwRetCode = static_cast<std::int32_t>(Answer::report);
    const std::string& described = the<TextControl>("txtDescribe").Text();
    vbwErrHandler.vbwCircumstancesString = described == describeHere ? std::string() : described;
    attempt([] { tell(std::string(aboutToCollect)); });
    Unload();
}

Answer ErrorDialog::show(bool reported) {
    try {
        const Ref<vbwFrmErrHandler> form(new vbwFrmErrHandler);
        form->reported = reported;
        form->Show();
        return static_cast<Answer>(form->vbwRetCode);
    } catch (...) {
        return Answer::handOn;  // nobody can show it, or showing it failed: the caller decides
    }
}

/// False when nothing was made, or the person keeps it to himself: he may then still report.
bool ErrorDialog::report() {
    bool wanted = false;
    if (!m_package) {
        attempt([] { tell("No folder can be written for the report.", Icon::exclamation); });
        return false;
    }
    attempt([&] {
        m_package->collect();
        wanted = agreed("The report is in " + m_package->archive() + ".zip and will hold:\r\n" +
                            m_package->listing() + "Nothing else leaves this computer.",
                        Buttons::okCancel, Reply::ok);
        if (!wanted) return;
        if (!m_package->pack()) attempt([] { tell("The archive cannot be written.", Icon::exclamation); });
        send(ReportMail::about(*m_package));
    });
    m_package.reset();
    return wanted;
}

/// An error inside a report offers no report of its own, and leaves what the report is about as it was.
Answer ErrorDialog::askInsideReport(const Failure& failure) {
    const tracing::ErrHandler outer = vbwErrHandler;
    vbwErrHandler.vbwMessageString = tracing::messageOf(failure);
    vbwErrHandler.vbwfHasReported = true;
    const Answer answer = show(true);
    vbwErrHandler = outer;
    return answer;
}

Answer ErrorDialog::ask(const Failure& failure) {
    const TimersOff off;
    if (m_package && !failure.reported) return askInsideReport(failure);
    if (failure.reported) {  // what is known of the error itself stands as it was
        vbwErrHandler.vbwfHasReported = report();
    } else {
        vbwErrHandler.vbwMessageString = tracing::messageOf(failure);
        vbwErrHandler.vbwCircumstancesString.clear();
        vbwErrHandler.vbwfHasReported = false;
    }
    const Answer answer = show(vbwErrHandler.vbwfHasReported);
    if (answer == Answer::report) attempt([&] { m_package.emplace(); });
    return answer;
}

}  // namespace canvas::editors
