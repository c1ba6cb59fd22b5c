#include "hardware/sqlite_store.h"

#include <cstdlib>
#include <map>
#include <mutex>
#include <tuple>

#include <sys/stat.h>
#include <unistd.h>

#include "hardware/sqlite_connection.h"
#include "hardware/sqlite_recordset.h"
#include "host/posix.h"

namespace canvas::store {
namespace {

class SqliteTransaction final : public Transaction {
public:
    SqliteTransaction(std::shared_ptr<Connection> connection, Access access) : m_connection(std::move(connection)) {
        m_connection->begin(access);
    }
    ~SqliteTransaction() override {
        if (m_connection) m_connection->abandon();
    }
    void commit() override {
        const auto connection = std::move(m_connection);
        if (!connection) throw ContractViolation("a transaction is committed twice");
        connection->commit();
    }

private:
    std::shared_ptr<Connection> m_connection;
};

class View final : public QueryDef {
public:
    View(std::shared_ptr<Connection> connection, std::string_view name)
        : m_connection(std::move(connection)), m_sql("SELECT * FROM " + quoted(name)) {}
    std::unique_ptr<Recordset> open() override { return std::make_unique<Snapshot>(*m_connection, m_sql); }

private:
    std::shared_ptr<Connection> m_connection;
    std::string m_sql;
};

class SqliteDatabase final : public Database {
public:
    explicit SqliteDatabase(std::shared_ptr<Connection> connection) : m_connection(std::move(connection)) {}

    std::unique_ptr<Recordset> openDynaset(std::string_view table) override {
        return std::make_unique<Dynaset>(open(), table);
    }

    std::unique_ptr<QueryDef> queryDef(std::string_view name) override {
        Statement search =
            open()->prepare("SELECT 1 FROM sqlite_schema WHERE type IN ('view','table') AND name=?1 COLLATE NOCASE");
        const Value wanted(name);
        search.bind(1, wanted);
        if (!search.step())
            raise(Error::itemNotFound, std::string(descriptionOf(static_cast<int>(Error::itemNotFound))) + ": " +
                                           std::string(name));
        return std::make_unique<View>(m_connection, name);
    }

    std::unique_ptr<Transaction> begin(Access access) override {
        return std::make_unique<SqliteTransaction>(open(), access);
    }

    std::vector<std::string> damage() override {
        std::vector<std::string> findings;
        try {
            Statement check = open()->prepare("PRAGMA integrity_check");
            while (check.step()) findings.push_back(check.value(0).toText());
        } catch (const RuntimeError& error) {
            if (error.number != static_cast<int>(Error::storeFormat)) throw;
            findings.push_back(error.description);
        }
        if (findings.size() == 1 && findings.front() == "ok") findings.clear();
        return findings;
    }

    void close() override { m_connection.reset(); }

private:
    const std::shared_ptr<Connection>& open() const {
        if (!m_connection) raise(Error::objectNotSet);
        return m_connection;
    }

    std::shared_ptr<Connection> m_connection;
};

/// A file under its resolved name. A process made by fork must not use its parent's connections.
using Key = std::tuple<std::string, dev_t, ino_t, pid_t>;

Key keyOf(const std::string& path) {
    if (path.empty()) raise(Error::storeNotFound);
    const std::string native = posix::nativeName(path);
    const std::unique_ptr<char, void (*)(void*)> resolved(::realpath(native.c_str(), nullptr), std::free);
    struct stat status {};
    if (!resolved || ::stat(resolved.get(), &status) == -1) {
        if (errno == ENOENT || errno == ENOTDIR)
            raise(Error::storeNotFound,
                  std::string(descriptionOf(static_cast<int>(Error::storeNotFound))) + ": " + path);
        posix::fail(errno, native, Error::storeNotFound);
    }
    if (!S_ISREG(status.st_mode)) raise(Error::pathFileAccess);
    if (::access(resolved.get(), R_OK) == -1) posix::fail(errno, native);
    // an empty file would pass as a store without tables
    if (status.st_size == 0) raise(Error::storeFormat);
    return {resolved.get(), status.st_dev, status.st_ino, ::getpid()};
}

class SqliteEngine final : public Engine {
public:
    explicit SqliteEngine(SqliteOptions options) : m_options(options) {}

    std::shared_ptr<Database> open(const std::string& path) override {
        const Key key = keyOf(path);
        const std::lock_guard lock(m_guard);
        std::shared_ptr<Connection> connection = m_pool[key].lock();
        if (!connection) {
            connection = std::make_shared<Connection>(std::get<std::string>(key), m_options);
            std::erase_if(m_pool, [](const auto& entry) { return entry.second.expired(); });
            m_pool[key] = connection;
        }
        return std::make_shared<SqliteDatabase>(std::move(connection));
    }

private:
    SqliteOptions m_options;
    std::mutex m_guard;
    std::map<Key, std::weak_ptr<Connection>> m_pool;
};

thread_local Engine* current = nullptr;

}  // namespace

std::unique_ptr<Engine> makeSqliteEngine(SqliteOptions options) { return std::make_unique<SqliteEngine>(options); }

Engine& engine() {
    static const std::unique_ptr<Engine> shared = makeSqliteEngine();
    return current ? *current : *shared;
}

WithEngine::WithEngine(Engine& engine) noexcept : m_before(current) { current = &engine; }

WithEngine::~WithEngine() { current = m_before; }

}  // namespace canvas::store
