#include "tracing/report.h"

#include <mutex>

#include "host/ports.h"
#include "tracing/branch.h"
#include "tracing/options.h"
#include "tracing/system_objects.h"

namespace canvas::tracing {
namespace {

constexpr std::string_view localLevel =
    "\r\n**************************\r\n* LOCAL LEVEL VARIABLES  *\r\n**************************\r\n";
constexpr std::string_view moduleLevel =
    "\r\n**************************\r\n* MODULE LEVEL VARIABLES *\r\n**************************\r\n";
constexpr std::string_view globalLevel =
    "\r\n**************************\r\n* GLOBAL LEVEL VARIABLES *\r\n**************************\r\n";

/// Closes the dump at the end of a scope; a report that cannot be closed is as good as it got.
class OpenDump {
public:
    OpenDump() { vbwOpenDumpFile(); }
    ~OpenDump() {
        try {
            vbwCloseDumpFile();
        } catch (...) {
        }
    }
    OpenDump(const OpenDump&) = delete;
    OpenDump& operator=(const OpenDump&) = delete;
};

/// A banner and what stands under it. A failure that ends the section early is told under `name`.
template <class Write>
void section(std::string_view banner, std::string_view name, Write&& write) noexcept {
    try {
        const InLibrary inside;  // a wild pointer among the variables must not end the report
        vbwReportToFile(banner);
        write();
    } catch (...) {
        detail::writeMark(0, name, detail::variableFailed);
    }
}

void reportLocals(const detail::Context& context) {
    ReportSink sink(0);
    Locals locals(sink);
    if (context.visit) context.visit(context.locals, locals);
}

void reportMembers(const detail::Context& context) {
    if (context.self) detail::writeMembers(*context.self, {}, 0);
}

void reportProcess(const RuntimeError& error) {
    ReportSink sink(0);
    reportGlobals(sink);
    for (const auto& [name, object] : systemObjects(error)) vbwReportObject(name, object, 0);
}

/// One report at a time. The thread that writes one may come here again, from a member that fails while it is
/// reported, and then finds the dump open and does without.
std::recursive_mutex& oneReport() {
    static std::recursive_mutex mutex;
    return mutex;
}

}  // namespace

void vbwOpenDumpFile() {
    vbwCommon.vbwDumpFileNum =
        static_cast<std::int16_t>(environment().files->open(vbwCommon.vbwDumpFile, OpenMode::output));
}

void vbwCloseDumpFile() { environment().files->close(std::exchange(vbwCommon.vbwDumpFileNum, std::int16_t{0})); }

void vbwReportToFile(std::string_view lString) { environment().files->writeLine(vbwCommon.vbwDumpFileNum, lString); }

namespace detail {

void writeReport(const Context& context, const RuntimeError& error) noexcept {
    try {
        const std::lock_guard lock(oneReport());
        const OpenDump dump;
        const OneReport report;
        section(localLevel, context.procedure, [&] { reportLocals(context); });
        section(moduleLevel, context.module, [&] { reportMembers(context); });
        section(globalLevel, "vbwCommon", [&] { reportProcess(error); });
    } catch (...) {
    }
}

}  // namespace detail
}  // namespace canvas::tracing
