#include "attributes/validation.h"

#include <gtest/gtest.h>

#include "host/collection.h"
#include "print.h"
#include "tests/host/raised.h"

namespace canvas {
namespace {

constexpr const char* integerRange = "Expecting an integer in the range of [-32768 To 32767]";
constexpr const char* longRange = "Expecting a number in the range of [-2147483648 To 2147483647]";
constexpr const char* realRange = "Expecting a real number in the range of [-3.402823E+38 To 3.402823E+38]";
constexpr const char* positiveInteger = "Expecting a postion integer in the range of [0 To 32767].";
constexpr const char* positiveLong = "Expecting a postion long in the range of [0 To 2147483647].";
constexpr const char* positiveReal = "Expecting a positive real number in the range of [0.0 To 3.402823E+38].";
constexpr const char* scaledInteger = "Expecting a positive real number in the range of [0.0 To 327.67].";
constexpr const char* scaledLong = "Expecting a positive real number in the range of [0.0 To 21474836.47].";
constexpr const char* untouched = "an earlier message";

struct Row {
    const char* text;
    brxDatatype type;
    bool passes;
    const char* message;  ///< in `strError` afterwards
};

constexpr Row rows[]{
    {"32767", brxWord, true, untouched},
    {"-32768", brxWord, true, untouched},
    {"32768", brxWord, false, integerRange},
    {"-32769", brxWord, false, integerRange},
    {"1e3", brxWord, true, untouched},
    {"1E5", brxWord, false, integerRange},
    {"1E200", brxWord, false, integerRange},
    {"-1E400", brxWord, false, integerRange},
    {"1.5", brxWord, false, integerRange},
    {"1.0", brxWord, false, integerRange},
    {" -5 ", brxWord, true, untouched},
    {"40,000", brxWord, false, integerRange},

    {"2147483647", brxLong, true, untouched},
    {"-2147483648", brxLong, true, untouched},
    {"2147483648", brxLong, false, longRange},
    {"-2147483649", brxLong, false, longRange},
    {"1.5", brxLong, false, longRange},
    {"1.0", brxLong, false, longRange},
    {"1E200", brxLong, false, longRange},

    {"3.402823E+38", brxFloat, true, untouched},
    {"-3.402823E+38", brxFloat, true, untouched},
    {"3.40282305E+38", brxFloat, true, untouched},  // the same number once in single precision
    {"3.402824E+38", brxFloat, false, realRange},
    {"-3.402824E+38", brxFloat, false, realRange},
    {"1E39", brxFloat, false, realRange},
    {"1E200", brxFloat, false, realRange},
    {"-1E200", brxFloat, false, realRange},
    {"1E400", brxFloat, false, realRange},
    {"1E-200", brxFloat, true, untouched},

    {"0", brxPositiveWord, true, untouched},
    {"32767", brxPositiveWord, true, untouched},
    {"-1", brxPositiveWord, false, positiveInteger},
    {"32768", brxPositiveWord, false, positiveInteger},
    {"1.0", brxPositiveWord, false, positiveInteger},
    {"1E200", brxPositiveWord, false, positiveInteger},
    {"-1E-9", brxPositiveWord, false, positiveInteger},

    {"0", brxPositiveLong, true, untouched},
    {"2147483647", brxPositiveLong, true, untouched},
    {"-1", brxPositiveLong, false, positiveLong},
    {"2147483648", brxPositiveLong, false, positiveLong},
    {"0.5", brxPositiveLong, false, positiveLong},
    {"1E200", brxPositiveLong, false, positiveLong},

    {"0.0", brxPositiveFloat, true, untouched},
    {"3.402823E+38", brxPositiveFloat, true, untouched},
    {"-0.001", brxPositiveFloat, false, positiveReal},
    {"3.402824E+38", brxPositiveFloat, false, positiveReal},
    {"1E200", brxPositiveFloat, false, positiveReal},

    {"0", brxScaledWord, true, untouched},
    {"327.67", brxScaledWord, true, untouched},
    {"327.68", brxScaledWord, false, scaledInteger},
    {"1E30", brxScaledWord, false, scaledInteger},
    {"0", brxScaledLong, true, untouched},
    {"21474836.47", brxScaledLong, true, untouched},
    {"21474836.48", brxScaledLong, false, scaledLong},
    // What the check of positive reals refuses passes here, and leaves that check's message behind.
    {"-1", brxScaledWord, true, positiveReal},
    {"1E200", brxScaledWord, true, positiveReal},
    {"-1", brxScaledLong, true, positiveReal},
    {"1E200", brxScaledLong, true, positiveReal},
};

TEST(Validation, ChecksANumericTextAgainstTheRangeOfItsType) {
    const auto validation = make<clsBVTDataValidation>();
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << '"' << row.text << "\" as type " << row.type);
        std::string strError = untouched;
        Ref<Object> none;
        EXPECT_EQ(validation->Validate(row.text, row.type, strError, none), row.passes);
        EXPECT_EQ(strError, row.message);
        std::string second = untouched;
        EXPECT_EQ(validate(row.text, row.type, second), row.passes);
        EXPECT_EQ(second, row.message);
    }
}

TEST(Validation, TextThatIsNoNumberPassesEveryType) {
    const auto validation = make<clsBVTDataValidation>();
    for (const char* text : {"abc", "", " ", "1.5x", "1..5", "-", "--1", "a.b", "1 2"})
        for (std::int32_t type = brxUnknown; type <= brxTypeMax; ++type) {
            std::string strError = untouched;
            Ref<Object> none;
            EXPECT_TRUE(validation->Validate(text, static_cast<brxDatatype>(type), strError, none)) << text << type;
            EXPECT_EQ(strError, untouched);
        }
}

TEST(Validation, TypesWithoutACheckPassWhateverTheText) {
    const auto validation = make<clsBVTDataValidation>();
    for (const std::int32_t type : {-1, 0, 1, 2, 3, 7, 14, 17, 32, 48, 49, 50, 51, 52, 54, 55, 62, 63, 64, 1000})
        for (const char* text : {"-1", "1E200", "1.5", "70000"}) {
            std::string strError = untouched;
            Ref<Object> none;
            EXPECT_TRUE(validation->Validate(text, static_cast<brxDatatype>(type), strError, none)) << text << type;
            EXPECT_EQ(strError, untouched);
        }
}

TEST(Validation, EveryCheckHasItsOwnMessage) {
    using Check = bool (clsBVTDataValidation::*)(std::string_view, std::string&);
    const struct {
        Check check;
        const char* good;
        const char* bad;
        const char* message;
    } checks[]{
        {&clsBVTDataValidation::IsInteger, "-1", "32768", integerRange},
        {&clsBVTDataValidation::IsFloat, "-1.5", "1E39", realRange},
        {&clsBVTDataValidation::IsLong, "-70000", "1.0", longRange},
        {&clsBVTDataValidation::IsPositiveInteger, "0", "-1", positiveInteger},
        {&clsBVTDataValidation::IsPositiveFloat, "0.0", "-1", positiveReal},
        {&clsBVTDataValidation::IsPositiveLong, "70000", "-1", positiveLong},
        {&clsBVTDataValidation::IsScaledInteger, "327.67", "327.68", scaledInteger},
        {&clsBVTDataValidation::IsScaledLong, "327.68", "21474837", scaledLong},
    };
    const auto validation = make<clsBVTDataValidation>();
    for (const auto& row : checks) {
        std::string strError = untouched;
        EXPECT_TRUE((*validation.*row.check)(row.good, strError)) << row.message;
        EXPECT_TRUE((*validation.*row.check)("abc", strError)) << row.message;
        EXPECT_EQ(strError, untouched);
        EXPECT_FALSE((*validation.*row.check)(row.bad, strError)) << row.message;
        EXPECT_EQ(strError, row.message);
        EXPECT_TRUE((*validation.*row.check)(row.good, strError));
        EXPECT_EQ(strError, row.message) << "a message stands until the next failure";
    }
}

TEST(Validation, EveryTableNamePassesAndItsListComesBack) {
    const auto validation = make<clsBVTDataValidation>();
    const auto names = make<Collection>();
    Ref<Object> list = names;
    std::string strError = untouched;
    EXPECT_TRUE(validation->IsTableName(list, "no such table", strError));
    EXPECT_TRUE(validation->Validate("1E200", brxTableName, strError, list));
    EXPECT_EQ(list, Ref<Object>(names));
    EXPECT_EQ(names->Count(), 0);
    Ref<Object> nothing;
    EXPECT_TRUE(validation->Validate("x", brxTableName, strError, nothing));
    EXPECT_EQ(strError, untouched);
}

TEST(Validation, IsReachedByName) {
    const Ref<Object> validation = make<clsBVTDataValidation>();
    std::string strError = untouched;
    EXPECT_EQ(invoke(*validation, "Validate", "70000", std::int32_t{brxPositiveWord}, std::ref(strError)),
              Value(false));
    EXPECT_EQ(strError, positiveInteger);
    strError = untouched;
    const Ref<Object> names = make<Collection>();
    EXPECT_EQ(invoke(*validation, "validate", "-1", std::int32_t{brxScaledWord}, std::ref(strError), names),
              Value(true));
    EXPECT_EQ(strError, positiveReal);
    EXPECT_EQ(invoke(*validation, "IsTableName", names, "x", std::ref(strError)), Value(true));
    EXPECT_EQ(strError, positiveReal);
    EXPECT_EQ(validation->className(), "clsBVTDataValidation");
}

TEST(Validation, OnlyThePlainChecksDoWithoutAMessage) {
    const Ref<Object> validation = make<clsBVTDataValidation>();
    for (const char* check : {"IsInteger", "IsFloat", "IsLong"})
        EXPECT_EQ(invoke(*validation, check, "1E200"), Value(false)) << check;
    for (const char* check :
         {"IsPositiveInteger", "IsPositiveFloat", "IsPositiveLong", "IsScaledInteger", "IsScaledLong"})
        EXPECT_EQ(raisedBy([&] { invoke(*validation, check, "1"); }), 450) << check;
}

TEST(Datatypes, KeepTheirNumbers) {
    const struct {
        brxDatatype type;
        int number;
    } types[]{
        {brxUnknown, 0},        {brxBool, 1},         {brxByte, 2},           {brxWord, 4},          {brxScaledWord, 5},
        {brxPositiveWord, 6},   {brxLong, 8},         {brxScaledLong, 9},     {brxPositiveLong, 10}, {brxIntegral, 14},
        {brxFloat, 16},         {brxScaledFloat, 17}, {brxPositiveFloat, 18}, {brxDouble, 32},       {brxReal, 48},
        {brxFilename, 49},      {brxAddress, 50},     {brxExpression, 51},    {brxChoice, 52},       {brxTableName, 53},
        {brxNotApplicable, 54}, {brxNumber, 62},      {brxTypeMask, 63},      {brxTypeMax, 64},
    };
    for (const auto& row : types) EXPECT_EQ(static_cast<int>(row.type), row.number);
}

}  // namespace
}  // namespace canvas
