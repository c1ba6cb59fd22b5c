// Text files with two sections: the network's properties and the list of remote nodes.

#include "csv.h"
#include "fixture.h"

namespace canvas {
namespace {

using namespace fixture;

/// The two classes that read such a file, with the count of property lines that each reads.
struct Reading {
    std::string_view name;
    bool network;
    int lines;
};

void PrintTo(const Reading& reading, std::ostream* out) { *out << reading.name; }

struct NodeImport : Nodes {
    Ref<Object> module;
    std::string path;
    std::string source;

    void SetUp() override {
        store.set(5, 2, "PropertyName", "Type");
        type("Axiolane");
        store.addNode({"99", "old", "t", "8", "8", "IW0256", "OW0512", "1", "N/A", "0"});
    }
    void type(const std::string& value) const { store.set(5, 2, "Value", value); }
    void use(bool network) {
        module = network ? withMaps<clsBVTNetwork>() : withMaps<clsBVTRemoteIO>();
        source = network ? "Network::ImportFromCSV" : "RemoteIO::ImportFromCSV";
    }
    Value import(const std::string& bytes, int networkType = 0) {
        path = file("nodes.csv", bytes);
        if (module->className() == "clsBVTNetwork") return invoke(*module, "ImportFromCSV", path);
        return invoke(*module, "ImportFromCSV", path, networkType);
    }
    Texts found() const {
        return store.rows("SELECT Node, Name, NodeType, InputWords, OutputWords, InputBaseAddress, OutputBaseAddress, "
                          "TypeCode, MessageType, Dirty FROM tblRemoteIO ORDER BY rowid");
    }
};

struct EitherClass : NodeImport, ::testing::WithParamInterface<Reading> {
    void SetUp() override {
        NodeImport::SetUp();
        use(GetParam().network);
    }
    std::string firstSection() const { return networkSection(GetParam().lines); }
    const std::string old = "99,old,t,8,8,IW0256,OW0512,1,N/A,0";
};

INSTANTIATE_TEST_SUITE_P(Readers, EitherClass,
                         ::testing::Values(Reading{"Network", true, 13}, Reading{"RemoteIO", false, 11}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(EitherClass, ReplacesTheNodesAndTakesTheirAddressesAfresh) {
    EXPECT_EQ(import(firstSection() + nodeHead() + nodeLine("5", "press", "Press IO", "8", "4", "1077", 1) +
                     nodeLine("6", "lift", "Lift IO", "2", "0", "1078", 0)),
              Value(true));
    EXPECT_EQ(found(), (Texts{"5,press,Press IO,8,4,IW0300,OW0600,1077,null,1",
                              "6,lift,Lift IO,2,0,IW0310,null,1078,null,0"}));
    EXPECT_EQ(asked(), (Texts{"in.GetAddresses(W,8,0)", "in.GetAddresses(W,2,0)", "out.GetAddresses(W,4,1)"}));
    for (int n = 1; n <= GetParam().lines; ++n) EXPECT_EQ(store.property(5, n), "n" + std::to_string(n) + ",1");
    for (int n = GetParam().lines + 1; n <= 13; ++n) EXPECT_EQ(store.property(5, n), valueOf(5, n) + ",0");
    EXPECT_EQ(openHandles(path), 0);
    EXPECT_TRUE(told().empty());
}

TEST_P(EitherClass, CountsLinesOfUnknownPropertiesToo) {
    std::string text = head("Network");
    for (int n = 1; n <= GetParam().lines; ++n) text += propertyLine(5, n == 3 ? 77 : n, "n", 1);
    EXPECT_EQ(import(text + nodeHead()), Value(true));
    EXPECT_EQ(store.property(5, 3), "5003,0");
    EXPECT_EQ(store.property(5, GetParam().lines), "n,1");
}

TEST_P(EitherClass, WritesLinesOfAnotherGroupToThatGroup) {
    std::string text = head("Network");
    for (int n = 1; n <= GetParam().lines; ++n) text += propertyLine(2, n, "n", 1);
    EXPECT_EQ(import(text + nodeHead()), Value(true));
    EXPECT_EQ(store.property(2, 1), "n,1");
    EXPECT_EQ(store.property(5, 1), "5001,0");
}

TEST_P(EitherClass, AListWithOnlyItsHeaderLeavesNoNodes) {
    EXPECT_EQ(import(firstSection() + nodeHead()), Value(true));
    EXPECT_EQ(found(), Texts{});
    EXPECT_TRUE(asked().empty()) << "the maps are the caller's to empty";
}

TEST_P(EitherClass, AFileThatEndsAfterTheFirstSectionIsRefusedAndItsRowsStay) {
    EXPECT_EQ(import(firstSection()), Value(false));
    EXPECT_EQ(told(), Texts{"Illegal File! [ nodes.csv ] "});
    EXPECT_EQ(user->boxes[0].icon, Icon::critical);
    EXPECT_EQ(openHandles(path), 0);
    EXPECT_EQ(store.property(5, 1), "n1,1");
    EXPECT_EQ(store.property(5, GetParam().lines), "n" + std::to_string(GetParam().lines) + ",1");
    EXPECT_EQ(found(), Texts{old});
}

TEST_P(EitherClass, AFileThatEndsWithinTheFirstSectionIsRefusedAndItsRowsStay) {
    EXPECT_EQ(import(networkSection(4)), Value(false));
    EXPECT_EQ(told(), Texts{"Illegal File! [ nodes.csv ] "});
    EXPECT_EQ(openHandles(path), 0);
    EXPECT_EQ(store.property(5, 4), "n4,1");
    EXPECT_EQ(found(), Texts{old});
}

TEST_P(EitherClass, AnotherSecondTagIsRefusedAndTheNodesStay) {
    for (const std::string tag : {"remoteio", "RemoteIO ", "Network", ""}) {
        EXPECT_EQ(import(firstSection() + inQuotes(tag) + "\r\n" + nodeHeader), Value(false)) << tag;
        EXPECT_EQ(openHandles(path), 0);
    }
    EXPECT_EQ(told(), Texts(4, "Illegal File! [ nodes.csv ] "));
    EXPECT_EQ(store.property(5, 1), "n1,1");
    EXPECT_EQ(found(), Texts{old});
}

TEST_P(EitherClass, AHeaderThatIsTooShortIsAnErrorAndTheNodesStay) {
    const RuntimeError error = errorOf([&] { import(firstSection() + "\"RemoteIO\"\r\n\"Node\",\"Name\"\r\n"); });
    EXPECT_EQ(error.number, 62);
    EXPECT_EQ(error.source, source);
    EXPECT_EQ(openHandles(path), 1);
    EXPECT_EQ(found(), Texts{old});
}

TEST_P(EitherClass, ALineWithMissingFieldsIsAnErrorAndTheNodesBeforeItStay) {
    const RuntimeError error = errorOf([&] {
        import(firstSection() + nodeHead() + nodeLine("5", "press", "t", "8", "4", "1077", 1) + "\"6\",\"lift\"\r\n");
    });
    EXPECT_EQ(error.number, 62);
    EXPECT_EQ(error.source, source);
    EXPECT_EQ(openHandles(path), 1);
    EXPECT_EQ(found(), Texts{"5,press,t,8,4,IW0300,OW0600,1077,null,1"});
}

TEST_P(EitherClass, SkipsALineWithoutANode) {
    EXPECT_EQ(import(firstSection() + nodeHead() + nodeLine("", "ghost", "t", "8", "8", "1", 1) +
                     ",\"ghost\",\"t\",\"8\",\"8\",\"1\",1\r\n" + nodeLine("7", "real", "t", "0", "0", "1", 1)),
              Value(true));
    EXPECT_EQ(found(), Texts{"7,real,t,0,0,null,null,1,null,1"});
    EXPECT_TRUE(asked().empty());
}

TEST_P(EitherClass, ANodeThatStandsTwiceIsOneRowAsItsLastLineSays) {
    EXPECT_EQ(import(firstSection() + nodeHead() + nodeLine("5", "first", "a", "8", "0", "1", 1) +
                     nodeLine("5", "second", "b", "4", "0", "2", 0)),
              Value(true));
    EXPECT_EQ(found(), Texts{"5,second,b,4,0,IW0310,null,2,null,0"});
}

TEST_P(EitherClass, TakesAddressesForNumericCountsAboveZeroOnly) {
    std::string lines;
    const std::string counts[]{"0", "-4", "abc", "", " 8 ", "8.0"};
    for (std::size_t i = 0; i < std::size(counts); ++i) lines += nodeLine(std::to_string(i), "n", "t", counts[i], "0", "1", 1);
    EXPECT_EQ(import(firstSection() + nodeHead() + lines), Value(true));
    EXPECT_EQ(asked(), (Texts{"in.GetAddresses(W,8,0)", "in.GetAddresses(W,8,0)"}));
    EXPECT_EQ(store.rows("SELECT Node, InputBaseAddress FROM tblRemoteIO ORDER BY rowid"),
              (Texts{"0,null", "1,null", "2,null", "3,null", "4,IW0300", "5,IW0310"}));
}

TEST_P(EitherClass, ReadsBareNumbersAsTheTextsThatTheTableHolds) {
    EXPECT_EQ(import(firstSection() + nodeHead() + "5,press,t,8,4,1077,1\r\n"), Value(true));
    EXPECT_EQ(found(), Texts{"5,press,t,8,4,IW0300,OW0600,1077,null,1"});
    EXPECT_EQ(store.one("SELECT typeof(Node) FROM tblRemoteIO"), "text");
}

TEST_P(EitherClass, NullsAmongTheFieldsStayNull) {
    EXPECT_EQ(import(firstSection() + nodeHead() + "\"5\",,,,,,\r\n"), Value(true));
    EXPECT_EQ(found(), Texts{"5,null,null,null,null,null,null,null,null,null"});
}

TEST_P(EitherClass, NamesWithQuotesAndPatternsAreTheirOwnRows) {
    const std::string names[]{"O'Brien", "x' or '1'='1", "[a]", "%", "_", "*", "?", "';--"};
    std::string lines;
    for (const std::string& name : names) lines += nodeLine(name, name, "t", "0", "0", "1", 1);
    EXPECT_EQ(import(firstSection() + nodeHead() + lines + lines), Value(true));
    EXPECT_EQ(store.rows("SELECT Node FROM tblRemoteIO ORDER BY rowid"), Texts(std::begin(names), std::end(names)));
}

TEST_P(EitherClass, AMapThatRefusesEndsTheImportAndTheNodesBeforeStay) {
    struct Failing final {
        explicit Failing(Ref<Composed> map) {
            map->method("GetAddresses", [this](Args) -> Value {
                if (++calls == 2) throw RuntimeError(1234, "The map is full", "Host");
                return "IW0300";
            });
        }
        int calls = 0;
    };
    const auto map = make<Composed>();
    const Failing failing(map);
    module->put("InputMap", Value(Ref<Object>(map)));
    const RuntimeError error = errorOf([&] {
        import(firstSection() + nodeHead() + nodeLine("5", "a", "t", "8", "0", "1", 1) +
               nodeLine("6", "b", "t", "8", "0", "1", 1) + nodeLine("7", "c", "t", "8", "0", "1", 1));
    });
    EXPECT_EQ(error.number, 1234);
    EXPECT_EQ(error.description, "The map is full");
    EXPECT_EQ(error.source, source);
    EXPECT_EQ(found(), Texts{"5,a,t,8,0,IW0300,null,1,null,1"});
    EXPECT_EQ(openHandles(path), 1);
}

TEST_P(EitherClass, AMapThatIsNotSetIsAnErrorOnlyWhenItIsReached) {
    module = GetParam().network ? opened<clsBVTNetwork>() : opened<clsBVTRemoteIO>();
    EXPECT_EQ(import(firstSection() + nodeHead() + nodeLine("5", "a", "t", "0", "0", "1", 1)), Value(true));
    const RuntimeError error =
        errorOf([&] { import(firstSection() + nodeHead() + nodeLine("5", "a", "t", "8", "0", "1", 1)); });
    EXPECT_EQ(error.number, 91);
    EXPECT_EQ(error.source, source);
}

TEST_P(EitherClass, NeverTouchesTheMatrix) {
    const Array before = matrixOf(*module);
    import(firstSection() + nodeHead());
    EXPECT_EQ(matrixOf(*module), before);
}

TEST_F(NodeImport, RemoteIOFindsTheTwelfthLineOfANetworksFileWhereItsTagShouldBe) {
    use(false);
    const std::string exported = store.folder / "nodes.csv";
    invoke(*module, "ExportToCSV", exported);
    EXPECT_EQ(invoke(*module, "ImportFromCSV", exported, 0), Value(false));
    EXPECT_EQ(told(), Texts{"Illegal File! [ nodes.csv ] "});
    EXPECT_EQ(found().size(), 1U);
}

TEST_F(NodeImport, RemoteIOWritesElevenLinesOfAFileThatItRefuses) {
    use(false);
    EXPECT_EQ(import(networkSection(13) + nodeHead()), Value(false));
    EXPECT_EQ(store.property(5, 11), "n11,1");
    EXPECT_EQ(store.property(5, 12), "5012,0");
    EXPECT_EQ(openHandles(path), 0);
}

TEST_F(NodeImport, RemoteIOTakesTheLetterFromItsArgument) {
    const std::pair<int, std::string> letters[]{{0, "W"}, {1, "O"}, {2, ""}, {-1, ""}};
    for (const auto& [type, letter] : letters) {
        inputs.calls.clear(), outputs.calls.clear();
        use(false);
        EXPECT_EQ(import(networkSection(11) + nodeHead() + nodeLine("5", "a", "t", "8", "4", "1", 1), type), Value(true));
        EXPECT_EQ(asked(), (Texts{"in.GetAddresses(" + letter + ",8,0)", "out.GetAddresses(" + letter + ",4,1)"}));
    }
}

TEST_F(NodeImport, NetworkTakesTheLetterFromItsOwnType) {
    const std::pair<std::string, std::string> letters[]{
        {"Axiolane", "W"}, {"DeviceNet", "O"}, {"devicenet", ""}, {"Profibus", ""}, {"", ""}};
    for (const auto& [text, letter] : letters) {
        inputs.calls.clear(), outputs.calls.clear();
        type(text);
        use(true);
        EXPECT_EQ(import(networkSection(13) + nodeHead() + nodeLine("5", "a", "t", "8", "4", "1", 1)), Value(true));
        EXPECT_EQ(asked(), (Texts{"in.GetAddresses(" + letter + ",8,0)", "out.GetAddresses(" + letter + ",4,1)"})) << text;
    }
}

TEST_F(NodeImport, NetworkGoesByTheTypeInItsMatrixAndNotByTheImportedOne) {
    use(true);
    std::string text = head("Network");
    for (int n = 1; n <= 13; ++n) text += propertyLine(5, n, n == 2 ? "DeviceNet" : "n", 1);
    import(text + nodeHead() + nodeLine("5", "a", "t", "8", "0", "1", 1));
    EXPECT_EQ(asked(), Texts{"in.GetAddresses(W,8,0)"});
}

TEST_F(NodeImport, AMessageTypeThatDidNotTravelIsPutRightWhenItIsAskedFor) {
    use(false);
    import(networkSection(11) + nodeHead() + nodeLine("5", "a", "t", "0", "0", "1", 1));
    std::string type;
    EXPECT_EQ(invoke(*module, "GetMessageType", "5", 0, std::ref(type)), Value(true));
    EXPECT_EQ(type, "N/A");
}

}  // namespace
}  // namespace canvas
