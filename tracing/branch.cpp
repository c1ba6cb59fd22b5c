#include "tracing/branch.h"

#include <atomic>
#include <new>

#include "tracing/options.h"
#include "tracing/report.h"

namespace canvas::tracing {
namespace {

class NobodyToAsk final : public ErrorHandler {
public:
    Answer ask(const Failure&) override { return Answer::handOn; }
};

ErrorHandler& nobody() {
    static NobodyToAsk handler;
    return handler;
}

thread_local ErrorHandler* current = nullptr;

}  // namespace

ErrorHandler& errorHandler() { return current ? *current : nobody(); }

WithErrorHandler::WithErrorHandler(ErrorHandler& handler) noexcept : m_before(current) { current = &handler; }

WithErrorHandler::~WithErrorHandler() { current = m_before; }

RuntimeError caught() {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RuntimeError(Error::outOfMemory);
    }
}

namespace detail {

std::uint64_t markHandedOn(std::uint64_t number) {
    static std::atomic<std::uint64_t> last = 0;
    if (number == 0) number = ++last;
    try {
        throw;
    } catch (RuntimeError& error) {
        error.handedOnBy = number;
        return number;
    } catch (const std::bad_alloc&) {
        return number;  // is asked about again: there is no room for a mark
    }
}

std::uint64_t handedOnBy() noexcept {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error.handedOnBy;
    } catch (...) {
        return 0;
    }
}

Answer answer(const Context& context) {
    RuntimeError error = caught();
    Failure failure{.number = error.number,
                    .description = error.description,
                    .module = context.module,
                    .procedure = context.procedure};
    for (;;) {
        const Answer given = errorHandler().ask(failure);
        vbwErrHandler.vbwRetCode = static_cast<std::int32_t>(given);
        switch (given) {
            case Answer::report:
                writeReport(context, error);
                failure.number = error.number = -1;  // tells the handler that the report is there
                failure.reported = true;              // a host may raise -1 of its own
                break;
            case Answer::abort:
                vbwExitProcess();
                return Answer::leave;  // reached only where the process's end is replaced
            default: return given;
        }
    }
}

}  // namespace detail
}  // namespace canvas::tracing
