// canvas store nodes.

#include <thread>

#include "tests/cli/store.h"

using namespace canvas;
using store_cli::Json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class StoreNodes : public store_cli::Store {
protected:
    int add(const std::string& node, const std::string& name, std::vector<std::string> rest = {}) {
        rest.insert(rest.begin(), {node, name});
        return said({"nodes", "add"}, rest).code;
    }
    int remove(const std::string& node) { return said({"nodes", "remove"}, {node}).code; }
    int removeNamed(const std::string& name) { return said({"nodes", "remove"}, {name, "--by-name"}).code; }
    fixture::Texts numbers() { return rows("SELECT Node FROM tblRemoteIO ORDER BY rowid"); }
    fixture::Texts addresses() {
        return rows("SELECT Node, InputBaseAddress, OutputBaseAddress FROM tblRemoteIO ORDER BY rowid");
    }
};

}  // namespace

TEST_F(StoreNodes, AreKeptWithAllThatIsToldOfThem) {
    EXPECT_EQ(add("5", "Valves", {"--type", "Valve terminal", "--inputs", "2", "--outputs", "4", "--code", "6016"}), 0);
    EXPECT_THAT(rows("SELECT * FROM tblRemoteIO"),
                ElementsAre("5,Valves,Valve terminal,2,4,IO0256,OO0512,6016,Polled,1"));
    const Json listed = json({"nodes", "list"})["nodes"];
    EXPECT_EQ(listed, Json::parse(R"([{"node": "5", "name": "Valves", "type": "Valve terminal", "inputWords": "2",
        "inputAddress": "IO0256", "outputWords": "4", "outputAddress": "OO0512", "typeCode": "6016",
        "message": "Polled", "dirty": true}])"));
}

TEST_F(StoreNodes, TakeTheFirstFreeAddresses) {
    add("1", "a", {"--inputs", "4"});
    add("2", "b", {"--inputs", "4", "--outputs", "1"});
    add("3", "c", {"--inputs", "4", "--outputs", "1"});
    EXPECT_EQ(remove("2"), 0);
    add("4", "d", {"--inputs", "5", "--outputs", "2"});
    add("5", "e", {"--inputs", "3", "--outputs", "1"});
    EXPECT_THAT(addresses(), ElementsAre("1,IO0256,null", "3,IO0264,OO0513", "4,IO0268,OO0514", "5,IO0260,OO0512"));
}

TEST_F(StoreNodes, FollowTheNetworksType) {
    EXPECT_EQ(said({"set"}, {"Network", "Type", "Axiolane"}).code, 0);
    EXPECT_EQ(add("1", "a", {"--inputs", "1"}), 0);
    EXPECT_THAT(rows("SELECT InputBaseAddress, MessageType FROM tblRemoteIO"), ElementsAre("IW0256,N/A"));
    EXPECT_EQ(add("2", "b", {"--message", "Polled"}), 1);
    EXPECT_EQ(said({"set"}, {"Network", "Type", "DeviceNet"}).code, 0);
    EXPECT_EQ(add("2", "b", {"--message", "N/A"}), 1);
    EXPECT_EQ(add("2", "b", {"--message", "Strobed"}), 0);
    sql("UPDATE tblSystemProperties SET Value = 'Ethernet' WHERE groupID = 5 AND PropertyNumber = 2");
    EXPECT_EQ(add("3", "c"), 1);
    EXPECT_THAT(numbers(), ElementsAre("1", "2"));
}

TEST_F(StoreNodes, HaveANumberAndANameOfTheirOwn) {
    EXPECT_EQ(add("1", "a"), 0);
    EXPECT_EQ(add("1", "b"), 1);
    EXPECT_EQ(add("2", "a"), 1);
    EXPECT_EQ(add(" ", "c"), 2);
    EXPECT_EQ(add("2", "c", {"--inputs", "257"}), 2);
    EXPECT_EQ(add("2", "c", {"--inputs", "-1"}), 2);
    EXPECT_EQ(add("2", "c", {"--inputs", "1.5"}), 2);
    EXPECT_THAT(rows("SELECT Node, Name FROM tblRemoteIO"), ElementsAre("1,a"));
}

TEST_F(StoreNodes, KeepAddressesWhileTheirWordsStay) {
    add("1", "a", {"--inputs", "8", "--outputs", "2"});
    add("2", "b", {"--inputs", "8", "--outputs", "2"});
    EXPECT_EQ(add("1", "a", {"--inputs", "16", "--outputs", "2", "--change"}), 0);
    EXPECT_THAT(addresses(), ElementsAre("1,IO0272,OO0512", "2,IO0264,OO0514"));
    EXPECT_EQ(add("1", "renamed", {"--outputs", "2", "--change"}), 0);
    EXPECT_THAT(addresses(), ElementsAre("1,null,OO0512", "2,IO0264,OO0514"));
    EXPECT_EQ(add("1", "b", {"--change"}), 1) << "the name of another node";
}

TEST_F(StoreNodes, FindNoRoomInAFullArea) {
    EXPECT_EQ(add("1", "a", {"--inputs", "200"}), 0);
    const auto answer = said({"nodes", "add"}, {"2", "b", "--inputs", "57"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_EQ(answer.out,
              "plant.db: node 2: address: The input area (256 to 511) has no room for 57 more words in a row\n");
    EXPECT_THAT(numbers(), ElementsAre("1"));
    EXPECT_EQ(add("2", "b", {"--inputs", "56"}), 0);
}

TEST_F(StoreNodes, AreFoundByStrangeNamesAndNoOthers) {
    const char* names[] = {"O'Brien", "x' or '1'='1", "[a-z]*", "100%", "_", "\"quoted\"", "a;--", "ab"};
    int number = 0;
    for (const char* name : names) EXPECT_EQ(add(std::to_string(++number), name), 0) << name;
    for (const char* name : {"x' or '1'='1", "[a-z]*", "100%", "_", "O'Brien", "\"quoted\"", "a;--"})
        EXPECT_EQ(removeNamed(name), 0) << name;
    EXPECT_THAT(rows("SELECT Name FROM tblRemoteIO"), ElementsAre("ab"));
    EXPECT_EQ(removeNamed("%"), 2);
    EXPECT_EQ(removeNamed("' or ''='"), 2);
    EXPECT_THAT(rows("SELECT Name FROM tblRemoteIO"), ElementsAre("ab"));
}

TEST_F(StoreNodes, AreRemovedWhateverTheirNumber) {
    const char* nodes[] = {"0", "7", "07", "x' or '1'='1", "O'Brien", "2147483647", "99999999999", "-3"};
    for (const char* node : nodes) EXPECT_EQ(add(node, std::string("node ") + node), 0) << node;
    std::size_t left = std::size(nodes);
    for (const char* node : {"x' or '1'='1", "07", "0", "O'Brien", "99999999999", "2147483647"}) {
        EXPECT_EQ(said({"nodes", "remove"}, {node}).code, 0) << node;
        EXPECT_EQ(numbers().size(), --left);
    }
    EXPECT_THAT(numbers(), ElementsAre("7", "-3"));
    EXPECT_EQ(remove("8"), 2);
}

TEST_F(StoreNodes, ThatShareANumberAreRemovedByNumberOnly) {
    sql("INSERT INTO tblRemoteIO (Node, Name) VALUES ('1', 'a'), ('1', 'b')");
    EXPECT_EQ(removeNamed("b"), 2);
    EXPECT_EQ(remove("1"), 0);
    EXPECT_THAT(rows("SELECT Name FROM tblRemoteIO"), ElementsAre("b"));
    EXPECT_EQ(removeNamed("b"), 0);
}

TEST_F(StoreNodes, ThatTheModuleDoesNotRemoveAreToldOf) {
    sql("INSERT INTO tblRemoteIO (Node, Name) VALUES (NULL, 'lost')");
    const auto answer = said({"nodes", "remove"}, {"lost", "--by-name"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_EQ(answer.out, "plant.db: node : not-taken: the module did not remove the node\n");
    EXPECT_EQ(rows("SELECT Name FROM tblRemoteIO").size(), 1U);
}

TEST_F(StoreNodes, AddedAtTheSameTimeTakeTheirOwnAddresses) {
    std::vector<std::thread> adders;
    for (const char* node : {"1", "2", "3", "4", "5", "6"})
        adders.emplace_back([&, node] { EXPECT_EQ(said({"nodes", "add"}, {node, node, "--inputs", "4"}).code, 0); });
    for (std::thread& adder : adders) adder.join();
    EXPECT_EQ(rows("SELECT DISTINCT InputBaseAddress FROM tblRemoteIO").size(), 6U);
}

TEST_F(StoreNodes, AreListedByNumber) {
    for (const char* node : {"10", "b", "9", "a", "1"}) add(node, std::string("n") + node);
    std::vector<std::string> listed;
    const Json answer = json({"nodes", "list"});
    for (const Json& node : answer["nodes"]) listed.push_back(node["node"]);
    EXPECT_THAT(listed, ElementsAre("1", "9", "10", "a", "b"));
}

TEST_F(StoreNodes, NoneIsSaidInWords) { EXPECT_EQ(said({"nodes", "list"}).out, "no nodes\n"); }
