#pragma once
// The dialogs that edit one block attribute: filled, checked and written by their table.
//
// A form's own rules are overrides in a class of its own; a form without any is its table alone:
//
//     constexpr ControlRow torqueControls[] = { ... };
//     constexpr AttributeForm::Spec frmTorque{{"frmTorque", "Torque", torqueControls}, Torque};

#include "document/catalogue.h"
#include "editors/form.h"
#include "host/checker.h"

namespace canvas::editors {

/// When a form fills its controls. Units are drawn with the filling, but for `loadThenUnits`, whose unit waits until the
/// form is shown.
enum class Filled : std::uint8_t { onLoad, onActivate, loadThenUnits, onWrite, byCaller };

class AttributeForm : public Form {
public:
    struct Spec {
        Form::Design design;
        enuBlockType type;
        Filled filled = Filled::onLoad;
        /// The form takes `VariableNameList`.
        bool lists = false;
        /// The form's OK checks its fields; the four forms that do not have no CheckParameter either.
        bool checks = true;
        /// `SetData` takes the controller, the data and the checker; the message forms take no checker, some forms have
        /// no SetData, or one of their own.
        std::int16_t data = 3;
        /// The form offers ExpressionBuilder.
        bool builder = true;
        /// OKClicked answers.
        bool ok = true;
        /// The form holds a range check, though no handler of it asks.
        bool validation = false;
    };

    explicit AttributeForm(const Spec& spec) : Form(spec.design), m_spec(spec) {}
    const Spec& spec() const noexcept { return m_spec; }

    Value get(std::string_view member, Args args = {}) override;
    void put(std::string_view member, const Value& value, Args args = {}) override;
    /// Members that this form offers of those that attribute forms share, in slot order.
    std::vector<Member> sharedMembers() const;

    // The public members that attribute forms share
    void setUserUnit(std::string_view unit) { strUserUnit = unit; }
    /// Created on demand, so that a form never works on nothing.
    Ref<Object> BVTAttribute();
    /// Error 13 for an object of another class than the form's.
    virtual void setBVTAttribute(Ref<Object> attribute);
    bool OKClicked() const noexcept { return btnOKClicked; }
    bool SetData(Ref<Object> myController, Ref<Object> myData, Ref<Object> mySyntaxValidation);
    bool SetDataPair(Ref<Object> myController, Ref<Object> myData);
    void setVariableNameList(Ref<Object> list) { colVariableNameList = std::move(list); }
    /// What the expression builder made of the text; the text itself after Cancel. The message forms' gives nothing.
    std::string ExpressionBuilder(std::string_view strExpression);
    /// Asks the checker about each checked field in its order, and stops at the first that fails.
    bool CheckParameter(std::string& strError);

    bool btnOKClicked = false;
    std::string strUserUnit;
    Ref<Object> clsAttribute;
    Ref<Object> colVariableNameList;
    Ref<Object> clsData;
    Ref<Object> clsController;
    Ref<Object> clsSyntaxValidation;

protected:
    void loaded() override;
    void activated() override;
    void on(Event event, Control& control) override;
    void ownVariables(VariableSink& sink) const override;
    /// Variables that stand behind the list of variable names.
    virtual void moreLists(VariableSink&) const {}

    // Hooks: what a form does its own way.

    /// Fills the controls from the attribute by the table.
    virtual void fill();
    /// Looks at one field; the common way asks the checker with the field itself, its name, its type and True.
    virtual bool checkField(TextControl& field, std::string& strError);
    /// Writes one control to its property.
    virtual void write(Control& control);
    /// The OK button: checks, writes, hides.
    virtual void ok();
    virtual void cancel();

    /// The common check with other flags: what `ValidateUserInput` of the checker says.
    bool validate(TextControl& field, std::string& strError, bool flag = true);
    void drawUnits();
    /// Opens the expression builder on the field's text; `procedure` is the handler's name.
    void build(TextControl& field, std::string_view procedure);

private:
    std::vector<Control*> inOrder(std::int16_t ControlRow::*order) const;
    void fillControl(Control& control);

    const Spec& m_spec;
};

/// Asks the host's help service, when the host has one.
void showHelp();

/// Runs the expression builder on a text; the objects may be Nothing.
std::string buildExpression(std::string_view text, const Ref<Object>& controller, const Ref<Object>& data,
                            const Ref<Object>& checker);

}  // namespace canvas::editors
