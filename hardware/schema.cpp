#include "hardware/schema.h"

#include <algorithm>
#include <memory>
#include <optional>

#include <sqlite3.h>

#include "hardware/schema_rows.h"
#include "host/errors.h"
#include "host/ports.h"

namespace canvas {
namespace {

/// Whole numbers and texts as the module classes read them; bounds are numbers of any kind. A node's number and name
/// may stand twice: nothing but the callers' care keeps them apart.
constexpr const char* tables = R"(
CREATE TABLE tblSystemProperties (
    groupID INTEGER NOT NULL, PropertyNumber INTEGER NOT NULL, Value TEXT, "Default" TEXT,
    Dirty INTEGER DEFAULT 0, DisplayFormat TEXT,
    PRIMARY KEY (groupID, PropertyNumber));
CREATE TABLE tblPropertyNumberLookup (
    groupID INTEGER NOT NULL, PropertyNumber INTEGER NOT NULL, PropertyName TEXT NOT NULL,
    DisplayTypeID INTEGER, DataTypeID INTEGER, ToolTipText TEXT, ExpressionBuilder INTEGER, Accessibility INTEGER,
    ComboLookupID INTEGER, Validation INTEGER, MinimumValue NUMERIC, MaximumValue NUMERIC, ValidateTypeID INTEGER,
    PRIMARY KEY (groupID, PropertyNumber));
CREATE TABLE tblDropDownComboLookUp (
    ID INTEGER, DropDownComboID INTEGER, NumberOfItems INTEGER, ListItem TEXT);
CREATE INDEX idxDropDownCombo ON tblDropDownComboLookUp (DropDownComboID);
CREATE TABLE tblRemoteIO (
    Node TEXT, Name TEXT, NodeType TEXT, InputWords TEXT, OutputWords TEXT, InputBaseAddress TEXT,
    OutputBaseAddress TEXT, TypeCode TEXT, MessageType TEXT, Dirty INTEGER DEFAULT 0);
CREATE INDEX idxRemoteNode ON tblRemoteIO (Node);
CREATE INDEX idxRemoteName ON tblRemoteIO (Name);
CREATE TABLE tblAxiolaneNodes (Node TEXT, Type_code TEXT, InputWords TEXT, OutputWords TEXT);
CREATE VIEW qryAxiolaneNodes AS
    SELECT Node, Type_code, InputWords, OutputWords FROM tblAxiolaneNodes ORDER BY rowid;
)";

/// A module's query is this between its name and its number.
constexpr const char* queryColumns = R"( AS
    SELECT l.PropertyName, s.Value, l.DisplayTypeID, l.DataTypeID, l.ToolTipText, l.ExpressionBuilder, l.Accessibility,
        l.ComboLookupID, c.ListItem, l.Validation, l.MinimumValue, l.MaximumValue, s."Default", s.DisplayFormat,
        l.ValidateTypeID
    FROM tblSystemProperties s
        JOIN tblPropertyNumberLookup l ON l.groupID = s.groupID AND l.PropertyNumber = s.PropertyNumber
        LEFT JOIN tblDropDownComboLookUp c ON c.DropDownComboID = l.ComboLookupID
    WHERE s.groupID = )";

constexpr const char* queryNames[] = {"qryRVQD",    "qryKX410",           "qryCOM1",    "qryCOM2",
                                      "qryNetwork", "qryExternalEncoder", "qryRemoteIO"};

/// `Validation` and `ValidateTypeID`: what a screen checks before it takes a value.
enum ValidateType : int { checksNothing = 0, checksBounds = 1, checksList = 2 };

ValidateType checkOf(const schema::PropertyRow& row) noexcept {
    return row.list != schema::List::none ? checksList : row.least || row.most ? checksBounds : checksNothing;
}

struct CloseDatabase {
    void operator()(sqlite3* database) const noexcept { sqlite3_close(database); }
};
using Connection = std::unique_ptr<sqlite3, CloseDatabase>;

struct Finalize {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

struct FreeBytes {
    void operator()(unsigned char* bytes) const noexcept { sqlite3_free(bytes); }
};

Connection openInMemory() {
    sqlite3* database = nullptr;
    const int code = sqlite3_open(":memory:", &database);
    Connection connection(database);
    if (code != SQLITE_OK) raise(Error::outOfMemory);
    return connection;
}

Statement prepare(sqlite3* database, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, sql, -1, &statement, nullptr) != SQLITE_OK)
        raise(Error::automation, sqlite3_errmsg(database));
    return Statement(statement);
}

/// A table that is being filled row by row.
class Filled {
public:
    Filled(sqlite3* database, const char* insert) : m_database(database), m_statement(prepare(database, insert)) {}

    template <class... Values>
    void add(const Values&... values) {
        int place = 0;
        (bind(++place, values), ...);
        if (sqlite3_step(m_statement.get()) != SQLITE_DONE) raise(Error::automation, sqlite3_errmsg(m_database));
        sqlite3_reset(m_statement.get());
    }

private:
    void bind(int place, std::string_view text) {
        sqlite3_bind_text(m_statement.get(), place, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
    void bind(int place, int number) { sqlite3_bind_int(m_statement.get(), place, number); }
    void bind(int place, const std::optional<double>& number) {
        if (number) sqlite3_bind_double(m_statement.get(), place, *number);
        else sqlite3_bind_null(m_statement.get(), place);
    }

    sqlite3* m_database;
    Statement m_statement;
};

void execute(sqlite3* database, const std::string& sql) {
    if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        raise(Error::automation, sqlite3_errmsg(database));
}

void addQueries(sqlite3* database) {
    int module = 0;
    for (const char* name : queryNames)
        execute(database, std::string("CREATE VIEW ") + name + queryColumns + std::to_string(++module) +
                              " ORDER BY s.PropertyNumber");
}

void addProperties(sqlite3* database) {
    Filled values(database,
                  "INSERT INTO tblSystemProperties (groupID, PropertyNumber, Value, \"Default\", DisplayFormat)"
                  " VALUES (?, ?, ?, ?, ?)");
    Filled lookups(
        database,
        "INSERT INTO tblPropertyNumberLookup (groupID, PropertyNumber, PropertyName, DisplayTypeID, DataTypeID,"
        " ToolTipText, ExpressionBuilder, Accessibility, ComboLookupID, Validation, MinimumValue, MaximumValue,"
        " ValidateTypeID) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    int module = 0;
    for (const auto rows : schema::modules()) {
        ++module;
        int number = 0;
        for (const schema::PropertyRow& row : rows) {
            ++number;
            values.add(module, number, row.preset, row.preset, row.format);
            lookups.add(module, number, row.name, int{row.display()}, int{row.type}, row.tip, int{brxDisableBuilder},
                        int{row.access}, static_cast<int>(row.list), checkOf(row) == checksNothing ? 0 : 1, row.least,
                        row.most, int{checkOf(row)});
        }
    }
}

void addLists(sqlite3* database) {
    Filled lists(database, "INSERT INTO tblDropDownComboLookUp VALUES (?, ?, ?, ?)");
    for (const schema::ListRow& row : schema::lists()) {
        const int id = static_cast<int>(row.id);
        const auto items = 1 + std::count(row.items.begin(), row.items.end(), '|');
        lists.add(id, id, static_cast<int>(items), row.items);
    }
    Filled devices(database, "INSERT INTO tblAxiolaneNodes VALUES (?, ?, ?, ?)");
    for (const schema::DeviceRow& row : schema::devices())
        devices.add(row.node, row.typeCode, row.inputWords, row.outputWords);
}

/// The bytes of a store's file.
std::string newStore() {
    const Connection connection = openInMemory();
    sqlite3* const database = connection.get();
    execute(database, "BEGIN");
    execute(database, tables);
    addQueries(database);
    addProperties(database);
    addLists(database);
    execute(database, "COMMIT");
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, FreeBytes> bytes(sqlite3_serialize(database, "main", &size, 0));
    if (!bytes) raise(Error::outOfMemory);
    return std::string(reinterpret_cast<const char*>(bytes.get()), static_cast<std::size_t>(size));
}

}  // namespace

void createStore(const std::string& path) {
    Files& files = *environment().files;
    if (files.exists(path)) raise(Error::fileExists);
    const auto file = files.replace(path);
    file->commit(newStore());
}

}  // namespace canvas
