#pragma once
// Blocks without settings in the property panel: ends of a program, fault blocks, messages and notes.

#include "attributes/attribute.h"

namespace canvas {

struct clsBVTStart final : Attribute<clsBVTStart> {
    std::string strName;
    static const AttributeClass table;
};

struct clsBVTEnd final : Attribute<clsBVTEnd> {
    std::string strName;
    static const AttributeClass table;

    /// A new End named as `Obj`, which offers `Name`.
    Ref<clsBVTEnd> IsTheSameAs(Ref<Object> Obj) const;
    /// Reads two lines from an open numbered file; the second is the new object's name.
    Ref<clsBVTEnd> InputFromFile(std::int16_t intFileNumber) const;
};

/// `TypeK` of the two fault blocks is not kept in files: after a reload it has its default.
struct clsBVTIfFault final : Attribute<clsBVTIfFault> {
    std::string strType;
    static const AttributeClass table;
};

struct clsBVTResetFault final : Attribute<clsBVTResetFault> {
    std::string strType;
    static const AttributeClass table;
};

/// Messages are plain records with no part in the property panel.
struct clsBVTMessageIn final : Attribute<clsBVTMessageIn> {
    std::string strUserVariable, strTimeOut;
    static const AttributeClass table;
};

struct clsBVTMessageOut final : Attribute<clsBVTMessageOut> {
    std::string strMessage;
    bool blnSendCR = false;
    static const AttributeClass table;
};

/// A note on the drawing. Its text lies in the block's label, not among the values of the file line.
struct clsBVTNodeText final : Attribute<clsBVTNodeText> {
    std::string strNodeText;
    std::int16_t LineCount = 0, MaxCharPerLine = 0, CharCount = 0;
    static const AttributeClass table;
};

}  // namespace canvas
