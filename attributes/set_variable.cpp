#include "attributes/lists.h"
#include "attributes/validation.h"
#include "host/convert.h"
#include "host/numbers.h"
#include "host/text.h"
#include "tracing/branch.h"

namespace canvas {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace set_variable {
using Self = clsBVTSetVariable;
enum Row : std::int16_t { count, variable, expression, add };
constexpr Field fields[]{
    {FIELD(strVariable), .property = "Variable", .file = 1},
    {.row = count, .label = "VariablesDefined", .tip = "Returns number of variables defined in current block.",
     .access = brxReadOnly, .builder = brxDisableBuilder, .type = brxPositiveWord},
    {.row = variable, .label = "VariableName", .tip = "Returns a defined variable name.",
     .builder = brxDisableBuilder, .display = brxComboBox, .type = brxChoice},
    {.row = expression, .label = "Expression", .tip = "Returns the expression for selected variable.",
     .type = brxExpression},
    {.row = add, .label = "Add",
     .tip = "Click on button to show detail window. Definitions can be added and deleted from there.",
     .builder = brxDisableBuilder, .display = brxEditButton, .type = brxNotApplicable},
};
constexpr Member operations[]{
    property<&Self::Variables, nullptr>("Variables"),
    property<&Self::Expressions, nullptr>("Expressions"),
    property<nullptr, &Self::setSelected>("Selected"),
    method<static_cast<bool (Self::*)(std::int16_t)>(&Self::UpdateMatrix)>("UpdateMatrix"),
    method<&Self::GetVariableAt>("GetVariableAt"),
    method<&Self::GetExpressionAt>("GetExpressionAt"),
    method<&Self::SetActiveVariable>("SetActiveVariable"),
    method<&Self::SetActiveExpression>("SetActiveExpression"),
    method<&Self::ParseList>("ParseList"),
};

/// An equation is split at its first "=" only; its right-hand side may hold more of them.
std::pair<std::string, std::string> sides(std::string_view equation) {
    const std::size_t sign = equation.find('=');
    if (sign == std::string_view::npos) return {std::string(equation), {}};
    return {std::string(equation.substr(0, sign)), std::string(equation.substr(sign + 1))};
}

const std::string& at(const std::vector<std::string>& texts, std::int32_t i) {
    if (i < 0 || static_cast<std::size_t>(i) >= texts.size()) raise(Error::subscript);
    return texts[static_cast<std::size_t>(i)];
}

std::string& at(std::vector<std::string>& texts, std::int32_t i) {
    return const_cast<std::string&>(at(std::as_const(texts), i));
}

/// An array that no FillMatrix has made has no dimensions yet.
Value arrayValue(const std::vector<std::string>& texts) {
    return Value(texts.empty() ? Array::undimensioned("String") : arrayOf("String", texts));
}
}  // namespace set_variable
const AttributeClass clsBVTSetVariable::table = canvas::attributeClass(
    {.name = "clsBVTSetVariable", .fields = set_variable::fields, .operations = set_variable::operations});

Value clsBVTSetVariable::Variables() const { return set_variable::arrayValue(arVariables); }
Value clsBVTSetVariable::Expressions() const { return set_variable::arrayValue(arExpressions); }
Value clsBVTSetVariable::ParseList(std::string_view strList) const { return Value(arrayOf("String", parseList(strList))); }

bool clsBVTSetVariable::UpdateMatrix(std::int16_t i) {
    iSelected = i;
    return false;
}

std::string clsBVTSetVariable::GetVariableAt(std::int16_t i) const {
    std::string result;
    Procedure run(className(), "GetVariableAt", this, [&](Locals& l) { l("i", i); });
    run([&] { result = set_variable::at(arVariables, i); });
    return result;
}

std::string clsBVTSetVariable::GetExpressionAt(std::int16_t i) const {
    std::string result;
    Procedure run(className(), "GetExpressionAt", this, [&](Locals& l) { l("i", i); });
    run([&] { result = set_variable::at(arExpressions, i); });
    return result;
}

bool clsBVTSetVariable::SetActiveVariable(std::string_view strNewData) {
    showCell(set_variable::variable, std::string(strNewData));
    return false;
}

bool clsBVTSetVariable::SetActiveExpression(std::string_view strNewData) {
    showCell(set_variable::expression, std::string(strNewData));
    return false;
}

/// The arrays have one element more than there are equations, and it is empty.
void clsBVTSetVariable::unpack() {
    strArray = parseList(strVariable);
    const std::size_t equations = entryCount(strArray);
    arVariables.assign(equations + 1, {});
    arExpressions.assign(equations + 1, {});
    for (std::size_t i = 0; i < equations; ++i) std::tie(arVariables[i], arExpressions[i]) = set_variable::sides(strArray[i]);
}

void clsBVTSetVariable::rebuild() {
    std::string list;
    for (std::size_t i = 0; i + 1 < arVariables.size(); ++i) list += arVariables[i] + "=" + arExpressions[i] + ";";
    strVariable = std::move(list);
}

bool clsBVTSetVariable::FillMatrix() {
    unpack();
    return Attribute::FillMatrix();
}

std::string clsBVTSetVariable::rowText(std::int16_t row) const {
    switch (row) {
        case set_variable::count: return numbers::textOf(static_cast<std::int32_t>(arVariables.size()) - 1);
        case set_variable::variable: return set_variable::at(arVariables, iSelected);
        case set_variable::expression: return set_variable::at(arExpressions, iSelected);
        default: return "New";
    }
}

bool clsBVTSetVariable::GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) {
    if (iIndex != set_variable::variable && iIndex != set_variable::expression) return false;
    const auto& texts = iIndex == set_variable::variable ? arVariables : arExpressions;
    Procedure run(className(), "GetComboItem", this, [&](Locals& l) {
        l("iIndex", iIndex);
        l("colItem", colItem);
    });
    run([&] {
        for (std::size_t i = 0; i + 1 < texts.size(); ++i)
            if (run([&] { invoke(required(colItem), "Add", texts[i]); }) == Flow::leave) return Flow::leave;
        return Flow::next;
    });
    return false;
}

/// Unlike other blocks', a text with a fault of syntax is not stored, and a good one as it was typed.
bool clsBVTSetVariable::updateCell(CellEdit& edit) {
    bool result = true;
    bool good = true;
    const std::int16_t row = edit.iCurrentIndex;
    const bool checked = row >= 0 && row != set_variable::add;
    const std::string text(edit.strNewData);
    Procedure run(className(), "UpdateElementInMatrix", this, [&](Locals& l) { edit.report(l); });
    run(
        [&] {
            if (arVariables.empty()) unpack();  // edited before the panel was first filled
            if (!checked) edit.FormattedText = text;
            if (!checked || validate(text, rowType(row), edit.strError)) return Flow::next;
            edit.mark(text);
            result = false;
            return Flow::leave;
        },
        [&] {
            if (checked) good = edit.isExpression(text);
        },
        [&] {
            if (good) {
                edit.FormattedText = text;
                return Flow::next;
            }
            result = false;
            edit.takeComplaint();
            return Flow::leave;
        },
        [&] {
            if (!good) return Flow::leave;
            if (row != set_variable::variable && row != set_variable::expression) return Flow::next;
            auto& texts = row == set_variable::variable ? arVariables : arExpressions;
            set_variable::at(texts, iSelected) = edit.FormattedText;
            showCell(row, edit.FormattedText);
            return Flow::next;
        },
        [&] { rebuild(); });
    return result;
}

bool clsBVTSetVariable::updatePanel(PanelEdit& edit) {
    if (edit.iCurrentIndex < 0) return true;
    bool result = false;
    std::int16_t row = 0;
    std::string variable;
    std::string expression;
    Procedure run(className(), "UpdateMatrix", this, [&](Locals& l) { edit.report(l); });
    const auto validateRow = [&] {
        if (validate(edit.general(row), rowType(row), edit.strError)) return Flow::next;
        edit.iIndex = static_cast<std::int16_t>(row + 1);
        return Flow::leave;
    };
    run(
        [&] {
            for (row = 0; row < table.rows; ++row)
                if (run(validateRow) == Flow::leave) return Flow::leave;
            return Flow::next;
        },
        [&] { variable = edit.general(set_variable::variable); },
        [&] { expression = edit.general(set_variable::expression); },
        [&] {
            if (arVariables.empty()) unpack();
            result = true;
            for (std::size_t j = 0; j + 1 < arVariables.size(); ++j) {
                if (arVariables[j] != variable) continue;
                arExpressions[j] = expression;
                rebuild();
                return;
            }
        });
    return result;
}

template <class Run>
Flow clsBVTSetVariable::checkEquation(Run& run, const Ref<Object>& checker, std::int32_t lngBlockID, std::int32_t i,
                                      std::string& strSyntaxMessage) const {
    const std::string place = "(" + numbers::textOf(lngBlockID) + "," + numbers::textOf(i + 1) + ")";
    const auto sides = set_variable::sides(strArray[static_cast<std::size_t>(i)]);
    const std::string& left = sides.first;  // named one by one: clang 14 cannot capture structured bindings
    const std::string& right = sides.second;
    ListCheck leftCheck;
    ListCheck rightCheck;
    bool good = false;
    return run([&] { good = leftCheck.CheckSyntax(*this, checker, left, lngBlockID, i); },
               [&] {
                   if (!good) return;
                   Value value;
                   std::string formatted;
                   SyntaxChecker(required(checker)).result(leftCheck.dataType, leftCheck.isLValue, value, formatted);
                   if (!leftCheck.isLValue)
                       strSyntaxMessage += "Error:  " + place + " Expression cannot be assigned a value.@";
               },
               [&] { rightCheck.CheckSyntax(*this, checker, right, lngBlockID, i); },
               [&] {
                   strSyntaxMessage += leftCheck.messages + rightCheck.messages;
                   // a literal 0 or 1 is a boolean when it is assigned to one
                   if (leftCheck.dataType == brxBool && (right == "0" || right == "1")) rightCheck.dataType = brxBool;
                   strSyntaxMessage += place + "ƒ" + numbers::textOf(leftCheck.dataType) + "ƒ" +
                                       numbers::textOf(rightCheck.dataType) + "@";
               });
}

bool clsBVTSetVariable::PropertiesSyntaxCheck(Ref<Object> SyntaxValidation, std::int32_t lngBlockID,
                                              std::string& strSyntaxMessage) {
    if (text::trimmed(strVariable).empty()) {
        strSyntaxMessage += "Error:  (" + numbers::textOf(lngBlockID) + ") Empty expression@";
        return true;
    }
    bool result = false;
    std::int32_t i = 0;
    Procedure run(className(), "PropertiesSyntaxCheck", this, [&](Locals& l) {
        l("SyntaxValidation", SyntaxValidation);
        l("lngBlockID", lngBlockID);
        l("strSyntaxMessage", strSyntaxMessage);
        l("i", i);
    });
    run([&] {
        strArray = parseList(strVariable);
        for (i = 0; static_cast<std::size_t>(i) < entryCount(strArray); ++i)
            if (checkEquation(run, SyntaxValidation, lngBlockID, i, strSyntaxMessage) == Flow::leave) return Flow::leave;
        result = true;
        return Flow::next;
    });
    return result;
}

void clsBVTSetVariable::reportVariables(VariableSink& sink) const {
    Attribute::reportVariables(sink);
    sink.variable("strArray", set_variable::arrayValue(strArray));
    sink.variable("arVariables", Variables());
    sink.variable("arExpressions", Expressions());
    sink.variable("iSelected", iSelected);
}

}  // namespace canvas
