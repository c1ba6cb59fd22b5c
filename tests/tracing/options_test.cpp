#include "tracing/options.h"

#include <gtest/gtest.h>

#include <csignal>

#include "tests/tracing/fakes.h"
#include "tracing/faults.h"

namespace canvas::tracing {
namespace {

TEST(Options, HaveTheDefaultsOfTheProductBuild) {
    vbwCommon.vbwException = false;
    vbwCommon.vbwLog = true;
    vbwCommon.vbwDumpStringMaxLength = 7;
    vbwCommon.vbwStackCalls = {"call"};
    vbwCommon.VBW_EMPTY = "";
    vbwSetOptions();
    EXPECT_TRUE(vbwCommon.vbwException);
    EXPECT_FALSE(vbwCommon.vbwTraceProc);
    EXPECT_FALSE(vbwCommon.vbwTraceParameters);
    EXPECT_FALSE(vbwCommon.vbwTraceLine);
    EXPECT_FALSE(vbwCommon.vbwDebugger);
    EXPECT_FALSE(vbwCommon.vbwLog);
    EXPECT_FALSE(vbwCommon.vbwDebugPrint);
    EXPECT_FALSE(vbwCommon.vbwInstanceCount);
    EXPECT_EQ(vbwCommon.vbwEmailRecipientName, "Brevant+ Support");
    EXPECT_EQ(vbwCommon.vbwDumpStringMaxLength, 0);
    EXPECT_TRUE(vbwCommon.vbwStackCalls.empty());
    EXPECT_EQ(vbwCommon.VBW_EMPTY, "{Empty}");
}

class StartRoutine : public testing::Test {
protected:
    void SetUp() override { asBeforeTheFirstUse(); }
    void TearDown() override { asBeforeTheFirstUse(); }
    static void asBeforeTheFirstUse() {
        vbwUnHandleException();
        vbwIsInitialized = false;
    }
    Surroundings surroundings;
};

TEST_F(StartRoutine, NamesTheLogAndTheDumpAfterTheApplication) {
    vbwInitialize();
    EXPECT_EQ(vbwCommon.vbwLogFile, "C:\\Brevant\\vbwEditor.dll.log");
    EXPECT_EQ(vbwCommon.vbwDumpFile, "C:\\Brevant\\vbwEditor.dll.dmp");
}

TEST_F(StartRoutine, OpensNeitherTheLogNorTheDump) {
    vbwInitialize();
    EXPECT_TRUE(surroundings.disk->contents.empty());
    EXPECT_EQ(vbwCommon.vbwLogFileNum, 0);
    EXPECT_EQ(vbwCommon.vbwDumpFileNum, 0);
}

TEST_F(StartRoutine, RunsOnce) {
    vbwInitialize();
    EXPECT_TRUE(vbwIsInitialized);
    vbwCommon.vbwDumpFile = "elsewhere.dmp";
    vbwCommon.vbwDumpStringMaxLength = 80;
    vbwInitialize();
    EXPECT_EQ(vbwCommon.vbwDumpFile, "elsewhere.dmp");
    EXPECT_EQ(vbwCommon.vbwDumpStringMaxLength, 80);
}

TEST_F(StartRoutine, InstallsTheFilterOfFaults) {
    struct sigaction before {}, after {};
    sigaction(SIGFPE, nullptr, &before);
    vbwInitialize();
    sigaction(SIGFPE, nullptr, &after);
    EXPECT_NE(before.sa_sigaction, after.sa_sigaction);
}

TEST(Stack, IsOneLineForEachCall) {
    vbwSetOptions();
    EXPECT_EQ(vbwGetStack(), "");
    vbwCommon.vbwStackCalls = {"clsBVTCanvas.AddBlock", "clsBVTBlockCol.Add"};
    EXPECT_EQ(vbwGetStack(), "clsBVTCanvas.AddBlock\r\nclsBVTBlockCol.Add\r\n");
    vbwSetOptions();
}

TEST(DeployedBuild, IsNotInTheDevelopmentEnvironment) { EXPECT_FALSE(vbwIsInIDE()); }

TEST(Ends, GoThroughTheProcessPort) {
    Surroundings surroundings;
    vbwExitProcess();
    vbwExitThread();
    EXPECT_EQ(surroundings.process->processEnds.size(), 1u);
    EXPECT_EQ(surroundings.process->threadEnds.size(), 1u);
}

}  // namespace
}  // namespace canvas::tracing
