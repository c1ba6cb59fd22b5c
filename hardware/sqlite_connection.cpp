#include "hardware/sqlite_connection.h"

#include <cerrno>
#include <limits>

namespace canvas::store {
namespace {

/// The failures after which a transaction cannot be trusted, and is taken back.
bool breaksTransaction(int code) {
    switch (code & 0xFF) {
        case SQLITE_FULL:
        case SQLITE_IOERR:
        case SQLITE_NOMEM:
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        case SQLITE_CANTOPEN:
        case SQLITE_READONLY: return true;
        default: return false;
    }
}

Error numberOf(int code, int systemError, std::string_view message) {
    switch (code & 0xFF) {
        case SQLITE_FULL: return Error::diskFull;
        // a limit on file sizes or of a user's share is a full disk too, which SQLite does not know
        case SQLITE_IOERR:
            return systemError == EFBIG || systemError == EDQUOT || systemError == ENOSPC ? Error::diskFull
                                                                                          : Error::deviceIO;
        case SQLITE_NOMEM: return Error::outOfMemory;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        case SQLITE_FORMAT: return Error::storeFormat;
        case SQLITE_CANTOPEN: return Error::pathFileAccess;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_PERM:
        case SQLITE_AUTH:
        case SQLITE_READONLY: return Error::permissionDenied;
        case SQLITE_ERROR: return message.starts_with("no such column") ? Error::itemNotFound : Error::noSuchTable;
        case SQLITE_SCHEMA: return Error::noSuchTable;
        case SQLITE_MISMATCH: return Error::typeMismatch;
        case SQLITE_CONSTRAINT:
            return code == SQLITE_CONSTRAINT_UNIQUE || code == SQLITE_CONSTRAINT_PRIMARYKEY ? Error::duplicateRecord
                                                                                            : Error::invalidCall;
        default: return Error::automation;
    }
}

}  // namespace

std::string quoted(std::string_view name) {
    std::string text = "\"";
    for (const char c : name) {
        if (c == '"') text += '"';
        text += c;
    }
    text += '"';
    return text;
}

Connection::Connection(const std::string& path, SqliteOptions options) {
    const int code = sqlite3_open_v2(path.c_str(), &m_handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    try {
        if (!m_handle) raise(Error::outOfMemory);
        if (code != SQLITE_OK) fail(code);
        configure(options);
    } catch (...) {
        sqlite3_close(m_handle);
        throw;
    }
}

void Connection::configure(SqliteOptions options) {
    sqlite3_extended_result_codes(m_handle, 1);
    sqlite3_busy_timeout(m_handle, options.busyTimeout);
    // A misspelled column in double quotes is a mistake, not a text.
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    execute("PRAGMA trusted_schema=OFF; PRAGMA cell_size_check=ON; PRAGMA synchronous=EXTRA; PRAGMA journal_mode=DELETE");
}

Connection::~Connection() {
    for (auto& [sql, statements] : m_idle)
        for (sqlite3_stmt* statement : statements) sqlite3_finalize(statement);
    sqlite3_close(m_handle);
}

void Connection::fail(int code) {
    const int systemError = errno;
    const int extended = sqlite3_extended_errcode(m_handle);
    if ((extended & 0xFF) == (code & 0xFF)) code = extended;
    const Error number = numberOf(code, systemError, sqlite3_errmsg(m_handle));
    std::string description(descriptionOf(static_cast<int>(number)));
    const bool inUse = (code & 0xFF) == SQLITE_BUSY || (code & 0xFF) == SQLITE_LOCKED;
    description.append(": ").append(inUse ? "the store is in use" : sqlite3_errmsg(m_handle));
    RuntimeError error(number, std::move(description));
    if (m_depth > 0 && breaksTransaction(code)) m_failure = error;
    throw error;
}

void Connection::execute(const char* sql) {
    const int code = sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) fail(code);
}

Statement Connection::prepare(std::string sql) {
    std::vector<sqlite3_stmt*>& idle = m_idle[sql];
    sqlite3_stmt* statement = nullptr;
    if (!idle.empty()) {
        statement = idle.back();
        idle.pop_back();
    } else {
        const int code = sqlite3_prepare_v3(m_handle, sql.c_str(), static_cast<int>(sql.size()) + 1,
                                            SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
        if (code != SQLITE_OK) fail(code);
    }
    return {shared_from_this(), std::move(sql), statement};
}

void Connection::giveBack(const std::string& sql, sqlite3_stmt* statement) noexcept {
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    m_idle.find(sql)->second.push_back(statement);
}

void Connection::begin(const char* sql) { prepare(sql).run(); }

void Connection::begin(Access access) {
    try {
        if (m_depth == 0) begin(access == Access::read ? "BEGIN" : "BEGIN IMMEDIATE");
    } catch (const RuntimeError&) {
        const bool readOnly = (sqlite3_errcode(m_handle) & 0xFF) == SQLITE_READONLY;
        if (access != Access::repair || !readOnly) throw;
        begin("BEGIN");
    }
    ++m_depth;
}

void Connection::commit() {
    if (--m_depth > 0) return;
    const auto failure = std::exchange(m_failure, std::nullopt);
    if (failure) {
        rollback();
        throw RuntimeError(*failure);
    }
    try {
        prepare("COMMIT").run();
    } catch (...) {
        rollback();
        throw;
    }
}

void Connection::abandon() noexcept {
    try {
        commit();
    } catch (...) {  // the failure that ended the transaction is on its way already
    }
}

void Connection::rollback() noexcept {
    if (!sqlite3_get_autocommit(m_handle)) sqlite3_exec(m_handle, "ROLLBACK", nullptr, nullptr, nullptr);
}

void Statement::bind(int place, std::int64_t number) { bound(sqlite3_bind_int64(m_statement, place, number)); }

void Statement::bind(int place, const Value& value) {
    switch (value.kind()) {
        case Kind::empty:
        case Kind::null: return bound(sqlite3_bind_null(m_statement, place));
        case Kind::boolean:
        case Kind::integer:
        case Kind::longInteger: return bind(place, std::int64_t{value.toLong()});
        case Kind::singleFloat:
        case Kind::doubleFloat: return bound(sqlite3_bind_double(m_statement, place, value.toDouble()));
        case Kind::text: {
            const std::string& text = *value.text();
            return bound(sqlite3_bind_text64(m_statement, place, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
        }
        default: {
            const std::string text = value.toText();
            return bound(
                sqlite3_bind_text64(m_statement, place, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
        }
    }
}

bool Statement::step() {
    m_connection->requireWhole();
    errno = 0;  // SQLite does not keep what the system said of a failed write
    const int code = sqlite3_step(m_statement);
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) m_connection->fail(code);
    return false;
}

Value Statement::value(int column) const {
    switch (sqlite3_column_type(m_statement, column)) {
        case SQLITE_INTEGER: {
            const std::int64_t number = sqlite3_column_int64(m_statement, column);
            const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                              number <= std::numeric_limits<std::int32_t>::max();
            return fits ? Value(static_cast<std::int32_t>(number)) : Value(static_cast<double>(number));
        }
        case SQLITE_FLOAT: return sqlite3_column_double(m_statement, column);
        case SQLITE_NULL: return Null{};
        default: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
            const int size = sqlite3_column_bytes(m_statement, column);
            return text ? std::string(text, static_cast<std::size_t>(size)) : std::string();
        }
    }
}

}  // namespace canvas::store
