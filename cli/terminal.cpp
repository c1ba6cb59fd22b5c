#include "cli/terminal.h"

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "cli/console.h"
#include "editors/error_form.h"
#include "host/text.h"

namespace canvas::cli {
namespace {

struct Choice {
    char key;
    std::string_view words;
    Reply reply;
};

constexpr Choice okChoice{'o', "[O]K", Reply::ok}, cancelChoice{'c', "[C]ancel", Reply::cancel},
    yesChoice{'y', "[Y]es", Reply::yes}, noChoice{'n', "[N]o", Reply::no}, abortChoice{'a', "[A]bort", Reply::abort},
    retryChoice{'r', "[R]etry", Reply::retry}, ignoreChoice{'i', "[I]gnore", Reply::ignore};

std::vector<Choice> choicesOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::ok: return {okChoice};
        case Buttons::okCancel: return {okChoice, cancelChoice};
        case Buttons::yesNo: return {yesChoice, noChoice};
        case Buttons::yesNoCancel: return {yesChoice, noChoice, cancelChoice};
        case Buttons::abortRetryIgnore: return {abortChoice, retryChoice, ignoreChoice};
    }
    return {okChoice};
}

/// Boxes end their lines in CR LF or CR.
std::string lines(std::string_view text) {
    return printable(text::replaced(text::replaced(text, "\r\n", "\n"), "\r", "\n"));
}

class Terminal final : public Interaction {
public:
    Reply messageBox(const MessageBox& box) override {
        say("\n" + (box.title.empty() ? "" : box.title + ": ") + lines(box.text) + "\n");
        const std::vector<Choice> choices = choicesOf(box.buttons);
        if (choices.size() == 1) return choices.front().reply;
        return ask(choices).value_or(choices.back().reply);
    }

    std::string inputBox(std::string_view prompt, std::string_view, std::string_view preset) override {
        say("\n" + lines(prompt) + " [" + printable(preset) + "] ");
        const std::optional<std::string> typed = readLine();
        return typed && typed->empty() ? std::string(preset) : typed.value_or("");
    }

    void beep() override { say("\a"); }
    std::int32_t openAddress(std::string_view) override { return 0; }  // no browser is started from a terminal
    void setClipboard(std::string_view text) override { say("\n" + lines(text) + "\n"); }

    bool showForm(Object& form) override {
        auto* dialog = dynamic_cast<editors::vbwFrmErrHandler*>(&form);
        if (!dialog) return false;
        say("\n" + lines(dialog->the<editors::Label>("lblErrorString").Caption()) + "\n");
        say(lines(dialog->the<editors::Label>("lblReport").Caption()) + "\n");
        for (std::string_view button; dialog->Visible() && !(button = chosenButton(*dialog)).empty();) {
            if (button == "cmdSendMail") describe(*dialog);
            dialog->the<editors::Button>(button).Click();
        }
        return true;
    }

private:
    /// Empty at the end of the input.
    std::string_view chosenButton(editors::vbwFrmErrHandler& dialog) {
        std::vector<Choice> choices{abortChoice, retryChoice, ignoreChoice};
        if (!dialog.reported) choices.push_back({'e', "Report [E]rror", Reply::cancel});
        const std::optional<Reply> reply = ask(choices);
        if (!reply) return {};
        switch (*reply) {
            case Reply::abort: return "cmdAction(0)";
            case Reply::retry: return "cmdAction(1)";
            case Reply::ignore: return "cmdAction(2)";
            default: return "cmdSendMail";
        }
    }

    void describe(editors::vbwFrmErrHandler& dialog) {
        say("Please describe in a line what you were doing exactly when this error occurred:\n");
        if (const std::optional<std::string> typed = readLine(); typed && !typed->empty())
            dialog.the<editors::TextControl>("txtDescribe").setText(*typed);
    }

    std::optional<Reply> ask(const std::vector<Choice>& choices) {
        for (;;) {
            std::string question;
            for (const Choice& choice : choices) question += (question.empty() ? "" : ", ") + std::string(choice.words);
            say(question + "? ");
            const std::optional<std::string> typed = readLine();
            if (!typed) return {};
            for (const Choice& choice : choices)
                if (text::lower(*typed).starts_with(choice.key)) return choice.reply;
        }
    }

    static void say(const std::string& text) {
        std::fwrite(text.data(), 1, text.size(), stdout);
        std::fflush(stdout);
    }

    /// Without its end; nothing at the end of the input.
    static std::optional<std::string> readLine() {
        std::string line;
        for (int c = std::getchar(); c != EOF; c = std::getchar()) {
            if (c == '\n') return line;
            if (c != '\r') line += static_cast<char>(c);
        }
        if (line.empty()) return {};
        return line;
    }
};

}  // namespace

std::shared_ptr<Interaction> makeTerminal() { return std::make_shared<Terminal>(); }

}  // namespace canvas::cli
