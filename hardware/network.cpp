#include "hardware/network.h"

#include <array>

#include "hardware/records.h"
#include "host/numbers.h"

namespace canvas {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace {

constexpr std::int32_t noRow = -1;

/// What a text stands for; -1 for a text that is none of the two.
std::int16_t choiceOf(std::string_view text, std::string_view one, std::string_view zero) {
    return text == one ? 1 : text == zero ? 0 : unknownNetwork;
}

std::int16_t numberIn(const std::string& text) { return numbers::isNumeric(text) ? numbers::toInteger(text) : 0; }

}  // namespace

std::int32_t clsBVTNetwork::rowOf(std::string_view property) const {
    const Bounds rows = arBlockMatrix.dimensions[1];
    for (std::int32_t row = rows.lower; row <= rows.upper; ++row)
        if (textOrEmpty(cell(PropertyName, row)) == property) return row;
    return noRow;
}

template <class Take>
void clsBVTNetwork::takeSetting(std::string_view procedure, std::string_view property, Take&& take) {
    std::int32_t row = noRow;
    Procedure run(className(), procedure, this, [&](Locals& l) { l("row", row); });
    run([&] { row = rowOf(property); }, [&] { take(textOrEmpty(cell(PropertyValue, row))); });
}

std::int16_t clsBVTNetwork::NetworkType() {
    std::int16_t result = 0;
    takeSetting("NetworkType", "Type", [&](const auto& text) { result = choiceOf(text, "DeviceNet", "Axiolane"); });
    return result;
}

std::int16_t clsBVTNetwork::NetworkFunction() {
    std::int16_t result = 0;
    takeSetting("NetworkFunction", "Function", [&](const auto& text) { result = choiceOf(text, "Master", "Slave"); });
    return result;
}

std::int16_t clsBVTNetwork::NetworkSlaveNode() {
    std::int16_t result = 0;
    takeSetting("NetworkSlaveNode", "SlaveNodes", [&](const auto& text) { result = numberIn(text); });
    return result;
}

std::int16_t clsBVTNetwork::NetworkNode() {
    std::int16_t result = 0;
    takeSetting("NetworkNode", "Node", [&](const auto& text) { result = numberIn(text); });
    return result;
}

std::string clsBVTNetwork::NetworkName() {
    std::string result;
    takeSetting("NetworkName", "Name", [&](const auto& text) { result = text; });
    return result;
}

std::string clsBVTNetwork::GetAxiolaneNodes(Value& arNodeList) {
    constexpr std::string_view columns[]{"Node", "Type_code", "InputWords", "OutputWords"};
    constexpr std::int32_t lastColumn = std::size(columns) - 1;
    std::string result, strBind = "*0";
    std::int32_t i = 0;
    std::unique_ptr<store::Transaction> reading;
    std::unique_ptr<store::Recordset> nodes;
    Procedure run(className(), "GetAxiolaneNodes", this, [&](Locals& l) {
        l("arNodeList", arNodeList);
        l("strBind", strBind);
        l("i", i);
    });
    const auto open = [&] {
        reading = database().begin(store::Access::read);
        nodes = database().queryDef(axiolaneNodes)->open();
    };
    const auto size = [&] {
        const std::int32_t count = required(nodes.get()).recordCount();
        if (count == 0) raise(Error::subscript);
        arNodeList = Value(Array::of("String", {{0, count - 1}, {0, lastColumn}}));
    };
    const auto fill = [&] {
        for (std::int32_t column = 0; column <= lastColumn; ++column) {
            const std::array<std::int32_t, 2> place{i, column};
            arNodeList.toArray().at(place) = Value(nodes->field(columns[column]).toText());
        }
        result.append("#").append(numbers::textOf(i)).append(strBind).append(";");
        result.append(nodes->field(columns[0]).toText()).append("|");
        ++i;
        strBind.clear();
    };
    run(open, size, [&] { return eachRecord(run, required(nodes.get()), fill); });
    return result;
}

std::span<const Member> clsBVTNetwork::table() noexcept {
    using C = clsBVTNetwork;
    static constexpr Member members[] = {
        property<nullptr, &C::clsOutputMap>("OutputMap"),
        property<nullptr, &C::clsInputMap>("InputMap"),
        method<&C::ImportFromCSV>("ImportFromCSV"),
        method<&C::ExportToCSV>("ExportToCSV"),
        method<&C::GetNumberOfElements>("GetNumberOfElements"),
        method<&C::SetBlockMatrix>("SetBlockMatrix"),
        method<&C::GetBlockMatrix>("GetBlockMatrix"),
        method<&C::SetDBPath>("SetDBPath"),
        method<&C::ReadFromDB>("ReadFromDB"),
        method<&C::RestoreDefault>("RestoreDefault"),
        method<&C::SaveToDB>("SaveToDB"),
        method<&C::ResetDirtyBits>("ResetDirtyBits"),
        method<&C::NetworkType>("NetworkType"),
        method<&C::NetworkFunction>("NetworkFunction"),
        method<&C::NetworkSlaveNode>("NetworkSlaveNode"),
        method<&C::NetworkNode>("NetworkNode"),
        method<&C::NetworkName>("NetworkName"),
        method<&C::GetAxiolaneNodes>("GetAxiolaneNodes"),
    };
    return members;
}

}  // namespace canvas
