#pragma once
// The second tab of a panel, which two block classes look at.

#include "panel.h"

namespace canvas::testing {

/// Commits the second tab; its texts stand as those of the first, and the first tab has none.
inline Outcome commitAdvanced(IBlockAttribute& block, int row, Ref<Object> texts, Ref<Object> checker) {
    Outcome out;
    Ref<Object> general;
    out.result =
        block.UpdateMatrix(false, static_cast<std::int16_t>(row), general, texts, out.strError, out.iIndex, checker,
                           out.selStart, out.selLength, out.dataType, out.isLValue, out.value, out.FormattedText);
    return out;
}

}  // namespace canvas::testing
