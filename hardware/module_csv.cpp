// A module's rows as a file, and back.

#include "hardware/csv.h"
#include "hardware/module.h"
#include "hardware/records.h"
#include "host/encoding.h"
#include "host/ports.h"

namespace canvas {

using store::Access;

namespace {

constexpr std::string_view nodesTag = "RemoteIO";
constexpr int propertyFields = 4, nodeFields = 7;
constexpr std::uint64_t largestFile = 1 << 30;

/// The file's name is the host's; the open store is ours.
void refuse(const std::string& path) {
    tell("Illegal File! [ " + environment().utility->FileTitleOf(path) + " ] ", Icon::critical);
}

void writeProperties(CsvWriter& file, store::Recordset& rows, const ModuleClass& row) {
    file.titles({row.tag});
    file.titles({"GroupID", "PropertyNumber", "Value", "Dirty"});
    const PropertyColumns columns(rows);
    for (; !rows.eof(); rows.moveNext()) {
        for (const store::Ordinal column : {columns.group, columns.number, columns.value, columns.dirty})
            file.field(rows.field(column));
        file.endLine();
    }
}

/// Neither addresses nor message types travel.
void writeNodes(CsvWriter& file, store::Database& database) {
    constexpr std::string_view columns[]{"Node",        "Name",     "NodeType", "InputWords",
                                         "OutputWords", "TypeCode", "Dirty"};
    file.titles({nodesTag});
    for (const std::string_view column : columns) file.field(column);
    file.endLine();
    for (const auto rows = database.openDynaset(remoteNodes); !rows->eof(); rows->moveNext()) {
        for (const std::string_view column : columns) file.field(rows->field(column));
        file.endLine();
    }
}

}  // namespace

bool Module::ExportToCSV(std::string& strCsvFilename) {
    bool result = false;
    raisingAgain(m_class.exportSource, [&] {
        openStore();
        const auto transaction = database().begin(Access::read);
        const auto rows =
            database().openDynaset(systemProperties, {"groupID", static_cast<std::int16_t>(m_class.fileGroup)});
        Files& files = *environment().files;
        const int number = files.open(strCsvFilename, OpenMode::output);  // stays open after a failure
        CsvWriter file;
        writeProperties(file, *rows, m_class);
        if (m_class.fileLines > 0) {
            openStore();
            writeNodes(file, database());
        }
        std::string bytes = encoding::encode(file.text());
        bytes.resize(bytes.size() - 2);  // the last line's end comes from the file
        files.writeLine(number, bytes);
        files.close(number);
        result = true;
    });
    return result;
}

bool Module::importFile(std::string& strCsvFilename) {
    bool result = false;
    raisingAgain(m_class.importSource, [&] {
        Files& files = *environment().files;
        const int number = files.open(strCsvFilename, OpenMode::input);  // stays open after a failure
        CsvReader file(encoding::decode(files.read(strCsvFilename, largestFile)));
        result = textOrEmpty(file.next()) == m_class.tag && importSections(file);
        files.close(number);
        if (!result) refuse(strCsvFilename);
    });
    return result;
}

/// What was written before a refusal stays.
bool Module::importSections(CsvReader& file) {
    file.skip(propertyFields);
    openStore();
    const auto transaction = database().begin(Access::write);
    const auto rows = database().openDynaset(systemProperties);
    const bool limited = m_class.fileLines > 0;
    for (int lines = 0; !file.atEnd() && (!limited || lines < m_class.fileLines); ++lines) importLine(*rows, file);
    bool accepted = true;
    if (limited) {
        accepted = !file.atEnd() && textOrEmpty(file.next()) == nodesTag;
        if (accepted) {
            file.skip(nodeFields);
            openStore();
            importNodes(file);
        }
    }
    transaction->commit();
    return accepted;
}

/// The line's own group decides which row is written; a line without a row is dropped.
void Module::importLine(store::Recordset& rows, CsvReader& file) {
    const Value group = file.next(), number = file.next(), value = file.next(), dirty = file.next();
    rows.changeFirst({{"groupID", group}, {"PropertyNumber", number}}, {{"Value", value}, {"Dirty", dirty}});
}

}  // namespace canvas
