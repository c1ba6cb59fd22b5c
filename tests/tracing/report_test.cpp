// A whole report, as a failing procedure writes it.

#include "tracing/report.h"

#include <gtest/gtest.h>

#include "host/array.h"
#include "tests/tracing/fakes.h"
#include "tracing/branch.h"
#include "tracing/faults.h"

namespace canvas::tracing {
namespace {

class clsSample final : public Object {
public:
    std::string_view className() const noexcept override { return "clsSample"; }
    void reportVariables(VariableSink& sink) const override {
        sink.variable("m_intCount", std::int16_t{2});
        if (fails) raise(Error::automation);
        sink.variable("m_strNames", arrayOf("String", std::vector<std::string>{"Start", "End"}));
    }
    void Work(std::int16_t BlockID) {
        std::string strLine = "a\r\nb";
        Procedure run("clsSample", "Work", this, [&](Locals& l) {
            l("BlockID", BlockID);
            l("strLine", strLine);
            if (localFails) raise(Error::overflow);
        });
        run([] { throw RuntimeError(3022, "Duplicate key", "Store"); });
    }
    bool fails = false;
    bool localFails = false;
};

constexpr const char* golden =
    "\r\n**************************\r\n* LOCAL LEVEL VARIABLES  *\r\n**************************\r\n\r\n"
    "BlockID = \"3\" (Integer)\r\n"
    "strLine = \"a<CrLf>b\" (String)\r\n"
    "\r\n**************************\r\n* MODULE LEVEL VARIABLES *\r\n**************************\r\n\r\n"
    "m_intCount = \"2\" (Integer)\r\n"
    "Array m_strNames(0 To 1) As String\r\n"
    "\tm_strNames(0) = \"Start\" (String)\r\n"
    "\tm_strNames(1) = \"End\" (String)\r\n"
    "\r\n**************************\r\n* GLOBAL LEVEL VARIABLES *\r\n**************************\r\n\r\n"
    "vbwCommon.vbwException = \"True\" (Boolean)\r\n"
    "vbwCommon.vbwTraceProc = \"False\" (Boolean)\r\n"
    "vbwCommon.vbwTraceParameters = \"False\" (Boolean)\r\n"
    "vbwCommon.vbwTraceLine = \"False\" (Boolean)\r\n"
    "vbwCommon.vbwDebugger = \"False\" (Boolean)\r\n"
    "vbwCommon.vbwLog = \"False\" (Boolean)\r\n"
    "vbwCommon.vbwDebugPrint = \"False\" (Boolean)\r\n"
    "vbwCommon.vbwInstanceCount = \"False\" (Boolean)\r\n"
    "vbwCommon.vbwEmailRecipientName = \"Brevant+ Support\" (String)\r\n"
    "vbwCommon.vbwEmailRecipientAdress = \"\" (String)\r\n"
    "vbwCommon.vbwDumpStringMaxLength = \"0\" (Long)\r\n"
    "Array vbwCommon.vbwStackCalls() (Undimensioned Array)\r\n"
    "vbwCommon.vbwLogFile = \"\" (String)\r\n"
    "vbwCommon.vbwLogFileNum = \"0\" (Integer)\r\n"
    "vbwCommon.vbwDumpFile = \"report.dmp\" (String)\r\n"
    "vbwCommon.vbwDumpFileNum = \"1\" (Integer)\r\n"
    "vbwCommon.VBW_EMPTY = {Empty} (String)\r\n"
    "vbwErrHandler.vbwRetCode = \"8\" (Long)\r\n"
    "vbwErrHandler.vbwMessageString = \"\" (String)\r\n"
    "vbwErrHandler.vbwCircumstancesString = \"\" (String)\r\n"
    "vbwErrHandler.vbwErrorPath = \"\" (String)\r\n"
    "vbwErrHandler.vbwfHasReported = \"False\" (Boolean)\r\n"
    "**** App App ****\r\n"
    "\tApp.EXEName = \"Editor\" (String)\r\n"
    "\tApp.Major = \"2\" (Integer)\r\n"
    "\tApp.Minor = \"5\" (Integer)\r\n"
    "\tApp.Path = \"C:\\Brevant\" (String)\r\n"
    "\tApp.Revision = \"17\" (Integer)\r\n"
    "\tApp.Title = \"Brevant+\" (String)\r\n"
    "**** ErrObject Err ****\r\n"
    "\tErr.Description = \"Duplicate key\" (String)\r\n"
    "\tErr.HelpContext = \"0\" (Long)\r\n"
    "\tErr.HelpFile = \"\" (String)\r\n"
    "\tErr.LastDllError = \"0\" (Long)\r\n"
    "\tErr.Number = \"3022\" (Long)\r\n"
    "\tErr.Source = \"Store\" (String)\r\n"
    "**** Screen Screen ****\r\n"
    "**** Printer Printer ****\r\n";

class Report : public testing::Test {
protected:
    void fail(std::vector<Answer> answers = {Answer::report, Answer::ignore}) {
        ScriptedHandler handler(std::move(answers));
        sample->Work(3);
    }

    Surroundings surroundings;
    Ref<clsSample> sample = make<clsSample>();
};

TEST_F(Report, ShowsLocalsThenMembersThenGlobalsThenTheSystemsObjects) {
    fail();
    EXPECT_EQ(surroundings.dump(), golden);
    EXPECT_FALSE(surroundings.disk->isOpen());
}

TEST_F(Report, TakesThePlaceOfTheOneBefore) {
    fail();
    fail();
    EXPECT_EQ(surroundings.dump(), golden);
}

TEST_F(Report, ASecondOneOfTheSameFailureShowsMinusOne) {
    fail({Answer::report, Answer::report, Answer::ignore});
    EXPECT_TRUE(surroundings.wrote("\tErr.Number = \"-1\" (Long)\r\n"));
}

TEST_F(Report, ShowsTheStackCallsAsAnArray) {
    vbwCommon.vbwStackCalls = {"first"};
    fail();
    EXPECT_TRUE(surroundings.wrote("Array vbwCommon.vbwStackCalls(0 To 0) As String\r\n"
                                   "\tvbwCommon.vbwStackCalls(0) = \"first\" (String)\r\n"));
}

TEST_F(Report, GoesOnAfterALocalThatFails) {
    sample->localFails = true;
    fail();
    EXPECT_TRUE(surroundings.wrote("strLine = \"a<CrLf>b\" (String)\r\nWork = {Variable Dumping Error}\r\n"));
    EXPECT_TRUE(surroundings.wrote("m_intCount"));
    EXPECT_TRUE(surroundings.wrote("**** Printer Printer ****"));
}

TEST_F(Report, GoesOnAfterAMemberThatFails) {
    sample->fails = true;
    fail();
    EXPECT_TRUE(surroundings.wrote("m_intCount = \"2\" (Integer)\r\nclsSample = {Variable Dumping Error}\r\n"));
    EXPECT_TRUE(surroundings.wrote("**** Printer Printer ****"));
}

TEST_F(Report, AProcedureWithoutAnObjectHasNoMembers) {
    ScriptedHandler handler({Answer::report, Answer::ignore});
    Procedure run("modFree", "Free", nullptr, [](Locals&) {});
    run([] { raise(Error::overflow); });
    EXPECT_TRUE(surroundings.wrote("* MODULE LEVEL VARIABLES *\r\n**************************\r\n\r\n"
                                   "\r\n**************************\r\n* GLOBAL LEVEL VARIABLES *"));
}

TEST_F(Report, ADumpThatCannotBeOpenedLosesOnlyTheReport) {
    surroundings.disk->refuses = true;
    ScriptedHandler handler({Answer::report, Answer::ignore});
    sample->Work(3);
    ASSERT_EQ(handler.asked.size(), 2u);
    EXPECT_EQ(handler.asked[1].number, -1);
    EXPECT_EQ(vbwCommon.vbwDumpFileNum, 0);
}

TEST_F(Report, ADiskThatFillsUpCutsTheReportShortAndClosesIt) {
    surroundings.disk->room = 3;
    fail();
    EXPECT_TRUE(surroundings.dump().ends_with("strLine = \"a<CrLf>b\" (String)\r\n"));
    EXPECT_FALSE(surroundings.disk->isOpen());
}

TEST_F(Report, LiesBesideTheApplicationOnTheMachinesOwnDisk) {
    const std::string folder = testing::TempDir() + "canvas_report";
    const std::shared_ptr<Files> disk = makeDisk();
    if (!disk->isFolder(folder)) disk->makeFolder(folder);
    Application application;
    application.path = folder;
    application.exeName = "Editor";
    const WithEnvironment inForce({.interaction = nullptr,
                                   .files = disk,
                                   .clock = nullptr,
                                   .process = nullptr,
                                   .utility = nullptr,
                                   .application = application});
    vbwIsInitialized = false;
    vbwInitialize();
    fail();
    vbwUnHandleException();
    vbwIsInitialized = false;
    const std::string dump = disk->read(folder + "/vbwEditor.dll.dmp", 1 << 20);
    EXPECT_TRUE(dump.starts_with("\r\n**************************\r\n* LOCAL LEVEL VARIABLES  *\r\n"));
    EXPECT_TRUE(dump.ends_with("**** Printer Printer ****\r\n"));
    disk->remove(folder + "/vbwEditor.dll.dmp");
}

/// Fails while it is reported, in a procedure of its own.
class clsAsking final : public Object {
public:
    std::string_view className() const noexcept override { return "clsAsking"; }
    void reportVariables(VariableSink& sink) const override {
        Procedure run("clsAsking", "Dump", nullptr, [](Locals&) {});
        run([] { raise(Error::overflow); });
        sink.variable("a", "1");
    }
};

TEST_F(Report, AFailureDuringAReportAsksAgainAndTheReportGoesOn) {
    ScriptedHandler handler({Answer::report, Answer::ignore, Answer::ignore});
    const auto asking = make<clsAsking>();
    Procedure run("clsAsking", "Work", asking.get(), [](Locals&) {});
    run([] { raise(Error::subscript); });
    ASSERT_EQ(handler.asked.size(), 3u);
    EXPECT_EQ(handler.asked[1].procedure, "Dump");
    EXPECT_EQ(handler.asked[2].number, -1);
    EXPECT_TRUE(surroundings.wrote("a = \"1\" (String)\r\n"));
}

TEST_F(Report, AReportInsideAReportIsDoneWithout) {
    ScriptedHandler handler({Answer::report, Answer::report, Answer::ignore, Answer::ignore});
    const auto asking = make<clsAsking>();
    Procedure run("clsAsking", "Work", asking.get(), [](Locals&) {});
    run([] { raise(Error::subscript); });
    EXPECT_EQ(handler.asked.size(), 4u);
    EXPECT_TRUE(surroundings.wrote("a = \"1\" (String)\r\n"));
    EXPECT_TRUE(surroundings.dump().ends_with("**** Printer Printer ****\r\n"));
}

}  // namespace
}  // namespace canvas::tracing
