#pragma once
// A small record store of the tests' own, with the tables and queries that the classes work on.

#include <array>
#include <string>
#include <string_view>

#include <unistd.h>

#include "sqlite.h"
#include "tests/host/scratch.h"

namespace canvas::fixture {

struct Group {
    int number;
    std::string_view query;
    int rows;
};

/// In the order of their numbers.
inline constexpr Group groups[]{
    {1, "qryRVQD", 71},   {2, "qryKX410", 15},          {3, "qryCOM1", 7},     {4, "qryCOM2", 8},
    {5, "qryNetwork", 13}, {6, "qryExternalEncoder", 11}, {7, "qryRemoteIO", 9},
};

inline const Group& group(int number) { return groups[number - 1]; }

/// What a new store holds: row 3 of group 2 has the value "2003", the default "d2.3", the name "Name 2.3", and so on.
inline std::string valueOf(int g, int n) { return std::to_string(g * 1000 + n); }
inline std::string defaultOf(int g, int n) { return "d" + std::to_string(g) + "." + std::to_string(n); }

class Store {
public:
    Store() : path(folder / "machine.db") {
        Sqlite db(path);
        db.run("PRAGMA synchronous = OFF; BEGIN");
        db.run(tables);
        for (int n = 1; n <= 71; ++n)  // the groups' rows lie mixed
            for (const Group& g : groups)
                if (n <= g.rows) db.run(rowOf(g.number, n));
        for (const Group& g : groups) db.run(viewOf(g));
        db.run("COMMIT");
    }

    void run(const std::string& sql) const { Sqlite(path).run(sql); }
    Texts rows(const std::string& sql) const { return Sqlite(path).rows(sql); }
    /// The one column of the one row.
    std::string one(const std::string& sql) const {
        const Texts found = rows(sql);
        return found.size() == 1 ? found[0] : std::to_string(found.size()) + " rows";
    }

    /// Sets a column of a property, in the table that holds it.
    void set(int g, int n, const std::string& column, const std::optional<std::string>& value) const {
        const bool own = column == "Value" || column == "Default" || column == "Dirty" || column == "DisplayFormat";
        run("UPDATE " + std::string(own ? "tblSystemProperties" : "tblPropertyNumberLookup") + " SET \"" + column +
            "\" = " + literal(value) + where(g, n));
    }
    /// The value and the mark of a property: "2003,0".
    std::string property(int g, int n) const {
        return one("SELECT Value, Dirty FROM tblSystemProperties" + where(g, n));
    }
    /// Number, value and mark of a group's rows: "1,2001,0".
    Texts properties(int g) const {
        return rows("SELECT PropertyNumber, Value, Dirty FROM tblSystemProperties WHERE groupID = " + std::to_string(g) +
                    " ORDER BY rowid");
    }
    Texts otherProperties(int g) const {
        return rows("SELECT * FROM tblSystemProperties WHERE groupID <> " + std::to_string(g) + " ORDER BY rowid");
    }

    /// One more row than a group has.
    void addProperty(int g, int n) const { run(rowOf(g, n)); }

    /// A node with columns in the order of the table; "null" stands for none.
    void addNode(const std::array<std::string, 10>& columns) const {
        std::string values;
        for (const std::string& column : columns)
            values += (values.empty() ? "" : ", ") + (column == "null" ? "NULL" : literal(column));
        run("INSERT INTO tblRemoteIO VALUES (" + values + ")");
    }
    Texts nodes() const { return rows("SELECT * FROM tblRemoteIO ORDER BY rowid"); }

    bool isSound() const { return one("PRAGMA integrity_check") == "ok"; }

    scratch::Folder folder;
    std::string path;

private:
    static std::string where(int g, int n) {
        return " WHERE groupID = " + std::to_string(g) + " AND PropertyNumber = " + std::to_string(n);
    }

    static std::string rowOf(int g, int n) {
        const std::string at = std::to_string(g) + "." + std::to_string(n);
        return "INSERT INTO tblSystemProperties VALUES (" + std::to_string(g) + ", " + std::to_string(n) + ", '" +
               valueOf(g, n) + "', '" + defaultOf(g, n) + "', 0, '0'); INSERT INTO tblPropertyNumberLookup VALUES (" +
               std::to_string(n) + ", " + std::to_string(g) + ", NULL, 'Tip " + at + "', 'Name " + at + "', " +
               std::to_string(n % 5) + ", 18, " + std::to_string(n % 2) + ", 1, 'check " + at + "', 1, 9000, 4)";
    }

    static std::string viewOf(const Group& g) {
        return "CREATE VIEW " + std::string(g.query) +
               " AS SELECT l.PropertyName, s.Value, l.DisplayTypeID, l.DataTypeID, l.ToolTipText, l.ExpressionBuilder, "
               "l.Accessibility, l.ComboLookupID, d.ListItem, l.Validation, l.MinimumValue, l.MaximumValue, s.\"Default\", "
               "s.DisplayFormat, l.ValidateTypeID FROM tblSystemProperties AS s JOIN tblPropertyNumberLookup AS l ON "
               "l.groupID = s.groupID AND l.PropertyNumber = s.PropertyNumber LEFT JOIN tblDropDownComboLookUp AS d ON "
               "d.DropDownComboID = l.ComboLookupID WHERE s.groupID = " +
               std::to_string(g.number) + " ORDER BY s.PropertyNumber";
    }

    static constexpr const char* tables = R"sql(
        CREATE TABLE tblSystemProperties (groupID INTEGER, PropertyNumber INTEGER, Value TEXT, "Default" TEXT,
            Dirty INTEGER, DisplayFormat TEXT);
        CREATE TABLE tblPropertyNumberLookup (PropertyNumber INTEGER, groupID INTEGER, ComboLookupID INTEGER,
            ToolTipText TEXT, PropertyName TEXT, DisplayTypeID INTEGER, DataTypeID INTEGER, ExpressionBuilder INTEGER,
            Accessibility INTEGER, Validation TEXT, MinimumValue INTEGER, MaximumValue INTEGER, ValidateTypeID INTEGER);
        CREATE TABLE tblDropDownComboLookUp (ID INTEGER, DropDownComboID INTEGER, NumberOfItems INTEGER, ListItem TEXT);
        CREATE TABLE tblRemoteIO (Node TEXT, Name TEXT, NodeType TEXT, InputWords TEXT, OutputWords TEXT,
            InputBaseAddress TEXT, OutputBaseAddress TEXT, TypeCode TEXT, MessageType TEXT, Dirty INTEGER);
        CREATE TABLE catalogue (Node TEXT, Type_code TEXT, InputWords TEXT, OutputWords TEXT);
        CREATE VIEW qryAxiolaneNodes AS SELECT Node, Type_code, InputWords, OutputWords FROM catalogue ORDER BY rowid;
    )sql";
};

/// How many handles this process has on a file.
inline int openHandles(const std::string& path) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        count += std::filesystem::read_symlink(entry.path(), gone) == path ? 1 : 0;
    }
    return count;
}

}  // namespace canvas::fixture
