#pragma once
// Module: one configurable hardware module, a matrix of properties that mirrors the module's rows in the store.

#include <array>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "hardware/module_types.h"
#include "hardware/record_store.h"
#include "host/array.h"
#include "host/members.h"
#include "tracing/branch.h"

namespace canvas {

class CsvReader;

/// What one module's class does differently from the others.
struct ModuleClass {
    std::string_view name{};
    mtModuleType group = mtNone;
    std::string_view query{};
    std::int16_t rows = 0;

    /// The first field of its file, and the group whose rows the file holds.
    std::string_view tag{};
    mtModuleType fileGroup = mtNone;
    /// How many property lines an import reads; 0 reads to the end. A file with that limit holds the remote nodes too.
    std::int16_t fileLines = 0;

    /// Source texts of errors that an operation raises again, to the letter. None: the error branch answers instead,
    /// or for reading, a message box.
    std::string_view readSource{}, saveSource{}, exportSource{}, importSource{};

    /// SaveToDB answers true instead of nothing.
    bool saveAnswers = false;
    /// RestoreDefault marks the rows that it has set.
    bool restoreMarks = true;
    /// The store is closed again after each operation.
    bool closesStore = false;
    /// What reading does to the store.
    store::Access reads = store::Access::read;
    /// Property numbers whose values ReadFromDB gives to its parameters, in the parameters' order.
    std::span<const std::int16_t> parameterRows{};
};

/// Where a query keeps the members of DataArray.
using MatrixColumns = std::array<store::Ordinal, std::size(queryColumns)>;

/// The fields of a row in the table of all properties.
struct PropertyColumns {
    explicit PropertyColumns(const store::Recordset& rows);
    store::Ordinal group, number, value, preset, dirty, format;
};

/// The row of a group. ContractViolation for mtNone.
const ModuleClass& moduleClass(mtModuleType group);

/// The matrix has the members of DataArray as first index and the property rows, from 0, as second: row r is the
/// property with the number r + 1. Edits stay in memory until SaveToDB; nothing is validated here.
/// Operations raise error 91 before SetDBPath, unless they open the store themselves.
class Module : public Object {
public:
    /// Opens the store and reads the matrix. The result is empty.
    virtual Value SetDBPath(std::string_view strPath);
    /// Reads the matrix anew; unsaved edits are lost.
    bool ReadFromDB();
    /// The index of the last row: one less than there are rows.
    Value GetNumberOfElements() const { return static_cast<std::int16_t>(m_class.rows - 1); }
    /// `intRow` is the member of DataArray, `intCol` the property row, in spite of their names. Error 9 outside.
    void SetBlockMatrix(std::int16_t intRow, std::int16_t intCol, const Value& vntData);
    /// Replaces the caller's array by a copy of the matrix.
    void GetBlockMatrix(Value& blockmatrix) const;
    virtual void RestoreDefault();
    /// Writes every row of the group and marks it, whether it has changed or not.
    virtual Value SaveToDB();
    virtual bool ResetDirtyBits();
    /// The stored rows as a text file; unsaved edits are not in it.
    bool ExportToCSV(std::string& strCsvFilename);

    const ModuleClass& moduleClass() const noexcept { return m_class; }
    void reportVariables(VariableSink& sink) const override;

    std::string strDatabasePath;
    Array arBlockMatrix;
    std::shared_ptr<store::Database> dbSysPropDatabase;

protected:
    using Parameters = std::span<std::string* const>;

    explicit Module(const ModuleClass& row);

    bool read(Parameters parameters);
    /// One import of either shape. `networkType` is asked when the nodes' addresses are taken.
    bool importFile(std::string& strCsvFilename);

    /// The fifteen cells of a property row; error 9 outside the matrix.
    std::span<Value> rowCells(std::int32_t row);
    Value& cell(DataArray member, std::int32_t row);
    const Value& cell(DataArray member, std::int32_t row) const;
    /// The open store; error 91 when there is none.
    store::Database& database() const;
    void openStore();

    /// Called once the list items of a row are read: may set its value and list.
    virtual void listRead(std::int32_t) {}
    /// Called after a row of that number has been read and its parameter, if any, filled.
    virtual void rowRead(std::int32_t, Parameters) {}
    /// Fills the edit of a row that is being saved.
    virtual void putValue(store::Recordset& row, const PropertyColumns& columns, std::int32_t number);
    /// Reads the lines of the second section of a file, up to its end.
    virtual void importNodes(CsvReader&) {}

private:
    void readRows(Parameters parameters);
    void readRow(store::Recordset& row, const MatrixColumns& columns, std::int32_t i, Parameters parameters);
    /// Runs `change` over the rows of the group, each in an edit of its own, and stores them together.
    template <class Run, class Change>
    tracing::Flow changeRows(Run& run, Change change);
    bool importSections(CsvReader& file);
    void importLine(store::Recordset& rows, CsvReader& file);

    const ModuleClass& m_class;
};

}  // namespace canvas
