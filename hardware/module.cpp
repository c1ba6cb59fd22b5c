#include "hardware/module.h"

#include <array>

#include "hardware/records.h"
#include "host/ports.h"

namespace canvas {

using store::Access;
using tracing::Locals;
using tracing::Procedure;

namespace {

constexpr std::int16_t lastMember = PropertyValidateType;
static_assert(std::size(queryColumns) == lastMember + 1);

}  // namespace

PropertyColumns::PropertyColumns(const store::Recordset& rows)
    : group(rows.ordinal("groupID")),
      number(rows.ordinal("PropertyNumber")),
      value(rows.ordinal("Value")),
      preset(rows.ordinal("Default")),
      dirty(rows.ordinal("Dirty")),
      format(rows.ordinal("DisplayFormat")) {}

Module::Module(const ModuleClass& row)
    : arBlockMatrix(Array::of("Variant", {{0, lastMember}, {0, row.rows - 1}})), m_class(row) {}

std::span<Value> Module::rowCells(std::int32_t row) {
    return {&cell(PropertyName, row), lastMember + 1};  // the first index runs fastest
}

Value& Module::cell(DataArray member, std::int32_t row) {
    const std::array<std::int32_t, 2> place{member, row};
    return arBlockMatrix.at(place);
}

const Value& Module::cell(DataArray member, std::int32_t row) const {
    const std::array<std::int32_t, 2> place{member, row};
    return arBlockMatrix.at(place);
}

store::Database& Module::database() const {
    if (!dbSysPropDatabase) raise(Error::objectNotSet);
    return *dbSysPropDatabase;
}

void Module::openStore() { dbSysPropDatabase = store::engine().open(strDatabasePath); }

Value Module::SetDBPath(std::string_view strPath) {
    Procedure run(className(), "SetDBPath", this, [&](Locals& l) { l("strPath", strPath); });
    run([&] { strDatabasePath = strPath; }, [&] { ReadFromDB(); });
    return {};
}

bool Module::ReadFromDB() { return read({}); }

bool Module::read(Parameters parameters) {
    bool result = false;
    const auto body = [&] {
        readRows(parameters);
        result = true;
    };
    const auto show = [](const RuntimeError& error) { tell(error.description); };
    if (m_class.readSource.empty()) tracing::onFailure(body, show);
    else raisingAgain(m_class.readSource, body);
    return result;
}

void Module::readRows(Parameters parameters) {
    openStore();
    const auto transaction = database().begin(m_class.reads);
    const auto rows = database().queryDef(m_class.query)->open();
    if (!rows->eof()) {
        MatrixColumns columns;
        for (std::size_t member = 0; member < columns.size(); ++member)
            columns[member] = rows->ordinal(queryColumns[member]);
        for (std::int32_t i = 0; !rows->eof(); rows->moveNext()) readRow(*rows, columns, i++, parameters);
    }
    transaction->commit();
    if (m_class.closesStore) dbSysPropDatabase.reset();
}

void Module::readRow(store::Recordset& row, const MatrixColumns& columns, std::int32_t i, Parameters parameters) {
    const std::span<Value> cells = rowCells(i);
    for (std::size_t member = 0; member < columns.size(); ++member) {
        cells[member] = row.take(columns[member]);
        if (member == PropertyListItem) listRead(i);
    }
    const std::int32_t number = i + 1;
    for (std::size_t p = 0; p < parameters.size(); ++p)
        if (m_class.parameterRows[p] == number) *parameters[p] = cells[PropertyValue].toText();
    rowRead(number, parameters);
}

void Module::SetBlockMatrix(std::int16_t intRow, std::int16_t intCol, const Value& vntData) {
    Procedure run(className(), "SetBlockMatrix", this, [&](Locals& l) {
        l("intRow", intRow);
        l("intCol", intCol);
        l("vntData", vntData);
    });
    run([&] { cell(static_cast<DataArray>(intRow), intCol) = vntData; });
}

void Module::GetBlockMatrix(Value& blockmatrix) const { blockmatrix = Value(arBlockMatrix); }

template <class Run, class Change>
tracing::Flow Module::changeRows(Run& run, Change change) {
    Records rows;
    const auto open = [&] {
        if (m_class.closesStore) openStore();
        const store::Criterion ours{"groupID", static_cast<std::int16_t>(m_class.group)};
        rows.open(database(), systemProperties, Access::write, ours);
    };
    const auto walk = [&] {
        const PropertyColumns columns(*rows);
        return eachRecord(run, *rows, [&] {
            rows->edit();
            change(*rows, columns);
            rows->update();
        });
    };
    const auto store = [&] {
        rows.commit();
        if (m_class.closesStore) dbSysPropDatabase.reset();
    };
    return run(open, walk, store);
}

void Module::putValue(store::Recordset& row, const PropertyColumns& columns, std::int32_t number) {
    const Value& value = cell(PropertyValue, number - 1);
    const bool asItIs = value.text() || value.is(Kind::null) || value.is(Kind::empty);
    // a number as its text: an engine spells it in another way ("1000.0")
    row.put(columns.value, asItIs ? value : Value(value.toText()));
    row.put(columns.dirty, std::int16_t{1});
}

Value Module::SaveToDB() {
    bool result = false;
    const auto save = [&](auto& run) {
        return run([&] {
            return changeRows(run, [&](store::Recordset& row, const PropertyColumns& columns) {
                putValue(row, columns, row.field(columns.number).toLong());
            });
        }, [&] { result = true; });
    };
    if (m_class.saveSource.empty()) {
        Procedure run(className(), "SaveToDB", this, [](Locals&) {});
        save(run);
    } else {
        Unasked run;
        raisingAgain(m_class.saveSource, [&] { save(run); });
    }
    return m_class.saveAnswers ? Value(result) : Value();
}

void Module::RestoreDefault() {
    Procedure run(className(), "RestoreDefault", this, [](Locals&) {});
    run([&] {
        return changeRows(run, [&](store::Recordset& row, const PropertyColumns& columns) {
            row.put(columns.value, row.field(columns.preset));
            if (m_class.restoreMarks) row.put(columns.dirty, std::int16_t{1});
        });
    }, [&] { ReadFromDB(); });
}

bool Module::ResetDirtyBits() {
    bool result = false;
    Procedure run(className(), "ResetDirtyBits", this, [](Locals&) {});
    run([&] {
        return changeRows(run, [&](store::Recordset& row, const PropertyColumns& columns) {
            row.put(columns.dirty, std::int16_t{0});
        });
    }, [&] { result = true; });
    return result;
}

void Module::reportVariables(VariableSink& sink) const {
    sink.variable("strDatabasePath", strDatabasePath);
    sink.variable("arBlockMatrix", arBlockMatrix);
}

}  // namespace canvas
