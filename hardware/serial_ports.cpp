#include "hardware/serial_ports.h"

#include <algorithm>
#include <iterator>

#include "hardware/records.h"

namespace canvas {

using store::Access;
using tracing::Locals;
using tracing::Procedure;

namespace {

/// Rows whose drop-down list older stores lack, and what their only item becomes.
struct Repair {
    std::string_view property;
    std::string_view value;
    std::int16_t lookup;
    std::int16_t number;
};
constexpr Repair repairs[]{
    {"Function", "Slave", 14, 5},
    {"Protocol", "ZELPACK", 15, 6},
    {"TransmissionMode", "RTU", 16, 7},
};

const Repair* repairOf(std::string_view property) {
    const auto* row =
        std::find_if(std::begin(repairs), std::end(repairs), [&](const Repair& r) { return r.property == property; });
    return row == std::end(repairs) ? nullptr : row;
}

/// Both ports have the property under the same number, and whichever is read first patches both.
bool isPortsProperty(store::Recordset& row, std::int16_t number) {
    if (!holds(row.field("PropertyNumber"), number)) return false;
    const Value& group = row.field("groupID");
    return holds(group, mtCOM1) || holds(group, mtCOM2);
}

}  // namespace

void SerialPort::listRead(std::int32_t row) {
    const std::string property = textOrEmpty(cell(PropertyName, row));
    const bool isList = textOrEmpty(cell(PropertyListItem, row)).find('|') != std::string::npos;
    if (isList || !repairOf(property)) return;
    const std::string value = UpdateReplaceSPDB(property);
    cell(PropertyListItem, row) = value;
    cell(PropertyValue, row) = value;
}

std::string SerialPort::UpdateReplaceSPDB(std::string_view strProperty) {
    std::string result;
    Procedure run(className(), "UpdateReplaceSPDB", this, [&](Locals& l) { l("strProperty", strProperty); });
    const Repair& repair = *repairOf(strProperty);
    result = repair.value;
    run([&] { UpdateAddSPCombolist(result, repair.lookup); }, [&] { UpdateReplaceSPValue(result, repair.number); },
        [&] { UpdateReplaceSPLookup(result, repair.lookup, repair.number); });
    return result;
}

bool SerialPort::UpdateAddSPCombolist(const std::string& strValue, std::int16_t iLookupID) {
    bool result = false;
    Records lists;
    Procedure run(className(), "UpdateAddSPCombolist", this, [&](Locals& l) {
        l("strValue", strValue);
        l("iLookupID", iLookupID);
    });
    const auto add = [&] {
        lists->findFirst("DropDownComboID", iLookupID);
        if (!lists->noMatch()) return;
        lists->addNew();
        lists->put("ID", iLookupID);
        lists->put("DropDownComboID", iLookupID);
        lists->put("NumberOfItems", std::int16_t{1});
        lists->put("ListItem", strValue);
        lists->update();
    };
    run([&] { lists.open(database(), comboLookup, Access::write); }, add, [&] {
        lists.commit();
        result = true;
    });
    return result;
}

bool SerialPort::UpdateReplaceSPValue(const std::string& strValue, std::int16_t iPropertyNumber) {
    bool result = false;
    Records rows;
    Procedure run(className(), "UpdateReplaceSPValue", this, [&](Locals& l) {
        l("strValue", strValue);
        l("iPropertyNumber", iPropertyNumber);
    });
    const auto replace = [&] {
        if (!isPortsProperty(*rows, iPropertyNumber)) return;
        rows->edit();
        rows->put("Value", strValue);
        rows->update();
    };
    run([&] { rows.open(database(), systemProperties, Access::write); },
        [&] { return eachRecord(run, *rows, replace); },
        [&] {
            rows.commit();
            result = true;
        });
    return result;
}

bool SerialPort::UpdateReplaceSPLookup(const std::string& strValue, std::int16_t iLookupID,
                                       std::int16_t iPropertyNumber) {
    bool result = false;
    Records rows;
    Procedure run(className(), "UpdateReplaceSPLookup", this, [&](Locals& l) {
        l("strValue", strValue);
        l("iLookupID", iLookupID);
        l("iPropertyNumber", iPropertyNumber);
    });
    const auto replace = [&] {
        if (!isPortsProperty(*rows, iPropertyNumber)) return;
        rows->edit();
        rows->put("ComboLookupID", iLookupID);
        rows->put("ToolTipText", strValue + " setting.");
        rows->update();
    };
    run([&] { rows.open(database(), numberLookup, Access::write); },
        [&] { return eachRecord(run, *rows, replace); },
        [&] {
            rows.commit();
            result = true;
        });
    return result;
}

std::span<const Member> clsBVTCOM1::table() noexcept {
    using C = clsBVTCOM1;
    static constexpr Member members[] = {
        method<&C::ExportToCSV>("ExportToCSV"),
        method<&C::ImportFromCSV>("ImportFromCSV"),
        method<&C::ReadFromDB>("ReadFromDB"),
        method<&C::SetDBPath>("SetDBPath"),
        method<&C::GetNumberOfElements>("GetNumberOfElements"),
        method<&C::SetBlockMatrix>("SetBlockMatrix"),
        method<&C::GetBlockMatrix>("GetBlockMatrix"),
        method<&C::RestoreDefault>("RestoreDefault"),
        method<&C::SaveToDB>("SaveToDB"),
        method<&C::ResetDirtyBits>("ResetDirtyBits"),
    };
    return members;
}

std::span<const Member> clsBVTCOM2::table() noexcept {
    using C = clsBVTCOM2;
    static constexpr Member members[] = {
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
    };
    return members;
}

}  // namespace canvas
