#include "editors/limit_switch_form.h"

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
    caption("lblMasterVariable", "Encoder Variable:", 0),
    text("txbMasterVariable", "MasterVariable", 0).onDoubleClick(DoubleClick::nothing),
    button("cmdSelectMasterVariable", "...", 0, 2),
    grid("VSPLSGrid", "|Value >|Value <|Output|On/Off", 1),
    okButton(),
    cancelButton(),
    helpButton(),
};

/// SetData is the form's own, and there is nothing to build expressions with.
constexpr AttributeForm::Spec limitSwitch{.design = {"frmProgrammableLimitSwitch", "Programmable Limit Switch", controls},
                                          .type = PROGRAMMABLELIMITSWITCH,
                                          .filled = Filled::onWrite,
                                          .data = 0,
                                          .builder = false};

enum : std::int32_t { above = 1, below = 2, output = 3, state = 4 };

/// What `SelectVariable` offers.
enum : std::int16_t { anyVariable = 1, bits = 2 };

class LimitSwitchForm final : public GridForm {
public:
    LimitSwitchForm() : GridForm(limitSwitch, "VSPLSGrid", 8) {
        grid().setColumnKind(output, ColumnKind::button);
        grid().setColumnKind(state, ColumnKind::check);
    }

    bool SetLists(Ref<Object>& userDefinedVariableCol, Ref<Object>& userDefinedConstantCol,
                  Ref<Object>& userDefinedNetworkCol, Ref<Object>& readableSystemVariableCol,
                  Ref<Object>& readableSystemBitVariableCol, Ref<Object>& writableSystemVariableCol,
                  Ref<Object>& readableSystemParameterCol, Ref<Object>& userDefinedBitVariableCol,
                  Ref<Object>& userDefniedBitNetworkCol, Ref<Object>& allSystemBitVariableCol,
                  Ref<Object>& rwSystemVariableCol, Ref<Object>& systemIOCol, Ref<Object>& bitSystemIOCol,
                  Ref<Object>& syntaxValidation);
    std::string SelectVariable(std::string_view strCurrent, std::int16_t iType);
    bool Validation(std::int32_t Row, std::int32_t Col) override;

    std::span<const Member> ownMembers() const override;

protected:
    std::vector<std::string> rowOf(std::string_view entry) const override;
    std::string entryOf(std::int32_t row) const override;
    bool validateEdit(std::int32_t row, std::int32_t col) override;
    void cellButton(std::int32_t row, std::int32_t col) override;
    void cellClicked(std::int32_t row, std::int32_t col) override;
    void fill() override;
    void on(Event event, Control& control) override;
    void ok() override;
    void terminated() override;
    void ownVariables(VariableSink& sink) const override;

private:
    TextControl& master() const { return the<TextControl>("txbMasterVariable"); }
    void selectMaster();
    void masterLostFocus();
    bool judgeType(std::int32_t source, std::int32_t row, std::int32_t col);

    Ref<Object> localUserDefinedVariableCol;
    Ref<Object> localUserDefinedConstantCol;
    Ref<Object> localUserDefinedNetworkCol;
    Ref<Object> localReadableSystemVariableCol;
    Ref<Object> localReadableSystemBitVariableCol;
    Ref<Object> localWritableSystemVariableCol;
    Ref<Object> localReadableSystemParameterCol;
    Ref<Object> localUserDefinedBitVariableCol;
    Ref<Object> localUserDefniedBitNetworkCol;  // hosts know it by this name
    Ref<Object> localAllSystemBitVariableCol;
    Ref<Object> localRWSystemVariableCol;
    Ref<Object> localSystemIOCol;
    Ref<Object> localBitSystemIOCol;

    struct List {
        std::string_view name;
        Ref<Object> LimitSwitchForm::*member;
    };
    /// In the order of SetData and of the variable report.
    static const std::array<List, 13> lists;
};

#define LIST(name) {#name, &LimitSwitchForm::name}
const std::array<LimitSwitchForm::List, 13> LimitSwitchForm::lists{{
    LIST(localUserDefinedVariableCol),
    LIST(localUserDefinedConstantCol),
    LIST(localUserDefinedNetworkCol),
    LIST(localReadableSystemVariableCol),
    LIST(localReadableSystemBitVariableCol),
    LIST(localWritableSystemVariableCol),
    LIST(localReadableSystemParameterCol),
    LIST(localUserDefinedBitVariableCol),
    LIST(localUserDefniedBitNetworkCol),
    LIST(localAllSystemBitVariableCol),
    LIST(localRWSystemVariableCol),
    LIST(localSystemIOCol),
    LIST(localBitSystemIOCol),
}};
#undef LIST

std::span<const Member> LimitSwitchForm::ownMembers() const {
    using F = LimitSwitchForm;
    static constexpr Member members[] = {
        method<&F::SetLists>("SetData"),
        method<&F::ParseList>("ParseList"),
        method<&F::FillGrid>("FillGrid"),
        method<&F::SaveGridContent>("SaveGridContent"),
        method<&F::SelectVariable>("SelectVariable"),
        method<&F::Validation>("Validation"),
    };
    return members;
}

bool LimitSwitchForm::SetLists(Ref<Object>& userDefinedVariableCol, Ref<Object>& userDefinedConstantCol,
                               Ref<Object>& userDefinedNetworkCol, Ref<Object>& readableSystemVariableCol,
                               Ref<Object>& readableSystemBitVariableCol, Ref<Object>& writableSystemVariableCol,
                               Ref<Object>& readableSystemParameterCol, Ref<Object>& userDefinedBitVariableCol,
                               Ref<Object>& userDefniedBitNetworkCol, Ref<Object>& allSystemBitVariableCol,
                               Ref<Object>& rwSystemVariableCol, Ref<Object>& systemIOCol,
                               Ref<Object>& bitSystemIOCol, Ref<Object>& syntaxValidation) {
    const std::array<Ref<Object>*, lists.size()> given{
        &userDefinedVariableCol,       &userDefinedConstantCol,    &userDefinedNetworkCol,
        &readableSystemVariableCol,    &readableSystemBitVariableCol, &writableSystemVariableCol,
        &readableSystemParameterCol,   &userDefinedBitVariableCol, &userDefniedBitNetworkCol,
        &allSystemBitVariableCol,      &rwSystemVariableCol,       &systemIOCol,
        &bitSystemIOCol};
    for (std::size_t i = 0; i < lists.size(); ++i) this->*lists[i].member = *given[i];
    clsSyntaxValidation = syntaxValidation;
    return true;
}

void LimitSwitchForm::terminated() {
    for (const List& list : lists) this->*list.member = {};
}

void LimitSwitchForm::fill() {
    Procedure run(className(), "BVTAttribute", this, [](Locals&) {});
    run([&] { master().setText(BVTAttribute()->get("MasterVariable").toText()); }, [&] { FillGrid(); });
}

/// A field that an entry lacks is empty.
std::vector<std::string> LimitSwitchForm::rowOf(std::string_view entry) const {
    std::vector<std::string> row(4);
    const std::vector<std::string_view> fields = text::split(entry, ",");
    for (std::size_t i = 0; i < std::min(fields.size(), row.size()); ++i) row[i] = text::trimmed(fields[i]);
    row[state - 1] = row[state - 1] == "1" ? "True" : "False";
    return row;
}

std::string LimitSwitchForm::entryOf(std::int32_t row) const {
    const std::string from = trimmedCell(row, above), to = trimmedCell(row, below), switched = trimmedCell(row, output);
    if (from.empty() || to.empty() || switched.empty()) return {};
    return from + "," + to + "," + switched + "," + (grid().Cell(row, state) == "True" ? "1" : "0") + ";";
}

std::string LimitSwitchForm::SelectVariable(std::string_view strCurrent, std::int16_t iType) {
    std::string result(strCurrent);
    Procedure run(className(), "SelectVariable", this, [&](Locals& l) {
        l("strCurrent", strCurrent);
        l("iType", iType);
    });
    const auto collection = [&](std::int32_t tab) {
        switch (tab) {
            case 0: return iType == bits ? localUserDefinedBitVariableCol : localUserDefinedVariableCol;
            case 1: return iType == bits ? localReadableSystemBitVariableCol : localRWSystemVariableCol;
            case 2: return iType == bits ? localBitSystemIOCol : localSystemIOCol;
            default: return iType == bits ? localUserDefniedBitNetworkCol : localUserDefinedNetworkCol;
        }
    };
    if (iType == anyVariable || iType == bits) pickName(run, result, iType, {0, 1, 2, 4}, collection);
    else pickName(run, result, iType, {}, collection);
    return result;
}

void LimitSwitchForm::selectMaster() {
    std::string picked;
    Procedure run(className(), "cmdSelectMasterVariable_Click", this, [](Locals&) {});
    run([&] { picked = SelectVariable(master().Text(), anyVariable); }, [&] { master().setText(picked); });
}

/// A bad text takes the focus back before its message is shown.
void LimitSwitchForm::masterLostFocus() {
    const std::string text = master().Text();
    if (text::trimmed(text).empty()) return;
    Finding finding;
    Procedure run(className(), "txbMasterVariable_LostFocus", this, [&](Locals& l) { finding.report(l); });
    run([&] { finding.check(clsSyntaxValidation, text); }, [&] { finding.take(clsSyntaxValidation); },
        [&] {
            if (finding.good) {
                master().setBackColor(finding.carriesMessage() ? yellow : white);
                return Flow::leave;
            }
            master().setBackColor(red);
            return Flow::next;
        },
        [&] { master().SetFocus(); }, [&] { tell(finding.strError, Icon::exclamation); });
}

bool LimitSwitchForm::judgeType(std::int32_t source, std::int32_t row, std::int32_t col) {
    const std::int32_t target = col == output ? brxBool : brxFloat;
    iDataTypeStatus = datatypeCompatibility(target, source);
    if (iDataTypeStatus == 2) {
        tell(refusedAssignment(target, source), Icon::critical);
        return false;
    }
    if (iDataTypeStatus == 1) {
        grid().setCellBackColor(row, col, yellow);
        tell(lossyAssignment(target, source), Icon::exclamation);
    }
    return true;
}

/// A blank cell is good, and a bad one keeps its colour.
bool LimitSwitchForm::Validation(std::int32_t Row, std::int32_t Col) {
    bool result = false;
    std::string text;
    Finding finding;
    Procedure run(className(), "Validation", this, [&](Locals& l) {
        l("Row", Row);
        l("Col", Col);
        finding.report(l);
    });
    run(
        [&] {
            text = checkedText(Row, Col);
            result = text::trimmed(text).empty();
            return result ? Flow::leave : Flow::next;
        },
        [&] { finding.check(clsSyntaxValidation, text); }, [&] { finding.take(clsSyntaxValidation); },
        [&] {
            if (finding.good) return Flow::next;
            tell(finding.strError, Icon::exclamation);
            return Flow::leave;
        },
        [&] { grid().setCellBackColor(Row, Col, finding.carriesMessage() ? yellow : white); },
        [&] { result = judgeType(finding.dataType, Row, Col); });
    return result;
}

bool LimitSwitchForm::validateEdit(std::int32_t row, std::int32_t col) {
    if (col == state) return true;
    bool good = false;
    Procedure run(className(), "VSPLSGrid_ValidateEdit", this, [&](Locals& l) {
        l("Row", row);
        l("Col", col);
    });
    run([&] { good = Validation(row, col); });
    return good;
}

void LimitSwitchForm::cellButton(std::int32_t row, std::int32_t col) {
    std::string picked;
    Procedure run(className(), "VSPLSGrid_CellButtonClick", this, [&](Locals& l) {
        l("Row", row);
        l("Col", col);
    });
    run([&] { picked = SelectVariable(grid().Cell(row, col), bits); }, [&] { grid().setCell(row, col, picked); });
}

/// The button and the check box of the other columns act by themselves.
void LimitSwitchForm::cellClicked(std::int32_t row, std::int32_t col) {
    if (col == above || col == below) grid().beginEdit(row, col);
}

void LimitSwitchForm::on(Event event, Control& control) {
    if (event == Event::lostFocus && &control == &master()) return masterLostFocus();
    if (event == Event::click && control.row().name == "cmdSelectMasterVariable") return selectMaster();
    GridForm::on(event, control);
}

void LimitSwitchForm::ok() {
    std::string strVariable;
    Procedure run(className(), "btnOK_Click", this, [&](Locals& l) { l("strVariable", strVariable); });
    run([&] { BVTAttribute()->put("MasterVariable", Value(master().Text())); },
        [&] { strVariable = SaveGridContent(); }, [&] { BVTAttribute()->put("Variable", Value(strVariable)); },
        [&] {
            btnOKClicked = true;
            Hide();
        });
}

void LimitSwitchForm::ownVariables(VariableSink& sink) const {
    sink.variable("DatatypeCompatibilityTable", datatypeCompatibilityTable());
    sink.variable("typeNames", typeNamesTable());
    sink.variable("iDataTypeStatus", Value(iDataTypeStatus));
    sink.variable("btnOKClicked", Value(btnOKClicked));
    sink.variable("strUserUnit", Value(strUserUnit));
    sink.variable("clsAttribute", Value(clsAttribute));
    sink.variable("clsSyntaxValidation", Value(clsSyntaxValidation));
    for (const List& list : lists) sink.variable(list.name, Value(this->*list.member));
}

}  // namespace

Ref<Form> makeProgrammableLimitSwitch() { return Ref<Form>(new LimitSwitchForm()); }

}  // namespace canvas::editors
