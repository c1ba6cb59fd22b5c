#pragma once
// The error branch: a procedure runs its statements as steps, so that the answer to a failure can repeat the failing
// statement, go on with the next one, leave, end the process, or write a report and ask again.
//
//     Procedure run("clsBVTCanvas", "SelectPort", this, [&](Locals& l) { l("Mode", Mode); });
//     run([&] { first(); }, [&] { second(); });
//
// A statement that cannot fail is no step of its own: it trails the one before it. A loop whose body can fail calls
// `run` again inside its step and passes `Flow::leave` on. When nothing fails a step costs a compare and a store.

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string_view>
#include <type_traits>
#include <utility>

#include "host/object.h"
#include "host/value.h"
#include "tracing/faults.h"
#include "tracing/handler.h"

namespace canvas::tracing {

enum class Flow { next, leave };

/// Takes a procedure's parameters and locals for the report: `l("intBlockID", intBlockID)`.
class Locals {
public:
    explicit Locals(VariableSink& sink) noexcept : m_sink(sink) {}
    template <class T>
    void operator()(std::string_view name, const T& value) {
        m_sink.variable(name, Value(value));
    }

private:
    VariableSink& m_sink;
};

namespace detail {

/// Type-erased view of a procedure, built only when something failed.
struct Context {
    std::string_view module;
    std::string_view procedure;
    const Object* self;
    const void* locals;
    void (*visit)(const void* locals, Locals& sink);
};

/// Called inside a catch block. Asks the handler, writes reports for as long as it wants them, ends the process on
/// abort. Gives retry, ignore, leave or handOn. What is no run-time error is thrown on at once.
Answer answer(const Context& context);

/// For catch blocks: marks the error in flight as handed on by the procedure of that number, 0 for one that still needs
/// a number. Gives the number.
std::uint64_t markHandedOn(std::uint64_t number);
/// Who handed on the error in flight; 0 for nobody.
std::uint64_t handedOnBy() noexcept;

}  // namespace detail

template <class Visit>
class Procedure {
public:
    /// `self` may be null; its members make the module part of the report.
    Procedure(std::string_view module, std::string_view procedure, const Object* self, Visit visit) noexcept
        : m_module(module), m_procedure(procedure), m_self(self), m_visit(std::move(visit)) {}

    /// Runs the steps in order. A step gives nothing, or a Flow: `leave` ends the procedure early.
    template <class... Steps>
    Flow operator()(Steps&&... steps) {
        const InLibrary inside;  // no stack left: the caller's failure, who has more of it
        std::size_t at = 0;
        for (;;) {
            try {
                return runFrom(at, std::index_sequence_for<Steps...>{}, steps...) ? Flow::leave : Flow::next;
            } catch (...) {
                if (m_number != 0 && detail::handedOnBy() == m_number) throw;  // a nested run has asked already
                const Visit locals = m_visit;  // no address of this object is taken, so that it stays in registers
                switch (detail::answer({m_module, m_procedure, m_self, &locals, &visit})) {
                    case Answer::retry: break;
                    case Answer::ignore: ++at; break;
                    case Answer::handOn: m_number = detail::markHandedOn(m_number); throw;
                    default: return Flow::leave;
                }
            }
        }
    }

private:
    static void visit(const void* locals, Locals& sink) { (*static_cast<const Visit*>(locals))(sink); }

    template <std::size_t... I, class... Steps>
    static bool runFrom(std::size_t& at, std::index_sequence<I...>, Steps&... steps) {
        return (runStep<I>(at, steps) || ...);
    }

    template <std::size_t I, class Step>
    static bool runStep(std::size_t& at, Step& step) {
        if (at > I) return false;
        at = I;
        if constexpr (std::is_same_v<std::invoke_result_t<Step&>, Flow>) return step() == Flow::leave;
        else {
            step();
            return false;
        }
    }

    std::string_view m_module;
    std::string_view m_procedure;
    const Object* m_self;
    Visit m_visit;
    std::uint64_t m_number = 0;  ///< given when the procedure first hands an error on, and marks that error
};

/// The run-time error behind the exception in flight, for catch blocks: a RuntimeError as it is, memory that ran
/// out as error 7. Anything else is thrown on.
RuntimeError caught();

/// A procedure with a handler of its own: when `body` fails, `handler` is given the error, and that ends it.
template <class Body, class Handler>
void onFailure(Body&& body, Handler&& handler) {
    try {
        const InLibrary inside;
        body();
    } catch (...) {
        handler(caught());
    }
}

}  // namespace canvas::tracing
