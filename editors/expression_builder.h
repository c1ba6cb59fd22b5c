#pragma once
// The expression builder: an expression is typed, or composed from lists of names and operators, and checked.

#include "editors/plain_form.h"

namespace canvas::editors {

class frmExpressionBuilder final : public PlainForm {
public:
    frmExpressionBuilder();

    void setSyntaxValidation(Ref<Object> checker) { clsSyntaxValidation = std::move(checker); }
    /// The result once the form is hidden: the checked text after OK, the opening text after Cancel, what the last
    /// insertion or Clear left when the window was closed.
    const std::string& Expression() const noexcept { return strExpression; }
    /// The opening text; there is nothing to undo then.
    void setExpression(std::string_view expression);
    void AssignDataList(Ref<Object> UserVariableList, Ref<Object> UserConstantList, Ref<Object> SystemVariableList,
                        Ref<Object> SystemParameterList, Ref<Object> SystemIOList, Ref<Object> UserTableList,
                        Ref<Object> UserNetworkList);

    std::span<const Member> ownMembers() const override;

protected:
    void loaded() override;
    void terminated() override;
    void on(Event event, Control& control) override;
    void ownVariables(VariableSink& sink) const override;

private:
    void Initialize_DataBrowser();
    void insert(std::string_view name);
    void committed();
    void nodeClicked();
    void clear();
    void undo();
    void ok() override;
    void mark(std::int32_t selStart, std::int32_t selLength);
    TextControl& field() const { return the<TextControl>("txbExpression"); }

    std::string strExpression;
    std::string strUndoExpression;
    std::string strOriginalExpression;
    Ref<Object> UserConstantCol;
    Ref<Object> UserNetworkCol;
    Ref<Object> UserVariableCol;
    Ref<Object> SystemVariableCol;
    Ref<Object> SystemParameterCol;
    Ref<Object> SystemIOCol;
    Ref<Object> UserTableCol;
    Ref<Object> clsSyntaxValidation;
};

/// Opens the builder on a text.
class clsBVTExpressionBuilder final : public Tabled<clsBVTExpressionBuilder> {
public:
    static constexpr std::string_view name = "clsBVTExpressionBuilder";
    static std::span<const Member> table() noexcept;

    const std::string& Expression() const noexcept { return strExpression; }
    void setExpression(std::string_view expression) { strExpression = expression; }
    /// Shows the builder on `Expression` and stores its result there. A run-time error ends it with a box, and leaves
    /// `Expression` alone.
    void Show_ExpressionBuilder(Ref<Object>& myController, Ref<Object>& myData, Ref<Object>& SyntaxValidation);

    void reportVariables(VariableSink& sink) const override;

private:
    std::string strExpression;
    Ref<frmExpressionBuilder> m_form;
};

}  // namespace canvas::editors
