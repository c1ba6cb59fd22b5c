#pragma once
// How operations walk over records and answer failures.

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "hardware/record_store.h"
#include "tracing/branch.h"

namespace canvas {

/// Text, where a null is none.
inline std::string textOrEmpty(const Value& value) { return value.is(Kind::null) ? std::string() : value.toText(); }

/// Whether a stored value is that whole number.
inline bool holds(const Value& value, std::int16_t number) {
    return !value.is(Kind::null) && value.toDouble() == number;
}

/// An operation that raises its failures again, with a source of its own.
template <class Body>
void raisingAgain(std::string_view source, Body&& body) {
    tracing::onFailure(std::forward<Body>(body), [&](const RuntimeError& error) {
        throw RuntimeError(error.number, error.description, std::string(source));
    });
}

/// Runs the steps of an operation that raises again: nobody is asked about them.
struct Unasked {
    template <class... Steps>
    tracing::Flow operator()(Steps&&... steps) {
        return (leaves(steps) || ...) ? tracing::Flow::leave : tracing::Flow::next;
    }

private:
    template <class Step>
    static bool leaves(Step& step) {
        if constexpr (std::is_same_v<std::invoke_result_t<Step&>, tracing::Flow>) return step() == tracing::Flow::leave;
        else {
            step();
            return false;
        }
    }
};

/// A table's records, changed together.
class Records {
public:
    /// When it fails, the store is nobody's again: a person may be asked about it for a while.
    /// `only` narrows them to those that meet a condition. Nothing is held after a failure.
    template <class... Only>
    void open(store::Database& database, std::string_view table, store::Access access, const Only&... only) {
        auto transaction = database.begin(access);
        m_rows = database.openDynaset(table, only...);
        m_transaction = std::move(transaction);
    }
    void commit() {
        if (m_transaction) m_transaction->commit();
        close();
    }
    void close() {
        m_rows.reset();
        m_transaction.reset();
    }
    /// Error 91 when they could not be opened.
    store::Recordset& operator*() const {
        if (!m_rows) raise(Error::objectNotSet);
        return *m_rows;
    }
    store::Recordset* operator->() const { return &**this; }

private:
    std::unique_ptr<store::Transaction> m_transaction;  // outlives the rows
    std::unique_ptr<store::Recordset> m_rows;
};

/// Runs a statement for each record from the current one on, then moves: two steps. A move that fails, and is passed
/// over, ends the walk.
template <class Run, class Statement>
tracing::Flow eachRecord(Run& run, store::Recordset& rows, Statement&& statement) {
    for (bool moved = true; moved && !rows.eof();) {
        moved = false;
        const auto move = [&] {
            rows.moveNext();
            moved = true;
        };
        if (run(statement, move) == tracing::Flow::leave) return tracing::Flow::leave;
    }
    return tracing::Flow::next;
}

}  // namespace canvas
