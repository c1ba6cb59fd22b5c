#pragma once
// IBlockAttribute: the protocol between a property panel and a block's attribute object.

#include <cstdint>
#include <string>
#include <string_view>

#include "host/members.h"

namespace canvas {

/// The ten operations in slot order. This class itself does nothing: every operation gives False, 0 or empty text.
class IBlockAttribute : public Tabled<IBlockAttribute> {
public:
    static constexpr std::string_view name = "IBlockAttribute";
    static std::span<const Member> table() noexcept;

    /// Writes column 1 of every row from the fields. The result says nothing.
    virtual bool FillMatrix() { return false; }
    /// Commits the whole panel. Element `row + 2` of `colGenContent` is a row's text; a negative `iCurrentIndex` means
    /// that no row is current and nothing changes.
    virtual bool UpdateMatrix(bool bGeneralTab, std::int16_t iCurrentIndex, Ref<Object>& colGenContent,
                              Ref<Object>& colAdvContent, std::string& strError, std::int16_t& iIndex,
                              Ref<Object>& SyntaxValidation, std::int32_t& selStart, std::int32_t& selLength,
                              std::int32_t& dataType, bool& isLValue, Value& Value_, std::string& FormattedText);
    /// Commits one cell. Text that fails the range is not stored; text that fails the syntax is stored and answered
    /// with False.
    virtual bool UpdateElementInMatrix(bool bGeneralTab, std::int16_t iCurrentIndex, std::string_view strNewData,
                                       std::string& strError, Ref<Object>& SyntaxValidation, std::int32_t& selStart,
                                       std::int32_t& selLength, std::int32_t& dataType, bool& isLValue, Value& Value_,
                                       std::string& FormattedText);
    virtual std::string GetElementFromMatrix(std::int16_t row, std::int16_t Col);
    /// The highest row index.
    virtual std::int16_t MatrixRow() { return 0; }
    /// The highest column index.
    virtual std::int16_t MatrixCol() { return 0; }
    /// Appends a combo row's texts to `colItem`. The result says nothing.
    virtual bool GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem);
    virtual std::int16_t GetNumOfProperties() { return 0; }
    /// The value at 1 to GetNumOfProperties as text; empty outside.
    virtual std::string GetPropertyAt(std::int16_t iIndex);
    /// Appends the findings of a program check, records that end in "@", to `strSyntaxMessage`.
    virtual bool PropertiesSyntaxCheck(Ref<Object> SyntaxValidation, std::int32_t lngBlockID,
                                       std::string& strSyntaxMessage);
};

}  // namespace canvas
