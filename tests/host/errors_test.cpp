#include "host/errors.h"

#include <gtest/gtest.h>

namespace canvas {
namespace {

TEST(Errors, EveryNumberHasItsDescription) {
    const struct {
        int number;
        std::string_view description;
    } rows[] = {
        {5, "Invalid procedure call or argument"},
        {6, "Overflow"},
        {7, "Out of memory"},
        {9, "Subscript out of range"},
        {11, "Division by zero"},
        {13, "Type mismatch"},
        {52, "Bad file name or number"},
        {53, "File not found"},
        {55, "File already open"},
        {57, "Device I/O error"},
        {58, "File already exists"},
        {61, "Disk full"},
        {62, "Input past end of file"},
        {70, "Permission denied"},
        {75, "Path/File access error"},
        {76, "Path not found"},
        {91, "Object variable not set"},
        {94, "Invalid use of Null"},
        {424, "Object required"},
        {438, "Object doesn't support this property or method"},
        {440, "Automation error"},
        {450, "Wrong number of arguments"},
        {451, "Object not a collection"},
        {457, "This key is already associated with an element of this collection"},
        {3021, "No current record"},
        {3022, "Duplicate key"},
        {3024, "Could not find file"},
        {3078, "No such table or query"},
        {3265, "Item not found in this collection"},
        {3343, "Unrecognized database format"},
    };
    for (const auto& row : rows) EXPECT_EQ(descriptionOf(row.number), row.description) << row.number;
}

TEST(Errors, AnUnknownNumberIsApplicationDefined) {
    for (const int number : {-1, 0, 1, 9999, 1000000})
        EXPECT_EQ(descriptionOf(number), "Application-defined or object-defined error") << number;
}

TEST(Errors, ARaisedErrorCarriesNumberAndDescription) {
    try {
        raise(Error::subscript);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 9);
        EXPECT_EQ(error.description, "Subscript out of range");
        EXPECT_EQ(error.source, "");
        EXPECT_STREQ(error.what(), "Subscript out of range");
    }
}

TEST(Errors, ADescriptionOfOnesOwnReplacesTheTables) {
    try {
        raise(Error::automation, "The drive is off");
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, 440);
        EXPECT_EQ(error.description, "The drive is off");
    }
}

TEST(Errors, ARaisedErrorMayNameItsSource) {
    const RuntimeError error(3022, "Duplicate key", "Network::ImportFromCSV");
    EXPECT_EQ(error.source, "Network::ImportFromCSV");
}

TEST(Errors, ACaughtFailureShowsItsNumberInBrackets) {
    EXPECT_EQ(bracketed(RuntimeError(Error::invalidCall)), "[5] Invalid procedure call or argument");
    EXPECT_EQ(bracketed(RuntimeError(-2147, "")), "[-2147] ");
}

TEST(Errors, AContractViolationIsNoRuntimeError) {
    EXPECT_FALSE((std::is_base_of_v<RuntimeError, ContractViolation>));
    EXPECT_FALSE((std::is_base_of_v<ContractViolation, RuntimeError>));
}

}  // namespace
}  // namespace canvas
