#include "tracing/options.h"

#include "host/array.h"
#include "host/ports.h"
#include "tracing/faults.h"

namespace canvas::tracing {
namespace {

constexpr int failed = 1;

Value stackCalls() {
    // A list that was never filled is an array without dimensions.
    if (vbwCommon.vbwStackCalls.empty()) return Array::undimensioned("String");
    return arrayOf("String", vbwCommon.vbwStackCalls);
}

}  // namespace

void vbwSetOptions() { vbwCommon = Common{}; }

void vbwInitialize() {
    if (vbwIsInitialized.exchange(true)) return;
    vbwSetOptions();
    const Application& application = environment().application;
    // The backslash stands on every platform; opening a file takes it as a separator.
    const std::string library = application.path + "\\vbw" + application.exeName + ".dll";
    vbwCommon.vbwLogFile = library + ".log";
    vbwCommon.vbwDumpFile = library + ".dmp";
    if (vbwCommon.vbwException) vbwHandleException();
}

void reportGlobals(VariableSink& sink) {
#define REPORT(global) sink.variable(#global, Value(global))  // the name shown is the name written here
    REPORT(vbwCommon.vbwException);
    REPORT(vbwCommon.vbwTraceProc);
    REPORT(vbwCommon.vbwTraceParameters);
    REPORT(vbwCommon.vbwTraceLine);
    REPORT(vbwCommon.vbwDebugger);
    REPORT(vbwCommon.vbwLog);
    REPORT(vbwCommon.vbwDebugPrint);
    REPORT(vbwCommon.vbwInstanceCount);
    REPORT(vbwCommon.vbwEmailRecipientName);
    REPORT(vbwCommon.vbwEmailRecipientAdress);
    REPORT(vbwCommon.vbwDumpStringMaxLength);
    sink.variable("vbwCommon.vbwStackCalls()", stackCalls());
    REPORT(vbwCommon.vbwLogFile);
    REPORT(vbwCommon.vbwLogFileNum);
    REPORT(vbwCommon.vbwDumpFile);
    REPORT(vbwCommon.vbwDumpFileNum);
    REPORT(vbwCommon.VBW_EMPTY);
    REPORT(vbwErrHandler.vbwRetCode);
    REPORT(vbwErrHandler.vbwMessageString);
    REPORT(vbwErrHandler.vbwCircumstancesString);
    REPORT(vbwErrHandler.vbwErrorPath);
    REPORT(vbwErrHandler.vbwfHasReported);
#undef REPORT
}

std::string vbwGetStack() {
    std::string text;
    for (const std::string& call : vbwCommon.vbwStackCalls) text += call + "\r\n";
    return text;
}

void vbwExitProcess() { environment().process->exitProcess(failed); }

void vbwExitThread() { environment().process->exitThread(failed); }

}  // namespace canvas::tracing
