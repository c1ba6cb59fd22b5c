#pragma once
// Recordsets over a SQLite connection.

#include "hardware/sqlite_connection.h"

namespace canvas::store {

/// A table's records in the order of their row numbers, read as they are reached. Finding takes the table's indexes.
class Dynaset final : public Recordset {
public:
    Dynaset(std::shared_ptr<Connection> connection, std::string_view table, const Criterion* only = nullptr);

    bool eof() const override { return m_place == Place::end; }
    bool bof() const override { return m_place == Place::begin; }
    void moveFirst() override;
    void moveNext() override;
    void movePrevious() override;
    void moveLast() override;
    using Recordset::field;
    using Recordset::findFirst;
    using Recordset::put;
    void findFirst(std::initializer_list<Criterion> conditions) override;
    bool noMatch() const override { return m_noMatch; }
    bool changeFirst(std::initializer_list<Criterion> conditions, std::initializer_list<Criterion> fields) override;
    std::int32_t recordCount() override;
    std::size_t fieldCount() const override;
    Ordinal ordinal(std::string_view field) const override;
    const Value& field(Ordinal ordinal) override;
    void edit() override;
    void addNew() override;
    void put(Ordinal ordinal, Value value) override;
    void update() override;
    void remove() override;
    void setSort(std::string_view field) override { m_sort = field; }
    std::unique_ptr<Recordset> openSorted() override;
    void close() override;

private:
    enum class Place { begin, record, gone, end };
    enum class Edit { none, change, addition };
    struct Change {
        Ordinal ordinal;
        Value value;
    };

    Connection& open() const;
    /// `what` is done to the records of this set that meet a condition; values are bound from `m_first` on.
    Statement over(std::string_view what, std::string_view where, std::string_view condition,
                   std::string_view rest = {}) const;
    Statement rows(std::string_view condition, std::string_view rest = {}) const {
        return over("SELECT _rowid_,* FROM ", " WHERE ", condition, rest);
    }
    /// "a=? AND b=?"; error 3265 for a field that is not there.
    std::string conditionOf(std::initializer_list<Criterion> conditions) const;
    /// The row that the statement stands on becomes the current one.
    void standOn(Statement& source, Place otherwise);
    void requireCurrent() const;
    void requireEdit() const;
    void drop() noexcept;
    /// Makes m_spot search by the fields of the conditions.
    void prepareSearch(std::initializer_list<Criterion> conditions);
    void prepareChange(std::initializer_list<Criterion> conditions, std::initializer_list<Criterion> fields);
    /// The statement that writes the changed fields; the one before when the fields are the same.
    Statement& writer();

    std::shared_ptr<Connection> m_connection;
    std::string m_table;  ///< quoted
    std::string m_filter;  ///< what narrows the table, with " AND " behind it; its value is the first parameter
    Value m_only;
    int m_first = 1;  ///< place of the first parameter behind it
    std::vector<std::string> m_names;
    Statement m_walk;  ///< forward from some row
    Statement m_spot;  ///< one row
    std::vector<Ordinal> m_wanted;  ///< the fields that m_spot searches by; empty when it is no search
    Statement m_changer;
    std::vector<Ordinal> m_changed;  ///< the fields that m_changer sets, then those that it searches by
    Statement* m_source = nullptr;  ///< stands on the current row; null when the row has to be read again
    bool m_walking = false;         ///< m_walk stands on the current row, or did
    Place m_place = Place::begin;
    std::int64_t m_row = 0;
    std::vector<std::optional<Value>> m_cells;  ///< fields of the current row that were asked for

    Edit m_edit = Edit::none;
    std::vector<Change> m_changes;
    Statement m_writer;
    Edit m_writerEdit = Edit::none;
    std::vector<Ordinal> m_writerFields;

    std::string m_sort;
    bool m_noMatch = false;
};

/// What a query gave, all of it read at once.
class Snapshot final : public Recordset {
public:
    explicit Snapshot(Statement query);

    bool eof() const override { return m_at == m_rows.size(); }
    bool bof() const override { return m_at == before; }
    void moveFirst() override { m_at = 0; }
    void moveNext() override;
    void movePrevious() override;
    void moveLast() override { m_at = m_rows.size() - 1; }
    using Recordset::field;
    using Recordset::findFirst;
    using Recordset::put;
    void findFirst(std::initializer_list<Criterion> conditions) override;
    bool noMatch() const override { return m_noMatch; }
    std::int32_t recordCount() override { return static_cast<std::int32_t>(m_rows.size()); }
    std::size_t fieldCount() const override { return m_names.size(); }
    Ordinal ordinal(std::string_view field) const override;
    const Value& field(Ordinal ordinal) override { return at(ordinal); }
    Value take(Ordinal ordinal) override { return std::move(at(ordinal)); }
    void edit() override { forReading(); }
    void addNew() override { forReading(); }
    void put(Ordinal, Value) override { forReading(); }
    void update() override { forReading(); }
    void remove() override { forReading(); }
    void setSort(std::string_view) override { forReading(); }
    std::unique_ptr<Recordset> openSorted() override { forReading(); }
    void close() override;

private:
    static constexpr std::size_t before = static_cast<std::size_t>(-1);
    Value& at(Ordinal ordinal);
    [[noreturn]] static void forReading() { throw ContractViolation("the records of a query are for reading"); }

    std::vector<std::string> m_names;
    std::vector<std::vector<Value>> m_rows;
    std::size_t m_at = 0;
    bool m_noMatch = false;
};

}  // namespace canvas::store
