// The report of the error dialog: its package, its mail, and what never leaves the computer.

#include "tests/editors/error_user.h"

namespace canvas::editors {
namespace {

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
