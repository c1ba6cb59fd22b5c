#include "attributes/datatypes.h"

namespace canvas {

#define NAME(member) \
    case member: return #member

std::string_view nameOf(brxDatatype type) noexcept {
    switch (type) {
        NAME(brxUnknown);
        NAME(brxBool);
        NAME(brxByte);
        NAME(brxWord);
        NAME(brxScaledWord);
        NAME(brxPositiveWord);
        NAME(brxLong);
        NAME(brxScaledLong);
        NAME(brxPositiveLong);
        NAME(brxIntegral);
        NAME(brxFloat);
        NAME(brxScaledFloat);
        NAME(brxPositiveFloat);
        NAME(brxDouble);
        NAME(brxReal);
        NAME(brxFilename);
        NAME(brxAddress);
        NAME(brxExpression);
        NAME(brxChoice);
        NAME(brxTableName);
        NAME(brxNotApplicable);
        NAME(brxNumber);
        NAME(brxTypeMask);
        NAME(brxTypeMax);
    }
    return {};
}

std::string_view nameOf(brxDisplaytype display) noexcept {
    switch (display) {
        NAME(brxEditBox);
        NAME(brxEditButton);
        NAME(brxCheckBox);
        NAME(brxComboBox);
        NAME(brxButton);
    }
    return {};
}

}  // namespace canvas
