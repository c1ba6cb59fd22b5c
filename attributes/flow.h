#pragma once
// Blocks that wait or branch on a condition, and the servo switch.

#include "attributes/attribute.h"

namespace canvas {

struct clsBVTIfEvent final : Attribute<clsBVTIfEvent> {
    std::string strEvent;
    static const AttributeClass table;
};

struct clsBVTOnTime final : Attribute<clsBVTOnTime> {
    std::string strTimeOut;
    static const AttributeClass table;
};

struct clsBVTInput final : Attribute<clsBVTInput> {
    std::string strInputBlock, strCondition;
    static const AttributeClass table;

    /// The condition's place in its list from 0, or -1 when it is not there.
    std::int16_t InputType() const;
    void AssignFromFile(std::int16_t intVarNum, std::string_view strNewValue) override;

protected:
    void appendValue(const Field& field, std::string& line) const override;
};

struct clsBVTServoOnOff final : Attribute<clsBVTServoOnOff> {
    bool blnServo = false;
    static const AttributeClass table;
};

}  // namespace canvas
