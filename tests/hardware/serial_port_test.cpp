// The serial ports: what they put right in a store without their drop-down lists, and the store that COM1 closes.

#include "fixture.h"

namespace canvas {
namespace {

using namespace fixture;

struct Repaired {
    const char* property;
    const char* value;
    int lookup;
    int number;
};

constexpr Repaired repairs[]{
    {"Function", "Slave", 14, 5}, {"Protocol", "ZELPACK", 15, 6}, {"TransmissionMode", "RTU", 16, 7}};

const ModuleCase ports[]{modules[2], modules[3]};

struct SerialPorts : Hardware, ::testing::WithParamInterface<ModuleCase> {
    void SetUp() override {
        for (const Repaired& each : repairs)
            for (const int port : {3, 4}) store.set(port, each.number, "PropertyName", each.property);
    }
    void addList(int id, const std::string& items) const {
        store.run("INSERT INTO tblDropDownComboLookUp VALUES (" + std::to_string(id) + ", " + std::to_string(id) + ", 1, " +
                  literal(items) + ")");
    }
    /// Each of the three rows has a list of its own, with real choices.
    void addLists() const {
        addList(14, "Slave|Master"), addList(15, "ZELPACK|Modbus"), addList(16, "RTU|ASCII");
        for (const Repaired& each : repairs)
            for (const int port : {3, 4}) store.set(port, each.number, "ComboLookupID", std::to_string(each.lookup));
    }
    Texts all() const {
        Texts found;
        for (const char* table : {"tblSystemProperties", "tblPropertyNumberLookup", "tblDropDownComboLookUp"})
            for (const std::string& row : store.rows(std::string("SELECT * FROM ") + table + " ORDER BY rowid"))
                found.push_back(row);
        return found;
    }
    Texts lists() const { return store.rows("SELECT * FROM tblDropDownComboLookUp ORDER BY rowid"); }
    Texts lookups(int number) const {
        return store.rows("SELECT groupID, ComboLookupID, ToolTipText FROM tblPropertyNumberLookup WHERE PropertyNumber = " +
                          std::to_string(number) + " AND groupID IN (3, 4) ORDER BY groupID");
    }
    Ref<Object> ready() const { return Hardware::opened(GetParam().create()); }
};

INSTANTIATE_TEST_SUITE_P(Both, SerialPorts, ::testing::ValuesIn(ports), moduleName);

TEST_P(SerialPorts, PatchThreeTablesForBothPorts) {
    const Texts others = store.rows("SELECT * FROM tblSystemProperties WHERE groupID NOT IN (3, 4)");
    const auto module = ready();
    EXPECT_EQ(lists(), (Texts{"14,14,1,Slave", "15,15,1,ZELPACK", "16,16,1,RTU"}));
    for (const Repaired& each : repairs) {
        const std::string value = each.value, lookup = std::to_string(each.lookup);
        for (const int port : {3, 4}) EXPECT_EQ(store.property(port, each.number), value + ",0");
        EXPECT_EQ(lookups(each.number), (Texts{"3," + lookup + "," + value + " setting.",
                                               "4," + lookup + "," + value + " setting."}));
        EXPECT_EQ(cell(module, each.number - 1, 8), value);
        EXPECT_EQ(cell(module, each.number - 1, 1), value);
    }
    EXPECT_EQ(store.rows("SELECT * FROM tblSystemProperties WHERE groupID NOT IN (3, 4)"), others);
}

TEST_P(SerialPorts, LeaveOtherRowsAndOtherGroupsAlone) {
    ready();
    for (const int port : {3, 4})
        for (const int n : {1, 2, 3, 4}) EXPECT_EQ(store.property(port, n), valueOf(port, n) + ",0");
    EXPECT_EQ(store.property(4, 8), "4008,0");
    EXPECT_EQ(store.one("SELECT ComboLookupID FROM tblPropertyNumberLookup WHERE PropertyNumber = 5 AND groupID = 2"),
              "null");
    EXPECT_EQ(store.one("SELECT ToolTipText FROM tblPropertyNumberLookup WHERE PropertyNumber = 5 AND groupID = 5"),
              "Tip 5.5");
}

TEST_P(SerialPorts, ReadTheOtherColumnsOfAPatchedRowAsUsual) {
    const auto module = ready();
    const int port = GetParam().group;
    EXPECT_EQ(cell(module, 4, 0), "Function");
    EXPECT_EQ(cell(module, 4, 9), "check " + std::to_string(port) + ".5");
    EXPECT_EQ(cell(module, 4, 12), defaultOf(port, 5));
    EXPECT_EQ(cell(module, 4, 14), "4");
}

TEST_P(SerialPorts, LeaveAStoreWithRealListsAsItIs) {
    addLists();
    const Texts before = all();
    const auto module = ready();
    EXPECT_EQ(all(), before);
    EXPECT_EQ(cell(module, 4, 8), "Slave|Master");
    EXPECT_EQ(cell(module, 4, 1), valueOf(GetParam().group, 5));
}

TEST_P(SerialPorts, PatchARowWhoseListHasOneItem) {
    addLists();
    store.run("UPDATE tblDropDownComboLookUp SET ListItem = 'RTU' WHERE ID = 16");
    ready();
    EXPECT_EQ(lists(), (Texts{"14,14,1,Slave|Master", "15,15,1,ZELPACK|Modbus", "16,16,1,RTU"}));
    EXPECT_EQ(lookups(7), (Texts{"3,16,RTU setting.", "4,16,RTU setting."}));
    EXPECT_EQ(store.property(3, 7), "RTU,0");
    EXPECT_EQ(store.property(4, 7), "RTU,0");
    EXPECT_EQ(store.property(3, 5), "3005,0");
    EXPECT_EQ(lookups(5), (Texts{"3,14,Tip 3.5", "4,14,Tip 4.5"}));
}

TEST_P(SerialPorts, KeepAListWhoseNumberIsTaken) {
    addList(14, "something else");
    ready();
    EXPECT_EQ(lists(), (Texts{"14,14,1,something else", "15,15,1,ZELPACK", "16,16,1,RTU"}));
}

TEST_P(SerialPorts, AddNothingTheSecondTimeAndWriteTheSameValues) {
    const auto module = ready();
    const Texts patched = all();
    store.set(3, 5, "Value", "Master");
    EXPECT_EQ(invoke(*module, "ReadFromDB"), Value(true));
    EXPECT_EQ(all(), patched);
    EXPECT_EQ(cell(module, 4), "Slave");
}

TEST_P(SerialPorts, KnowTheThreeRowsByTheirNamesAlone) {
    for (const Repaired& each : repairs)
        for (const int port : {3, 4}) store.set(port, each.number, "PropertyName", "function");
    store.set(GetParam().group, 2, "PropertyName", "Protocol");
    const auto module = ready();
    // The row that is put right is the one of the property's usual number.
    EXPECT_EQ(lists(), Texts{"15,15,1,ZELPACK"});
    EXPECT_EQ(cell(module, 1), "ZELPACK");
    EXPECT_EQ(store.property(GetParam().group, 2), valueOf(GetParam().group, 2) + ",0");
    EXPECT_EQ(store.property(3, 6), "ZELPACK,0");
    EXPECT_EQ(store.property(4, 6), "ZELPACK,0");
}

TEST_P(SerialPorts, NeverPatchAnotherName) {
    for (const Repaired& each : repairs)
        for (const int port : {3, 4}) store.set(port, each.number, "PropertyName", "Baud rate");
    const Texts before = all();
    ready();
    EXPECT_EQ(all(), before);
}

TEST_P(SerialPorts, TheRepairsAreNoMembers) {
    const auto module = ready();
    Value arguments[]{"Function"};
    EXPECT_EQ(raisedBy([&] { module->call("UpdateReplaceSPDB", arguments); }), 438);
}

TEST_P(SerialPorts, AStoreThatCannotBePatchedRaisesTheErrorAgain) {
    store.run("DROP VIEW " + GetParam().query());
    store.run("CREATE VIEW " + GetParam().query() +
              " AS SELECT 'Function' AS PropertyName, 'x' AS Value, 3 AS DisplayTypeID, 52 AS DataTypeID, '' AS "
              "ToolTipText, 0 AS ExpressionBuilder, 1 AS Accessibility, 14 AS ComboLookupID, 'Slave' AS ListItem, '' AS "
              "Validation, 0 AS MinimumValue, 0 AS MaximumValue, '' AS \"Default\", '0' AS DisplayFormat, 0 AS "
              "ValidateTypeID; DROP TABLE tblDropDownComboLookUp");
    const RuntimeError error = errorOf([&] { ready(); });
    EXPECT_EQ(error.number, 3078);
    EXPECT_EQ(error.source, GetParam().group == 3 ? "COM1::ReadFromDB" : "COM2::ReadFromDB ");
}

struct OpenStore : Hardware {};

TEST_F(OpenStore, TheFirstPortClosesItAfterEachOperation) {
    const auto module = opened<clsBVTCOM1>();
    EXPECT_EQ(openHandles(store.path), 0);
    for (const std::string_view operation : {"ReadFromDB", "SaveToDB", "RestoreDefault", "ResetDirtyBits"}) {
        invoke(*module, operation);
        EXPECT_EQ(openHandles(store.path), 0) << operation;
    }
}

TEST_F(OpenStore, TheFirstPortKeepsTheRowsBeforeAFailure) {
    const auto module = opened<clsBVTCOM1>();
    store.run("UPDATE tblSystemProperties SET PropertyNumber = 200 WHERE groupID = 3 AND PropertyNumber = 4");
    EXPECT_EQ(raisedBy([&] { invoke(*module, "SaveToDB"); }), 9);
    EXPECT_EQ(store.property(3, 3), "3003,1");
}

TEST_F(OpenStore, TheFirstPortOpensItAnewAndMissesAStoreThatIsGone) {
    const auto module = opened<clsBVTCOM1>();
    std::filesystem::remove(store.path);
    for (const std::string_view operation : {"SaveToDB", "RestoreDefault", "ResetDirtyBits", "ReadFromDB"})
        EXPECT_EQ(raisedBy([&] { invoke(*module, operation); }), 3024) << operation;
    EXPECT_FALSE(std::filesystem::exists(store.path));
}

TEST_F(OpenStore, TheFirstPortSeesAStoreThatWasPutInItsPlace) {
    const auto module = opened<clsBVTCOM1>();
    const Store other;
    std::filesystem::copy_file(other.path, store.path, std::filesystem::copy_options::overwrite_existing);
    edit(module, 0, "kept");
    invoke(*module, "SaveToDB");
    EXPECT_EQ(store.property(3, 1), "kept,1");
}

struct KeptOpen : Hardware, ::testing::WithParamInterface<ModuleCase> {};
const ModuleCase keeping[]{modules[0], modules[1], modules[3], modules[4], modules[5], modules[6]};
INSTANTIATE_TEST_SUITE_P(Modules, KeptOpen, ::testing::ValuesIn(keeping), moduleName);

TEST_P(KeptOpen, ForTheLifeOfTheObject) {
    auto module = Hardware::opened(GetParam().create());
    EXPECT_EQ(openHandles(store.path), 1);
    invoke(*module, "SaveToDB");
    invoke(*module, "RestoreDefault");
    invoke(*module, "ResetDirtyBits");
    EXPECT_EQ(openHandles(store.path), 1);
    auto second = Hardware::opened(GetParam().create());
    EXPECT_EQ(openHandles(store.path), 1) << "handles on one store share a connection";
    second = nullptr;
    EXPECT_EQ(openHandles(store.path), 1);
    module = nullptr;
    EXPECT_EQ(openHandles(store.path), 0);
}

}  // namespace
}  // namespace canvas
