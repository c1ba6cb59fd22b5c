#pragma once
// Blocks that switch the latch and move by it.

#include "attributes/attribute.h"

namespace canvas {

struct clsBVTLatchOnOff final : Attribute<clsBVTLatchOnOff> {
    bool blnLatch = false, blnMainLatchAxis = false;
    static const AttributeClass table;
};

struct clsBVTLatchTarget final : Attribute<clsBVTLatchTarget> {
    std::string strDistanceAfterLatch, strDefaultDistance, strVelocity, strAcceleration, strDeceleration,
        strLatchStartDistance, strLatchFinishDistance;
    bool blnWaitForCompletion = false;
    static const AttributeClass table;
};

}  // namespace canvas
