#include "editors/attribute_form.h"

#include "editors/two_decimals.h"
#include "host/ports.h"
#include "tracing/branch.h"

namespace canvas::editors {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

std::vector<Member> AttributeForm::sharedMembers() const {
    using F = AttributeForm;
    std::vector<Member> members{property<nullptr, &F::setUserUnit>("UserUnit"),
                                property<&F::BVTAttribute, &F::setBVTAttribute>("BVTAttribute")};
    if (m_spec.ok) members.push_back(property<&F::OKClicked, nullptr>("OKClicked"));
    if (m_spec.data == 3) members.push_back(method<&F::SetData>("SetData"));
    if (m_spec.data == 2) members.push_back(method<&F::SetDataPair>("SetData"));
    if (m_spec.lists) members.push_back(property<nullptr, &F::setVariableNameList>("VariableNameList"));
    if (m_spec.builder) members.push_back(method<&F::ExpressionBuilder>("ExpressionBuilder"));
    if (m_spec.checks) members.push_back(method<&F::CheckParameter>("CheckParameter"));
    return members;
}

Value AttributeForm::get(std::string_view member, Args args) {
    const std::vector<Member> shared = sharedMembers();
    if (!findMember(ownMembers(), member, args.size()) && findMember(shared, member, args.size()))
        return readMember(shared, *this, member, args);
    return Form::get(member, args);
}

void AttributeForm::put(std::string_view member, const Value& value, Args args) {
    const std::vector<Member> shared = sharedMembers();
    if (!findMember(ownMembers(), member, args.size()) && findMember(shared, member, args.size()))
        return writeMember(shared, *this, member, value, args);
    Form::put(member, value, args);
}

Ref<Object> AttributeForm::BVTAttribute() {
    if (!clsAttribute) clsAttribute = newAttribute(m_spec.type);
    return clsAttribute;
}

void AttributeForm::setBVTAttribute(Ref<Object> attribute) {
    if (attribute && attribute->className() != BVTAttribute()->className()) raise(Error::typeMismatch);
    clsAttribute = std::move(attribute);
    if (m_spec.filled != Filled::onWrite) return;
    Load();
    fill();
}

bool AttributeForm::SetData(Ref<Object> myController, Ref<Object> myData, Ref<Object> mySyntaxValidation) {
    clsController = std::move(myController);
    clsData = std::move(myData);
    clsSyntaxValidation = std::move(mySyntaxValidation);
    return true;
}

bool AttributeForm::SetDataPair(Ref<Object> myController, Ref<Object> myData) {
    clsController = std::move(myController);
    clsData = std::move(myData);
    return true;
}

std::vector<Control*> AttributeForm::inOrder(std::int16_t ControlRow::*order) const {
    std::vector<Control*> found;
    for (const Ref<Control>& control : controls())
        if (control->row().*order > 0) found.push_back(control.get());
    std::sort(found.begin(), found.end(), [&](Control* a, Control* b) { return a->row().*order < b->row().*order; });
    return found;
}

void AttributeForm::fillControl(Control& control) {
    const ControlRow& row = control.row();
    if (row.property.empty()) return;
    const Value value = BVTAttribute()->get(row.property);
    switch (row.kind) {
        case ControlKind::text: return static_cast<TextControl&>(control).setText(value.toText());
        case ControlKind::combo: return static_cast<Choice&>(control).setText(value.toText());
        case ControlKind::check: return static_cast<Toggle&>(control).setValue(value.toBoolean());
        case ControlKind::option:
            static_cast<Toggle&>(control).setValue(value.toBoolean());
            if (!row.otherwise.empty()) the<Toggle>(row.otherwise).setValue(!value.toBoolean());
            return;
        default: return;
    }
}

void AttributeForm::fill() {
    const std::string_view procedure = m_spec.filled == Filled::onActivate ? "Form_Activate" : "Form_Load";
    Procedure run(className(), procedure, this, [](Locals&) {});
    for (const Ref<Control>& control : controls()) {
        if (!control->row().list.empty()) {
            Choice& combo = static_cast<Choice&>(*control);
            combo.Clear();  // a form may be loaded again
            for (const std::string_view entry : control->row().list) combo.AddItem(entry);
        }
        if (run([&] { fillControl(*control); }) == Flow::leave) return;
    }
}

void AttributeForm::drawUnits() {
    if (strUserUnit.empty()) strUserUnit = "unit";
    for (const Ref<Control>& control : controls()) {
        if (control->row().kind != ControlKind::label) continue;
        Label& label = static_cast<Label&>(*control);
        switch (control->row().unit) {
            case Unit::none: break;
            case Unit::word: label.setCaption(strUserUnit); break;
            case Unit::perSecond: label.setCaption(strUserUnit + "/sec"); break;
            case Unit::msecOr: label.setCaption("msec or " + strUserUnit); break;
        }
    }
}

void AttributeForm::loaded() {
    if (m_spec.filled != Filled::onLoad && m_spec.filled != Filled::loadThenUnits) return;
    fill();
    if (m_spec.filled == Filled::onLoad) drawUnits();
}

void AttributeForm::activated() {
    if (m_spec.filled == Filled::onActivate) fill();
    if (m_spec.filled == Filled::onActivate || m_spec.filled == Filled::loadThenUnits) drawUnits();
}

bool AttributeForm::validate(TextControl& field, std::string& strError, bool flag) {
    const ControlRow& row = field.row();
    return invoke(required(clsSyntaxValidation), "ValidateUserInput", Ref<Object>(&field), row.checkName, row.checkType,
                  flag, std::ref(strError))
        .toBoolean();
}

bool AttributeForm::checkField(TextControl& field, std::string& strError) { return validate(field, strError); }

bool AttributeForm::CheckParameter(std::string& strError) {
    bool result = true;
    Procedure run(className(), "CheckParameter", this, [&](Locals& l) { l("strError", strError); });
    for (Control* control : inOrder(&ControlRow::check)) {
        if (run([&] { result = checkField(static_cast<TextControl&>(*control), strError); }) == Flow::leave) break;
        if (!result) break;
    }
    return result;
}

void AttributeForm::write(Control& control) {
    const ControlRow& row = control.row();
    Object& attribute = *BVTAttribute();
    switch (row.kind) {
        case ControlKind::text: return attribute.put(row.property, Value(static_cast<TextControl&>(control).Text()));
        case ControlKind::combo: return attribute.put(row.property, Value(static_cast<Choice&>(control).Text()));
        case ControlKind::check:
        case ControlKind::option: return attribute.put(row.property, Value(static_cast<Toggle&>(control).value()));
        default: throw ContractViolation("a control without a value is written");
    }
}

void AttributeForm::ok() {
    bool good = true;
    std::string strError;
    Procedure run(className(), "btnOK_Click", this, [&](Locals& l) { l("strError", strError); });
    const Flow checked = run(
        [&] {
            if (m_spec.checks) good = CheckParameter(strError);
        },
        [&] {
            if (good) return Flow::next;
            tell(strError, Icon::exclamation);
            return Flow::leave;
        });
    if (checked == Flow::leave || !good) return;
    for (Control* control : inOrder(&ControlRow::write))
        if (run([&] { write(*control); }) == Flow::leave) return;
    btnOKClicked = true;
    Hide();
}

void AttributeForm::cancel() { Hide(); }

std::string AttributeForm::ExpressionBuilder(std::string_view strExpression) {
    std::string result;
    Procedure run(className(), "ExpressionBuilder", this, [&](Locals& l) { l("strExpression", strExpression); });
    if (m_spec.data == 2) return result;  // the message dialogs build nothing
    run([&] { result = buildExpression(strExpression, clsController, clsData, clsSyntaxValidation); });
    return result;
}

void AttributeForm::build(TextControl& field, std::string_view procedure) {
    std::string text = field.Text();
    Procedure run(className(), procedure, this, [](Locals&) {});
    run([&] { text = ExpressionBuilder(text); }, [&] { field.setText(text); });
}

void showHelp() {
    if (environment().help) environment().help->show();
}

void AttributeForm::on(Event event, Control& control) {
    const ControlRow& row = control.row();
    if (event == Event::click) {
        switch (row.role) {
            case Role::ok: return ok();
            case Role::cancel: return cancel();
            case Role::help: return showHelp();
            case Role::none: return;
        }
    }
    if (event == Event::doubleClick && row.doubleClick == DoubleClick::builder)
        build(static_cast<TextControl&>(control), control.Name() + "_DblClick");
    if (event == Event::lostFocus && row.twoDecimals) {
        auto& field = static_cast<TextControl&>(control);
        field.setText(withTwoDecimals(field.Text()));
    }
}

void AttributeForm::ownVariables(VariableSink& sink) const {
    if (m_spec.ok) sink.variable("btnOKClicked", Value(btnOKClicked));
    sink.variable("strUserUnit", Value(strUserUnit));
    sink.variable("clsAttribute", Value(clsAttribute));
    if (m_spec.lists) sink.variable("colVariableNameList", Value(colVariableNameList));
    moreLists(sink);
    if (m_spec.validation) sink.variable("clsDataValidation", Value(Ref<Object>()));
    if (m_spec.data == 0) return;
    sink.variable("clsData", Value(clsData));
    sink.variable("clsController", Value(clsController));
    if (m_spec.data == 3) sink.variable("clsSyntaxValidation", Value(clsSyntaxValidation));
}

}  // namespace canvas::editors
