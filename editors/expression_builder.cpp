#include "editors/expression_builder.h"

#include "editors/attribute_form.h"
#include "host/numbers.h"
#include "host/ports.h"
#include "host/text.h"
#include "tracing/walk.h"

namespace canvas::editors {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace {

constexpr ControlRow expressionField(std::string_view name, std::int16_t line) {
    return {.name = name,
            .kind = ControlKind::text,
            .caption = "Expression",
            .line = line,
            .keys = Keys::noQuoteNorSemicolon};
}

constexpr ControlRow controls[] = {
    expressionField("txbExpression", 0),
    caption("lblVariableType", "Variable Type:", 1),
    tree("tvData", 2),
    caption("lblVariable", "Variable:", 1, 1),
    listBox("lstVariable", 2, 1),
    caption("lblOperator", "Operator:", 1, 2),
    listBox("lstOperator", 2, 2),
    okButton("cmdOK"),
    cancelButton("cmdCancel"),
    button("cmdUndo", "&Undo", 2),
    button("cmdClear", "CLEAR", 3),
    helpButton("cmdHelp", 4),
};

constexpr Form::Design look{"frmExpressionBuilder", "Expression Builder", controls};

struct Operator {
    std::string_view shown;
    std::string_view inserted;
};

/// A row is known by its place alone. The two negations insert each other's sign: programs were written with them so.
constexpr Operator strOperator[] = {
    {"true", "true"},
    {"false", "false"},
    {"Plus", "+"},
    {"Minus", "-"},
    {"Divide", "/"},
    {"Multiply", "*"},
    {"Modulus", "%"},
    {"Equal to", "=="},
    {"Greater than", ">"},
    {"Greater than or Equal to", ">="},
    {"Less than", "<"},
    {"Less than or Equal to", "<="},
    {"Logical And", "&&"},
    {"Logical Or", "||"},
    {"Logical Not", "!="},
    {"Bitwise And", "&"},
    {"Bitwise Or", "|"},
    {"Bitwise Not", "!"},
    {"(", "("},
    {")", ")"},
    {"[", "["},
    {"]", "]"},
    {"sin", "sin"},
    {"cos", "cos"},
    {"tan", "tan"},
    {"arctan", "arctan"},
    {"Square Root", "sqrt"},
    {"Absolute Value", "abs"},
};

/// The box of the two operations that show their failures themselves.
void tellFailure(std::string_view operation, const RuntimeError& error) {
    tell(std::string(operation) + "(): [" + numbers::textOf(error.number) + "] " + error.description);
}

}  // namespace

frmExpressionBuilder::frmExpressionBuilder() : PlainForm(look) {
    Choice& operators = the<Choice>("lstOperator");
    for (const Operator& row : strOperator) operators.AddItem(row.shown);
}

std::span<const Member> frmExpressionBuilder::ownMembers() const {
    using F = frmExpressionBuilder;
    static constexpr Member members[] = {
        property<nullptr, &F::setSyntaxValidation>("SyntaxValidation"),
        property<&F::Expression, &F::setExpression>("Expression"),
        method<&F::AssignDataList>("AssignDataList"),
    };
    return members;
}

void frmExpressionBuilder::setExpression(std::string_view expression) {
    strExpression = strOriginalExpression = strUndoExpression = expression;
    Load();
    field().setText(expression);
}

void frmExpressionBuilder::AssignDataList(Ref<Object> UserVariableList, Ref<Object> UserConstantList,
                                          Ref<Object> SystemVariableList, Ref<Object> SystemParameterList,
                                          Ref<Object> SystemIOList, Ref<Object> UserTableList,
                                          Ref<Object> UserNetworkList) {
    UserVariableCol = std::move(UserVariableList);
    UserConstantCol = std::move(UserConstantList);
    SystemVariableCol = std::move(SystemVariableList);
    SystemParameterCol = std::move(SystemParameterList);
    SystemIOCol = std::move(SystemIOList);
    UserTableCol = std::move(UserTableList);
    UserNetworkCol = std::move(UserNetworkList);
}

void frmExpressionBuilder::loaded() { Initialize_DataBrowser(); }

void frmExpressionBuilder::Initialize_DataBrowser() {
    static constexpr struct {
        std::string_view parent, key, text;
    } nodes[] = {
        {"", "Data", "Data"},
        {"Data", "Constants", "Constants"},
        {"Data", "Network", "Network"},
        {"Data", "Tables", "Tables"},
        {"Data", "Variables", "Variables"},
        {"Data", "I/O", "I/O"},
        {"Data", "SystemVariables", "System Variables"},
        {"", "Configuration", "Configuration"},
        {"Configuration", "SystemParameters", "System Parameters"},
    };
    tracing::onFailure(
        [&] {
            Tree& data = the<Tree>("tvData");
            for (const auto& node : nodes)
                data.add({.key = std::string(node.key),
                          .text = std::string(node.text),
                          .parent = std::string(node.parent),
                          .expanded = node.parent.empty()});
        },
        [](const RuntimeError& error) { tellFailure("Initialize_DataBrowser", error); });
}

void frmExpressionBuilder::terminated() {
    the<Tree>("tvData").clear();
    the<Choice>("lstVariable").Clear();
    the<Choice>("lstOperator").setListIndex(-1);
    field().setText({});
    AssignDataList({}, {}, {}, {}, {}, {}, {});
    clsSyntaxValidation = {};
}

void frmExpressionBuilder::committed() { strUndoExpression = std::exchange(strExpression, field().Text()); }

/// Blanks keep the name apart from what stands before and behind the insertion point. The end of the text counts as
/// no blank.
void frmExpressionBuilder::insert(std::string_view name) {
    const std::string_view text = field().Text();
    const std::size_t point = text::left(text, static_cast<std::size_t>(field().SelStart())).size();
    const bool start = field().SelStart() == 0;
    std::string strToAdd;
    if (!start && text[point - 1] != ' ') strToAdd = ' ';
    strToAdd += name;
    if (start || point == text.size() || text[point] != ' ') strToAdd += ' ';
    field().replaceSelection(strToAdd);
    committed();
}

void frmExpressionBuilder::nodeClicked() {
    const std::string tag = the<Tree>("tvData").selected();
    const struct {
        std::string_view tag;
        const Ref<Object>& collection;
    } lists[] = {
        {"Variables", UserVariableCol},           {"Network", UserNetworkCol}, {"Constants", UserConstantCol},
        {"SystemVariables", SystemVariableCol},   {"I/O", SystemIOCol},        {"Tables", UserTableCol},
        {"SystemParameters", SystemParameterCol},
    };
    const auto* list =
        std::find_if(std::begin(lists), std::end(lists), [&](const auto& row) { return row.tag == tag; });
    if (list == std::end(lists)) return;
    Choice& shown = the<Choice>("lstVariable");
    shown.Clear();
    std::vector<std::string> names;
    Procedure run(className(), "tvData_NodeClick", this, [&](Locals& l) { l("strTag", tag); });
    run([&] {
        return tracing::eachItem(run, list->collection, [&](const Value& item) { names.push_back(item.toText()); });
    });
    shown.AddItems(std::move(names));
}

void frmExpressionBuilder::clear() {
    field().setText({});
    committed();
}

/// One deep, and a toggle: nothing is remembered of what was typed since the last insertion or Clear.
void frmExpressionBuilder::undo() {
    field().setText(std::string(field().Text() == strExpression ? strUndoExpression : strExpression));
}

void frmExpressionBuilder::mark(std::int32_t selStart, std::int32_t selLength) {
    field().SetFocus();
    if (selStart < 1 || selLength < 1) return;
    field().setSelStart(selStart - 1);
    field().setSelLength(selLength);
}

void frmExpressionBuilder::ok() {
    const std::string text = field().Text();
    bool good = false;
    std::string strError;
    std::int32_t selStart = 0, selLength = 0;
    Procedure run(className(), "cmdOK_Click", this, [&](Locals& l) {
        l("strError", strError);
        l("selStart", selStart);
        l("selLength", selLength);
    });
    run([&] { good = SyntaxChecker(required(clsSyntaxValidation)).check(text, 1, 1); },
        [&] {
            if (!good) return Flow::next;
            strExpression = text::trimmed(text);
            Hide();
            return Flow::leave;
        },
        [&] { SyntaxChecker(required(clsSyntaxValidation)).complaint(strError, selStart, selLength); },
        [&] {
            if (strError == "Null pointer")
                strError = "An expression cannot be blank.\r\nPlease enter a valid expression or select Cancel.";
            tell(strError, Icon::exclamation, "Syntax Error");
        },
        [&] { mark(selStart, selLength); });
}

void frmExpressionBuilder::on(Event event, Control& control) {
    const std::string_view name = control.row().name;
    if (event == Event::nodeClick) return nodeClicked();
    if (event == Event::doubleClick) {
        const auto insertOf = [&](std::string_view procedure, auto&& text) {
            Procedure run(className(), procedure, this, [](Locals&) {});
            run([&] { insert(text()); });
        };
        Choice& list = static_cast<Choice&>(control);
        if (name == "lstVariable") return insertOf("lstVariable_DblClick", [&] { return list.Text(); });
        if (name == "lstOperator")
            return insertOf("lstOperator_DblClick", [&] {
                const auto row = static_cast<std::size_t>(list.ListIndex());
                if (row >= std::size(strOperator)) raise(Error::subscript);
                return strOperator[row].inserted;
            });
        return;
    }
    if (event != Event::click) return;
    if (name == "cmdUndo") return undo();
    if (name == "cmdClear") return clear();
    if (control.row().role == Role::cancel) strExpression = strOriginalExpression;
    PlainForm::on(event, control);
}

void frmExpressionBuilder::ownVariables(VariableSink& sink) const {
    sink.variable("strExpression", Value(strExpression));
    sink.variable("strUndoExpression", Value(strUndoExpression));
    std::vector<std::string> signs;
    for (const Operator& row : strOperator) signs.emplace_back(row.inserted);
    sink.variable("strOperator", Value(arrayOf("String", signs)));
    sink.variable("strOriginalExpression", Value(strOriginalExpression));
    sink.variable("UserConstantCol", Value(UserConstantCol));
    sink.variable("UserNetworkCol", Value(UserNetworkCol));
    sink.variable("UserVariableCol", Value(UserVariableCol));
    sink.variable("SystemVariableCol", Value(SystemVariableCol));
    sink.variable("SystemParameterCol", Value(SystemParameterCol));
    sink.variable("SystemIOCol", Value(SystemIOCol));
    sink.variable("UserTableCol", Value(UserTableCol));
    sink.variable("clsSyntaxValidation", Value(clsSyntaxValidation));
}

void clsBVTExpressionBuilder::Show_ExpressionBuilder(Ref<Object>& myController, Ref<Object>& myData,
                                                     Ref<Object>& SyntaxValidation) {
    if (!m_form) m_form = make<frmExpressionBuilder>();
    const bool inUse = m_form->Visible();
    const auto list = [](const Ref<Object>& owner, std::string_view member) {
        return required(owner).get(member).toObject();
    };
    tracing::onFailure(
        [&] {
            if (inUse) raise(Error::invalidCall);
            m_form->Load();
            const Ref<Object> variables = list(myData, "getuserdefinedvariablecol");
            const Ref<Object> constants = list(myData, "GetUserDefinedConstantCol");
            const Ref<Object> systemVariables = list(myController, "GetReadableSystemVariablecol");
            const Ref<Object> parameters = list(myController, "GetReadableSystemParameterCol");
            const Ref<Object> io = list(myData, "GetSystemIOCol");
            const Ref<Object> tables = list(myData, "GetUserDefinedTableCol");
            const Ref<Object> network = list(myData, "GetUserDefinedNetworkCol");
            m_form->AssignDataList(variables, constants, systemVariables, parameters, io, tables, network);
            m_form->setSyntaxValidation(SyntaxValidation);
            m_form->setExpression(strExpression);
            m_form->Show();
            strExpression = m_form->Expression();
        },
        [](const RuntimeError& error) { tellFailure("ExpressionBuilder.Show_ExpressionBuilder", error); });
    if (!inUse) m_form->Unload();
}

std::span<const Member> clsBVTExpressionBuilder::table() noexcept {
    using C = clsBVTExpressionBuilder;
    static constexpr Member members[] = {
        property<&C::Expression, &C::setExpression>("Expression"),
        method<&C::Show_ExpressionBuilder>("Show_ExpressionBuilder"),
    };
    return members;
}

void clsBVTExpressionBuilder::reportVariables(VariableSink& sink) const {
    sink.variable("strExpression", Value(strExpression));
    sink.variable("frmExpressionBuilder", Value(m_form));
}

std::string buildExpression(std::string_view text, const Ref<Object>& controller, const Ref<Object>& data,
                            const Ref<Object>& checker) {
    const auto builder = make<clsBVTExpressionBuilder>();
    builder->setExpression(text);
    Ref<Object> myController = controller, myData = data, SyntaxValidation = checker;
    builder->Show_ExpressionBuilder(myController, myData, SyntaxValidation);
    return builder->Expression();
}

}  // namespace canvas::editors
