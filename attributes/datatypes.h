#pragma once
// The public enumerations of the property panel.

#include <cstdint>
#include <string_view>

namespace canvas {

/// Data types of values. Up to 48 the codes are bit sets: 2 byte, 4 word, 8 long, 16 float, 32 double; on word, long
/// and float the bit 1 means scaled by 100 and the bit 2 not negative. 49 to 54 are plain codes and must be told apart
/// by exact comparison.
enum brxDatatype : std::int32_t {
    brxUnknown = 0,
    brxBool = 1,
    brxByte = 2,
    brxWord = 4,
    brxScaledWord = 5,
    brxPositiveWord = 6,
    brxLong = 8,
    brxScaledLong = 9,
    brxPositiveLong = 10,
    brxIntegral = 14,
    brxFloat = 16,
    brxScaledFloat = 17,
    brxPositiveFloat = 18,
    brxDouble = 32,
    brxReal = 48,
    brxFilename = 49,
    brxAddress = 50,
    brxExpression = 51,
    brxChoice = 52,
    brxTableName = 53,
    brxNotApplicable = 54,
    brxNumber = 62,
    brxTypeMask = 63,
    brxTypeMax = 64,
};

enum brxFieldAccess : std::int16_t { brxReadOnly = 0, brxReadAndWrite = 1 };
enum brxExpressionBuilder : std::int16_t { brxDisableBuilder = 0, brxEnableBuilder = 1 };
enum brxDisplaytype : std::int16_t { brxEditBox = 0, brxEditButton = 1, brxCheckBox = 2, brxComboBox = 3, brxButton = 4 };

/// Names of the enumerations' members; empty for a number that is none of theirs.
std::string_view nameOf(brxDatatype type) noexcept;
std::string_view nameOf(brxDisplaytype display) noexcept;

/// Columns of the block matrix.
enum class Column : std::int16_t { label, value, tip, access, builder, display, type };

}  // namespace canvas
