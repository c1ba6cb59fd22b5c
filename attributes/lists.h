#pragma once
// Blocks that hold a list of entries in one text. The text is what files keep; FillMatrix unpacks it into arrays, and the
// panel shows one entry at a time.

#include <array>
#include <vector>

#include "attributes/attribute.h"

namespace canvas {

/// The text split at ";". A list whose entries each end in ";" has one more part than entries, the last one empty.
std::vector<std::string> parseList(std::string_view list);

/// How many entries the parts hold: a list without its last ";" loses its last entry, an empty one has none.
std::size_t entryCount(const std::vector<std::string>& parts) noexcept;

/// One expression of a list to the host's checker: its data type, and what is to be said of it as records.
struct ListCheck {
    std::int32_t dataType = 0;  ///< 0 where the checker gave none
    bool isLValue = false;
    std::string messages;

    /// Positions in records are `lngPropertyID` + 1. False when the checker refuses the text. A place beyond a 16-bit
    /// number is error 6.
    bool CheckSyntax(const Object& block, const Ref<Object>& SyntaxValidation, std::string_view strExpression,
                     std::int32_t lngBlockID, std::int32_t lngPropertyID);
};

struct clsBVTSetVariable final : Attribute<clsBVTSetVariable> {
    std::string strVariable;  ///< "Speed=100;Torque=Speed*2;"
    std::vector<std::string> strArray, arVariables, arExpressions;
    std::int16_t iSelected = 0;
    static const AttributeClass table;

    Value Variables() const;
    Value Expressions() const;
    void setSelected(std::int16_t i) noexcept { iSelected = i; }
    using AttributeObject::UpdateMatrix;
    /// Selects the entry shown, from 0. The result says nothing.
    bool UpdateMatrix(std::int16_t i);
    std::string GetVariableAt(std::int16_t i) const;
    std::string GetExpressionAt(std::int16_t i) const;
    /// Shows a text in the matrix, without a change of the list. The result says nothing.
    bool SetActiveVariable(std::string_view strNewData);
    bool SetActiveExpression(std::string_view strNewData);
    Value ParseList(std::string_view strList) const;

    bool FillMatrix() override;
    bool GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) override;
    bool PropertiesSyntaxCheck(Ref<Object> SyntaxValidation, std::int32_t lngBlockID,
                               std::string& strSyntaxMessage) override;
    void reportVariables(VariableSink& sink) const override;

protected:
    std::string rowText(std::int16_t row) const override;
    bool updateCell(CellEdit& edit) override;
    bool updatePanel(PanelEdit& edit) override;

private:
    void unpack();
    void rebuild();
    template <class Run>
    tracing::Flow checkEquation(Run& run, const Ref<Object>& checker, std::int32_t lngBlockID, std::int32_t i,
                                std::string& strSyntaxMessage) const;
};

struct clsBVTProgrammableLimitSwitch final : Attribute<clsBVTProgrammableLimitSwitch> {
    using Switch = std::array<std::string, 4>;  ///< greater than, less than, output, "1" for on

    std::string strVariable;  ///< "100,50,Out1,1;200,150,Out2,0;"
    std::string strMasterVariable;
    std::vector<std::string> strArray;
    std::vector<Switch> arSwitches;
    std::int16_t iSelected = 0;
    static const AttributeClass table;

    /// The unpacked switches, n by 4 texts.
    Value Switches() const;
    void setSelected(std::int16_t i) noexcept { iSelected = i; }
    using AttributeObject::UpdateMatrix;
    bool UpdateMatrix(std::int16_t i);
    /// The field that row "GreaterThan(>)" shows. The two names stand the wrong way round, and hosts call them so.
    std::string GetActiveLessThanValue(std::int16_t i) const;
    /// The field that row "LessThan(<)" shows.
    std::string GetActiveGreaterThanValue(std::int16_t i) const;
    std::string GetActiveOutputValue(std::int16_t i) const;
    /// "ON" or "OFF".
    std::string GetActiveState(std::int16_t i) const;
    Value ParseList(std::string_view strList) const;

    bool FillMatrix() override;
    bool GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) override;
    bool PropertiesSyntaxCheck(Ref<Object> SyntaxValidation, std::int32_t lngBlockID,
                               std::string& strSyntaxMessage) override;
    void reportVariables(VariableSink& sink) const override;

protected:
    std::string rowText(std::int16_t row) const override;
    void storeCell(std::int16_t row, std::string_view text) override;
    bool updatePanel(PanelEdit& edit) override;

private:
    void unpack();
    void rebuild();
    std::string field(std::string_view procedure, std::int16_t i, std::size_t place) const;
    template <class Run>
    tracing::Flow checkSwitch(Run& run, const Ref<Object>& checker, std::int32_t lngBlockID, std::int32_t i,
                              std::string& strSyntaxMessage) const;
};

}  // namespace canvas
