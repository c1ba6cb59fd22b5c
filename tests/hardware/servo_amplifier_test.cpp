// The servo amplifier: values stored in decimal and shown in hexadecimal, and what its saving leaves out.

#include "fixture.h"

namespace canvas {
namespace {

using namespace fixture;

struct Amplifier : Hardware {
    /// Property 5 is hexadecimal.
    void SetUp() override { store.set(1, 5, "DisplayFormat", "2"); }
    std::string read(const std::optional<std::string>& stored) const {
        store.set(1, 5, "Value", stored);
        return cell(opened<clsBVTRVQD>(), 4);
    }
    std::string saved(const Value& value) const {
        const auto module = opened<clsBVTRVQD>();
        edit(module, 4, value);
        invoke(*module, "SaveToDB");
        return store.one("SELECT Value FROM tblSystemProperties WHERE groupID = 1 AND PropertyNumber = 5");
    }
};

TEST_F(Amplifier, ShowsHexadecimalDigitsFollowedByH) {
    EXPECT_EQ(read("4660"), "1234 H");
    EXPECT_EQ(read("65535"), "FFFF H");
    EXPECT_EQ(read("32768"), "8000 H");
    EXPECT_EQ(read("31"), "001F H");
    EXPECT_EQ(read("0"), "0000 H");
}

TEST_F(Amplifier, LeavesTheDigitsToTheUtilityLibrary) {
    struct Terse final : UtilityLibrary {
        std::string FileTitleOf(std::string_view) override { return {}; }
        std::string HexText(std::string_view digits) override { return "<" + std::string(digits) + ">"; }
        std::array<std::string, 9> SplitLine(std::string_view) override { return {}; }
        std::string StripQuotes(std::string_view) override { return {}; }
        std::string ConvertLabel(std::string_view, bool, bool) override { return {}; }
        std::string FileFormatVersion() override { return {}; }
    };
    Environment mine = environment();
    mine.utility = std::make_shared<Terse>();
    const WithEnvironment terse(mine);
    EXPECT_EQ(read("31"), "<1F> H");
}

TEST_F(Amplifier, ShowsOtherFormatsAsTheyAreStored) {
    store.set(1, 6, "Value", "4660");
    for (const std::string format : {"0", "1", "3", "20", ""}) {
        store.set(1, 6, "DisplayFormat", format);
        EXPECT_EQ(cell(opened<clsBVTRVQD>(), 5), "4660") << format;
    }
    store.set(1, 6, "DisplayFormat", std::nullopt);
    EXPECT_EQ(cell(opened<clsBVTRVQD>(), 5), "4660");
}

TEST_F(Amplifier, ReadsTheOtherColumnsOfAHexadecimalRowAsTheyAre) {
    const auto module = opened<clsBVTRVQD>();
    EXPECT_EQ(cell(module, 4, 0), "Name 1.5");
    EXPECT_EQ(cell(module, 4, 12), "d1.5");
    EXPECT_EQ(cell(module, 4, 13), "2");
}

TEST_F(Amplifier, StoresHexadecimalTextInDecimal) {
    EXPECT_EQ(saved("FFFF H"), "65535");
    EXPECT_EQ(saved("1F"), "31");
    EXPECT_EQ(saved("1234 H"), "4660");
    EXPECT_EQ(saved("0000 H"), "0");
    EXPECT_EQ(saved("ff h"), "255");
}

TEST_F(Amplifier, StoresTheUpperHalfOfFourDigitsAsPositiveNumbers) {
    EXPECT_EQ(saved("7FFF H"), "32767");
    EXPECT_EQ(saved("8000 H"), "32768");
    EXPECT_EQ(saved("8001 H"), "32769");
    EXPECT_EQ(saved("FFFE H"), "65534");
    EXPECT_EQ(saved("10000 H"), "65536");
}

TEST_F(Amplifier, MoreThanEightDigitsOverflowAndTheRowsBeforeStay) {
    const auto module = opened<clsBVTRVQD>();
    edit(module, 3, "first");
    edit(module, 4, "123456789 H");
    const std::string before = store.property(1, 5);
    EXPECT_EQ(raisedBy([&] { invoke(*module, "SaveToDB"); }), 6);
    EXPECT_EQ(store.property(1, 4), "first,1");
    EXPECT_EQ(store.property(1, 5), before);
    invoke(*module, "ReadFromDB");
}

TEST_F(Amplifier, EveryFourDigitValueComesBackAsItWasStored) {
    const auto module = opened<clsBVTRVQD>();
    for (int value = 0; value <= 65535; value += value < 16 || value > 65519 ? 1 : 997) {
        store.set(1, 5, "Value", std::to_string(value));
        invoke(*module, "ReadFromDB");
        invoke(*module, "SaveToDB");
        EXPECT_EQ(store.property(1, 5), std::to_string(value) + ",1");
    }
}

TEST_F(Amplifier, StoresOtherFormatsWithoutChange) {
    const auto module = opened<clsBVTRVQD>();
    edit(module, 5, "FFFF H");
    edit(module, 6, "1F");
    edit(module, 7, "0.50");
    edit(module, 8, std::int32_t{12});
    invoke(*module, "SaveToDB");
    EXPECT_EQ(store.property(1, 6), "FFFF H,1");
    EXPECT_EQ(store.property(1, 7), "1F,1");
    EXPECT_EQ(store.property(1, 8), "0.50,1");
    EXPECT_EQ(store.property(1, 9), "12,1");
}

TEST_F(Amplifier, NeverSavesItsFirstProperty) {
    const auto module = opened<clsBVTRVQD>();
    edit(module, 0, "other");
    invoke(*module, "SaveToDB");
    EXPECT_EQ(store.property(1, 1), "1001,0");
    EXPECT_EQ(store.property(1, 2), "1002,1");
}

TEST_F(Amplifier, LeavesARowAsItIsWhoseMatrixValueIsEmpty) {
    const auto module = opened<clsBVTRVQD>();
    edit(module, 1, "");
    edit(module, 2, Value());
    edit(module, 4, "");
    invoke(*module, "SaveToDB");
    EXPECT_EQ(store.property(1, 2), "1002,0");
    EXPECT_EQ(store.property(1, 3), "1003,0");
    EXPECT_EQ(store.property(1, 4), "1004,1");
    EXPECT_EQ(store.property(1, 5), "1005,0");
}

TEST_F(Amplifier, RestoresAndResetsItsFirstPropertyAsTheOthers) {
    const auto module = opened<clsBVTRVQD>();
    store.set(1, 5, "Default", "17");
    invoke(*module, "RestoreDefault");
    EXPECT_EQ(store.property(1, 1), "d1.1,1");
    EXPECT_EQ(store.property(1, 5), "17,1");
    EXPECT_EQ(cell(module, 4), "0011 H");
    invoke(*module, "ResetDirtyBits");
    EXPECT_EQ(store.property(1, 1), "d1.1,0");
}

TEST_F(Amplifier, ExportsDecimalAndImportsDecimal) {
    store.set(1, 5, "Value", "4660");
    const auto module = opened<clsBVTRVQD>();
    invoke(*module, "ExportToCSV", store.folder / "a.csv");
    EXPECT_NE(scratch::bytesOf(store.folder / "a.csv").find("\r\n1,5,\"4660\",0\r\n"), std::string::npos);
    invoke(*module, "ImportFromCSV", file("b.csv", "\"RVQD\"\r\n\"\",\"\",\"\",\"\"\r\n1,5,\"65535\",0\r\n"));
    EXPECT_EQ(store.property(1, 5), "65535,0");
    EXPECT_EQ(cell(module, 4), "1234 H");
    invoke(*module, "ReadFromDB");
    EXPECT_EQ(cell(module, 4), "FFFF H");
}

}  // namespace
}  // namespace canvas
