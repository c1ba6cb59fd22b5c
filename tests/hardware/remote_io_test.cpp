// The list of remote nodes: what is found, listed, renamed and replaced.

#include "fixture.h"
#include "host/collection.h"

namespace canvas {
namespace {

using namespace fixture;

struct RemoteIO : Nodes {
    Ref<Object> module = withMaps();

    Value is(std::string_view operation, const std::string& text) const { return invoke(*module, operation, text); }
    /// A node without words.
    void add(const std::string& node, const std::string& name, const std::string& mark = "0") const {
        store.addNode({node, name, "t", "0", "0", "null", "null", "1", "N/A", mark});
    }
    /// One list of texts, sorted by number (0) or by name (1): the numbers, "/" and the names.
    Texts listed(int type) const {
        const auto numbers = make<Collection>(), names = make<Collection>();
        EXPECT_EQ(invoke(*module, "GetRemoteIOList", type, Ref<Object>(numbers), Ref<Object>(names)), Value(true));
        Texts all;
        for (const auto& collection : {numbers, names}) {
            if (collection == names) all.push_back("/");
            for (std::int32_t i = 1; i <= collection->Count(); ++i) all.push_back(shown(collection->at(i)));
        }
        return all;
    }
    std::string typeOf(const std::string& node, int networkType) const {
        std::string type = "before";
        const Value answer = invoke(*module, "GetMessageType", node, networkType, std::ref(type));
        return answer.toText() + " " + type;
    }
    std::string storedType(const std::string& node) const {
        return store.one("SELECT MessageType FROM tblRemoteIO WHERE Node = " + literal(node));
    }
};

TEST_F(RemoteIO, IsInListFindsNumbersAndIsNameInListFindsNames) {
    add("12", "press");
    EXPECT_EQ(is("IsInList", "12"), Value(true));
    EXPECT_EQ(is("IsInList", "press"), Value(false));
    EXPECT_EQ(is("IsInList", "1"), Value(false));
    EXPECT_EQ(is("IsInList", "012"), Value(false));
    EXPECT_EQ(is("IsInList", ""), Value(false));
    EXPECT_EQ(is("IsNameInList", "press"), Value(true));
    EXPECT_EQ(is("IsNameInList", "12"), Value(false));
    EXPECT_EQ(is("IsNameInList", "pres"), Value(false));
}

TEST_F(RemoteIO, AnEmptyListHasNothing) {
    EXPECT_EQ(is("IsInList", "1"), Value(false));
    EXPECT_EQ(is("IsNameInList", "a"), Value(false));
    EXPECT_EQ(invoke(*module, "GetNumberOfNodes"), Value(std::int16_t{0}));
    EXPECT_EQ(listed(0), Texts{"/"});
}

TEST_F(RemoteIO, CountsItsNodes) {
    for (int i = 1; i <= 150; ++i) add(std::to_string(i), "n");
    EXPECT_EQ(invoke(*module, "GetNumberOfNodes"), Value(std::int16_t{150}));
}

TEST_F(RemoteIO, GivesTheDataOfANode) {
    store.addNode({"12", "press", "Press IO", "8", "4", "IW0300", "OW0600", "1077", "Polled", "1"});
    std::string name, type, in, out, code;
    EXPECT_EQ(invoke(*module, "GetData", "12", std::ref(name), std::ref(type), std::ref(in), std::ref(out), std::ref(code)),
              Value(true));
    EXPECT_EQ((Texts{name, type, in, out, code}), (Texts{"press", "Press IO", "8", "4", "1077"}));
}

TEST_F(RemoteIO, GivesNoDataOfANodeThatIsNotThere) {
    add("12", "press");
    store.addNode({"", "blank", "t", "0", "0", "null", "null", "1", "N/A", "0"});
    for (const std::string node : {"13", ""}) {
        std::string name = "kept", type = "kept", in = "kept", out = "kept", code = "kept";
        EXPECT_EQ(invoke(*module, "GetData", node, std::ref(name), std::ref(type), std::ref(in), std::ref(out),
                         std::ref(code)),
                  Value(false));
        EXPECT_EQ((Texts{name, type, in, out, code}), Texts(5, "kept"));
    }
}

TEST_F(RemoteIO, ListsByNumberOrByNameAsTexts) {
    add("2", "lift");
    add("10", "press");
    add("1", "valve");
    add("3", "conveyor");
    EXPECT_EQ(listed(0), (Texts{"1", "10", "2", "3", "/", "valve", "press", "lift", "conveyor"}));
    EXPECT_EQ(listed(1), (Texts{"3", "2", "10", "1", "/", "conveyor", "lift", "press", "valve"}));
}

TEST_F(RemoteIO, ListsWithoutKeysBehindWhatTheCollectionsHold) {
    add("7", "n");
    const auto numbers = make<Collection>(), names = make<Collection>();
    numbers->Add("before");
    invoke(*module, "GetRemoteIOList", 0, Ref<Object>(numbers), Ref<Object>(names));
    EXPECT_EQ(numbers->Count(), 2);
    EXPECT_EQ(numbers->at(2), Value("7"));
    EXPECT_EQ(numbers->find("7"), nullptr);
    EXPECT_EQ(names->at(1), Value("n"));
}

TEST_F(RemoteIO, ListsIntoCollectionsOfTheHost) {
    add("7", "n");
    Texts added;
    const auto host = make<Composed>("Collection");
    host->method("Add", [&](Args args) -> Value {
        added.push_back(args.front().toText());
        return {};
    });
    EXPECT_EQ(invoke(*module, "GetRemoteIOList", 0, Ref<Object>(host), Ref<Object>(host)), Value(true));
    EXPECT_EQ(added, (Texts{"7", "n"}));
}

TEST_F(RemoteIO, RenumbersAndRenamesWithoutMarkingOrMovingAddresses) {
    store.addNode({"12", "press", "t", "8", "4", "IW0300", "OW0600", "1077", "Polled", "0"});
    EXPECT_EQ(invoke(*module, "UpdateNodeNumber", "13", "12"), Value(true));
    EXPECT_EQ(store.nodes(), Texts{"13,press,t,8,4,IW0300,OW0600,1077,Polled,0"});
    EXPECT_EQ(invoke(*module, "UpdateNodeName", "lift", "press"), Value(true));
    EXPECT_EQ(store.nodes(), Texts{"13,lift,t,8,4,IW0300,OW0600,1077,Polled,0"});
    EXPECT_TRUE(asked().empty());
}

TEST_F(RemoteIO, AReportNamesTheParametersOfARenaming) {
    const tracing::Surroundings surroundings;
    tracing::ScriptedHandler handler({tracing::Answer::report, tracing::Answer::leave});
    invoke(*make<clsBVTRemoteIO>(), "UpdateNodeName", "next", "old");
    EXPECT_TRUE(surroundings.wrote("strNewName = \"next\" (String)")) << surroundings.dump();
    EXPECT_TRUE(surroundings.wrote("strOldName = \"old\" (String)")) << surroundings.dump();
}

TEST_F(RemoteIO, RenumberingWhatIsNotThereIsTrueToo) {
    add("12", "press");
    const Texts before = store.nodes();
    EXPECT_EQ(invoke(*module, "UpdateNodeNumber", "13", "99"), Value(true));
    EXPECT_EQ(invoke(*module, "UpdateNodeName", "x", "y"), Value(true));
    EXPECT_EQ(store.nodes(), before);
}

TEST_F(RemoteIO, ANumberInUseMayBeGivenTwice) {
    add("1", "a");
    add("2", "b");
    EXPECT_EQ(invoke(*module, "UpdateNodeNumber", "1", "2"), Value(true));
    EXPECT_EQ(store.rows("SELECT Node, Name FROM tblRemoteIO ORDER BY rowid"), (Texts{"1,a", "1,b"}));
}

TEST_F(RemoteIO, RenamesTheFirstOfTwoNodesOfAName) {
    add("1", "same");
    add("2", "same");
    invoke(*module, "UpdateNodeName", "other", "same");
    EXPECT_EQ(store.rows("SELECT Node, Name FROM tblRemoteIO ORDER BY rowid"), (Texts{"1,other", "2,same"}));
}

TEST_F(RemoteIO, AMessageTypeThatFitsTheNetworkStays) {
    store.addNode({"1", "a", "t", "0", "0", "null", "null", "1", "Strobed", "0"});
    store.addNode({"2", "b", "t", "0", "0", "null", "null", "1", "Polled", "0"});
    store.addNode({"3", "c", "t", "0", "0", "null", "null", "1", "N/A", "0"});
    const Texts before = store.nodes();
    EXPECT_EQ(typeOf("1", 1), "True Strobed");
    EXPECT_EQ(typeOf("2", 1), "True Polled");
    EXPECT_EQ(typeOf("3", 0), "True N/A");
    EXPECT_EQ(store.nodes(), before);
}

TEST_F(RemoteIO, AMessageTypeThatDoesNotFitIsPutRight) {
    struct Row {
        std::string stored;
        int networkType;
        std::string right;
    };
    const Row rows[]{{"null", 0, "N/A"},      {"null", 1, "Polled"},   {"", 0, "N/A"},        {"", 1, "Polled"},
                     {"N/A", 1, "Polled"},    {"Polled", 0, "N/A"},    {"Strobed", 0, "N/A"}, {"polled", 1, "Polled"},
                     {"STROBED", 1, "Polled"}, {"n/a", 0, "N/A"},      {"Other", 1, "Polled"}, {"Other", 0, "N/A"},
                     {"N/A", 2, "Polled"},    {"N/A", -1, "Polled"}};
    for (const Row& row : rows) {
        store.run("DELETE FROM tblRemoteIO");
        store.addNode({"5", "a", "t", "0", "0", "null", "null", "1", row.stored, "0"});
        EXPECT_EQ(typeOf("5", row.networkType), "True " + row.right) << row.stored << " on " << row.networkType;
        EXPECT_EQ(storedType("5"), row.right);
        EXPECT_EQ(store.one("SELECT Dirty FROM tblRemoteIO"), "0");
    }
}

TEST_F(RemoteIO, TheMessageTypeOfNoNodeIsFalse) {
    store.addNode({"", "a", "t", "0", "0", "null", "null", "1", "Polled", "0"});
    EXPECT_EQ(typeOf("", 0), "False before");
    EXPECT_EQ(typeOf("9", 0), "False before");
    EXPECT_EQ(storedType(""), "Polled");
}

TEST_F(RemoteIO, RemovingAllNodesAnswersFalseAndAsksNoMap) {
    for (int i = 1; i <= 20; ++i) store.addNode({std::to_string(i), "a", "t", "8", "8", "IW0300", "OW0600", "1", "N/A", "0"});
    EXPECT_EQ(invoke(*module, "RemoveAllRemoteIONodes"), Value(false));
    EXPECT_EQ(store.nodes(), Texts{});
    EXPECT_TRUE(asked().empty());
    EXPECT_EQ(invoke(*module, "RemoveAllRemoteIONodes"), Value(false));
}

TEST_F(RemoteIO, SavingDoesNothing) {
    add("1", "a", "0");
    edit(module, 0, "edited");
    const Texts before = store.properties(7), nodes = store.nodes();
    EXPECT_EQ(invoke(*module, "SaveToDB"), Value());
    EXPECT_EQ(store.properties(7), before);
    EXPECT_EQ(store.nodes(), nodes);
    EXPECT_EQ(cell(module, 0), "edited");
}

TEST_F(RemoteIO, ResettingMarksWorksOnTheNodesAlone) {
    add("1", "a", "1");
    add("2", "b", "0");
    store.run("UPDATE tblSystemProperties SET Dirty = 1");
    const Texts properties = store.rows("SELECT * FROM tblSystemProperties");
    EXPECT_EQ(invoke(*module, "ResetDirtyBits"), Value(true));
    EXPECT_EQ(store.rows("SELECT Node, Dirty FROM tblRemoteIO ORDER BY rowid"), (Texts{"1,0", "2,0"}));
    EXPECT_EQ(store.rows("SELECT * FROM tblSystemProperties"), properties);
}

TEST_F(RemoteIO, RestoringLeavesMarksAndNodesAlone) {
    add("1", "a", "0");
    const Texts nodes = store.nodes();
    store.set(7, 2, "Dirty", "1");
    invoke(*module, "RestoreDefault");
    EXPECT_EQ(store.property(7, 1), "d7.1,0");
    EXPECT_EQ(store.property(7, 2), "d7.2,1");
    EXPECT_EQ(store.nodes(), nodes);
}

struct Slave {
    int networkType;
    std::string words;
    std::string address;
};

TEST_F(RemoteIO, TheControllerAsSlaveHasFixedAddresses) {
    const Slave rows[]{{0, "8", "OW0512"},   {0, "100", "OW0512"}, {0, "0", "OW0512"},   {1, "8", "OW0260"},
                       {1, "9", "OW0261"},   {1, "0", "OW0256"},   {1, "1", "OW0257"},   {1, "100", "OW0306"},
                       {1, "1600", "OW1056"}, {2, "8", ""},         {-1, "8", ""}};
    for (const Slave& row : rows) {
        EXPECT_EQ(invoke(*module, "SetKX410Slave", "5", false, row.networkType, row.words, "6"), Value(true));
        EXPECT_EQ(store.rows("SELECT Node, Name, NodeType, InputWords, OutputWords, InputBaseAddress, "
                             "COALESCE(OutputBaseAddress, ''), TypeCode, MessageType, Dirty FROM tblRemoteIO"),
                  Texts{"5,KX410Slave,KX410 Slave," + row.words + ",6,IW0256," + row.address + ",100410,null,1"})
            << row.networkType << " " << row.words;
    }
    EXPECT_TRUE(asked().empty());
}

TEST_F(RemoteIO, TheControllerAsSlaveIsTheOnlyNode) {
    for (int i = 1; i <= 9; ++i) add(std::to_string(i), "n");
    invoke(*module, "SetKX410Slave", "5", false, 0, "8", "8");
    EXPECT_EQ(store.rows("SELECT Node, Name FROM tblRemoteIO"), Texts{"5,KX410Slave"});
}

TEST_F(RemoteIO, AControllerThatWasMasterBecomesNodeOne) {
    invoke(*module, "SetKX410Slave", "5", true, 0, "8", "8");
    EXPECT_EQ(store.one("SELECT Node FROM tblRemoteIO"), "1");
}

struct OddName : RemoteIO, ::testing::WithParamInterface<std::string> {
    void SetUp() override {
        for (const std::string other : {"plain", "a", "1", ""}) add(other, other);
    }
    Texts others() const { return store.rows("SELECT Node, Name FROM tblRemoteIO ORDER BY rowid LIMIT 4"); }
    const Texts untouched{"plain,plain", "a,a", "1,1", ","};
};

INSTANTIATE_TEST_SUITE_P(Names, OddName,
                         ::testing::Values("O'Brien", "x' or '1'='1", "' OR 1=1 --", "[a]", "[Node]", "%", "_", "p*", "?", "#",
                                           "';DROP TABLE tblRemoteIO;--", "\"plain\"", "A", "pl\xC3\xA4in", "a ", "\\", "''"),
                         [](const auto& info) { return std::to_string(info.index); });

TEST_P(OddName, FindsNobodyElsesRow) {
    EXPECT_EQ(is("IsInList", GetParam()), Value(false));
    EXPECT_EQ(is("IsNameInList", GetParam()), Value(false));
    std::string a, b, c, d, e;
    EXPECT_EQ(invoke(*module, "GetData", GetParam(), std::ref(a), std::ref(b), std::ref(c), std::ref(d), std::ref(e)),
              Value(false));
    EXPECT_EQ(typeOf(GetParam(), 0), "False before");
    invoke(*module, "UpdateNodeNumber", "taken", GetParam());
    invoke(*module, "UpdateNodeName", "taken", GetParam());
    EXPECT_EQ(others(), untouched);
}

TEST_P(OddName, FindsItsOwnRow) {
    invoke(*module, "SaveData", GetParam(), GetParam(), GetParam(), "0", "0", GetParam(), 0, "N/A");
    EXPECT_EQ(is("IsInList", GetParam()), Value(true));
    EXPECT_EQ(is("IsNameInList", GetParam()), Value(true));
    std::string name, type, in, out, code;
    invoke(*module, "GetData", GetParam(), std::ref(name), std::ref(type), std::ref(in), std::ref(out), std::ref(code));
    EXPECT_EQ((Texts{name, type, code}), Texts(3, GetParam()));
    invoke(*module, "SaveData", GetParam(), "second", "t", "0", "0", "1", 0, "N/A");
    EXPECT_EQ(store.one("SELECT COUNT(*) FROM tblRemoteIO"), "5");
    EXPECT_EQ(store.one("SELECT Name FROM tblRemoteIO WHERE Node = " + literal(GetParam())), "second");
    invoke(*module, "UpdateNodeName", GetParam(), "second");
    EXPECT_EQ(is("IsNameInList", GetParam()), Value(true));
    invoke(*module, "UpdateNodeNumber", "renumbered", GetParam());
    EXPECT_EQ(store.one("SELECT Name FROM tblRemoteIO WHERE Node = 'renumbered'"), GetParam());
    EXPECT_EQ(others(), untouched);
}

}  // namespace
}  // namespace canvas
