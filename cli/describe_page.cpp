#include "cli/describe_page.h"

#include <fmt/format.h>

#include "attributes/validation.h"
#include "host/numbers.h"
#include "host/text.h"

namespace canvas::cli {
namespace {

std::string_view portsText(Ports ports) {
    switch (ports) {
        case Ports::single: return "one way in, one way out";
        case Ports::dual: return "one way in, two ways out";
        case Ports::noIn: return "no way in, one way out";
        case Ports::noOut: return "one way in, no way out";
        case Ports::none: return "no way in or out";
    }
    return {};
}

std::string_view yes(bool flag) { return flag ? "yes" : "no"; }

std::string numberOr(int number, int none) { return number == none ? "" : numbers::textOf(std::int32_t{number}); }

/// Text inside a table's cell or between backquotes.
std::string code(std::string_view text) { return text.empty() ? "" : "`" + text::replaced(text, "|", "\\|") + "`"; }

std::string fieldsSection(const AttributeClass& c) {
    std::string rows;
    for (const Field& field : c.fields)
        if (!field.property.empty())
            rows += fmt::format("| {} | {} | {} | {} | {} |\n", code(field.property),
                                field.preset.empty() ? "empty" : code(field.preset), numberOr(field.row, -1),
                                numberOr(field.position, 0), numberOr(field.file, 0));
    if (rows.empty()) return {};
    return "\n## Settings\n\n| Property | Default | Panel row | Position | File value |\n|---|---|---|---|---|\n" + rows;
}

std::string panelSection(const AttributeClass& c) {
    if (c.rows == 0) return "\nThe block has no rows in the property panel.\n";
    std::string text =
        "\n## Panel\n\n| Row | Label | Access | Builder | Display | Type | Cell checked | Program checked | Tip |\n"
        "|---|---|---|---|---|---|---|---|---|\n";
    for (std::int16_t row = 0; row < c.rows; ++row) {
        const Field& field = *c.rowField(row);
        text += fmt::format("| {} | {} | {} | {} | {} | {} | {} | {} | {} |\n", row, field.label,
                            field.access == brxReadOnly ? "read only" : "read and write",
                            field.builder == brxEnableBuilder ? "on" : "off", code(nameOf(field.display)),
                            code(nameOf(field.type)), yes(field.cellChecked),
                            field.position > 0 ? yes(field.programChecked) : "", field.tip);
    }
    if (!c.wholePanel) text += "\nThe panel can only commit cell by cell: `UpdateMatrix` is empty.\n";
    return text;
}

/// What a number must keep to; text that is no number is an expression, and the checker's matter.
std::string rangesSection(const AttributeObject& block) {
    constexpr std::string_view farBelow = "-1E300", farAbove = "1E300";
    const AttributeClass& c = block.attributeClass();
    std::string text;
    for (std::int16_t row = 0; row < c.rows; ++row) {
        const Field& field = *c.rowField(row);
        std::string message;
        validate(farBelow, field.type, message);
        if (!message.empty()) text += fmt::format("- {}: {}\n", field.label, message);
        if (row == block.limitedRow()) text += fmt::format("- {}: {}\n", field.label, block.refusal(farAbove));
    }
    return text.empty() ? text : "\n## Ranges\n\nNumbers outside are refused with these words; an expression passes.\n\n" + text;
}

std::string listsSection(const AttributeClass& c) {
    std::string text;
    for (std::int16_t row = 0; row < c.rows; ++row) {
        const Field& field = *c.rowField(row);
        if (!field.list) continue;
        text += fmt::format("- {}:", field.label);
        for (const std::string_view item : field.list->items) text += fmt::format(" {}", code(item));
        text += '\n';
    }
    return text.empty() ? text : "\n## Lists\n\n" + text;
}

std::string operationsSection(const AttributeClass& c) {
    std::string text;
    for (const Member& member : c.operations) {
        const std::string_view kind = !member.isProperty ? "operation"
                                      : !member.write    ? "property, read only"
                                      : !member.read     ? "property, write only"
                                                         : "property";
        text += fmt::format("- {}: {}", code(member.name), kind);
        if (!member.isProperty) text += fmt::format(", {} argument{}", member.arguments, member.arguments == 1 ? "" : "s");
        text += '\n';
    }
    return text.empty() ? text : "\n## Members of its own\n\n" + text;
}

}  // namespace

std::string describeFileName(const BlockClass& block) {
    return text::replaced(text::lower(block.displayName), " ", "_") + ".md";
}

std::string describePage(const BlockClass& block) {
    const Ref<AttributeObject> fresh = block.make();
    const AttributeClass& c = fresh->attributeClass();
    return fmt::format("# {}\n\nBlock type {} ({}), class {}: {}.\n", block.displayName, static_cast<int>(block.type),
                       code(block.member), code(c.name), portsText(block.ports)) +
           fieldsSection(c) + panelSection(c) + rangesSection(*fresh) + listsSection(c) + operationsSection(c) +
           fmt::format("\n## File line\n\nA new block's line ends in {}.\n", code(fresh->OutputToFile("")));
}

std::string describeIndex() {
    std::string text =
        "# Blocks\n\nOne page for each block type, written by `canvas describe --all --into docs/blocks`. A test compares "
        "them with the tables they come from.\n\n| Type | Block | Class |\n|---|---|---|\n";
    for (const BlockClass& block : catalogue())
        text += fmt::format("| {} | [{}]({}) | {} |\n", static_cast<int>(block.type), block.displayName,
                            describeFileName(block), code(block.make()->attributeClass().name));
    return text;
}

}  // namespace canvas::cli
