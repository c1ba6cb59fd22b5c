// Text files that modules read back: files of one section.

#include "csv.h"
#include "fixture.h"

namespace canvas {
namespace {

using namespace fixture;

struct Import : Nodes {
    Ref<Object> module;
    std::string path;

    void SetUp() override { module = opened<clsBVTKX410>(); }

    /// What the import of a file with these bytes answers.
    Value import(const std::string& bytes) {
        path = file("in.csv", bytes);
        return invoke(*module, "ImportFromCSV", path);
    }
    RuntimeError failedImport(const std::string& bytes) {
        return errorOf([&] { import(bytes); });
    }
    Texts everything() const { return store.rows("SELECT * FROM tblSystemProperties ORDER BY rowid"); }
    std::string hexOf(int n) const {
        return store.one("SELECT hex(Value) FROM tblSystemProperties WHERE groupID = 2 AND PropertyNumber = " +
                         std::to_string(n));
    }
};

struct ImportOfEach : Import, ::testing::WithParamInterface<ModuleCase> {
    void SetUp() override { module = Hardware::opened(GetParam().create()); }
    Value call(const std::string& bytes) {
        path = file("in.csv", bytes);
        return GetParam().group == 7 ? invoke(*module, "ImportFromCSV", path, 0) : invoke(*module, "ImportFromCSV", path);
    }
    /// The tag that its file begins with.
    std::string tag() const { return std::string(GetParam().holdsNodes ? "Network" : GetParam().tag); }
    std::string source() const { return std::string(GetParam().tag) + "::ImportFromCSV"; }
};
INSTANTIATE_TEST_SUITE_P(Modules, ImportOfEach, ::testing::ValuesIn(modules), moduleName);

TEST_P(ImportOfEach, RefusesTheFilesOfOthersAndLeavesTheStoreAlone) {
    const Texts before = everything();
    int refused = 0;
    for (const std::string other : {"RVQD", "KX410", "COM1", "COM2", "Network", "ExternalEncoder", "RemoteIO", "kx410", ""}) {
        if (other == tag()) continue;
        EXPECT_EQ(call(head(other) + propertyLine(GetParam().group, 1, "x", 1)), Value(false)) << other;
        EXPECT_EQ(openHandles(path), 0);
        ++refused;
    }
    EXPECT_EQ(everything(), before);
    ASSERT_EQ(user->boxes.size(), static_cast<std::size_t>(refused));
    for (const MessageBox& box : user->boxes) {
        EXPECT_EQ(box.text, "Illegal File! [ in.csv ] ");
        EXPECT_EQ(box.icon, Icon::critical);
        EXPECT_EQ(box.buttons, Buttons::ok);
    }
}

TEST_P(ImportOfEach, RefusesATagInOtherLettersOrWithBlanks) {
    std::string lower = tag();
    for (char& c : lower) c = static_cast<char>(std::tolower(c));
    for (const std::string& wrong : {lower, tag() + " ", " " + tag(), tag() + "s", tag().substr(1)})
        EXPECT_EQ(call(head(wrong)), Value(false)) << wrong;
    EXPECT_EQ(user->boxes.size(), 5U);
}

TEST_P(ImportOfEach, OfAnEmptyFileIsAnErrorAndNoBox) {
    const RuntimeError error = errorOf([&] { call(""); });
    EXPECT_EQ(error.number, 62);
    EXPECT_EQ(error.source, source());
    EXPECT_TRUE(told().empty());
}

TEST_P(ImportOfEach, OfAMissingFileIsAnError) {
    const std::string missing = store.folder / "none.csv";
    const RuntimeError error = errorOf([&] {
        if (GetParam().group == 7) invoke(*module, "ImportFromCSV", missing, 0);
        else invoke(*module, "ImportFromCSV", missing);
    });
    EXPECT_EQ(error.number, 53);
    EXPECT_EQ(error.source, source());
}

TEST_P(ImportOfEach, OfAFileThatEndsInItsHeaderIsAnErrorAndLeavesItOpen) {
    const RuntimeError error = errorOf([&] { call(inQuotes(tag()) + "\r\n\"GroupID\",\"PropertyNumber\"\r\n"); });
    EXPECT_EQ(error.number, 62);
    EXPECT_EQ(error.source, source());
    EXPECT_EQ(openHandles(path), 1);
}

TEST_P(ImportOfEach, OfItsOwnExportChangesNothingButTheAddresses) {
    if (GetParam().group == 7) GTEST_SKIP() << "reads two lines less than are written";
    if (GetParam().holdsNodes) withMaps(module);
    store.set(5, 2, "PropertyName", "Type");
    store.set(5, 2, "Value", "Axiolane");
    invoke(*module, "ReadFromDB");
    store.run("UPDATE tblSystemProperties SET Value = NULL WHERE PropertyNumber = 3");
    store.run("UPDATE tblSystemProperties SET Value = '' WHERE PropertyNumber = 4");
    const Texts before = everything();
    const std::string out = store.folder / "out.csv";
    invoke(*module, "ExportToCSV", out);
    store.run("UPDATE tblSystemProperties SET Value = 'lost', Dirty = 1 WHERE groupID = " +
              std::to_string(GetParam().group));
    EXPECT_EQ(invoke(*module, "ImportFromCSV", out), Value(true));
    EXPECT_EQ(everything(), before);
}

TEST_P(ImportOfEach, ReadsTheStoreOnlyWhereThePathLeads) {
    module = GetParam().create();
    EXPECT_NE(raisedBy([&] { call(head(tag())); }), 0);
    EXPECT_TRUE(told().empty());
}

TEST_F(Import, SetsValueAndMarkOfEachRow) {
    EXPECT_EQ(import(head("KX410") + propertyLine(2, 1, "one", 1) + propertyLine(2, 15, "fifteen", 0)), Value(true));
    EXPECT_EQ(store.property(2, 1), "one,1");
    EXPECT_EQ(store.property(2, 15), "fifteen,0");
    EXPECT_EQ(store.property(2, 2), "2002,0");
    EXPECT_EQ(openHandles(path), 0);
    EXPECT_TRUE(told().empty());
}

TEST_F(Import, NeverTouchesTheMatrix) {
    edit(module, 1, "edited");
    const Array before = matrixOf(*module);
    import(head("KX410") + propertyLine(2, 1, "one", 1));
    EXPECT_EQ(matrixOf(*module), before);
    invoke(*module, "ReadFromDB");
    EXPECT_EQ(cell(module, 0), "one");
    EXPECT_EQ(cell(module, 1), "2002");
}

TEST_F(Import, WithNothingAfterTheHeaderImportsNothing) {
    const Texts before = everything();
    EXPECT_EQ(import(head("KX410")), Value(true));
    EXPECT_EQ(everything(), before);
}

TEST_F(Import, IgnoresTheTextOfTheHeader) {
    EXPECT_EQ(import("\"KX410\"\r\n1,,\"x\",\"\"\r\n" + propertyLine(2, 1, "one", 1)), Value(true));
    EXPECT_EQ(store.property(2, 1), "one,1");
}

TEST_F(Import, DropsLinesOfUnknownPropertiesAndReadsOn) {
    EXPECT_EQ(import(head("KX410") + propertyLine(2, 99, "x", 1) + propertyLine(0, 1, "x", 1) +
                     propertyLine(2, 3, "three", 1) + propertyLine(9, 1, "x", 1)),
              Value(true));
    EXPECT_EQ(store.property(2, 3), "three,1");
    EXPECT_EQ(store.rows("SELECT 1 FROM tblSystemProperties WHERE Value = 'x'"), Texts{});
    EXPECT_EQ(store.one("SELECT COUNT(*) FROM tblSystemProperties"), "134");
}

TEST_F(Import, WritesLinesOfAnotherGroupToThatGroup) {
    EXPECT_EQ(import(head("KX410") + propertyLine(6, 1, "one", 1) + propertyLine(1, 71, "last", 1)), Value(true));
    EXPECT_EQ(store.property(6, 1), "one,1");
    EXPECT_EQ(store.property(1, 71), "last,1");
    EXPECT_EQ(store.property(2, 1), "2001,0");
}

TEST_F(Import, LetsTheLastOfTwoLinesStand) {
    import(head("KX410") + propertyLine(2, 1, "first", 1) + propertyLine(2, 1, "second", 0));
    EXPECT_EQ(store.property(2, 1), "second,0");
}

TEST_F(Import, ReadsFieldAfterFieldWhateverTheLineEnds) {
    EXPECT_EQ(import("\"KX410\",\"a\",\"b\",\"c\",\"d\",2,1,\"one\",1,2,2,\"two\",1"), Value(true));
    EXPECT_EQ(store.property(2, 1), "one,1");
    EXPECT_EQ(store.property(2, 2), "two,1");
    EXPECT_EQ(import("\"KX410\"\r\n\"a\"\r\n\"b\"\r\n\"c\"\r\n\"d\"\r\n2\r\n3\r\n\"three\"\r\n1\r\n2,4\r\n\"four\",1\r\n"),
              Value(true));
    EXPECT_EQ(store.property(2, 3), "three,1");
    EXPECT_EQ(store.property(2, 4), "four,1");
}

TEST_F(Import, TakesLineFeedsAloneAndALastLineWithoutEnd) {
    EXPECT_EQ(import("\"KX410\"\n\"a\",\"b\",\"c\",\"d\"\n2,1,\"one\",1\n2,2,\"two\",1"), Value(true));
    EXPECT_EQ(store.property(2, 1), "one,1");
    EXPECT_EQ(store.property(2, 2), "two,1");
}

TEST_F(Import, ReadsNothingBetweenCommasAsNullAndTwoQuotesAsEmpty) {
    EXPECT_EQ(import(head("KX410") + "2,1,,1\r\n2,2,\"\",1\r\n2,3,\"x\",\r\n"), Value(true));
    EXPECT_EQ(store.property(2, 1), "null,1");
    EXPECT_EQ(store.property(2, 2), ",1");
    EXPECT_EQ(store.property(2, 3), "x,null");
}

TEST_F(Import, TakesAValueWithoutQuotes) {
    EXPECT_EQ(import(head("KX410") + "2,1,1.50,1\r\n"), Value(true));
    EXPECT_EQ(store.property(2, 1).substr(0, 3), "1.5");
}

TEST_F(Import, KeepsCommasLineEndsAndBlanksWithinQuotes) {
    const std::string values[]{"a,b", " a ", "a\r\nb", "a\nb", "|", "'", "%", "1,2,3"};
    for (const std::string& value : values) {
        EXPECT_EQ(import(head("KX410") + propertyLine(2, 1, value, 1) + propertyLine(2, 2, "next", 1)), Value(true));
        EXPECT_EQ(store.property(2, 1), value + ",1");
        EXPECT_EQ(store.property(2, 2), "next,1");
    }
}

TEST_F(Import, AnyTextComesBackFromItsExport) {
    const std::string texts[]{"\"",       "a \"quoted\" word", "\"\"",          "\",\"", "\",1\r\n2,2,\"x", "\r\n", "\xC3\xA4",
                              "\xCE\xA9", "\xE2\x82\xAC",      "O'Brien; DROP", "\\",    "\t",               "  "};
    for (const std::string& text : texts) {
        store.set(2, 1, "Value", text);
        const std::string out = store.folder / "out.csv";
        invoke(*module, "ExportToCSV", out);
        store.set(2, 1, "Value", "lost");
        store.set(2, 2, "Value", "lost");
        EXPECT_EQ(invoke(*module, "ImportFromCSV", out), Value(true)) << text;
        EXPECT_EQ(store.property(2, 1), text + ",0");
        EXPECT_EQ(store.property(2, 2), "2002,0");
        store.set(2, 2, "Value", "2002");
    }
}

TEST_F(Import, ANulByteIsACharacterOfItsField) {
    const std::string value("a\0b", 3);
    EXPECT_EQ(import(head("KX410") + propertyLine(2, 1, value, 1) + propertyLine(2, 2, "next", 1)), Value(true));
    EXPECT_EQ(hexOf(1), "610062");
    EXPECT_EQ(store.property(2, 2), "next,1");
    const std::string out = store.folder / "out.csv";
    invoke(*module, "ExportToCSV", out);
    EXPECT_TRUE(scratch::bytesOf(out).starts_with(head("KX410") + propertyLine(2, 1, value, 1)));
}

TEST_F(Import, ANulByteInTheTagIsRefused) {
    EXPECT_EQ(import(inQuotes(std::string_view("KX410\0", 6)) + "\r\n"), Value(false));
    EXPECT_EQ(import(std::string(100, '\0')), Value(false));
    EXPECT_EQ(user->boxes.size(), 2U);
}

TEST_F(Import, ALineWithMissingFieldsAtTheEndIsAnErrorAndTheRowsBeforeStay) {
    for (const std::string rest : {"2,2,\"two\"\r\n", "2,2\r\n", "2\r\n"}) {
        store.set(2, 1, "Value", "2001");
        const RuntimeError error = failedImport(head("KX410") + propertyLine(2, 1, "one", 1) + rest);
        EXPECT_EQ(error.number, 62) << rest;
        EXPECT_EQ(error.source, "KX410::ImportFromCSV");
        EXPECT_EQ(store.property(2, 1), "one,1");
        EXPECT_EQ(store.property(2, 2), "2002,0");
    }
    EXPECT_TRUE(told().empty());
}

TEST_F(Import, AQuoteThatNothingClosesTakesTheRestOfTheFile) {
    const RuntimeError error =
        failedImport(head("KX410") + propertyLine(2, 1, "one", 1) + "2,2,\"two,1\r\n" + "2,3,three,1\r\n");
    EXPECT_EQ(error.number, 62);
    EXPECT_EQ(store.property(2, 1), "one,1");
    EXPECT_EQ(store.property(2, 2), "2002,0");
    EXPECT_EQ(store.property(2, 3), "2003,0");
}

TEST_F(Import, DropsLinesWhoseGroupOrNumberIsNoNumber) {
    const Texts before = everything();
    const std::string lines =
        "\"abc\",1,\"x\",1\r\n,1,\"x\",1\r\n2,,\"x\",1\r\n2,\"1 OR 1=1\",\"x\",1\r\n2,1.5,\"x\",1\r\n";
    EXPECT_EQ(import(head("KX410") + lines), Value(true));
    EXPECT_EQ(everything(), before);
}

TEST_F(Import, AMissingFieldInTheMiddleShiftsTheRest) {
    // Group 2, number 1, value "2", mark 2; then 3, "three", 1 and the end.
    const RuntimeError error = failedImport(head("KX410") + "2,1\r\n2,2\r\n3,\"three\",1\r\n");
    EXPECT_EQ(error.number, 62);
    EXPECT_EQ(store.property(2, 1), "2,2");
}

TEST_F(Import, AFileThatFailedStaysOpen) {
    EXPECT_EQ(failedImport(head("KX410") + "2,1\r\n").number, 62);
    EXPECT_EQ(openHandles(path), 1);
    const RuntimeError error = errorOf([&] { invoke(*module, "ExportToCSV", path); });
    EXPECT_EQ(error.number, 55);
    EXPECT_EQ(error.source, "KX410::ExportToCSV");
}

TEST_F(Import, WorksAgainAfterAFailure) {
    EXPECT_EQ(failedImport(head("KX410") + "2,1\r\n").number, 62);
    EXPECT_EQ(import(head("KX410") + propertyLine(2, 1, "one", 1)), Value(true));
    EXPECT_EQ(store.property(2, 1), "one,1");
}

TEST_F(Import, TheBoxNamesTheFileWithoutItsFolder) {
    const std::string name = file("a b's [1] %s.txt", "\"x\"");
    EXPECT_EQ(invoke(*module, "ImportFromCSV", name), Value(false));
    EXPECT_EQ(told(), Texts{"Illegal File! [ a b's [1] %s.txt ] "});
}

TEST_F(Import, ReadsAMillionLines) {
#ifdef __SANITIZE_ADDRESS__
    constexpr int lines = 50'000;
#else
    constexpr int lines = 1'000'000;
#endif
    std::string bytes = head("KX410");
    bytes.reserve(static_cast<std::size_t>(lines) * 20);
    for (int i = 1; i < lines; ++i) bytes += "2,100,\"x\",0\r\n";
    EXPECT_EQ(import(bytes + propertyLine(2, 15, "last", 1)), Value(true));
    EXPECT_EQ(store.property(2, 15), "last,1");
}

TEST_F(Import, OpensTheStoreAgainAndKeepsIt) {
    module = opened<clsBVTCOM1>();
    EXPECT_EQ(import(head("COM1") + propertyLine(3, 1, "one", 1)), Value(true));
    EXPECT_EQ(openHandles(store.path), 1);
    invoke(*module, "SaveToDB");
    EXPECT_EQ(openHandles(store.path), 0);
}

}  // namespace
}  // namespace canvas
