#include "document/check_values.h"

#include <algorithm>

#include "attributes/attribute.h"
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

void checkValues(const clsBVTBlock& block, int line, Findings& findings) {
    auto* attribute = block.vntAttribute ? faceOf<AttributeObject>(*block.vntAttribute) : nullptr;
    if (!attribute) return;
    const AttributeClass& table = attribute->attributeClass();
    Ref<AttributeObject> scratch;
    for (std::int16_t row = 0; row < table.rows; ++row) {
        const Field& field = *table.rowField(row);
        if (!field.at.isText()) continue;
        const std::string& text = field.at.text(*attribute);
        const std::string is = std::string(field.label) + " is " + quoted(text);
        if (field.list) {
            if (!isOneOf(text, *field.list))
                findings.add(line, block.intBlockID, Rule::valueList, is + ", which is none of " + choices(*field.list));
            continue;
        }
        if (!numbers::isNumeric(text)) continue;  // an expression has no range; it saves the copy
        if (!scratch) scratch = attribute->IsTheSame();
        const std::string answer = panelsAnswer(*scratch, row, text);
        if (!answer.empty()) findings.add(line, block.intBlockID, Rule::valueRange, is + ": " + answer);
    }
}

}  // namespace canvas
