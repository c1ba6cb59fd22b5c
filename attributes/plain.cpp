#include "attributes/plain.h"

#include "host/ports.h"
#include "tracing/branch.h"

namespace canvas {

namespace start {
using Self = clsBVTStart;
constexpr Field fields[]{{FIELD(strName), .property = "Name", .file = 1}};
}  // namespace start
const AttributeClass clsBVTStart::table =
    canvas::attributeClass({.name = "clsBVTStart", .fields = start::fields, .panel = false});

namespace end {
using Self = clsBVTEnd;
constexpr Field fields[]{{FIELD(strName), .property = "Name", .file = 1}};
constexpr Member operations[]{method<&Self::IsTheSameAs>("IsTheSameAs"), method<&Self::InputFromFile>("InputFromFile")};
}  // namespace end
const AttributeClass clsBVTEnd::table = canvas::attributeClass(
    {.name = "clsBVTEnd", .fields = end::fields, .operations = end::operations, .panel = false});

Ref<clsBVTEnd> clsBVTEnd::IsTheSameAs(Ref<Object> Obj) const {
    Ref<clsBVTEnd> result;
    tracing::Procedure run(className(), "IsTheSameAs", this, [&](tracing::Locals& l) { l("Obj", Obj); });
    run([&] { result = make<clsBVTEnd>(); }, [&] { result->strName = required(Obj).get("Name").toText(); });
    return result;
}

Ref<clsBVTEnd> clsBVTEnd::InputFromFile(std::int16_t intFileNumber) const {
    Ref<clsBVTEnd> result;
    std::string strLine;
    tracing::Procedure run(className(), "InputFromFile", this, [&](tracing::Locals& l) {
        l("intFileNumber", intFileNumber);
        l("strLine", strLine);
    });
    const auto readLine = [&] { strLine = environment().files->readLine(intFileNumber); };
    run([&] { result = make<clsBVTEnd>(); }, readLine, readLine, [&] { result->strName = strLine; });
    return result;
}

namespace if_fault {
using Self = clsBVTIfFault;
constexpr Field fields[]{{FIELD(strType), .property = "TypeK", .preset = "0"}};
}  // namespace if_fault
const AttributeClass clsBVTIfFault::table =
    canvas::attributeClass({.name = "clsBVTIfFault", .fields = if_fault::fields, .panel = false});

namespace reset_fault {
using Self = clsBVTResetFault;
constexpr Field fields[]{{FIELD(strType), .property = "TypeK", .preset = "0"}};
}  // namespace reset_fault
const AttributeClass clsBVTResetFault::table =
    canvas::attributeClass({.name = "clsBVTResetFault", .fields = reset_fault::fields, .panel = false});

namespace message_in {
using Self = clsBVTMessageIn;
constexpr Field fields[]{
    {FIELD(strUserVariable), .property = "UserVariable", .file = 1},
    {FIELD(strTimeOut), .property = "TimeOut", .file = 2},
};
}  // namespace message_in
const AttributeClass clsBVTMessageIn::table = canvas::attributeClass(
    {.name = "clsBVTMessageIn", .fields = message_in::fields, .panel = false, .offersInterface = false});

namespace message_out {
using Self = clsBVTMessageOut;
constexpr Field fields[]{
    {FIELD(strMessage), .property = "Message", .file = 1},
    {FIELD(blnSendCR), .property = "SendCR", .preset = "False", .file = 2},
};
}  // namespace message_out
const AttributeClass clsBVTMessageOut::table = canvas::attributeClass(
    {.name = "clsBVTMessageOut", .fields = message_out::fields, .panel = false, .offersInterface = false});

namespace node_text {
using Self = clsBVTNodeText;
constexpr Field fields[]{
    {FIELD(strNodeText), .property = "NodeText", .preset = "Untitled"},
    {FIELD(LineCount), .property = "LineCount", .preset = "1"},
    {FIELD(MaxCharPerLine), .property = "MaxCharPerLine", .preset = "5"},  // shorter than the default text, and stays so
    {FIELD(CharCount), .property = "CharCount", .preset = "8"},
};
}  // namespace node_text
const AttributeClass clsBVTNodeText::table =
    canvas::attributeClass({.name = "clsBVTNodeText", .fields = node_text::fields, .panel = false});

}  // namespace canvas
