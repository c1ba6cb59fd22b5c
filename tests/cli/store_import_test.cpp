// canvas store export and import.

#include "tests/cli/store.h"

using namespace canvas;
using store_cli::Json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

constexpr const char* head = "\"COM1\"\r\n\"GroupID\",\"PropertyNumber\",\"Value\",\"Dirty\"\r\n";
constexpr const char* nodeHead =
    "\"RemoteIO\"\r\n\"Node\",\"Name\",\"NodeType\",\"InputWords\",\"OutputWords\",\"TypeCode\",\"Dirty\"\r\n";

class StoreImport : public store_cli::Store {
protected:
    program::Said import(const std::string& bytes, const std::string& module = "COM1",
                         const std::vector<std::string>& flags = {}) {
        scratch::put(folder / "a.csv", bytes);
        std::vector<std::string> rest{module, "a.csv"};
        rest.insert(rest.end(), flags.begin(), flags.end());
        return said({"import"}, rest);
    }
    /// Import of lines behind the head of COM1; its last line but the summary.
    std::string finding(const std::string& lines, int code) {
        const auto before = rows("SELECT * FROM tblSystemProperties");
        const auto answer = import(head + lines);
        EXPECT_EQ(answer.code, code) << answer.out << answer.err;
        EXPECT_EQ(rows("SELECT * FROM tblSystemProperties"), before) << lines;
        const auto end = answer.out.rfind("nothing was written");
        EXPECT_NE(end, std::string::npos);
        const auto begin = answer.out.rfind('\n', end - 2);
        return answer.out.substr(begin == std::string::npos ? 0 : begin + 1, end - 1 - (begin + 1));
    }
    /// The network's file with these lines of nodes.
    std::string networkFile(const std::string& nodes, int lines = 13) {
        std::string file = "\"Network\"\r\n\"GroupID\",\"PropertyNumber\",\"Value\",\"Dirty\"\r\n";
        for (int i = 1; i <= lines; ++i) file += "5," + std::to_string(i) + ",\"" + valueOf(5, i) + "\",0\r\n";
        return file + nodeHead + nodes;
    }
};

}  // namespace

TEST_F(StoreImport, TakesBackWhatWasExported) {
    said({"set"}, {"RVQD", "OptionWord", "FFFF"});
    for (const char* module : {"RVQD", "KX410", "COM1", "COM2", "ExternalEncoder", "Network"}) {
        const std::string file = std::string(module) + ".csv";
        EXPECT_EQ(said({"export"}, {module, file}).code, 0);
        EXPECT_EQ(json({"import"}, {module, file})["changes"], Json::array()) << module;
    }
    EXPECT_THAT(scratch::bytesOf(folder / "RVQD.csv"), HasSubstr("\r\n1,71,\"65535\",1\r\n"));
    said({"reset"}, {"RVQD"});
    const Json taken = json({"import"}, {"RVQD", "RVQD.csv"});
    ASSERT_EQ(taken["changes"].size(), 1U);
    EXPECT_EQ(taken["changes"][0]["line"], 73);
    EXPECT_EQ(taken["changes"][0]["before"], "1234 H");
    EXPECT_EQ(taken["changes"][0]["after"], "FFFF H");
    EXPECT_EQ(taken["dryRun"], false);
}

TEST_F(StoreImport, ExportReplacesAFileOnlyWhenToldTo) {
    scratch::put(folder / "a.csv", "mine");
    EXPECT_EQ(said({"export"}, {"COM1", "a.csv"}).code, 4);
    EXPECT_EQ(scratch::bytesOf(folder / "a.csv"), "mine");
    EXPECT_EQ(said({"export"}, {"COM1", "a.csv", "--force"}).code, 0);
    EXPECT_EQ(scratch::bytesOf(folder / "a.csv").substr(0, 8), "\"COM1\"\r\n");
    const auto answer = said({"export"}, {"COM1", "none/a.csv"});
    EXPECT_EQ(answer.code, 3);
    EXPECT_EQ(answer.err, "canvas: 'none/a.csv': Path not found\n");
}

TEST_F(StoreImport, ExportNeverReplacesTheStoreItself) {
    const std::string before = scratch::bytesOf(path);
    for (const char* name : {"plant.db", "./plant.db"})
        EXPECT_EQ(said({"export"}, {"COM1", name, "--force"}).code, 4) << name;
    EXPECT_EQ(scratch::bytesOf(path), before);
}

TEST_F(StoreImport, ADryRunListsAndWritesNothing) {
    const auto before = rows("SELECT * FROM tblSystemProperties");
    const auto answer = import(std::string(head) + "3,2,\"7\",1\r\n3,1,\"9600\",1\r\n", "COM1", {"--dry-run"});
    EXPECT_EQ(answer.code, 0);
    EXPECT_EQ(answer.out, "a.csv:3: COM1 2 DataBits: 8 -> 7\nnothing was written; 1 change\n");
    EXPECT_EQ(rows("SELECT * FROM tblSystemProperties"), before);
}

TEST_F(StoreImport, NamesTheLineOfAFinding) {
    const std::pair<std::string, std::string> cases[] = {
        {"3,2,\"7\",1\r\n3,1,\"1\",1\r\n",
         "a.csv:4: COM1 1 BaudRate: list: \"1\" is none of 1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200"},
        {"3,8,\"7\",1\r\n", "a.csv:3: COM1: unknown: there is no property \"8\""},
        {"3,0,\"7\",1\r\n", "a.csv:3: COM1: unknown: there is no property \"0\""},
        {"8,1,\"7\",1\r\n", "a.csv:3: COM1: unknown: there is no module \"8\""},
        {"\"x\",1,\"7\",1\r\n", "a.csv:3: COM1: unknown: there is no module \"x\""},
        {"3,1,\"9600\",2\r\n", "a.csv:3: COM1 1 BaudRate: type: the mark \"2\" is neither 0 nor 1"},
        {"4,1,\"1200\",1\r\n", "a.csv:3: COM2 1 BaudRate: other-module: the line changes another module"},
    };
    for (const auto& [lines, text] : cases) EXPECT_EQ(finding(lines, 1), text);
}

TEST_F(StoreImport, NamesTheLineThatCannotBeRead) {
    const std::pair<std::string, std::string> cases[] = {
        {"3,1,\"9600\",1\r\n3,2,\"7\"\r\n3,3,\"Even\",1\r\n", "a.csv:4: COM1: unreadable: the line has 3 of 4 fields"},
        {"3,1,\"9600\",1,5\r\n3,2,\"7\",1\r\n", "a.csv:3: COM1: unreadable: the line has more fields than are due"},
        {"3,1,\"9600\"", "a.csv:3: COM1: unreadable: the line has 3 of 4 fields, and the file ends"},
        {"3,1,\"9600,1\r\n", "a.csv:3: COM1: unreadable: the line has 3 of 4 fields, and the file ends"},
        {"3,1,\"9600\",1\r\n\r\n", "a.csv:4: COM1: unreadable: the line has 1 of 4 fields, and the file ends"},
        {"3,1,\"9600\",1\r\n  ", "a.csv:4: COM1: unreadable: the line has 0 of 4 fields, and the file ends"},
        {"3,1,\"9600\", ", "a.csv:3: COM1: unreadable: the line has 3 of 4 fields, and the file ends"},
    };
    for (const auto& [lines, text] : cases) EXPECT_EQ(finding(lines, 3), text);
}

TEST_F(StoreImport, FindsARowThatTheAmplifierCouldNotRead) {
    const auto answer = import("\"RVQD\"\r\n\"GroupID\",\"PropertyNumber\",\"Value\",\"Dirty\"\r\n1,2,,1\r\n", "RVQD");
    EXPECT_EQ(answer.code, 1);
    EXPECT_THAT(answer.out,
                HasSubstr("a.csv:3: RVQD 2 AmplifierName: type: the module cannot read a row without a value"));
    EXPECT_EQ(said({"show"}, {"--module", "RVQD"}).code, 0);
}

TEST_F(StoreImport, NamesAWrongTag) {
    EXPECT_THAT(import(head, "COM2").out,
                HasSubstr("a.csv:1: COM2: unreadable: \"COM1\" stands where COM2 wants \"COM2\"\n"));
    EXPECT_EQ(import("\"com1\"\r\n").code, 3);
    EXPECT_THAT(import("").out, HasSubstr("a.csv:1: COM1: unreadable: the file ends where COM1 wants \"COM1\"\n"));
    EXPECT_THAT(import("\"COM1\"\r\n\"GroupID\"\r\n").out, HasSubstr("a.csv:2: COM1: unreadable: the line has 1 of 4"));
    EXPECT_EQ(import(head).code, 0) << "a file without lines changes nothing";
}

TEST_F(StoreImport, TakesAFileInSpiteOfFindingsWhenToldTo) {
    const auto answer =
        import(std::string(head) + "3,1,\"1\",1\r\n3,9,\"x\",1\r\n3,2,\"7\",0\r\n", "COM1", {"--force"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_EQ(valueOf(3, 1), "1");
    EXPECT_EQ(valueOf(3, 2), "7");
    EXPECT_THAT(answer.out, HasSubstr("\n2 changes, 2 findings\n"));
    EXPECT_EQ(import(std::string(head) + "3,2,\"8\",0\r\n3,1", "COM1", {"--force"}).code, 3);
    EXPECT_EQ(valueOf(3, 2), "7") << "what cannot be read is never taken";
}

TEST_F(StoreImport, ReadsValuesOfSeveralLines) {
    const auto answer =
        import("\"KX410\"\r\n\"a\",\"b\",\"c\",\"d\"\r\n2,2,\"two\r\nlines\",1\r\n2,8,\"3\",1\r\n", "KX410");
    EXPECT_EQ(answer.code, 0) << answer.out;
    EXPECT_EQ(valueOf(2, 2), "two\r\nlines");
    EXPECT_THAT(answer.out, HasSubstr("a.csv:5: KX410 8 GearboxInput: 1 -> 3\n"));
}

TEST_F(StoreImport, BringsNodesAnew) {
    said({"nodes", "add"}, {"1", "old", "--inputs", "9"});
    const auto file =
        networkFile("\"7\",\"O'Brien\",\"Valves\",\"4\",\"0\",\"6016\",1\r\n\"8\",\"b\",\"\",\"1\",\"1\",\"\",0\r\n");
    const auto dry = import(file, "Network", {"--dry-run"});
    EXPECT_EQ(dry.code, 0);
    EXPECT_THAT(dry.out, HasSubstr("nothing was written; 0 changes, 2 nodes\n"));
    EXPECT_THAT(rows("SELECT Node FROM tblRemoteIO"), ElementsAre("1"));
    const auto answer = import(file, "Network");
    EXPECT_EQ(answer.code, 0);
    EXPECT_EQ(answer.out.substr(0, answer.out.rfind('\n', answer.out.size() - 2)),
              dry.out.substr(0, dry.out.rfind('\n', dry.out.size() - 2)));
    EXPECT_THAT(rows("SELECT Node, Name, InputBaseAddress, OutputBaseAddress, Dirty FROM tblRemoteIO"),
                ElementsAre("7,O'Brien,IO0256,null,1", "8,b,IO0260,OO0512,0"));
}

TEST_F(StoreImport, NamesLinesOfNodesToo) {
    const std::pair<std::string, std::string> cases[] = {
        {"\"\",\"a\",\"\",\"\",\"\",\"\",1\r\n",
         "a.csv:18: node : node: the line has no node number and is passed over\n"},
        {"1,\"a\",\"\",\"\",\"\",\"\",1\r\n1,\"b\",\"\",\"\",\"\",\"\",1\r\n",
         "a.csv:19: node 1: node: the number stands twice\n"},
        {"1,\"a\",\"\",\"\",\"\",\"\",1\r\n2,\"a\",\"\",\"\",\"\",\"\",1\r\n",
         "a.csv:19: node 2: node: the name \"a\" stands twice\n"},
        {"1,\"a\",\"\",\"two\",\"\",\"\",1\r\n", "a.csv:18: node 1: node: \"two\" is no count of words\n"},
        {"1,\"a\",\"\",\"200\",\"\",\"\",1\r\n2,\"b\",\"\",\"57\",\"\",\"\",1\r\n",
         "a.csv:19: node 2: address: The input area (256 to 511) has no room for 57 more words in a row\n"},
    };
    for (const auto& [lines, text] : cases) {
        const auto answer = import(networkFile(lines), "Network");
        EXPECT_EQ(answer.code, 1);
        EXPECT_THAT(answer.out, HasSubstr(text));
        EXPECT_THAT(rows("SELECT Node FROM tblRemoteIO"), IsEmpty());
    }
}

TEST_F(StoreImport, RemoteIOReadsElevenLinesOfTheNetwork) {
    const std::string nodes = "\"7\",\"a\",\"\",\"4\",\"0\",\"\",1\r\n";
    EXPECT_THAT(import(networkFile(nodes), "RemoteIO").out,
                HasSubstr("a.csv:14: RemoteIO: unreadable: \"5\" stands where RemoteIO wants \"RemoteIO\"\n"));
    EXPECT_EQ(import(networkFile(nodes, 11), "RemoteIO").code, 0);
    EXPECT_THAT(rows("SELECT Node, InputBaseAddress FROM tblRemoteIO"), ElementsAre("7,IO0256"));
}

TEST_F(StoreImport, WithstandsNulBytesAndLongFiles) {
    using namespace std::string_literals;
    EXPECT_EQ(import(head + "3,1,\"96\0000\",1\r\n"s).code, 1);
    EXPECT_EQ(import("\0\0\0"s).code, 3);
    std::string lines = head;
    for (int i = 0; i < 100000; ++i) lines += "3,2,\"7\",1\r\n";
    const auto answer = import(lines, "COM1", {"--dry-run"});
    EXPECT_EQ(answer.code, 0);
    EXPECT_THAT(answer.out, HasSubstr("; 1 change\n"));
}

TEST_F(StoreImport, NamesAFileThatIsNotThere) {
    const auto answer = said({"import"}, {"COM1", "none.csv"});
    EXPECT_EQ(answer.code, 3);
    EXPECT_EQ(answer.err, "canvas: 'none.csv': File not found\n");
}
