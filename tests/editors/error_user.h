#pragma once
// A user at the error dialog, on a machine with a folder of its own.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "document/canvas.h"
#include "document/catalogue.h"
#include "editors/error_form.h"
#include "tests/editors/host_objects.h"
#include "tracing/branch.h"
#include "tracing/options.h"

namespace canvas::editors {

namespace fs = std::filesystem;
using tracing::Answer;
using tracing::Locals;
using tracing::Procedure;
using Strings = std::vector<std::string>;

struct Ended {};

/// A fault of the machine itself, which no sanitizer may tell first.
[[gnu::noinline, gnu::no_sanitize("address", "undefined")]] inline int readThrough(const volatile int* pointer) { return *pointer; }

struct FakeProcess final : Process {
    inline static int ends = 0;
    void exitProcess(int) override {
        ++ends;
        throw Ended();
    }
    void exitThread(int) override {}
};

/// A user at the error dialog, on a machine with a folder of its own.
struct ErrorDialogTest : testing::Test {
    struct User final : Interaction {
        std::vector<std::string> clicks;  ///< a button for each showing in turn
        std::vector<MessageBox> boxes;
        std::vector<Reply> replies;
        Strings opened, shown, clipboard;
        std::int32_t opens = 33;
        int beeps = 0;
        std::string describe;
        std::function<void(Object&)> look;
        Reply messageBox(const MessageBox& box) override {
            boxes.push_back(box);
            return boxes.size() <= replies.size() ? replies[boxes.size() - 1] : Reply::ok;
        }
        std::string inputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
        void beep() override { ++beeps; }
        std::int32_t openAddress(std::string_view address) override { return opened.emplace_back(address), opens; }
        void setClipboard(std::string_view text) override { clipboard.emplace_back(text); }
        bool showForm(Object& form) override {
            if (form.className() != "vbwFrmErrHandler") return false;
            shown.push_back(control(form, "lblErrorString")->get("Caption").toText());
            if (look) look(form);
            if (clicks.empty()) return true;
            const std::string button = clicks.front();
            clicks.erase(clicks.begin());
            if (button == "cmdSendMail" && !describe.empty()) control(form, "txtDescribe")->put("Text", Value(describe));
            invoke(*control(form, button), "Click");
            return true;
        }
    };
    fs::path folder = fs::temp_directory_path() / ("canvas_error_" + std::to_string(::getpid()));
    std::shared_ptr<User> user = std::make_shared<User>();
    Environment ports() {
        fs::create_directories(folder);
        return {.interaction = user,
                .process = std::make_shared<FakeProcess>(),
                .application = {.path = folder.string(), .major = 2, .minor = 3, .revision = 4}};
    }
    WithEnvironment with{ports()};
    ErrorDialog dialog;
    tracing::WithErrorHandler asking{dialog};
    tracing::Common before = tracing::vbwCommon;

    ~ErrorDialogTest() override {
        tracing::vbwCommon = before;
        fs::remove_all(folder);
    }
    std::string file(const std::string& name) {
        std::ifstream stream(folder / "Error Report Files" / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    /// Runs a procedure of three statements whose second fails until `heal` failures have passed; gives what ran.
    Strings procedure(int heal = 1000) {
        Strings ran;
        Procedure run("clsTest", "Work", nullptr, [&](Locals& l) { l("heal", heal); });
        run([&] { ran.push_back("first"); },
            [&] {
                if (heal-- > 0) raise(Error::overflow);
                ran.push_back("second");
            },
            [&] { ran.push_back("third"); });
        return ran;
    }
};

inline constexpr std::string_view message =
    "An unexpected error has occurred in this application: \r\n\r\nError 6\r\nDescription: Overflow\r\n"
    "Project: Classes\r\nModule: clsTest\r\nProcedure: Work\r\nLine: 0\r\nVersion: 2.3.4";

}  // namespace canvas::editors
