#include "hardware/schema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sqlite3.h>

#include "attributes/validation.h"
#include "hardware/schema_rows.h"
#include "host/numbers.h"
#include "host/text.h"
#include "tests/host/scratch.h"

using namespace canvas;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

using Row = std::vector<std::string>;

/// A new store, and what plain SQL finds in it; null is "NULL".
class NewStore : public ::testing::Test {
protected:
    NewStore() {
        createStore(path);
        sqlite3_open(path.c_str(), &database);
    }
    ~NewStore() override { sqlite3_close(database); }

    std::vector<Row> rows(const std::string& sql) {
        std::vector<Row> found;
        const auto keep = [](void* list, int count, char** texts, char**) {
            Row row;
            for (int i = 0; i < count; ++i) row.emplace_back(texts[i] ? texts[i] : "NULL");
            static_cast<std::vector<Row>*>(list)->push_back(row);
            return 0;
        };
        char* error = nullptr;
        EXPECT_EQ(sqlite3_exec(database, sql.c_str(), keep, &found, &error), SQLITE_OK) << (error ? error : "");
        sqlite3_free(error);
        return found;
    }
    Row column(const std::string& sql) {
        Row first;
        for (const Row& row : rows(sql)) first.push_back(row.front());
        return first;
    }

    const scratch::Folder folder;
    const std::string path = folder / "plant.db";
    sqlite3* database = nullptr;
};

struct Module {
    const char* query;
    int group, rows;
};
constexpr Module modules[] = {{"qryRVQD", 1, 71},   {"qryKX410", 2, 15},   {"qryCOM1", 3, 7},
                              {"qryCOM2", 4, 8},    {"qryNetwork", 5, 13}, {"qryExternalEncoder", 6, 11},
                              {"qryRemoteIO", 7, 9}};

}  // namespace

TEST_F(NewStore, HoldsEveryRowOfEveryModule) {
    for (const Module& module : modules) {
        const std::string group = std::to_string(module.group);
        Row numbers;
        for (int i = 1; i <= module.rows; ++i) numbers.push_back(std::to_string(i));
        EXPECT_EQ(column("SELECT PropertyNumber FROM tblSystemProperties WHERE groupID = " + group + " ORDER BY rowid"),
                  numbers);
        const Row names = column("SELECT PropertyName FROM tblPropertyNumberLookup WHERE groupID = " + group +
                                 " ORDER BY PropertyNumber");
        EXPECT_EQ(names.size(), numbers.size());
        EXPECT_EQ(column(std::string("SELECT PropertyName FROM ") + module.query), names);
        EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size()) << "a name stands twice";
    }
    EXPECT_THAT(column("SELECT count(*) FROM tblSystemProperties WHERE Dirty <> 0 OR Value <> \"Default\""),
                ElementsAre("0"));
}

TEST_F(NewStore, QueriesYieldTheFifteenColumnsInOrder) {
    for (const Module& module : modules)
        EXPECT_THAT(column(std::string("SELECT name FROM pragma_table_info('") + module.query + "')"),
                    ElementsAre("PropertyName", "Value", "DisplayTypeID", "DataTypeID", "ToolTipText",
                                "ExpressionBuilder", "Accessibility", "ComboLookupID", "ListItem", "Validation",
                                "MinimumValue", "MaximumValue", "Default", "DisplayFormat", "ValidateTypeID"));
    EXPECT_THAT(column("SELECT name FROM pragma_table_info('qryAxiolaneNodes')"),
                ElementsAre("Node", "Type_code", "InputWords", "OutputWords"));
    EXPECT_THAT(column("SELECT name FROM pragma_table_info('tblRemoteIO')"),
                ElementsAre("Node", "Name", "NodeType", "InputWords", "OutputWords", "InputBaseAddress",
                            "OutputBaseAddress", "TypeCode", "MessageType", "Dirty"));
    EXPECT_GT(column("SELECT Node FROM qryAxiolaneNodes").size(), 0U);
    EXPECT_THAT(column("SELECT Node FROM tblRemoteIO"), IsEmpty());
}

TEST_F(NewStore, KeepsRowsThatCodeReliesOnAtTheirPlaces) {
    const std::tuple<const char*, int, const char*> places[] = {
        {"qryKX410", 4, "Resolution"},
        {"qryKX410", 5, "EncoderType"},
        {"qryKX410", 6, "FeedConstant"},
        {"qryKX410", 8, "GearboxInput"},
        {"qryKX410", 9, "GearboxOutput"},
        {"qryKX410", 11, "LoadType"},
        {"qryKX410", 13, "MachineCycle"},
        {"qryKX410", 14, "MotorRatedSpeed"},
        {"qryExternalEncoder", 4, "FeedConstant"},
        {"qryExternalEncoder", 5, "GearboxInput"},
        {"qryExternalEncoder", 6, "GearboxOutput"},
        {"qryExternalEncoder", 7, "MachineCycle"},
        {"qryExternalEncoder", 8, "DriveType"},
        {"qryExternalEncoder", 9, "PulseType"},
        {"qryExternalEncoder", 10, "Resolution"},
        {"qryCOM1", 5, "Function"},
        {"qryCOM1", 6, "Protocol"},
        {"qryCOM1", 7, "TransmissionMode"},
        {"qryCOM2", 5, "Function"},
        {"qryCOM2", 6, "Protocol"},
        {"qryCOM2", 7, "TransmissionMode"},
    };
    for (const auto& [query, number, name] : places)
        EXPECT_EQ(column(std::string("SELECT PropertyName FROM ") + query).at(static_cast<std::size_t>(number) - 1),
                  name)
            << query;
    const Row network = column("SELECT PropertyName FROM qryNetwork");
    for (const char* name : {"Type", "Function", "SlaveNodes", "Node", "Name"}) EXPECT_THAT(network, Contains(name));
    EXPECT_THAT(rows("SELECT PropertyName, ComboLookupID FROM qryCOM2 WHERE ComboLookupID BETWEEN 14 AND 16"),
                ElementsAre(ElementsAre("Function", "14"), ElementsAre("Protocol", "15"),
                            ElementsAre("TransmissionMode", "16")));
}

TEST_F(NewStore, NeedsNoRepairOfItsSerialPorts) {
    for (const char* query : {"qryCOM1", "qryCOM2"})
        for (const std::string& items : column(std::string("SELECT ListItem FROM ") + query +
                                               " WHERE PropertyName IN ('Function', 'Protocol', 'TransmissionMode')"))
            EXPECT_THAT(items, HasSubstr("|"));
}

TEST_F(NewStore, ShowsSomeParametersInHexadecimal) {
    const Row hexadecimal = column("SELECT Value FROM qryRVQD WHERE DisplayFormat = '2'");
    EXPECT_GT(hexadecimal.size(), 1U);
    for (const std::string& value : hexadecimal) EXPECT_TRUE(numbers::isNumeric(value)) << value;
    for (const Module& module : modules)
        if (module.group != 1) {
            EXPECT_THAT(column(std::string("SELECT DisplayFormat FROM ") + module.query), Not(Contains("2")));
        }
}

TEST_F(NewStore, HasDefaultsThatPassTheirOwnChecks) {
    for (const Module& module : modules)
        for (const Row& row : rows(std::string("SELECT PropertyName, Value, DataTypeID, MinimumValue, MaximumValue, "
                                               "ListItem, DisplayTypeID, ToolTipText FROM ") +
                                   module.query)) {
            std::string error;
            EXPECT_TRUE(validate(row[1], static_cast<brxDatatype>(numbers::toLong(row[2])), error)) << row[0];
            if (row[3] != "NULL") {
                EXPECT_GE(numbers::toDouble(row[1]), numbers::toDouble(row[3])) << row[0];
                EXPECT_LE(numbers::toDouble(row[1]), numbers::toDouble(row[4])) << row[0];
            }
            EXPECT_EQ(row[5] != "NULL", row[6] == "3") << row[0] << ": a combo box, and no other, has a list";
            if (row[5] != "NULL") {
                EXPECT_THAT(text::split(row[5], "|"), Contains(row[1])) << row[0];
            }
            EXPECT_NE(row[7], "") << row[0];
        }
}

TEST_F(NewStore, CountsTheItemsOfItsLists) {
    for (const Row& row : rows("SELECT ID, DropDownComboID, NumberOfItems, ListItem FROM tblDropDownComboLookUp")) {
        EXPECT_EQ(row[0], row[1]);
        EXPECT_EQ(numbers::toLong(row[2]), static_cast<std::int32_t>(text::split(row[3], "|").size()));
    }
}

TEST_F(NewStore, FindsNodesByIndex) {
    for (const char* field : {"Node", "Name"})
        EXPECT_THAT(
            rows(std::string("EXPLAIN QUERY PLAN SELECT rowid FROM tblRemoteIO WHERE ") + field + " = 'x'")[0][3],
            HasSubstr("USING COVERING INDEX"));
}

TEST_F(NewStore, LetsTwoNodesHaveOneNumber) {
    rows("INSERT INTO tblRemoteIO (Node, Name) VALUES ('1', 'a'), ('1', 'a')");
    EXPECT_THAT(column("SELECT Dirty FROM tblRemoteIO WHERE Node = '1'"), ElementsAre("0", "0"));
}

TEST_F(NewStore, IsNeverPutInPlaceOfAFile) {
    const std::string before = scratch::bytesOf(path);
    EXPECT_EQ(raisedBy([&] { createStore(path); }), 58);
    EXPECT_EQ(scratch::bytesOf(path), before);
    scratch::put(folder / "note.txt", "mine");
    EXPECT_EQ(raisedBy([&] { createStore(folder / "note.txt"); }), 58);
    EXPECT_EQ(scratch::bytesOf(folder / "note.txt"), "mine");
    EXPECT_EQ(raisedBy([&] { createStore(folder.path()); }), 58);
    EXPECT_EQ(raisedBy([&] { createStore(folder / "none/plant.db"); }), 76);
    EXPECT_THAT(folder.entries(), ElementsAre("note.txt", "plant.db"));
}

TEST_F(NewStore, IsTheSameEachTime) {
    createStore(folder / "second.db");
    EXPECT_EQ(scratch::bytesOf(folder / "second.db"), scratch::bytesOf(path));
}

TEST_F(NewStore, IsSound) {
    EXPECT_THAT(column("PRAGMA integrity_check"), ElementsAre("ok"));
    EXPECT_THAT(column("PRAGMA journal_mode"), ElementsAre("delete"));
}
