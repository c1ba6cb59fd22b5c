#pragma once
// Blocks that command one axis.

#include "attributes/attribute.h"

namespace canvas {

struct clsBVTAbortMotion final : Attribute<clsBVTAbortMotion> {
    std::string strDeceleration;
    static const AttributeClass table;
};

struct clsBVTChangeDynamics final : Attribute<clsBVTChangeDynamics> {
    std::string strAcceleration, strDeceleration, strVelocity, strSCurve;
    static const AttributeClass table;

    std::int16_t limitedRow() const override;
    std::string_view refusal(std::string_view text) const override;
};

struct clsBVTMoveAxis final : Attribute<clsBVTMoveAxis> {
    std::string strAcceleration, strDeceleration, strType, strPosition, strVelocity;
    bool blnWaitForCompletion = false;
    static const AttributeClass table;
};

struct clsBVTJogAxis final : Attribute<clsBVTJogAxis> {
    std::string strAcceleration, strDeceleration, strVelocity;
    static const AttributeClass table;
};

struct clsBVTHomeAxis final : Attribute<clsBVTHomeAxis> {
    std::string strTimeOut, strApproachVelocity, strAcceleration, strDeceleration, strCreepSpeed, strHomeSwitchInput,
        strHomingDirection;
    static const AttributeClass table;

protected:
    void adjustCell(std::int16_t row, std::string& text) const override;
};

struct clsBVTIncrementPosition final : Attribute<clsBVTIncrementPosition> {
    std::string strOffset, strTime;
    bool blnWaitForCompletion = false;
    static const AttributeClass table;

    /// Turns seconds of files before version 200 into milliseconds: "2" becomes "(2) * 1000", whatever the text is.
    /// Repeated calls nest. The result says nothing.
    bool UpdateTimeValue();
};

struct clsBVTDefinePosition final : Attribute<clsBVTDefinePosition> {
    std::string strMain, strExternal;
    bool blnMainChanged = false, blnExternalChanged = false;
    static const AttributeClass table;
};

struct clsBVTTorque final : Attribute<clsBVTTorque> {
    std::string strSpeedLimit, strTorque;
    static const AttributeClass table;
};

}  // namespace canvas
