// The network's settings, found by the names of their properties, and the catalogue of Axiolane nodes.

#include "fixture.h"

namespace canvas {
namespace {

using namespace fixture;
using tracing::Answer;
using tracing::ScriptedHandler;

struct Network : Hardware {
    /// Property `n` gets a name and a value.
    void name(int n, const std::string& property, const std::optional<std::string>& value) const {
        store.set(5, n, "PropertyName", property);
        store.set(5, n, "Value", value);
    }
    Value of(std::string_view operation) const { return invoke(*opened<clsBVTNetwork>(), operation); }
    static Value integer(int value) { return static_cast<std::int16_t>(value); }

    void addDevice(const std::string& node, const std::string& code, const std::string& in, const std::string& out) const {
        store.run("INSERT INTO catalogue VALUES (" + literal(node) + ", " + literal(code) + ", " + literal(in) + ", " +
                  literal(out) + ")");
    }
};

TEST_F(Network, TheTypeIsANumber) {
    const std::pair<std::string, int> types[]{{"DeviceNet", 1}, {"Axiolane", 0},  {"Profibus", -1}, {"devicenet", -1},
                                              {"AXIOLANE", -1}, {"Axiolane ", -1}, {"", -1},        {"1", -1}};
    for (const auto& [text, number] : types) {
        name(4, "Type", text);
        EXPECT_EQ(of("NetworkType"), integer(number)) << text;
    }
}

TEST_F(Network, TheFunctionIsANumber) {
    const std::pair<std::string, int> functions[]{{"Master", 1}, {"Slave", 0}, {"master", -1}, {"None", -1}, {"", -1}};
    for (const auto& [text, number] : functions) {
        name(13, "Function", text);
        EXPECT_EQ(of("NetworkFunction"), integer(number)) << text;
    }
}

TEST_F(Network, NodeNumbersThatAreNotNumericAreZero) {
    const std::pair<std::string, int> numbers[]{{"17", 17}, {"0", 0},  {"-3", -3}, {"abc", 0},   {"", 0},
                                                {" 5 ", 5}, {"5x", 0}, {"2.5", 2}, {"&H10", 16}, {"32767", 32767}};
    for (const auto& [text, number] : numbers) {
        name(1, "Node", text);
        name(9, "SlaveNodes", text);
        EXPECT_EQ(of("NetworkNode"), integer(number)) << text;
        EXPECT_EQ(of("NetworkSlaveNode"), integer(number)) << text;
    }
}

TEST_F(Network, ANullNodeNumberIsZero) {
    name(1, "Node", std::nullopt);
    EXPECT_EQ(of("NetworkNode"), integer(0));
}

TEST_F(Network, ANodeNumberBeyondSixteenBitsOverflows) {
    name(1, "Node", "32768");
    EXPECT_EQ(raisedBy([&] { of("NetworkNode"); }), 6);
}

TEST_F(Network, TheNameIsAText) {
    name(7, "Name", "O'Brien's line");
    EXPECT_EQ(of("NetworkName"), Value("O'Brien's line"));
    name(7, "Name", "12");
    EXPECT_EQ(of("NetworkName"), Value("12"));
}

TEST_F(Network, TheFirstOfTwoRowsOfANameCounts) {
    name(3, "Type", "Axiolane");
    name(8, "Type", "DeviceNet");
    EXPECT_EQ(of("NetworkType"), integer(0));
}

TEST_F(Network, NamesAreComparedExactly) {
    name(3, "type", "Axiolane");
    name(4, "Type ", "Axiolane");
    name(8, "Type", "DeviceNet");
    EXPECT_EQ(of("NetworkType"), integer(1));
}

TEST_F(Network, SettingsComeFromTheMatrixAndNotFromTheStore) {
    name(3, "Type", "Axiolane");
    const auto module = opened<clsBVTNetwork>();
    edit(module, 2, "DeviceNet");
    EXPECT_EQ(invoke(*module, "NetworkType"), integer(1));
    store.set(5, 3, "Value", "Profibus");
    EXPECT_EQ(invoke(*module, "NetworkType"), integer(1));
    edit(module, 2, "Function", 0);
    edit(module, 2, "Slave");
    EXPECT_EQ(invoke(*module, "NetworkFunction"), integer(0));
}

TEST_F(Network, ASettingWithoutARowIsAnArrayError) {
    const auto module = opened<clsBVTNetwork>(), fresh = Ref<Object>(make<clsBVTNetwork>());
    for (const std::string_view operation :
         {"NetworkType", "NetworkFunction", "NetworkSlaveNode", "NetworkNode", "NetworkName"}) {
        EXPECT_EQ(raisedBy([&] { invoke(*module, operation); }), 9) << operation;
        EXPECT_EQ(raisedBy([&] { invoke(*fresh, operation); }), 9) << operation;
        ScriptedHandler handler({Answer::leave});
        invoke(*module, operation);
        ASSERT_EQ(handler.asked.size(), 1U);
        EXPECT_EQ(handler.asked[0].procedure, operation);
        EXPECT_EQ(handler.asked[0].module, "clsBVTNetwork");
    }
}

TEST_F(Network, TheCatalogueIsAnArrayOfTextsAndAComboList) {
    addDevice("A", "100", "8", "4");
    addDevice("B", "101", "0", "16");
    addDevice("C", "102", "1", "1");
    Value list = Array::undimensioned("String");
    EXPECT_EQ(invoke(*opened<clsBVTNetwork>(), "GetAxiolaneNodes", std::ref(list)), Value("#0*0;A|#1;B|#2;C|"));
    ASSERT_EQ(list.toArray().dimensions, (std::vector<Bounds>{{0, 2}, {0, 3}}));
    const Texts rows[]{{"A", "100", "8", "4"}, {"B", "101", "0", "16"}, {"C", "102", "1", "1"}};
    for (int i = 0; i < 3; ++i)
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(at(list.toArray(), i, column), Value(rows[i][static_cast<std::size_t>(column)]));
    EXPECT_EQ(list.typeName(), "String()");
}

TEST_F(Network, ACatalogueOfOneNodeHasThePreset) {
    addDevice("O'Brien | 50%", "1", "2", "3");
    Value list;
    EXPECT_EQ(invoke(*opened<clsBVTNetwork>(), "GetAxiolaneNodes", std::ref(list)), Value("#0*0;O'Brien | 50%|"));
}

TEST_F(Network, ALongCatalogueIsCountedWhole) {
    std::string expected;
    for (int i = 0; i < 300; ++i) {
        addDevice("D" + std::to_string(i), "1", "2", "3");
        expected += "#" + std::to_string(i) + (i == 0 ? "*0" : "") + ";D" + std::to_string(i) + "|";
    }
    Value list;
    EXPECT_EQ(invoke(*opened<clsBVTNetwork>(), "GetAxiolaneNodes", std::ref(list)), Value(expected));
    EXPECT_EQ(list.toArray().dimensions, (std::vector<Bounds>{{0, 299}, {0, 3}}));
}

TEST_F(Network, AnEmptyCatalogueFailsInTheSizing) {
    const auto module = opened<clsBVTNetwork>();
    Value list = arrayOf("String", Texts{"before"});
    EXPECT_EQ(raisedBy([&] { invoke(*module, "GetAxiolaneNodes", std::ref(list)); }), 9);
    ScriptedHandler handler({Answer::leave});
    EXPECT_EQ(invoke(*module, "GetAxiolaneNodes", std::ref(list)), Value(""));
    ASSERT_EQ(handler.asked.size(), 1U);
    EXPECT_EQ(handler.asked[0].number, 9);
    EXPECT_EQ(handler.asked[0].procedure, "GetAxiolaneNodes");
}

TEST_F(Network, TheCatalogueNeedsAnOpenStore) {
    Value list;
    EXPECT_EQ(raisedBy([&] { invoke(*make<clsBVTNetwork>(), "GetAxiolaneNodes", std::ref(list)); }), 91);
}

TEST_F(Network, MapsAreWrittenAndNeverRead) {
    const auto module = opened<clsBVTNetwork>();
    for (const std::string_view map : {"InputMap", "OutputMap"}) {
        module->put(map, FakeMap().object());
        EXPECT_EQ(raisedBy([&] { module->get(map); }), 438) << map;
    }
}

}  // namespace
}  // namespace canvas
