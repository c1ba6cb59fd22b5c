#pragma once
// Blocks that couple the main axis to an external one.

#include "attributes/attribute.h"

namespace canvas {

/// The external axis is the master.
struct clsBVTGearRatio final : Attribute<clsBVTGearRatio> {
    std::string strMaster, strSlave;
    static const AttributeClass table;
};

struct clsBVTGearingOnOff final : Attribute<clsBVTGearingOnOff> {
    bool blnGearing = false, blnAdvanced = false;
    std::string strFeedForwardGain;
    static const AttributeClass table;

protected:
    std::int16_t advancedRows() const override { return 1; }
    void storeAdvancedCell(std::int16_t row, std::string_view text) override;
    void storeAdvancedPanel(std::int16_t row, const std::string& text) override;
};

/// A plain record of one option.
struct clsBVTAdvancedGearing final : Attribute<clsBVTAdvancedGearing> {
    std::string strFeedForwardGain;
    static const AttributeClass table;
};

/// A gain as the advanced tab's panel hands it in: a number is a factor and is kept in percent, an expression as it is.
std::string gainInPercent(const std::string& text);

}  // namespace canvas
