// canvas store check, and stores that are none.

#include <sys/stat.h>

#include "tests/cli/store.h"

using namespace canvas;
using store_cli::Json;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

namespace {

class StoreCheck : public store_cli::Store {
protected:
    /// "module number: rule: reason" or "node N: rule: reason".
    std::vector<std::string> findings(int code = 1) {
        std::vector<std::string> found;
        const Json answer = json({"check"}, {}, code);
        for (const Json& finding : answer["findings"]) {
            std::string text = finding["module"].is_null() ? "" : finding["module"].get<std::string>();
            if (finding["number"].is_number()) text += " " + std::to_string(finding["number"].get<int>());
            if (finding["node"].is_string()) text = "node " + finding["node"].get<std::string>();
            found.push_back(text + ": " + finding["rule"].get<std::string>() + ": " +
                            finding["reason"].get<std::string>());
        }
        return found;
    }
    void setValue(int group, int number, const std::string& value) {
        sql("UPDATE tblSystemProperties SET Value = '" + value + "' WHERE groupID = " + std::to_string(group) +
            " AND PropertyNumber = " + std::to_string(number));
    }
    void addNode(const std::string& values) {
        sql("INSERT INTO tblRemoteIO (Node, Name, InputWords, InputBaseAddress, OutputWords, OutputBaseAddress, "
            "MessageType) VALUES (" +
            values + ")");
    }
};

const std::vector<std::vector<std::string>> everyPart = {{"show"},
                                                         {"set", "COM1", "BaudRate", "1200"},
                                                         {"reset", "COM1"},
                                                         {"export", "COM1", "x.csv"},
                                                         {"import", "COM1", "in.csv"},
                                                         {"nodes list"},
                                                         {"nodes add", "1", "a"},
                                                         {"nodes remove", "1"},
                                                         {"check"}};

}  // namespace

TEST_F(StoreCheck, FindsNothingInANewStore) {
    EXPECT_THAT(findings(0), IsEmpty());
    EXPECT_EQ(said({"check"}).out, "plant.db: no findings\n");
}

TEST_F(StoreCheck, FindsValuesThatTheirPropertiesDoNotTake) {
    setValue(2, 3, "50");
    setValue(3, 2, "9");
    setValue(6, 5, "many");
    setValue(1, 71, "70000");
    sql("UPDATE tblSystemProperties SET \"Default\" = '0' WHERE groupID = 4 AND PropertyNumber = 8");
    EXPECT_THAT(findings(),
                ElementsAre("RVQD 71: bounds: 11170 H is not between 0000 H and FFFF H",
                            "KX410 3: bounds: 50 is not between 0.5 and 20", "COM1 2: list: \"9\" is none of 7, 8",
                            "COM2 8: bounds: default: 0 is not between 1 and 247",
                            "ExternalEncoder 5: type: \"many\" is no number"));
}

TEST_F(StoreCheck, FindsCollidingAddresses) {
    addNode("'1', 'a', '4', 'IO0256', '0', NULL, 'Polled'");
    addNode("'2', 'b', '4', 'IO0259', '2', 'OO0512', 'Polled'");
    addNode("'3', 'c', '1', 'IO0263', '2', 'OO0512', 'Polled'");
    EXPECT_THAT(
        findings(),
        UnorderedElementsAre("node 2: address: input address IO0259 lies in the words of node 1 (IO0256, 4 words)",
                             "node 3: address: output address OO0512 lies in the words of node 2 (OO0512, 2 words)"));
}

TEST_F(StoreCheck, FindsACollisionBehindAShorterBlock) {
    addNode("'1', 'a', '50', 'IO0256', '0', NULL, 'Polled'");
    addNode("'2', 'b', '1', 'IO0260', '0', NULL, 'Polled'");
    addNode("'3', 'c', '1', 'IO0300', '0', NULL, 'Polled'");
    EXPECT_THAT(findings(),
                Contains("node 3: address: input address IO0300 lies in the words of node 1 (IO0256, 50 words)"));
}

TEST_F(StoreCheck, FindsNodesWithoutAddressesAndWithStrangeOnes) {
    addNode("'1', 'a', '4', NULL, '2', '', 'Polled'");
    addNode("'2', 'b', '4', 'OO0256', '2', 'there', 'Polled'");
    addNode("'3', 'c', '0', NULL, NULL, NULL, NULL");
    EXPECT_THAT(findings(), UnorderedElementsAre("node 1: unaddressed: 4 input words have no address",
                                                 "node 1: unaddressed: 2 output words have no address",
                                                 "node 2: address: \"OO0256\" is no input address",
                                                 "node 2: address: \"there\" is no output address"));
}

TEST_F(StoreCheck, FindsNumbersAndNamesThatStandTwice) {
    addNode("'1', 'a', '0', NULL, '0', NULL, 'Polled'");
    addNode("'1', 'b', '0', NULL, '0', NULL, 'Polled'");
    addNode("'2', 'b', 'x', NULL, '-1', NULL, 'N/A'");
    addNode("'', '', '0', NULL, '0', NULL, 'Strobed'");
    EXPECT_THAT(findings(), UnorderedElementsAre("node 1: node: the number \"1\" stands twice",
                                                 "node 2: node: the name \"b\" stands twice",
                                                 "node 2: node: the input words \"x\" are no count",
                                                 "node 2: node: the output words \"-1\" are no count",
                                                 "node 2: message: \"N/A\" is no message type of this network",
                                                 "node : node: the number is empty"));
}

TEST_F(StoreCheck, FindsModulesThatCannotBeRead) {
    sql("DROP VIEW qryKX410");
    sql("DROP VIEW qryExternalEncoder");
    sql("DELETE FROM tblSystemProperties WHERE groupID = 3 AND PropertyNumber = 7");
    const auto found = findings();
    EXPECT_THAT(found, Contains(StartsWith("KX410: unreadable: ")));
    EXPECT_THAT(found, Contains(StartsWith("ExternalEncoder: unreadable: ")));
    EXPECT_THAT(found, Contains("COM1 7: missing: the module's query does not give it"));
    EXPECT_EQ(found.size(), 3U);
}

TEST_F(StoreCheck, FindsAQueryWithTooManyRows) {
    sql("INSERT INTO tblSystemProperties (groupID, PropertyNumber, Value) VALUES (3, 8, 'x')");
    sql("INSERT INTO tblPropertyNumberLookup (groupID, PropertyNumber, PropertyName) VALUES (3, 8, 'Extra')");
    EXPECT_THAT(findings(), ElementsAre("COM1: unreadable: Subscript out of range"));
}

TEST_F(StoreCheck, FindsDamageInTheFile) {
    addNode("'1', 'a', '0', NULL, '0', NULL, 'Polled'");
    sql("PRAGMA writable_schema = ON");
    sql("REINDEX");
    // an index that lacks its row
    const auto page = rows("SELECT rootpage FROM sqlite_master WHERE name = 'idxRemoteNode'").at(0);
    std::string bytes = scratch::bytesOf(path);
    const auto at = (std::stoul(page) - 1) * 4096;
    bytes[at + 3] = bytes[at + 4] = 0;
    scratch::put(path, bytes);
    EXPECT_THAT(findings(), Contains(HasSubstr(": damage: ")));
}

TEST_F(StoreCheck, AStoreThatIsNotThereIsToldByEveryPart) {
    scratch::put(folder / "in.csv", "\"COM1\"\r\n");
    std::filesystem::remove(path);
    for (auto part : everyPart) {
        std::vector<std::string> words = part.front().starts_with("nodes ")
                                             ? std::vector<std::string>{"nodes", part.front().substr(6)}
                                             : std::vector<std::string>{part.front()};
        part.erase(part.begin());
        const auto answer = said(words, part);
        EXPECT_EQ(answer.code, 3) << words.back();
        EXPECT_THAT(answer.err, StartsWith("canvas: 'plant.db': Could not find file")) << words.back();
        EXPECT_EQ(answer.out, "");
    }
    EXPECT_THAT(folder.entries(), ElementsAre("in.csv"));
}

TEST_F(StoreCheck, ATextFileIsNoStore) {
    scratch::put(folder / "in.csv", "\"COM1\"\r\n");
    scratch::put(path, std::string(5000, 'x'));
    for (auto part : everyPart) {
        std::vector<std::string> words = part.front().starts_with("nodes ")
                                             ? std::vector<std::string>{"nodes", part.front().substr(6)}
                                             : std::vector<std::string>{part.front()};
        part.erase(part.begin());
        const auto answer = said(words, part);
        EXPECT_EQ(answer.code, 3) << words.back();
        EXPECT_THAT(answer.err, StartsWith("canvas: 'plant.db': Unrecognized database format")) << words.back();
    }
    EXPECT_EQ(scratch::bytesOf(path), std::string(5000, 'x'));
}

TEST_F(StoreCheck, AStoreWithoutItsTablesIsTold) {
    sql("DROP TABLE tblRemoteIO");
    EXPECT_EQ(said({"nodes", "list"}).code, 3);
    EXPECT_EQ(said({"nodes", "add"}, {"1", "a"}).code, 3);
    EXPECT_THAT(findings(), Contains(StartsWith("RemoteIO: unreadable: ")));
    sql("DROP TABLE tblSystemProperties");
    EXPECT_EQ(said({"set"}, {"COM1", "BaudRate", "1200"}).code, 3);
    EXPECT_EQ(said({"show"}, {"--module", "ExternalEncoder"}).code, 3) << "its class shows a box";
}

TEST_F(StoreCheck, AStoreThatMayNotBeWrittenIsShownAndNotChanged) {
    ::chmod(path.c_str(), 0444);
    ::chmod(folder.path().c_str(), 0555);
    const std::string before = scratch::bytesOf(path);
    const program::Setting asNobody{.asNobody = true};
    EXPECT_EQ(said({"show"}, {}, asNobody).code, 0);
    EXPECT_EQ(said({"check"}, {}, asNobody).code, 0);
    const auto answer = said({"set"}, {"COM1", "BaudRate", "1200"}, asNobody);
    EXPECT_EQ(answer.code, 3);
    EXPECT_THAT(answer.err, StartsWith("canvas: 'plant.db': "));
    EXPECT_EQ(said({"nodes", "add"}, {"1", "a"}, asNobody).code, 3);
    EXPECT_EQ(scratch::bytesOf(path), before);
    ::chmod(folder.path().c_str(), 0777);
}

TEST_F(StoreCheck, WrongWordsAreWrongUsage) {
    EXPECT_EQ(program::run({"store"}).code, 2);
    EXPECT_EQ(program::run({"store", "new"}).code, 2);
    EXPECT_EQ(program::run({"store", "nodes"}).code, 2);
    EXPECT_EQ(program::run({"store", "grow", "plant.db"}).code, 2);
    EXPECT_EQ(said({"set"}, {"COM1", "BaudRate"}).code, 2);
    EXPECT_EQ(program::run({"store", "--help"}).code, 0);
    EXPECT_EQ(program::run({"store", "nodes", "add", "--help"}).code, 0);
}
