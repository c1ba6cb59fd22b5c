#include "document/check_values.h"

#include <algorithm>

#include "attributes/lists.h"
#include "attributes/program_control.h"
#include "attributes/validation.h"
#include "document/catalogue.h"
#include "host/numbers.h"

namespace canvas {
namespace {

/// A syntax checker that takes every expression for good and leaves it as it is.
class AnyExpression final : public Object {
public:
    std::string_view className() const noexcept override { return "AnyExpression"; }
    Value get(std::string_view name, Args args) override {
        constexpr std::size_t expression = 0, formattedText = 3;
        if (sameName(name, "checkexpression") && args.size() > expression) m_last = args[expression].toText();
        else if (sameName(name, "GetResult") && args.size() > formattedText) args[formattedText] = m_last;
        else raise(Error::noSuchMember);
        return std::int32_t{0};
    }

private:
    std::string m_last;
};

/// What the panel answers when a text is typed into a row: empty when it takes it. The object is changed.
std::string panelsAnswer(AttributeObject& attribute, std::int16_t row, const std::string& text) {
    std::string error, formatted;
    Ref<Object> checker = make<AnyExpression>();
    std::int32_t selStart = 0, selLength = 0, dataType = 0;
    bool isLValue = false;
    Value value;
    const bool taken = attribute.UpdateElementInMatrix(true, row, text, error, checker, selStart, selLength, dataType,
                                                       isLValue, value, formatted);
    return taken ? std::string() : error;
}

bool isOneOf(std::string_view text, const List& list) {
    return std::find(list.items.begin(), list.items.end(), text) != list.items.end();
}

std::string choices(const List& list) {
    std::string text;
    for (const std::string_view item : list.items) text += (text.empty() ? "" : ", ") + quoted(item);
    return text;
}

}  // namespace

void checkPortFlags(const clsBVTBlock& block, int line, Findings& findings) {
    const BlockClass* type = blockClass(block.intBlockType);
    if (!type) return;
    const Ports ports = type->ports;
    std::string reason;
    const auto compare = [&](std::string_view flag, bool found, bool expected) {
        if (found == expected) return;
        reason += reason.empty() ? std::string(type->displayName) + " has " : " and ";
        reason += std::string(flag) + (expected ? " 1, not 0" : " 0, not 1");
    };
    compare("HasDualOutPort", block.blnHasDualOutPort, ports == Ports::dual);
    compare("NoInPort", block.blnNoInPort, ports == Ports::noIn || ports == Ports::none);
    compare("NoOutPort", block.blnNoOutPort, ports == Ports::noOut || ports == Ports::none);
    if (!reason.empty()) findings.add(line, block.intBlockID, Rule::portFlags, std::move(reason));
}

namespace {

class ValueCheck {
public:
    ValueCheck(const clsBVTBlock& block, int line, AttributeObject& attribute, Findings& findings)
        : m_block(block),
          m_line(line),
          m_attribute(attribute),
          m_table(attribute.attributeClass()),
          m_findings(findings) {}

    void run() {
        for (std::int16_t row = 0; row < m_table.rows; ++row) {
            const Field& field = *m_table.rowField(row);
            if (!field.at.isText()) continue;
            const std::string& text = field.at.text(m_attribute);
            if (field.list) checkChoice(field, text);
            else checkRange(row, std::string(field.label), text);
        }
        if (&m_table == &clsBVTProgrammableLimitSwitch::table) checkSwitches();
        if (&m_table == &clsBVTRestartProgram::table) checkLaunches();
    }

private:
    /// The panel changes what it is given.
    AttributeObject& scratch() {
        if (!m_scratch) m_scratch = m_attribute.IsTheSame();
        return *m_scratch;
    }

    void tell(Rule rule, const std::string& name, std::string_view text, const std::string& fault) {
        m_findings.add(m_line, m_block.intBlockID, rule, name + " is " + quoted(text) + fault);
    }

    void checkChoice(const Field& field, const std::string& text) {
        if (!isOneOf(text, *field.list))
            tell(Rule::valueList, std::string(field.label), text, ", which is none of " + choices(*field.list));
    }

    void checkRange(std::int16_t row, const std::string& name, const std::string& text) {
        if (!numbers::isNumeric(text)) return;  // an expression has no range
        const std::string answer = panelsAnswer(scratch(), row, text);
        if (!answer.empty()) tell(Rule::valueRange, name, text, ": " + answer);
    }

    /// A row that shows one of several entries: its type is the row's, whichever is shown.
    void checkEntry(std::int16_t row, std::size_t entry, std::string_view text) {
        const Field& field = *m_table.rowField(row);
        std::string error;
        if (validate(text, field.type, error)) return;
        tell(Rule::valueRange,
             std::string(field.label) + " of entry " + numbers::textOf(static_cast<std::int32_t>(entry)), text,
             ": " + error);
    }

    void checkSwitches() {
        constexpr std::int16_t greaterThan = 3, lessThan = 4;  // rows
        auto& block = static_cast<clsBVTProgrammableLimitSwitch&>(scratch());
        block.FillMatrix();  // which unpacks the list
        for (std::size_t i = 0; i < entryCount(block.strArray); ++i) {
            checkEntry(greaterThan, i + 1, block.arSwitches[i][0]);
            checkEntry(lessThan, i + 1, block.arSwitches[i][1]);
        }
    }

    void checkLaunches() {
        constexpr std::int16_t blockNumber = 2;  // row
        const auto& entries = static_cast<clsBVTRestartProgram&>(m_attribute).intArBlockNumber.entries();
        for (std::size_t i = 0; i < entries.size(); ++i)
            checkEntry(blockNumber, i + 1, numbers::textOf(std::int32_t{entries[i]}));
    }

    const clsBVTBlock& m_block;
    int m_line;
    AttributeObject& m_attribute;
    const AttributeClass& m_table;
    Findings& m_findings;
    Ref<AttributeObject> m_scratch;
};

}  // namespace

void checkValues(const clsBVTBlock& block, int line, Findings& findings) {
    auto* attribute = block.vntAttribute ? faceOf<AttributeObject>(*block.vntAttribute) : nullptr;
    if (attribute && attribute->attributeClass().rows > 0) ValueCheck(block, line, *attribute, findings).run();
}

}  // namespace canvas
