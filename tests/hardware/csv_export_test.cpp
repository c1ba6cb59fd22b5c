// The text files that modules write, byte for byte.

#include "csv.h"
#include "fixture.h"

namespace canvas {
namespace {

using namespace fixture;

struct Export : Nodes {
    std::string exported(const Ref<Object>& module) const {
        const std::string path = store.folder / "out.csv";
        EXPECT_EQ(invoke(*module, "ExportToCSV", path), Value(true));
        EXPECT_EQ(openHandles(path), 0);
        return scratch::bytesOf(path);
    }
    /// All rows of a group as lines.
    std::string linesOf(int g) const {
        std::string text;
        for (int n = 1; n <= fixture::group(g).rows; ++n) text += propertyLine(g, n, valueOf(g, n), 0);
        return text;
    }
};

struct ExportOfEach : Export, ::testing::WithParamInterface<ModuleCase> {};
INSTANTIATE_TEST_SUITE_P(Modules, ExportOfEach, ::testing::ValuesIn(modules), moduleName);

TEST_P(ExportOfEach, WritesTagHeaderAndAllRows) {
    store.addNode({"12", "press", "Polled IO", "8", "4", "IW0300", "OW0600", "1077", "Polled", "1"});
    const ModuleCase& module = GetParam();
    const std::string expected = module.holdsNodes ? head("Network") + linesOf(5) + nodeHead() +
                                                         nodeLine("12", "press", "Polled IO", "8", "4", "1077", 1)
                                                   : head(module.tag) + linesOf(module.group);
    EXPECT_EQ(exported(Hardware::opened(module.create())), expected);
}

TEST_P(ExportOfEach, NeedsNoMatrixButThePathOfItsStore) {
    const auto module = GetParam().create();
    const std::string path = store.folder / "out.csv";
    EXPECT_NE(raisedBy([&] { invoke(*module, "ExportToCSV", path); }), 0);
    EXPECT_FALSE(std::filesystem::exists(path)) << "the store is opened before the file";
}

TEST_P(ExportOfEach, WorksAgainAfterTheStoreWasMissing) {
    const auto module = Hardware::opened(GetParam().create());
    const std::string path = store.folder / "out.csv";
    std::filesystem::rename(store.path, store.folder / "aside.db");
    const int number = raisedBy([&] { invoke(*module, "ExportToCSV", path); });
    // A class that holds the store open may read it on; one that opens it anew misses it.
    if (GetParam().reopens) {
        EXPECT_EQ(number, 3024);
    }
    std::filesystem::rename(store.folder / "aside.db", store.path);
    EXPECT_EQ(invoke(*module, "ExportToCSV", path), Value(true));
}

TEST_F(Export, HoldsWhatIsStoredAndNotWhatIsEdited) {
    const auto module = opened<clsBVTExternalEncoder>();
    store.set(6, 1, "Value", "1000");
    store.set(6, 1, "Dirty", "1");
    edit(module, 0, "edited");
    EXPECT_TRUE(exported(module).starts_with("\"ExternalEncoder\"\r\n"
                                             "\"GroupID\",\"PropertyNumber\",\"Value\",\"Dirty\"\r\n"
                                             "6,1,\"1000\",1\r\n"
                                             "6,2,\"6002\",0\r\n"));
}

TEST_F(Export, FollowsTheOrderOfTheTable) {
    store.run("UPDATE tblSystemProperties SET rowid = -1 WHERE groupID = 2 AND PropertyNumber = 15");
    EXPECT_TRUE(exported(opened<clsBVTKX410>()).starts_with(head("KX410") + "2,15,\"2015\",0\r\n2,1,\"2001\",0\r\n"));
}

TEST_F(Export, WritesRowsBeyondTheMatrixToo) {
    const auto module = opened<clsBVTKX410>();
    store.addProperty(2, 300);
    EXPECT_TRUE(exported(module).ends_with("\r\n2,300,\"2300\",0\r\n"));
}

TEST_F(Export, OfAGroupWithoutRowsIsTagAndHeader) {
    const auto module = opened<clsBVTKX410>();
    store.run("DELETE FROM tblSystemProperties WHERE groupID = 2");
    EXPECT_EQ(exported(module), head("KX410"));
}

TEST_F(Export, WritesANullAsNothingAndAnEmptyTextAsTwoQuotes) {
    store.set(2, 1, "Value", std::nullopt);
    store.set(2, 2, "Value", "");
    store.set(2, 3, "Dirty", std::nullopt);
    EXPECT_TRUE(exported(opened<clsBVTKX410>())
                    .starts_with(head("KX410") + "2,1,,0\r\n2,2,\"\",0\r\n2,3,\"2003\",\r\n2,4,\"2004\",0\r\n"));
}

TEST_F(Export, ReplacesAnEarlierFile) {
    const std::string path = file("out.csv", std::string(100'000, 'x'));
    const auto module = opened<clsBVTKX410>();
    EXPECT_EQ(exported(module), head("KX410") + linesOf(2));
}

TEST_F(Export, WritesTextsThatLookLikeNumbersInQuotes) {
    store.set(2, 1, "Value", "007");
    store.set(2, 2, "Value", "1,5");
    store.set(2, 3, "Value", "a | b");
    EXPECT_TRUE(exported(opened<clsBVTKX410>())
                    .starts_with(head("KX410") + "2,1,\"007\",0\r\n2,2,\"1,5\",0\r\n2,3,\"a | b\",0\r\n"));
}

TEST_F(Export, OfNodesHasSevenColumnsAndNoAddresses) {
    store.addNode({"2", "b", "t", "8", "0", "IW0300", "null", "77", "Polled", "0"});
    store.addNode({"1", "null", "", "null", "4", "null", "OW0600", "78", "null", "1"});
    EXPECT_EQ(exported(opened<clsBVTNetwork>()), head("Network") + linesOf(5) + nodeHead() +
                                                     "\"2\",\"b\",\"t\",\"8\",\"0\",\"77\",0\r\n"
                                                     "\"1\",,\"\",,\"4\",\"78\",1\r\n");
}

TEST_F(Export, OfNodesIsTheSameFromBothClasses) {
    store.addNode({"2", "b", "t", "8", "0", "IW0300", "null", "77", "Polled", "0"});
    EXPECT_EQ(exported(opened<clsBVTNetwork>()), exported(opened<clsBVTRemoteIO>()));
}

TEST_F(Export, WithoutNodesEndsInTheirHeader) {
    EXPECT_EQ(exported(opened<clsBVTRemoteIO>()), head("Network") + linesOf(5) + nodeHead());
}

TEST_F(Export, AFileThatCannotBeMadeIsAnError) {
    const auto module = opened<clsBVTKX410>();
    const std::pair<std::string, int> places[]{
        {store.folder / "no folder/out.csv", 76}, {store.folder.path(), 75}, {"", 52}};
    for (const auto& [path, number] : places) {
        const RuntimeError error = errorOf([&] { invoke(*module, "ExportToCSV", path); });
        EXPECT_EQ(error.number, number) << path;
        EXPECT_EQ(error.source, "KX410::ExportToCSV");
    }
}

TEST_F(Export, OpensTheStoreAgainAndKeepsIt) {
    const auto module = opened<clsBVTCOM1>();
    exported(module);
    EXPECT_EQ(openHandles(store.path), 1) << "the first serial port keeps the handle of its exchange";
    invoke(*module, "ReadFromDB");
    EXPECT_EQ(openHandles(store.path), 0);
}

}  // namespace
}  // namespace canvas
