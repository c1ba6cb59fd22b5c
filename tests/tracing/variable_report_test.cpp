#include <gtest/gtest.h>

#include <cmath>

#include "host/array.h"
#include "host/composed.h"
#include "tests/tracing/fakes.h"
#include "tracing/report.h"

namespace canvas::tracing {
namespace {

class VariableReport : public testing::Test {
protected:
    void SetUp() override { vbwOpenDumpFile(); }

    /// The lines that a variable gives.
    std::string lines(std::string_view name, const Value& value, int tab = 0) {
        surroundings.disk->contents["report.dmp"].clear();
        vbwReportVariable(name, value, tab);
        return surroundings.dump();
    }

    Surroundings surroundings;
};

/// Dimensions of one element each, from 1.
Array withDimensions(std::size_t count) { return Array::of("Integer", std::vector<Bounds>(count, Bounds{1, 1})); }

TEST_F(VariableReport, ShowsEachKindWithItsTypeAndInQuotes) {
    EXPECT_EQ(lines("strName", "Start"), "strName = \"Start\" (String)\r\n");
    EXPECT_EQ(lines("strName", ""), "strName = \"\" (String)\r\n");
    EXPECT_EQ(lines("intID", std::int16_t{-1}), "intID = \"-1\" (Integer)\r\n");
    EXPECT_EQ(lines("lngX", 70000), "lngX = \"70000\" (Long)\r\n");
    EXPECT_EQ(lines("sngZoom", 1.5F), "sngZoom = \"1.5\" (Single)\r\n");
    EXPECT_EQ(lines("dblX", 0.1), "dblX = \"0.1\" (Double)\r\n");
    EXPECT_EQ(lines("blnChanged", true), "blnChanged = \"True\" (Boolean)\r\n");
    EXPECT_EQ(lines("blnChanged", false), "blnChanged = \"False\" (Boolean)\r\n");
}

TEST_F(VariableReport, ShowsAnEmptyValueAsTheOptionSays) {
    EXPECT_EQ(lines("vnt", Empty{}), "vnt = {Empty} (Empty)\r\n");
    vbwCommon.VBW_EMPTY = "nothing yet";
    EXPECT_EQ(lines("vnt", Empty{}), "vnt = \"nothing yet\" (Empty)\r\n");
}

TEST_F(VariableReport, StartsWithItsTabs) { EXPECT_EQ(lines("a", "b", 3), "\t\t\ta = \"b\" (String)\r\n"); }

TEST_F(VariableReport, CutsALongText) {
    vbwCommon.vbwDumpStringMaxLength = 3;
    EXPECT_EQ(lines("a", "abcdefg"), "a = \"abcd{...}\" (String)\r\n");
}

TEST_F(VariableReport, CannotConvertNull) {
    EXPECT_EQ(lines("vnt", Null{}, 1), "\tvnt = {Variable Dumping Error}\r\n");
}

TEST_F(VariableReport, AParameterIsTheSameButForItsFailure) {
    vbwReportParameter("BlockID", std::int16_t{3}, 1);
    vbwReportParameter("vnt", Null{}, 1);
    EXPECT_EQ(surroundings.dump(),
              "\tBlockID = \"3\" (Integer)\r\n"
              "\tvnt = {Invalid use of Null: Parameter Dumping Error}\r\n");
}

TEST_F(VariableReport, ListsTheElementsOfAnArrayOneLevelDeeper) {
    EXPECT_EQ(lines("strName()", arrayOf("String", std::vector<std::string>{"a", "b"}), 1),
              "\tArray strName(0 To 1) As String\r\n"
              "\t\tstrName(0) = \"a\" (String)\r\n"
              "\t\tstrName(1) = \"b\" (String)\r\n");
}

TEST_F(VariableReport, TakesAnArraysNameWithoutParenthesesToo) {
    EXPECT_EQ(lines("a", arrayOf("Long", std::vector{7}, -1)), "Array a(-1 To -1) As Long\r\n\ta(-1) = \"7\" (Long)\r\n");
}

TEST_F(VariableReport, WalksTwoDimensionsWithTheLastIndexFastest) {
    Array array = Array::of("Variant", {{0, 1}, {1, 2}});
    const std::int32_t place[] = {1, 2};
    array.at(place) = "x";
    EXPECT_EQ(lines("m()", array),
              "Array m(0 To 1,1 To 2) As Variant\r\n"
              "\tm(0,1) = {Empty} (Empty)\r\n"
              "\tm(0,2) = {Empty} (Empty)\r\n"
              "\tm(1,1) = {Empty} (Empty)\r\n"
              "\tm(1,2) = \"x\" (String)\r\n");
}

TEST_F(VariableReport, WalksThreeAndFourDimensions) {
    EXPECT_EQ(lines("m()", withDimensions(3)),
              "Array m(1 To 1,1 To 1,1 To 1) As Integer\r\n\tm(1,1,1) = {Empty} (Empty)\r\n");
    EXPECT_EQ(lines("m()", withDimensions(4)),
              "Array m(1 To 1,1 To 1,1 To 1,1 To 1) As Integer\r\n\tm(1,1,1,1) = {Empty} (Empty)\r\n");
}

TEST_F(VariableReport, DoesNotWalkFiveDimensions) {
    EXPECT_EQ(lines("m()", withDimensions(5)), "Array m() not processed: 5 dimensions\r\n");
}

TEST_F(VariableReport, ShowsAnArrayThatHasNoDimensionsYet) {
    EXPECT_EQ(lines("m()", Array::undimensioned("String")), "Array m() (Undimensioned Array)\r\n");
}

TEST_F(VariableReport, AnArrayWithoutElementsIsItsHeaderAlone) {
    EXPECT_EQ(lines("m()", arrayOf("String", std::vector<std::string>{})), "Array m(0 To -1) As String\r\n");
}

TEST_F(VariableReport, AnElementMayBeAnArrayAndMayFail) {
    Array array = Array::of("Variant", {{0, 2}});
    array.at(0) = arrayOf("Integer", std::vector<std::int16_t>{5});
    array.at(1) = Null{};
    array.at(2) = true;
    EXPECT_EQ(lines("m()", array),
              "Array m(0 To 2) As Variant\r\n"
              "\tArray m(0)(0 To 0) As Integer\r\n"
              "\t\tm(0)(0) = \"5\" (Integer)\r\n"
              "\tm(1) = {Variable Dumping Error}\r\n"
              "\tm(2) = \"True\" (Boolean)\r\n");
}

TEST_F(VariableReport, ALineThatDoesNotFitOnTheDiskIsLeftOut) {
    surroundings.disk->room = 1;
    vbwReportVariable("a", 1, 0);
    vbwReportVariable("b", 2, 0);
    EXPECT_EQ(surroundings.dump(), "a = \"1\" (Long)\r\n");
}

TEST(GetArrayDimensionTest, CountsDimensions) {
    EXPECT_EQ(GetArrayDimension("text"), 0);
    EXPECT_EQ(GetArrayDimension(Empty{}), 0);
    EXPECT_EQ(GetArrayDimension(Array::undimensioned("String")), 0);
    for (const std::size_t count : {1u, 2u, 4u, 5u, 60u})
        EXPECT_EQ(GetArrayDimension(withDimensions(count)), static_cast<int>(count));
}

TEST(DumpFile, IsOpenOnlyBetweenOpeningAndClosing) {
    Surroundings surroundings;
    EXPECT_THROW(vbwReportToFile("line"), RuntimeError);
    vbwOpenDumpFile();
    EXPECT_TRUE(surroundings.disk->isOpen());
    EXPECT_EQ(vbwCommon.vbwDumpFileNum, 1);
    vbwReportToFile("line");
    vbwCloseDumpFile();
    EXPECT_FALSE(surroundings.disk->isOpen());
    EXPECT_EQ(vbwCommon.vbwDumpFileNum, 0);
    EXPECT_THROW(vbwReportToFile("line"), RuntimeError);
    EXPECT_EQ(surroundings.dump(), "line\r\n");
}

TEST(DumpFile, AVariableWrittenWithoutOneIsLost) {
    Surroundings surroundings;
    vbwReportVariable("a", 1, 0);
    EXPECT_TRUE(surroundings.disk->contents.empty());
}

}  // namespace
}  // namespace canvas::tracing
