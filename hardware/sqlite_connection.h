#pragma once
// One connection to a SQLite file, its prepared statements, and which run-time error a failed call is.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <sqlite3.h>

#include "hardware/record_store.h"
#include "hardware/sqlite_store.h"
#include "host/errors.h"

namespace canvas::store {

class Statement;

/// For one thread at a time.
class Connection : public std::enable_shared_from_this<Connection> {
public:
    /// `path` is a native, absolute name of a file that is there.
    Connection(const std::string& path, SqliteOptions options);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// A statement out of the cache, or prepared anew. A text that does not fit the schema is error 3078.
    Statement prepare(std::string sql);
    void execute(const char* sql);
    /// Raises the run-time error of a failed call.
    [[noreturn]] void fail(int code);

    void begin(Access access);
    void commit();
    /// What a transaction does that was not committed.
    void abandon() noexcept;

    sqlite3* handle() const noexcept { return m_handle; }

private:
    friend class Statement;
    void configure(SqliteOptions options);
    void begin(const char* sql);
    void giveBack(const std::string& sql, sqlite3_stmt* statement) noexcept;
    void rollback() noexcept;
    /// Nothing more is written once the engine has failed: it may have ended the transaction by itself.
    void requireWhole() const {
        if (m_failure) throw RuntimeError(*m_failure);
    }

    sqlite3* m_handle = nullptr;
    int m_depth = 0;  ///< transactions inside one another
    std::optional<RuntimeError> m_failure;
    std::unordered_map<std::string, std::vector<sqlite3_stmt*>> m_idle;
};

/// A prepared statement on loan; it goes back to the cache, reset.
class Statement {
public:
    Statement() noexcept = default;
    Statement(std::shared_ptr<Connection> connection, std::string sql, sqlite3_stmt* statement) noexcept
        : m_connection(std::move(connection)), m_sql(std::move(sql)), m_statement(statement) {}
    Statement(Statement&& other) noexcept
        : m_connection(std::move(other.m_connection)),
          m_sql(std::move(other.m_sql)),
          m_statement(std::exchange(other.m_statement, nullptr)) {}
    Statement& operator=(Statement other) noexcept {
        std::swap(m_connection, other.m_connection);
        std::swap(m_sql, other.m_sql);
        std::swap(m_statement, other.m_statement);
        return *this;
    }
    ~Statement() {
        if (m_statement) m_connection->giveBack(m_sql, m_statement);
    }
    explicit operator bool() const noexcept { return m_statement != nullptr; }

    /// Places count from 1. The value must live until the statement is reset.
    void bind(int place, const Value& value);
    void bind(int place, std::int64_t number);
    /// True when there is a row.
    bool step();
    void run() {
        step();
        reset();
    }
    void reset() noexcept { sqlite3_reset(m_statement); }

    int columnCount() const noexcept { return sqlite3_column_count(m_statement); }
    std::string_view columnName(int column) const noexcept {
        const char* name = sqlite3_column_name(m_statement, column);
        return name ? std::string_view(name) : std::string_view();
    }
    Value value(int column) const;
    std::int64_t number(int column) const noexcept { return sqlite3_column_int64(m_statement, column); }

private:
    void bound(int code) {
        if (code != SQLITE_OK) m_connection->fail(code);
    }

    std::shared_ptr<Connection> m_connection;
    std::string m_sql;
    sqlite3_stmt* m_statement = nullptr;
};

/// A name as SQL takes it, in double quotes.
std::string quoted(std::string_view name);

}  // namespace canvas::store
