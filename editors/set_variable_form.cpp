#include "editors/set_variable_form.h"

#include "editors/grid_form.h"
#include "editors/type_compatibility.h"
#include "host/ports.h"
#include "host/text.h"
#include "tracing/branch.h"

namespace canvas::editors {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace {

constexpr ControlRow controls[] = {
    grid("VSGridUserVariable", "|Variable|Expression", 0).refuses(Keys::noQuoteNorSemicolon),
    caption("lblEdit", "Double click on a cell to Edit", 1),
    okButton(),
    cancelButton(),
    helpButton(),
};

constexpr AttributeForm::Spec setVariable{{"frmSetVariable", "Set Variable", controls}, SETVARIABLE, Filled::onWrite};

enum : std::int32_t { variable = 1, expression = 2 };

/// The list lies in one field of a program file.
constexpr std::size_t longestList = 768;

class SetVariableForm final : public GridForm {
public:
    SetVariableForm() : GridForm(setVariable, "VSGridUserVariable", 10) {
        grid().setColumnKind(variable, ColumnKind::button);
        grid().setColumnKind(expression, ColumnKind::button);
    }

    std::string SelectVariable(std::string_view strVariable);
    bool Validation(std::int32_t Row, std::int32_t Col) override;

    std::string oldData;
    std::string tempVariable;

    std::span<const Member> ownMembers() const override;

protected:
    std::vector<std::string> rowOf(std::string_view entry) const override;
    std::string entryOf(std::int32_t row) const override;
    bool validateEdit(std::int32_t row, std::int32_t col) override;
    void cellButton(std::int32_t row, std::int32_t col) override;
    void cellDoubleClicked(std::int32_t row, std::int32_t col) override;
    void ok() override;
    void ownVariables(VariableSink& sink) const override;

private:
    Flow judgeText(const Finding& finding, std::string_view text, std::int32_t row, std::int32_t col);
    bool judgeTypes(const Finding& target, const Finding& source, std::string_view assigned, std::int32_t row,
                    std::int32_t col);

    /// An edit has just ended: the click that ended it must not open a list as well.
    bool m_swallowClick = false;
};

std::span<const Member> SetVariableForm::ownMembers() const {
    using F = SetVariableForm;
    static constexpr Member members[] = {
        method<&F::ParseList>("ParseList"),           method<&F::FillGrid>("FillGrid"),
        method<&F::SaveGridContent>("SaveGridContent"), method<&F::SelectVariable>("SelectVariable"),
        method<&F::Validation>("Validation"),
    };
    return members;
}

/// Split at the first "="; the expression may hold more of them.
std::vector<std::string> SetVariableForm::rowOf(std::string_view entry) const {
    const std::size_t sign = std::min(entry.find('='), entry.size());
    return {std::string(text::trimmed(entry.substr(0, sign))),
            std::string(text::trimmed(entry.substr(std::min(sign + 1, entry.size()))))};
}

std::string SetVariableForm::entryOf(std::int32_t row) const {
    const std::string left = trimmedCell(row, variable), right = trimmedCell(row, expression);
    return left.empty() || right.empty() ? std::string() : left + "=" + right + ";";
}

std::string SetVariableForm::SelectVariable(std::string_view strVariable) {
    static constexpr std::string_view lists[] = {"getuserdefinedvariablecol", "GetWritableSystemVariableCol",
                                                 "GetSystemIOCol", "GetUserDefinedTableCol",
                                                 "GetUserDefinedNetworkCol"};
    std::string result(strVariable);
    Procedure run(className(), "SelectVariable", this, [&](Locals& l) { l("strVariable", strVariable); });
    pickName(run, result, 0, {0, 1, 2, 3, 4}, [&](std::int32_t tab) {
        return objectAt(required(tab == 1 ? clsController : clsData), lists[tab]);
    });
    return result;
}

/// What the checker says of the text alone; `leave` when that makes the cell bad.
Flow SetVariableForm::judgeText(const Finding& finding, std::string_view text, std::int32_t row, std::int32_t col) {
    if (col == variable && finding.strError.empty() && !finding.isLValue) {
        tell("An expression cannot be assigned to \"" + std::string(text) + "\".\r\nPlease enter another name.",
             Icon::exclamation);
        return Flow::leave;
    }
    if (!finding.strError.empty()) {
        grid().setCellBackColor(row, col, red);
        tell(finding.strError, Icon::exclamation);
        return Flow::leave;
    }
    grid().setCellBackColor(row, col, finding.carriesMessage() ? yellow : white);
    return Flow::next;
}

/// A possible loss of data passes in silence here.
bool SetVariableForm::judgeTypes(const Finding& target, const Finding& source, std::string_view assigned,
                                 std::int32_t row, std::int32_t col) {
    // The table refuses a word for a bit, but these two constants are words to the checker.
    if (source.dataType == brxWord && target.dataType == brxBool && (assigned == "0" || assigned == "1")) return true;
    iDataTypeStatus = datatypeCompatibility(target.dataType, source.dataType);
    if (iDataTypeStatus != 2) return true;
    grid().setCellBackColor(row, col, red);
    tell(refusedAssignment(target.dataType, source.dataType), Icon::critical);
    return false;
}

/// A blank text is bad without a word: the cell stays in edit until something is typed or the edit is cancelled.
bool SetVariableForm::Validation(std::int32_t Row, std::int32_t Col) {
    bool result = false;
    std::string text, other;
    Finding finding, otherFinding;
    Procedure run(className(), "Validation", this, [&](Locals& l) {
        l("Row", Row);
        l("Col", Col);
        finding.report(l);
    });
    run(
        [&] {
            text = checkedText(Row, Col);
            return text::trimmed(text).empty() ? Flow::leave : Flow::next;
        },
        [&] { finding.check(clsSyntaxValidation, text); }, [&] { finding.take(clsSyntaxValidation); },
        [&] { return judgeText(finding, text, Row, Col); },
        [&] {
            other = grid().Cell(Row, variable + expression - Col);
            result = text::trimmed(other).empty();
            return result ? Flow::leave : Flow::next;
        },
        [&] { otherFinding.check(clsSyntaxValidation, other); },
        [&] {
            // a text that is bad has no type
            if (otherFinding.good) otherFinding.take(clsSyntaxValidation);
        },
        [&] {
            result = Col == variable ? judgeTypes(finding, otherFinding, other, Row, Col)
                                     : judgeTypes(otherFinding, finding, text, Row, Col);
        });
    return result;
}

bool SetVariableForm::validateEdit(std::int32_t row, std::int32_t col) {
    bool good = false;
    Procedure run(className(), "VSGridUserVariable_ValidateEdit", this, [&](Locals& l) {
        l("Row", row);
        l("Col", col);
    });
    run(
        [&] {
            // Pasted text has not met the key filter. The message alone holds no cell: Validation decides.
            if (grid().editText().find_first_of("\";") != std::string::npos)
                tell("Input cannot contain ; or \".", Icon::exclamation, "Data Entry");
        },
        [&] { good = Validation(row, col); }, [&] { m_swallowClick = true; });
    return good;
}

void SetVariableForm::cellButton(std::int32_t row, std::int32_t col) {
    if (m_swallowClick) {
        m_swallowClick = false;
        return;
    }
    std::string picked;
    Procedure run(className(), "VSGridUserVariable_CellButtonClick", this, [&](Locals& l) {
        l("Row", row);
        l("Col", col);
    });
    run([&] { oldData = grid().Cell(row, col); },
        [&] { picked = col == variable ? SelectVariable(oldData) : ExpressionBuilder(oldData); },
        [&] { grid().setCell(row, col, picked); });
}

/// The button is taken off so that the editor gets the whole cell.
void SetVariableForm::cellDoubleClicked(std::int32_t row, std::int32_t col) {
    if (col != variable && col != expression) return;
    grid().setColumnKind(col, ColumnKind::text);
    grid().beginEdit(row, col);
    grid().setColumnKind(col, ColumnKind::button);
}

void SetVariableForm::ok() {
    std::string strVariable;
    Procedure run(className(), "btnOK_Click", this, [&](Locals& l) { l("strVariable", strVariable); });
    run(
        [&] {
            strVariable = SaveGridContent();
            if (text::length(strVariable) <= longestList) return Flow::next;
            tell("Maximum allowable variable data exceeded.\rReduce length of data.", Icon::information);
            return Flow::leave;
        },
        [&] { BVTAttribute()->put("Variable", Value(strVariable)); },
        [&] {
            btnOKClicked = true;
            Hide();
        });
}

void SetVariableForm::ownVariables(VariableSink& sink) const {
    sink.variable("oldData", Value(oldData));
    sink.variable("DatatypeCompatibilityTable", datatypeCompatibilityTable());
    sink.variable("typeNames", typeNamesTable());
    sink.variable("iDataTypeStatus", Value(iDataTypeStatus));
    sink.variable("btnOKClicked", Value(btnOKClicked));
    sink.variable("strUserUnit", Value(strUserUnit));
    sink.variable("tempVariable", Value(tempVariable));
    sink.variable("clsAttribute", Value(clsAttribute));
    sink.variable("clsData", Value(clsData));
    sink.variable("clsController", Value(clsController));
    sink.variable("clsSyntaxValidation", Value(clsSyntaxValidation));
}

}  // namespace

Ref<Form> makeSetVariable() { return Ref<Form>(new SetVariableForm()); }

}  // namespace canvas::editors
