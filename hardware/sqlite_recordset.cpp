#include "hardware/sqlite_recordset.h"

#include <algorithm>
#include <limits>

#include "host/object.h"

namespace canvas::store {
namespace {

/// The record number stands in front of the fields.
constexpr int firstField = 1;

Ordinal placeOf(const std::vector<std::string>& names, std::string_view field) {
    const auto name = std::find_if(names.begin(), names.end(), [&](const auto& n) { return sameName(n, field); });
    if (name == names.end())
        raise(Error::itemNotFound, std::string(descriptionOf(static_cast<int>(Error::itemNotFound))) + ": " +
                                       std::string(field));
    return static_cast<Ordinal>(name - names.begin());
}

std::vector<std::string> namesOf(const Statement& statement, int first) {
    std::vector<std::string> names;
    for (int column = first; column < statement.columnCount(); ++column) names.emplace_back(statement.columnName(column));
    return names;
}

bool isNumber(const Value& value) { return value.kind() >= Kind::boolean && value.kind() <= Kind::doubleFloat; }

bool meets(const Value& stored, const Value& wanted) {
    if (stored.is(Kind::null) || wanted.is(Kind::null)) return false;
    if (isNumber(stored) && isNumber(wanted)) return stored.toDouble() == wanted.toDouble();
    return stored.toText() == wanted.toText();
}

}  // namespace

Dynaset::Dynaset(std::shared_ptr<Connection> connection, std::string_view table, const Criterion* only)
    : m_connection(std::move(connection)), m_table(quoted(table)) {
    if (only) {
        m_filter = quoted(only->field) + "=? AND ";
        m_only = only->value;
        ++m_first;
    }
    // by row number alone: through an index all would be read and sorted before the first one is given
    m_walk = over("SELECT _rowid_,* FROM ", " NOT INDEXED WHERE ", "_rowid_>?", " ORDER BY _rowid_");
    Dynaset::moveFirst();
    m_names = namesOf(m_walk, firstField);  // known once it has run: the schema may be another than when it was prepared
    m_cells.resize(m_names.size());
}

Connection& Dynaset::open() const {
    if (!m_connection) raise(Error::objectNotSet);
    return *m_connection;
}

Statement Dynaset::over(std::string_view what, std::string_view where, std::string_view condition,
                        std::string_view rest) const {
    std::string sql(what);
    sql.append(m_table).append(where).append(m_filter).append(condition).append(rest);
    Statement statement = open().prepare(std::move(sql));
    if (!m_filter.empty()) statement.bind(1, m_only);
    return statement;
}

std::string Dynaset::conditionOf(std::initializer_list<Criterion> conditions) const {
    std::string text;
    for (const Criterion& condition : conditions)
        text.append(text.empty() ? "" : " AND ").append(quoted(m_names[ordinal(condition.field)])).append("=?");
    return text;
}

void Dynaset::drop() noexcept {
    m_edit = Edit::none;
    m_changes.clear();
}

void Dynaset::standOn(Statement& source, Place otherwise) {
    drop();
    m_source = nullptr;  // and if the step fails, the move can be repeated
    m_walking = false;
    const bool there = source.step();
    for (auto& cell : m_cells) cell.reset();
    m_walking = &source == &m_walk;
    if (there) m_source = &source;
    m_place = there ? Place::record : otherwise;
    if (there) m_row = source.number(0);
}

void Dynaset::moveFirst() {
    open();
    m_walk.reset();
    m_walk.bind(m_first, std::numeric_limits<std::int64_t>::min());
    standOn(m_walk, Place::end);
}

void Dynaset::moveNext() {
    open();
    if (m_place == Place::end) raise(Error::noCurrentRecord);
    if (m_place == Place::begin) return moveFirst();
    if (!m_walking) {
        m_walk.reset();
        m_walk.bind(m_first, m_row);
    }
    standOn(m_walk, Place::end);
}

void Dynaset::movePrevious() {
    if (m_place == Place::begin) raise(Error::noCurrentRecord);
    if (m_place == Place::end) return moveLast();
    m_spot = rows("_rowid_<?", " ORDER BY _rowid_ DESC LIMIT 1");
    m_wanted.clear();
    m_spot.bind(m_first, m_row);
    standOn(m_spot, Place::begin);
}

void Dynaset::moveLast() {
    m_spot = rows("1", " ORDER BY _rowid_ DESC LIMIT 1");
    m_wanted.clear();
    standOn(m_spot, Place::end);
}

void Dynaset::prepareSearch(std::initializer_list<Criterion> conditions) {
    const bool same = m_spot && std::equal(conditions.begin(), conditions.end(), m_wanted.begin(), m_wanted.end(),
                                           [&](const Criterion& c, Ordinal o) { return c.field == m_names[o]; });
    if (same) return m_spot.reset();
    m_spot = rows(conditionOf(conditions), " ORDER BY _rowid_ LIMIT 1");
    m_wanted.clear();
    for (const Criterion& condition : conditions) m_wanted.push_back(ordinal(condition.field));
}

void Dynaset::findFirst(std::initializer_list<Criterion> conditions) {
    drop();
    open();
    if (m_source == &m_spot) m_source = nullptr;  // read again, if it stays the current one
    prepareSearch(conditions);
    int place = m_first;
    for (const Criterion& condition : conditions) m_spot.bind(place++, condition.value);
    m_noMatch = !m_spot.step();
    if (m_noMatch) return;
    for (auto& cell : m_cells) cell.reset();
    m_walking = false;
    m_source = &m_spot;
    m_place = Place::record;
    m_row = m_spot.number(0);
}

void Dynaset::prepareChange(std::initializer_list<Criterion> conditions, std::initializer_list<Criterion> fields) {
    const auto at = [&](const Criterion& criterion, Ordinal known) { return criterion.field == m_names[known]; };
    const auto split = m_changed.begin() + static_cast<std::ptrdiff_t>(std::min(fields.size(), m_changed.size()));
    if (m_changer && std::equal(fields.begin(), fields.end(), m_changed.begin(), split, at) &&
        std::equal(conditions.begin(), conditions.end(), split, m_changed.end(), at))
        return;
    std::string sql = "UPDATE " + m_table + " SET ";
    m_changed.clear();
    for (const Criterion& field : fields) {
        m_changed.push_back(ordinal(field.field));
        sql.append(m_changed.size() > 1 ? "," : "").append(quoted(m_names[m_changed.back()])).append("=?");
    }
    for (const Criterion& condition : conditions) m_changed.push_back(ordinal(condition.field));
    sql += " WHERE _rowid_=(SELECT _rowid_ FROM " + m_table + " WHERE " + m_filter + conditionOf(conditions) +
           " ORDER BY _rowid_ LIMIT 1)";
    m_changer = open().prepare(std::move(sql));
}

bool Dynaset::changeFirst(std::initializer_list<Criterion> conditions, std::initializer_list<Criterion> fields) {
    drop();
    prepareChange(conditions, fields);
    int place = 0;
    for (const Criterion& field : fields) m_changer.bind(++place, field.value);
    if (!m_filter.empty()) m_changer.bind(++place, m_only);
    for (const Criterion& condition : conditions) m_changer.bind(++place, condition.value);
    m_changer.run();
    m_source = nullptr;
    for (auto& cell : m_cells) cell.reset();
    return sqlite3_changes(m_connection->handle()) > 0;
}

std::int32_t Dynaset::recordCount() {
    Statement count = over("SELECT count(*) FROM ", " WHERE ", "1");
    count.step();
    return count.value(0).toLong();
}

std::size_t Dynaset::fieldCount() const { return m_names.size(); }

Ordinal Dynaset::ordinal(std::string_view field) const { return placeOf(m_names, field); }

void Dynaset::requireCurrent() const {
    open();
    if (m_place != Place::record) raise(Error::noCurrentRecord);
}

const Value& Dynaset::field(Ordinal ordinal) {
    static const Value null{Null{}};
    if (m_edit != Edit::none) {
        for (const Change& change : m_changes)
            if (change.ordinal == ordinal) return change.value;
        if (m_edit == Edit::addition) return null;
    }
    requireCurrent();
    std::optional<Value>& cell = m_cells.at(ordinal);
    if (cell) return *cell;
    if (!m_source) {
        m_spot = rows("_rowid_=?");
        m_wanted.clear();
        m_spot.bind(m_first, m_row);
        if (!m_spot.step()) raise(Error::noCurrentRecord);
        m_source = &m_spot;
    }
    return cell.emplace(m_source->value(firstField + static_cast<int>(ordinal)));
}

void Dynaset::edit() {
    requireCurrent();
    drop();
    m_edit = Edit::change;
}

void Dynaset::addNew() {
    open();
    drop();
    m_edit = Edit::addition;
}

void Dynaset::requireEdit() const {
    if (m_edit == Edit::none) throw ContractViolation("a record is changed without an edit");
}

void Dynaset::put(Ordinal ordinal, Value value) {
    requireEdit();
    for (Change& change : m_changes)
        if (change.ordinal == ordinal) {
            change.value = std::move(value);
            return;
        }
    m_changes.push_back({ordinal, std::move(value)});
}

Statement& Dynaset::writer() {
    const bool same = m_writerEdit == m_edit && std::equal(m_writerFields.begin(), m_writerFields.end(), m_changes.begin(),
                                                           m_changes.end(), [](Ordinal a, const Change& b) {
                                                               return a == b.ordinal;
                                                           });
    if (same) return m_writer;
    std::string names, places, sets;
    m_writerFields.clear();
    for (const Change& change : m_changes) {
        const char* comma = m_writerFields.empty() ? "" : ",";
        const std::string name = quoted(m_names[change.ordinal]);
        names.append(comma).append(name);
        places.append(comma).append("?");
        sets.append(comma).append(name).append("=?");
        m_writerFields.push_back(change.ordinal);
    }
    m_writerEdit = m_edit;
    if (m_edit == Edit::change) m_writer = open().prepare("UPDATE " + m_table + " SET " + sets + " WHERE _rowid_=?");
    else if (m_changes.empty()) m_writer = open().prepare("INSERT INTO " + m_table + " DEFAULT VALUES");
    else m_writer = open().prepare("INSERT INTO " + m_table + " (" + names + ") VALUES (" + places + ")");
    return m_writer;
}

void Dynaset::update() {
    requireEdit();
    const bool changing = m_edit == Edit::change;
    if (changing && m_changes.empty()) return drop();
    Statement& statement = writer();
    statement.reset();
    int place = 0;
    for (const Change& change : m_changes) statement.bind(++place, change.value);
    if (changing) statement.bind(++place, m_row);
    statement.run();
    if (changing && sqlite3_changes(m_connection->handle()) == 0) raise(Error::noCurrentRecord);
    drop();
    if (!changing) return;
    // as the store has it now: a column may have turned a number into text
    m_source = nullptr;
    for (auto& cell : m_cells) cell.reset();
}

void Dynaset::remove() {
    requireCurrent();
    drop();
    Statement statement = m_connection->prepare("DELETE FROM " + m_table + " WHERE _rowid_=?1");
    statement.bind(1, m_row);
    statement.run();
    m_place = Place::gone;
    m_source = nullptr;
}

std::unique_ptr<Recordset> Dynaset::openSorted() {
    const std::string order = m_sort.empty() ? std::string() : quoted(m_names[ordinal(m_sort)]) + ",";
    return std::make_unique<Snapshot>(over("SELECT * FROM ", " WHERE ", "1", " ORDER BY " + order + "_rowid_"));
}

void Dynaset::close() {
    drop();
    m_source = nullptr;
    for (Statement* statement : {&m_walk, &m_spot, &m_writer, &m_changer}) *statement = Statement();
    m_connection.reset();
}

Snapshot::Snapshot(Statement query) {
    bool there = query.step();
    m_names = namesOf(query, 0);
    const int columns = query.columnCount();
    for (; there; there = query.step()) {
        std::vector<Value>& row = m_rows.emplace_back();
        row.reserve(m_names.size());
        for (int column = 0; column < columns; ++column) row.push_back(query.value(column));
    }
}

void Snapshot::moveNext() {
    if (eof()) raise(Error::noCurrentRecord);
    ++m_at;  // from the place before the first record, to the first
}

void Snapshot::movePrevious() {
    if (bof()) raise(Error::noCurrentRecord);
    --m_at;
}

void Snapshot::findFirst(std::initializer_list<Criterion> conditions) {
    std::vector<std::pair<Ordinal, const Value*>> wanted;
    for (const Criterion& condition : conditions) wanted.emplace_back(ordinal(condition.field), &condition.value);
    const auto row = std::find_if(m_rows.begin(), m_rows.end(), [&](const auto& values) {
        return std::all_of(wanted.begin(), wanted.end(), [&](const auto& w) { return meets(values[w.first], *w.second); });
    });
    m_noMatch = row == m_rows.end();
    if (!m_noMatch) m_at = static_cast<std::size_t>(row - m_rows.begin());
}

Ordinal Snapshot::ordinal(std::string_view field) const { return placeOf(m_names, field); }

Value& Snapshot::at(Ordinal ordinal) {
    if (eof() || bof()) raise(Error::noCurrentRecord);
    return m_rows[m_at].at(ordinal);
}

void Snapshot::close() {
    m_rows.clear();
    m_at = 0;
}

}  // namespace canvas::store
