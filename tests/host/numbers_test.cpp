#include "host/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "host/errors.h"
#include "raised.h"

namespace canvas {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// Other signs for the time of a test.
class WithSigns {
public:
    explicit WithSigns(numbers::Signs signs) : m_before(numbers::signs()) { numbers::setSigns(signs); }
    ~WithSigns() { numbers::setSigns(m_before); }

private:
    numbers::Signs m_before;
};

TEST(Numbers, LooseTextIsNumeric) {
    const struct {
        std::string_view text;
        double value;
    } rows[] = {
        {"0", 0},
        {"7", 7},
        {"-7", -7},
        {"+7", 7},
        {"007", 7},
        {"0.0", 0},
        {"1.", 1},
        {".5", 0.5},
        {"-.5", -0.5},
        {" 5 ", 5},
        {"\t5\r\n", 5},
        {"- 1", -1},
        {" + 1 ", 1},
        {"1,234.5", 1234.5},
        {"1,2,3", 123},
        {"-1,000", -1000},
        {"1e3", 1000},
        {"1E3", 1000},
        {"1d3", 1000},
        {"1D3", 1000},
        {"1e+3", 1000},
        {"1e-3", 0.001},
        {"1.5E2", 150},
        {".5e1", 5},
        {"1.e1", 10},
        {"1,000e1", 10000},
        {"1E200", 1e200},
        {"1E400", infinity},
        {"-1E400", -infinity},
        {"1e99999999999999999999", infinity},
        {"1e-400", 0},
        {"1e-99999999999999999999", 0},
        {"0e999", 0},
        {"4.9406564584124654e-324", 4.9406564584124654e-324},
        {"1.7976931348623157E308", 1.7976931348623157e308},
        {"327.67", 327.67},
        {"123456789012345678", 123456789012345678.0},
        {"&HFF", 255},
        {"&hff", 255},
        {"&O17", 15},
        {"&o17", 15},
        {" &H10 ", 16},
    };
    for (const auto& row : rows) {
        const auto value = numbers::parse(row.text);
        ASSERT_TRUE(value) << row.text;
        EXPECT_EQ(*value, row.value) << row.text;
        EXPECT_TRUE(numbers::isNumeric(row.text)) << row.text;
    }
}

TEST(Numbers, OtherTextIsNotNumeric) {
    for (const std::string_view text :
         {"",         " ",     "+",      "-",    ".",   "-.",   ",",     ",1",   "1,",        "1,,2",
          "1,.5",     "1.2,3", "1.2.3",  "1 2",  "--1", "+-1",  "1-",    "1+",   "abc",       "1a",
          "a1",       "1E",    "E1",     ".e1",  "1E+", "1E 3", "1e3.5", "1ee3", "1e1,0",     "&",
          "&H",       "& H1",  "&H 1",   "&HG",  "&O8", "&B1",  "-&H1",  "&H-1", "0x10",      "inf",
          "infinity", "nan",   "1.#INF", "True", "$1",  "(1)",  "1%",    "1f",   "1\xC2\xA0", "\xD9\xA1"})
        EXPECT_FALSE(numbers::isNumeric(text)) << text;
}

TEST(Numbers, TextWithANulIsNotNumeric) { EXPECT_FALSE(numbers::isNumeric(std::string_view("1\0002", 3))); }

TEST(Numbers, BasedNumbersAreSignedAtTheirWidth) {
    const struct {
        std::string_view text;
        double value;
    } rows[] = {
        {"&H7FFF", 32767},
        {"&H8000", -32768},
        {"&HFFFF", -1},
        {"&H10000", 65536},
        {"&H0000FFFF", -1},
        {"&H7FFFFFFF", 2147483647},
        {"&H80000000", -2147483648.0},
        {"&HFFFFFFFF", -1},
        {"&H100000000", 4294967296.0},
        {"&O77777", 32767},
        {"&O100000", -32768},
        {"&O177777", -1},
        {"&O200000", 65536},
    };
    for (const auto& row : rows) EXPECT_EQ(numbers::parse(row.text), row.value) << row.text;
}

TEST(Numbers, AVeryLongTextIsStillOneNumber) {
    const std::string zeros(10000, '0');
    EXPECT_EQ(numbers::parse(zeros + "5"), 5);
    EXPECT_EQ(numbers::parse("1" + zeros), infinity);
    EXPECT_EQ(numbers::parse("0." + zeros + "1"), 0);
    EXPECT_EQ(numbers::parse("0." + zeros + "1e10001"), 1);
    EXPECT_EQ(numbers::parse("1" + zeros + "e-10000"), 1);
    EXPECT_EQ(numbers::parse("0." + zeros + "1e9000"), 0);
    EXPECT_EQ(numbers::parse("1" + zeros + "e-9000"), infinity);
}

TEST(Numbers, AHostMaySetOtherSigns) {
    const WithSigns german({',', '.'});
    EXPECT_EQ(numbers::parse("1.234,5"), 1234.5);
    EXPECT_EQ(numbers::parse("1,5"), 1.5);
    EXPECT_FALSE(numbers::isNumeric("1,2,3"));
    EXPECT_EQ(numbers::textOf(1.5), "1,5");
    EXPECT_EQ(numbers::textOf(1.5e20), "1,5E+20");
    EXPECT_EQ(numbers::parse(numbers::textOf(155.5)), 155.5);
}

TEST(Numbers, ConversionsRoundHalfToEven) {
    const struct {
        double value;
        int rounded;
    } rows[] = {{0.5, 0},
                {1.5, 2},
                {2.5, 2},
                {3.5, 4},
                {-0.5, 0},
                {-1.5, -2},
                {-2.5, -2},
                {2.4, 2},
                {2.6, 3},
                {-2.4, -2},
                {-2.6, -3},
                {2.5000001, 3},
                {0.49999999999999994, 0},
                {-0.0, 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(numbers::roundToInteger(row.value), row.rounded) << row.value;
        EXPECT_EQ(numbers::roundToLong(row.value), row.rounded) << row.value;
    }
    EXPECT_EQ(numbers::toInteger("2.5"), 2);
    EXPECT_EQ(numbers::toLong("3.5"), 4);
}

TEST(Numbers, IntegersOverflowBeyondTheirLimits) {
    EXPECT_EQ(numbers::roundToInteger(32767.4), 32767);
    EXPECT_EQ(raisedBy([] { numbers::roundToInteger(32767.5); }), 6);
    EXPECT_EQ(numbers::roundToInteger(-32768.5), -32768);
    EXPECT_EQ(raisedBy([] { numbers::roundToInteger(-32768.6); }), 6);
    EXPECT_EQ(numbers::roundToLong(2147483647.4), 2147483647);
    EXPECT_EQ(raisedBy([] { numbers::roundToLong(2147483647.5); }), 6);
    EXPECT_EQ(numbers::roundToLong(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(raisedBy([] { numbers::roundToLong(-2147483648.6); }), 6);
    for (const double value : {1e300, -1e300, infinity, -infinity, std::nan("")}) {
        EXPECT_EQ(raisedBy([&] { numbers::roundToInteger(value); }), 6) << value;
        EXPECT_EQ(raisedBy([&] { numbers::roundToLong(value); }), 6) << value;
    }
}

TEST(Numbers, SinglesOverflowBeyondTheirLimits) {
    EXPECT_EQ(numbers::roundToSingle(0.1), 0.1f);
    EXPECT_EQ(numbers::roundToSingle(3.4028234663852886e38), std::numeric_limits<float>::max());
    EXPECT_EQ(numbers::roundToSingle(3.40282350e38), std::numeric_limits<float>::max());
    EXPECT_EQ(numbers::roundToSingle(1e-60), 0.0f);
    for (const double value : {3.4028236e38, -3.4028236e38, 1e200, infinity, std::nan("")})
        EXPECT_EQ(raisedBy([&] { numbers::roundToSingle(value); }), 6) << value;
}

TEST(Numbers, TextThatIsNoNumberIsATypeMismatch) {
    for (const std::string_view text : {"", "abc", "1 2"}) {
        EXPECT_EQ(raisedBy([&] { numbers::toDouble(text); }), 13) << text;
        EXPECT_EQ(raisedBy([&] { numbers::toInteger(text); }), 13) << text;
        EXPECT_EQ(raisedBy([&] { numbers::toLong(text); }), 13) << text;
        EXPECT_EQ(raisedBy([&] { numbers::toBoolean(text); }), 13) << text;
    }
}

TEST(Numbers, TextThatDoesNotFitOverflows) {
    EXPECT_EQ(raisedBy([] { numbers::toDouble("1E400"); }), 6);
    EXPECT_EQ(raisedBy([] { numbers::toLong("1E200"); }), 6);
    EXPECT_EQ(raisedBy([] { numbers::toInteger("40000"); }), 6);
    EXPECT_EQ(numbers::toLong("40000"), 40000);
    EXPECT_EQ(numbers::toDouble("1E200"), 1e200);
}

TEST(Numbers, BooleanTextIsAWordOrANumber) {
    for (const std::string_view text : {"True", "true", "TRUE", "1", "-1", "0.1", "1E400"})
        EXPECT_TRUE(numbers::toBoolean(text)) << text;
    for (const std::string_view text : {"False", "false", "FALSE", "0", "0.0", "-0", "&H0"})
        EXPECT_FALSE(numbers::toBoolean(text)) << text;
    for (const std::string_view text : {"Yes", "No", "on", "Tru", "True "})
        EXPECT_EQ(raisedBy([&] { numbers::toBoolean(text); }), 13) << text;
}

TEST(Numbers, WholeNumbersPrintInFull) {
    EXPECT_EQ(numbers::textOf(std::int32_t{0}), "0");
    EXPECT_EQ(numbers::textOf(std::int32_t{-1}), "-1");
    EXPECT_EQ(numbers::textOf(std::numeric_limits<std::int32_t>::min()), "-2147483648");
    EXPECT_EQ(numbers::textOf(std::numeric_limits<std::int32_t>::max()), "2147483647");
}

TEST(Numbers, DoublesPrintWithFifteenDigits) {
    const struct {
        double value;
        std::string_view text;
    } rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-2.5, "-2.5"},
        {100, "100"},
        {0.1, "0.1"},
        {1.1 * 100, "110"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {12345.678, "12345.678"},
        {100000000000000, "100000000000000"},
        {999999999999999, "999999999999999"},
        {999999999999999.6, "1E+15"},
        {1e15, "1E+15"},
        {1.5e15, "1.5E+15"},
        {123456789012345678.0, "1.23456789012346E+17"},
        {1e20, "1E+20"},
        {-1e100, "-1E+100"},
        {1e200, "1E+200"},
        {0.0001, "0.0001"},
        {0.00001, "0.00001"},
        {1e-15, "0.000000000000001"},
        {1.5e-15, "1.5E-15"},
        {1e-16, "1E-16"},
        {1.0 / 30, "3.33333333333333E-02"},
        {-1e-300, "-1E-300"},
        {infinity, "1.#INF"},
        {-infinity, "-1.#INF"},
        {std::nan(""), "1.#QNAN"},
    };
    for (const auto& row : rows) EXPECT_EQ(numbers::textOf(row.value), row.text);
}

TEST(Numbers, SinglesPrintWithSevenDigits) {
    const struct {
        float value;
        std::string_view text;
    } rows[] = {
        {0.0f, "0"},
        {-0.0f, "0"},
        {5.0f, "5"},
        {0.1f, "0.1"},
        {1.0f / 3, "0.3333333"},
        {9999999.0f, "9999999"},
        {1e7f, "1E+07"},
        {12345678.0f, "1.234568E+07"},
        {3.402823466e38f, "3.402823E+38"},
        {1e-7f, "0.0000001"},
        {1.5e-7f, "1.5E-07"},
        {-1e-8f, "-1E-08"},
        {std::numeric_limits<float>::infinity(), "1.#INF"},
    };
    for (const auto& row : rows) EXPECT_EQ(numbers::textOf(row.value), row.text);
}

TEST(Numbers, AppendingLeavesWhatWasThere) {
    std::string line = "BLOCK_DEFINE ";
    numbers::append(line, 12);
    line += ' ';
    numbers::append(line, -1);
    EXPECT_EQ(line, "BLOCK_DEFINE 12 -1");
}

}  // namespace
}  // namespace canvas
