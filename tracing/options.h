#pragma once
// The options of tracing, the state of the error handler, and the start routine.

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "host/object.h"

namespace canvas::tracing {

/// The options of the process, with the defaults of the product build. Set them after `vbwInitialize`, which gives each
/// its default, and between the library's calls: nothing here is locked.
struct Common {
    bool vbwException = true;        ///< install the filter of machine faults
    bool vbwTraceProc = false;       ///< trace procedure entry and exit
    bool vbwTraceParameters = false; ///< add parameter values to the trace
    bool vbwTraceLine = false;       ///< trace executed lines
    bool vbwDebugger = false;        ///< send the trace to the debugger window
    bool vbwLog = false;             ///< write the trace to the log file
    bool vbwDebugPrint = false;      ///< send the trace to the debug print sink
    bool vbwInstanceCount = false;   ///< count object instances
    std::string vbwEmailRecipientName = "Brevant+ Support";
    std::string vbwEmailRecipientAdress;      ///< left to the deployment
    std::int32_t vbwDumpStringMaxLength = 0;  ///< UTF-16 units of the longest text in a dump; 0: no limit
    std::vector<std::string> vbwStackCalls;   ///< the call stack, innermost call last
    std::string vbwLogFile;
    std::int16_t vbwLogFileNum = 0;
    std::string vbwDumpFile;
    std::int16_t vbwDumpFileNum = 0;  ///< 0 while no report is being written
    std::string VBW_EMPTY = "{Empty}";
};
inline Common vbwCommon;

/// What the error handler of a thread last showed, was told and answered.
struct ErrHandler {
    std::int32_t vbwRetCode = 0;  ///< 3 abort, 4 retry, 5 ignore, 8 report, or another Answer
    std::string vbwMessageString;
    std::string vbwCircumstancesString;
    std::string vbwErrorPath;
    bool vbwfHasReported = false;
};
inline thread_local ErrHandler vbwErrHandler;

inline std::atomic<bool> vbwIsInitialized = false;

/// Gives every option its default.
void vbwSetOptions();

/// The start routine: sets the options, names the log and the dump after the application of this thread's environment,
/// and installs the filter of machine faults. Runs once, at the library's first use when nobody has called it before;
/// later calls do nothing.
void vbwInitialize();

/// Hands out the members of vbwCommon and vbwErrHandler in their order, under their full names.
void reportGlobals(VariableSink& sink);

/// True inside the development environment; this is a deployed build.
constexpr bool vbwIsInIDE() noexcept { return false; }

/// The stack text: one line for each entry of vbwStackCalls.
std::string vbwGetStack();

/// End the process or the thread, with code 1. They return only where a host replaces the port.
void vbwExitProcess();
void vbwExitThread();

}  // namespace canvas::tracing
