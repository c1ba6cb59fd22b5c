// The error dialog: what it shows, what each choice does to the failing statement, and the report it makes.

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
namespace {

namespace fs = std::filesystem;
using tracing::Answer;
using tracing::Locals;
using tracing::Procedure;
using Strings = std::vector<std::string>;

struct Ended {};

/// A fault of the machine itself, which no sanitizer may tell first.
[[gnu::noinline, gnu::no_sanitize("address", "undefined")]] int readThrough(const volatile int* pointer) { return *pointer; }

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

constexpr std::string_view message =
    "An unexpected error has occurred in this application: \r\n\r\nError 6\r\nDescription: Overflow\r\n"
    "Project: Classes\r\nModule: clsTest\r\nProcedure: Work\r\nLine: 0\r\nVersion: 2.3.4";

TEST_F(ErrorDialogTest, TellsTheErrorLineByLineAndAsksForAReport) {
    user->clicks = {"cmdAction(2)"};
    user->look = [](Object& form) {
        EXPECT_EQ(control(form, "lblReport")->get("Caption").toText(),
                  "We are very sorry for this inconvenience and we would like to provide a fix for this error. You may "
                  "help us a great deal by reporting this error via email. If you allow this, please fill the text box "
                  "below and press the Report Error button. Thanks for your time.");
        EXPECT_EQ(control(form, "txtDescribe")->get("Text").toText(),
                  "\r\n< Please describe here what you were doing exactly when this error occurred >");
        EXPECT_EQ(control(form, "cmdSendMail")->get("Caption").toText(), "Report &Error");
        EXPECT_EQ(control(form, "cmdAction(0)")->get("Caption").toText(), "&Abort");
        EXPECT_EQ(control(form, "cmdAction(1)")->get("Caption").toText(), "&Retry");
        EXPECT_EQ(control(form, "cmdAction(2)")->get("Caption").toText(), "&Ignore");
    };
    procedure();
    EXPECT_EQ(user->shown, Strings{std::string(message)});
    EXPECT_EQ(user->beeps, 1);
}

TEST_F(ErrorDialogTest, ThePlaceholderIsSelectedWholeOnFocus) {
    user->look = [](Object& form) {
        const Ref<Object> describe = control(form, "txtDescribe");
        invoke(*control(form, "cmdSendMail"), "SetFocus");
        invoke(*describe, "SetFocus");
        EXPECT_EQ(describe->get("SelStart"), Value(std::int32_t{0}));
        EXPECT_EQ(describe->get("SelLength").toLong(), static_cast<std::int32_t>(describe->get("Text").toText().size()));
        invoke(*describe, "Type", "drilling");
        EXPECT_EQ(describe->get("Text").toText(), "drilling");
    };
    procedure();
}

TEST_F(ErrorDialogTest, IgnoreGoesOnBehindTheFailingStatement) {
    user->clicks = {"cmdAction(2)"};
    EXPECT_EQ(procedure(), (Strings{"first", "third"}));
}

TEST_F(ErrorDialogTest, RetryRepeatsTheFailingStatementAlone) {
    user->clicks = {"cmdAction(1)", "cmdAction(1)"};
    EXPECT_EQ(procedure(2), (Strings{"first", "second", "third"}));
    EXPECT_EQ(user->shown.size(), 2u);
}

TEST_F(ErrorDialogTest, AbortEndsTheProcess) {
    user->clicks = {"cmdAction(0)"};
    EXPECT_THROW(procedure(), Ended);
}

TEST_F(ErrorDialogTest, AShowingWithoutAChoiceCountsAsIgnore) {
    user->look = [](Object& form) { form.call("Close"); };
    EXPECT_EQ(procedure(), (Strings{"first", "third"}));
}

TEST_F(ErrorDialogTest, WithNobodyToAskTheErrorGoesToTheCaller) {
    struct Nobody final : Interaction {
        Reply messageBox(const MessageBox&) override { return Reply::ok; }
        std::string inputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
        void beep() override {}
        std::int32_t openAddress(std::string_view) override { return 0; }
        void setClipboard(std::string_view) override {}
        bool showForm(Object&) override { raise(Error::actionNotSupported); }
    };
    const WithEnvironment nobody{Environment{.interaction = std::make_shared<Nobody>()}};
    try {
        procedure();
        FAIL() << "no error came";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 6);
    }
}

TEST_F(ErrorDialogTest, MachineFaultsAreRepeatedSkippedAndGivenUp) {
    int* volatile nowhere = nullptr;
    int here = 7;
    int read = 0;
    user->look = [&](Object&) { nowhere = &here; };
    for (const auto& [click, expected] : {std::pair{"cmdAction(1)", 7}, std::pair{"cmdAction(2)", 0}}) {
        nowhere = nullptr, read = 0;
        user->clicks = {click};
        Procedure run("clsTest", "Fault", nullptr, [](Locals&) {});
        run([&] { read = readThrough(nowhere); });
        EXPECT_EQ(read, expected) << click;
    }
    nowhere = nullptr;
    user->clicks = {"cmdAction(0)"};
    Procedure run("clsTest", "Fault", nullptr, [](Locals&) {});
    EXPECT_THROW(run([&] { read = readThrough(nowhere); }), Ended);
    EXPECT_NE(user->shown.back().find("Description: Exception: Access Violation"), std::string::npos);
}

TEST_F(ErrorDialogTest, AReportIsMadeAndTheChoiceComesAgain) {
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    user->describe = "drilling";
    bool after = false;
    user->look = [&](Object& form) {
        if (!after) return void(after = true);
        EXPECT_EQ(control(form, "lblReport")->get("Caption").toText(),
                  "\r\nThanks for having reported this error !\r\nPlease select a continuation below...");
        EXPECT_FALSE(control(form, "txtDescribe")->get("Visible").toBoolean());
        EXPECT_FALSE(control(form, "cmdSendMail")->get("Visible").toBoolean());
    };
    user->replies = {Reply::ok, Reply::ok, Reply::yes};
    EXPECT_EQ(procedure(), (Strings{"first", "third"}));
    EXPECT_EQ(user->shown, (Strings{std::string(message), std::string(message)}));
    EXPECT_EQ(file("Error.txt"), std::string(message) + "\r\n\r\nCircumstances:\r\ndrilling");
    EXPECT_NE(file("Variables.txt").find("heal = \""), std::string::npos);
    EXPECT_NE(file("Version.txt").find("DAO;StdFormat;VSFlex6Ctl;Utility;MSComDlg;MSComctlLib;TabDlg;SSDataWidgets_B;"),
              std::string::npos);
    EXPECT_FALSE(file("System.txt").empty());
    EXPECT_FALSE(file("Canvas.dll.obj").empty());
    EXPECT_FALSE(fs::exists(folder / "Error Report Files" / "Stack.txt"));
    EXPECT_FALSE(fs::exists(folder / "Error Report Files" / "Trace.txt"));
    EXPECT_TRUE(tracing::vbwErrHandler.vbwfHasReported);
    ASSERT_EQ(user->boxes.size(), 3u);
    EXPECT_EQ(user->boxes[0].text,
              "This application will now retrieve some data needed to fix this error, open your email messenger and "
              "prepare a message to send. Then please press the \"Send Message\" button.\r\nThis may take from a few "
              "seconds up to a few minutes depending on the amount of data to retrieve.\r\nDuring this time, you should "
              "normally notice hard drive and floppy drive activity.");
    EXPECT_EQ(user->boxes[2].text, "Have you been able to send the message successfully ?");
    EXPECT_EQ(user->boxes[2].buttons, Buttons::yesNo);
}

TEST_F(ErrorDialogTest, TheArchiveHoldsWhatThePersonWasTold) {
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    procedure();
    Strings names;
    for (const tracing::ArchiveFile& one : tracing::unzipped(file("Canvas.zip"), 1 << 20)) {
        names.push_back(one.name);
        EXPECT_EQ(one.bytes, file(one.name)) << one.name;
        EXPECT_NE(user->boxes[1].text.find(one.name), std::string::npos);
    }
    EXPECT_EQ(names, (Strings{"Variables.txt", "Canvas.dll.obj", "Error.txt", "Version.txt", "System.txt"}));
}

TEST_F(ErrorDialogTest, StackAndTraceAreThereWhenTheirOptionsAreSet) {
    std::ofstream(folder / "vbw.log") << "traced";
    tracing::vbwCommon.vbwTraceProc = tracing::vbwCommon.vbwLog = true;
    tracing::vbwCommon.vbwStackCalls = {"outer", "inner"};
    tracing::vbwCommon.vbwLogFile = (folder / "vbw.log").string();
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    procedure();
    EXPECT_EQ(file("Stack.txt"), "outer\r\ninner\r\n");
    EXPECT_EQ(file("Trace.txt"), "traced");
}

TEST_F(ErrorDialogTest, WithoutAMailProgramTheTextIsOfferedForTheClipboard) {
    tracing::vbwCommon.vbwEmailRecipientAdress = "help@example.org";
    user->opens = 2;
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    user->replies = {Reply::ok, Reply::ok, Reply::yes};
    procedure();
    ASSERT_EQ(user->boxes.size(), 3u);
    const std::string archive = (folder / "Error Report Files" / "Canvas.zip").string();
    const std::string& text = user->boxes[2].text;
    EXPECT_TRUE(text.starts_with(
        "Impossible to send the error report automatically !\r\n\r\nPlease open your email messenger and send a message "
        "with the following parameters:\r\nAddress: help@example.org\r\nSubject: Error report for Canvas 2.3.4\r\n"
        "Message: Please open the attached file.\r\nAttached file: " + archive + " (Size: ")) << text;
    EXPECT_TRUE(text.ends_with(" Kb)\r\n\r\nWould you like to copy this message to the clipboard ?")) << text;
    EXPECT_EQ(user->clipboard, Strings{text});
}

TEST_F(ErrorDialogTest, NoToTheClipboardCopiesNothing) {
    user->opens = 0;
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    user->replies = {Reply::ok, Reply::ok, Reply::no};
    procedure();
    EXPECT_EQ(user->clipboard, Strings{});
}

TEST_F(ErrorDialogTest, ThePersonMayKeepTheReportToHimself) {
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    user->replies = {Reply::ok, Reply::cancel};
    EXPECT_EQ(procedure(), (Strings{"first", "third"}));
    EXPECT_FALSE(tracing::vbwErrHandler.vbwfHasReported);
    EXPECT_EQ(user->opened, Strings{});
    EXPECT_FALSE(fs::exists(folder / "Error Report Files" / "Canvas.zip"));
}

TEST_F(ErrorDialogTest, ASecondErrorDuringAReportAsksAgainAndAbortEnds) {
    // the failing object is a local of the procedure: its report runs a procedure that fails too
    struct Bad final : Object {
        std::string_view className() const noexcept override { return "Bad"; }
        void reportVariables(VariableSink&) const override {
            Procedure run("Bad", "reportVariables", nullptr, [](Locals&) {});
            run([] { raise(Error::divisionByZero); });
        }
    };
    const Ref<Object> bad(new Bad);
    user->clicks = {"cmdSendMail", "cmdAction(0)"};
    Procedure run("clsTest", "Work", nullptr, [&](Locals& l) { l("bad", bad); });
    FakeProcess::ends = 0;
    run([] { raise(Error::overflow); });  // the real process does not come back; a report outlives what is thrown in it
    EXPECT_EQ(FakeProcess::ends, 1);
    ASSERT_GE(user->shown.size(), 2u);
    EXPECT_NE(user->shown[1].find("Error 11"), std::string::npos);
}

TEST_F(ErrorDialogTest, ASecondErrorLeavesTheReportToTheFirst) {
    struct Bad final : Object {
        std::string_view className() const noexcept override { return "Bad"; }
        void reportVariables(VariableSink&) const override {
            Procedure run("Bad", "reportVariables", nullptr, [](Locals&) {});
            run([] { raise(Error::divisionByZero); });
        }
    };
    const Ref<Object> bad(new Bad);
    user->clicks = {"cmdSendMail", "cmdAction(2)", "cmdAction(2)"};
    user->describe = "drilling";
    Procedure run("clsTest", "Work", nullptr, [&](Locals& l) { l("bad", bad); });
    run([] { raise(Error::overflow); });
    ASSERT_EQ(user->shown.size(), 3u);
    EXPECT_NE(user->shown[1].find("Error 11"), std::string::npos);
    EXPECT_EQ(user->shown[2], message);
    EXPECT_EQ(file("Error.txt"), std::string(message) + "\r\n\r\nCircumstances:\r\ndrilling");
}

TEST_F(ErrorDialogTest, TimersThatFailDoNotStopTheChoice) {
    struct Broken final : Timers {
        int calls = 0;
        std::vector<std::string> enabled() override { return {"tmrGone", "tmrPoll"}; }
        void enable(const std::string& name, bool) override {
            ++calls;
            if (name == "tmrGone") raise(Error::invalidCall);
        }
    };
    const auto timers = std::make_shared<Broken>();
    const WithEnvironment withTimers{Environment{.timers = timers}};
    user->clicks = {"cmdAction(1)"};
    EXPECT_EQ(procedure(1), (Strings{"first", "second", "third"}));
    EXPECT_EQ(timers->calls, 4);
}

TEST_F(ErrorDialogTest, AReportOfAFullDocumentStaysSmallAndShowsEachBlockOnce) {
    auto document = make<clsBVTCanvas>();
    for (std::int16_t id = 1; id <= 1023; ++id) {
        auto block = make<clsBVTBlock>();
        block->intBlockID = id;
        block->setBlockType(MOVEAXIS);
        block->ClearFromBlockID();
        document->BlockCollection->Add(*block);
    }
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    Procedure run("clsBVTCanvas", "CheckConnection", document.get(), [&](Locals& l) { l("again", document->BlockCollection); });
    run([] { raise(Error::overflow); });
    const std::string dump = file("Variables.txt");
    EXPECT_LT(dump.size(), 32u << 20);
    EXPECT_GT(dump.size(), 1023u * 100);
    std::size_t blocks = 0;
    for (std::size_t at = 0; (at = dump.find("**** clsBVTMoveAxis ", at)) != std::string::npos; ++at) ++blocks;
    EXPECT_EQ(blocks, 1023u);
}

TEST_F(ErrorDialogTest, TimersAreOffWhileAsking) {
    struct Clockwork final : Timers {
        std::map<std::string, bool> on{{"tmrPoll", true}, {"tmrBlink", true}, {"tmrIdle", false}};
        std::vector<std::string> enabled() override {
            Strings names;
            for (const auto& [name, runs] : on)
                if (runs) names.push_back(name);
            return names;
        }
        void enable(const std::string& name, bool state) override { on[name] = state; }
    };
    const auto timers = std::make_shared<Clockwork>();
    const WithEnvironment withTimers{Environment{.timers = timers}};
    user->look = [&](Object&) {
        for (const auto& [name, runs] : timers->on) EXPECT_FALSE(runs) << name;
    };
    user->clicks = {"cmdAction(2)"};
    procedure();
    EXPECT_EQ(timers->on, (std::map<std::string, bool>{{"tmrPoll", true}, {"tmrBlink", true}, {"tmrIdle", false}}));
}

TEST_F(ErrorDialogTest, TheFolderIsPrivateAndEmptiedBeforeAReport) {
    fs::create_directory(folder / "Error Report Files");
    std::ofstream(folder / "Error Report Files" / "old.txt") << "old";
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    procedure();
    EXPECT_FALSE(fs::exists(folder / "Error Report Files" / "old.txt"));
    struct stat status {};
    ASSERT_EQ(::stat((folder / "Error Report Files").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700u);
}

TEST_F(ErrorDialogTest, APlantedLinkIsNotFollowed) {
    const fs::path victim = folder / "victim";
    fs::create_directory(victim);
    std::ofstream(victim / "keep.txt") << "keep";
    fs::create_directory_symlink(victim, folder / "Error Report Files");
    ::setenv("XDG_STATE_HOME", (folder / "state").c_str(), 1);
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    EXPECT_EQ(procedure(), (Strings{"first", "third"}));
    ::unsetenv("XDG_STATE_HOME");
    EXPECT_EQ(std::distance(fs::directory_iterator(victim), {}), 1);
    EXPECT_TRUE(fs::exists(victim / "keep.txt"));
    EXPECT_TRUE(fs::exists(folder / "state" / "brevant" / "Error Report Files" / "Error.txt"));
    EXPECT_NE(user->boxes[1].text.find((folder / "state" / "brevant" / "Error Report Files").string()), std::string::npos);
}

TEST_F(ErrorDialogTest, ALinkInPlaceOfAFileIsReplacedNotFollowed) {
    const fs::path victim = folder / "victim.txt";
    std::ofstream(victim) << "keep";
    PrivateFolder reports((folder / "Error Report Files").string());
    fs::create_symlink(victim, folder / "Error Report Files" / "Error.txt");
    reports.write("Error.txt", "report");
    std::ifstream kept(victim);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(kept), {}), "keep");
    EXPECT_EQ(file("Error.txt"), "report");
}

TEST_F(ErrorDialogTest, NeitherEnvironmentNorPersonLeaveTheComputer) {
    ::setenv("CANVAS_TEST_SECRET", "hunter2-secret", 1);
    const char* home = std::getenv("HOME");
    const std::string before = home ? home : "";
    ::setenv("HOME", folder.c_str(), 1);
    user->describe = "at " + (folder / "line.bpg").string();
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    procedure();
    if (before.empty()) ::unsetenv("HOME");
    else ::setenv("HOME", before.c_str(), 1);
    ::unsetenv("CANVAS_TEST_SECRET");
    char name[256] = {};
    ::gethostname(name, sizeof name - 1);
    for (const tracing::ArchiveFile& one : tracing::unzipped(file("Canvas.zip"), 1 << 20)) {
        EXPECT_EQ(one.bytes.find("hunter2-secret"), std::string::npos) << one.name;
        EXPECT_EQ(one.bytes.find(folder.string()), std::string::npos) << one.name;
        if (std::string_view(name).size() > 3) {
            EXPECT_EQ(one.bytes.find(name), std::string::npos) << one.name;
        }
    }
}

TEST_F(ErrorDialogTest, AHundredHostileTextsStayOneAddress) {
    tracing::vbwCommon.vbwEmailRecipientAdress = "help@example.org";
    tracing::ReportPackage package;
    const Strings pieces{"&bcc=evil@example.org", "\r\nBcc: evil@example.org", "?to=x", "\"; rm -rf ~ #", "$(reboot)",
                         "%0d%0aCc:x", "#fragment", "a,b;c", "ü€😀", std::string("nul\0nul", 7)};
    for (std::size_t i = 0; i < 100; ++i) {
        std::string text;
        for (std::size_t k = 0; k <= i; ++k) text += pieces[(i * 7 + k) % pieces.size()];
        tracing::vbwErrHandler.vbwMessageString = text;
        tracing::vbwErrHandler.vbwCircumstancesString = text;
        const std::string link = tracing::ReportMail::about(package).link();
        EXPECT_LE(link.size(), 1900u);
        EXPECT_TRUE(link.starts_with("mailto:help@example.org?subject=Error%20report%20for%20Canvas%202.3.4&body="));
        EXPECT_EQ(std::count(link.begin(), link.end(), '&'), 1);
        EXPECT_EQ(std::count(link.begin(), link.end(), '?'), 1);
        EXPECT_EQ(std::count(link.begin(), link.end(), '@'), 1);
        EXPECT_EQ(link.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~%:@?&="),
                  std::string::npos);
    }
}

TEST_F(ErrorDialogTest, AHostsOwnMinusOneIsAnErrorLikeAnyOther) {
    user->clicks = {"cmdAction(2)"};
    Procedure run("clsTest", "Work", nullptr, [](Locals&) {});
    run([] { throw RuntimeError(-1, "of the host's own"); });
    ASSERT_EQ(user->shown.size(), 1u);
    EXPECT_NE(user->shown[0].find("Error -1\r\nDescription: of the host's own"), std::string::npos);
}

TEST_F(ErrorDialogTest, TheDialogHasNoCloseBoxAndStaysOnTop) {
    const Ref<Form> form = makeForm("vbwFrmErrHandler");
    EXPECT_FALSE(form->design().closeBox);
    EXPECT_TRUE(form->design().topmost);
}

TEST_F(ErrorDialogTest, WithoutAPlaceForTheReportThePersonIsToldAndMayChoose) {
    std::ofstream(folder / "Error Report Files") << "in the way";
    std::ofstream(folder / "state") << "in the way";
    ::setenv("XDG_STATE_HOME", (folder / "state").c_str(), 1);
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    EXPECT_EQ(procedure(), (Strings{"first", "third"}));
    ::unsetenv("XDG_STATE_HOME");
    EXPECT_EQ(user->boxes.back().text, "No folder can be written for the report.");
    EXPECT_FALSE(tracing::vbwErrHandler.vbwfHasReported);
}

TEST_F(ErrorDialogTest, AFullDiskLeavesThePackageShortAndTheChoiceComes) {
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);  // a write beyond the limit fails instead
    const rlimit full{100, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &full);
    const Strings ran = procedure();
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(ran, (Strings{"first", "third"}));
    EXPECT_EQ(user->shown.size(), 2u);
    EXPECT_EQ(file("Error.txt"), "");
    EXPECT_EQ(user->boxes[1].text.find("Error.txt"), std::string::npos);
    EXPECT_EQ(user->boxes[2].text, "The archive cannot be written.");
}

TEST_F(ErrorDialogTest, ADialogThatFailsItselfHandsTheErrorOn) {
    user->look = [](Object&) { raise(Error::deviceIO); };
    EXPECT_THROW(procedure(), RuntimeError);
}

TEST_F(ErrorDialogTest, FilesThatCannotBeWrittenLeaveThePackageShortAndTheChoiceComes) {
    user->clicks = {"cmdSendMail", "cmdAction(2)"};
    // a folder stands where the archive should be written, and another in place of a file
    int showings = 0;
    user->look = [&](Object&) {
        if (++showings == 1) {
            fs::create_directories(folder / "Error Report Files" / "Canvas.zip" / "x");
            fs::create_directories(folder / "Error Report Files" / "Error.txt" / "x");
        }
    };
    EXPECT_EQ(procedure(), (Strings{"first", "third"}));
    EXPECT_EQ(user->shown.size(), 2u);
    EXPECT_EQ(user->boxes[1].text.find("Error.txt"), std::string::npos);
}

}  // namespace
}  // namespace canvas::editors
