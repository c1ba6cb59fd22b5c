#include "hardware/sqlite_store.h"

#include <cstdlib>
#include <map>
#include <mutex>
#include <thread>
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
    std::unique_ptr<Recordset> open() override { return std::make_unique<Snapshot>(m_connection->prepare(m_sql)); }

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

    std::unique_ptr<Recordset> openDynaset(std::string_view table, const Criterion& only) override {
        return std::make_unique<Dynaset>(open(), table, &only);
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

/// A file under a name. A process made by fork must not use its parent's connections.
using Key = std::tuple<std::string, dev_t, ino_t, pid_t, std::thread::id>;

[[noreturn]] void missing(int code, const std::string& path) {
    if (code != ENOENT && code != ENOTDIR) posix::fail(code, path, Error::storeNotFound);
    raise(Error::storeNotFound, std::string(descriptionOf(static_cast<int>(Error::storeNotFound))) + ": " + path);
}

Key keyOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) == -1) missing(errno, path);
    if (!S_ISREG(status.st_mode)) raise(Error::pathFileAccess);
    // an empty file would pass as a store without tables
    if (status.st_size == 0) raise(Error::storeFormat);
    return {path, status.st_dev, status.st_ino, ::getpid(), std::this_thread::get_id()};
}

/// The name of the file itself: what a change leaves beside it for a recovery is found under any of its names.
std::string resolved(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> name(::realpath(path.c_str(), nullptr), std::free);
    if (!name) missing(errno, path);
    if (::access(name.get(), R_OK) == -1) posix::fail(errno, path);
    return name.get();
}

class SqliteEngine final : public Engine {
public:
    explicit SqliteEngine(SqliteOptions options) : m_options(options) {}

    std::shared_ptr<Database> open(const std::string& path) override {
        if (path.empty()) raise(Error::storeNotFound);
        Key key = keyOf(posix::nativeName(path));
        const std::lock_guard lock(m_guard);
        std::shared_ptr<Connection> connection = pooled(key);
        if (!connection) {
            std::get<std::string>(key) = resolved(std::get<std::string>(key));
            connection = pooled(key);
        }
        if (!connection) {
            connection = std::make_shared<Connection>(std::get<std::string>(key), m_options);
            std::erase_if(m_pool, [](const auto& entry) { return entry.second.expired(); });
            m_pool[key] = connection;
        }
        return std::make_shared<SqliteDatabase>(std::move(connection));
    }

private:
    std::shared_ptr<Connection> pooled(const Key& key) const {
        const auto entry = m_pool.find(key);
        return entry == m_pool.end() ? nullptr : entry->second.lock();
    }

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
