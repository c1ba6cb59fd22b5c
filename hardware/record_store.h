#pragma once
// The record store behind the module classes: tables, named queries and records, whatever engine keeps them.
//
// Failures are run-time errors: 3024 no such store, 3343 a file that is no store or is damaged, 3265 no such query or
// field, 3078 no such table or a query that cannot be run, 3021 no current record, 3022 duplicate key, 61 disk full,
// 57 a failing device, 70 a store that is read-only or that another user holds, 75 a place where the engine cannot
// work, 91 a handle that was closed. Putting without an edit, and editing what a query gave, are mistakes of the
// calling class: ContractViolation.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/array.h"

namespace canvas::store {

/// What a transaction is opened for: `repair` reads, and writes where the store can be written.
enum class Access { read, write, repair };

/// A field and its value, as a condition or as a change. As a condition, a null is equal to nothing, as in SQL.
struct Criterion {
    std::string_view field;
    Value value;
};

/// Place of a field in its recordset, from 0.
using Ordinal = std::size_t;

/// Records with one current record, which is the first one after opening, or none when there are no records. A table's
/// recordset (a dynaset) follows the table: a record that is added meanwhile is met at the end, one that is removed is
/// passed over. Fields are read as they were stored: text, 32-bit whole numbers, doubles (larger whole numbers too)
/// and nulls. Moving, finding and closing drop an edit under way.
class Recordset {
public:
    virtual ~Recordset() = default;

    /// Behind the last record, or in front of the first.
    virtual bool eof() const = 0;
    virtual bool bof() const = 0;
    virtual void moveFirst() = 0;
    /// Error 3021 when already at the end.
    virtual void moveNext() = 0;
    /// Error 3021 when already at the beginning.
    virtual void movePrevious() = 0;
    virtual void moveLast() = 0;

    /// Goes to the first record, from the beginning, that meets all conditions; otherwise `noMatch` turns true and the
    /// current record stays. Text compares exactly unless the store's own column says otherwise.
    virtual void findFirst(std::initializer_list<Criterion> conditions) = 0;
    virtual bool noMatch() const = 0;
    /// Sets fields of the record that `findFirst` would find, in one go. False when there is none. The current record
    /// may be another one afterwards.
    virtual bool changeFirst(std::initializer_list<Criterion> conditions, std::initializer_list<Criterion> fields);
    void findFirst(std::string_view field, Value value) { findFirst({{field, std::move(value)}}); }

    /// How many records have been counted so far: 0 only when there are none. An engine may count all at once.
    virtual std::int32_t recordCount() = 0;

    virtual std::size_t fieldCount() const = 0;
    /// Error 3265 for a field that is not there; names ignore case.
    virtual Ordinal ordinal(std::string_view field) const = 0;
    /// A field of the current record, or of the record being added.
    virtual const Value& field(Ordinal ordinal) = 0;
    const Value& field(std::string_view name) { return field(ordinal(name)); }
    /// The field for a reader that asks once: what it gives may be gone from the record.
    virtual Value take(Ordinal ordinal) { return field(ordinal); }

    virtual void edit() = 0;
    virtual void addNew() = 0;
    /// Sets a field of the edit under way.
    virtual void put(Ordinal ordinal, Value value) = 0;
    void put(std::string_view field, Value value) { put(ordinal(field), std::move(value)); }
    /// Ends the edit: the record is written. After an addition the current record is the one from before.
    virtual void update() = 0;
    /// Deletes the current record; there is none until the next move.
    virtual void remove() = 0;

    /// The field that `openSorted` orders by; this recordset keeps its own order.
    virtual void setSort(std::string_view field) = 0;
    /// The same records, sorted, for reading.
    virtual std::unique_ptr<Recordset> openSorted() = 0;

    virtual void close() = 0;
};

/// A named query.
class QueryDef {
public:
    virtual ~QueryDef() = default;
    /// For reading only.
    virtual std::unique_ptr<Recordset> open() = 0;
};

/// Everything from its opening on is stored together. One inside another is a part of the outer one.
class Transaction {
public:
    /// Ended without a commit, it keeps what was written so far, since rows before a failure stay; but when the engine
    /// itself failed (a full disk, a damaged page), everything is taken back. Tells no failure.
    virtual ~Transaction() = default;
    /// Error 61, 57 ... when it cannot be stored; everything is then as before.
    virtual void commit() = 0;
};

/// A handle on an open store. The store stays open while a handle on it is.
class Database {
public:
    virtual ~Database() = default;
    virtual std::unique_ptr<Recordset> openDynaset(std::string_view table) = 0;
    /// Of the records that meet a condition. One added through it is not seen by it unless it does, too.
    virtual std::unique_ptr<Recordset> openDynaset(std::string_view table, const Criterion& only) = 0;
    virtual std::unique_ptr<QueryDef> queryDef(std::string_view name) = 0;
    virtual std::unique_ptr<Transaction> begin(Access access) = 0;
    /// What the engine's own check finds wrong with the file; empty for a sound store.
    virtual std::vector<std::string> damage() = 0;
    virtual void close() = 0;
};

class Engine {
public:
    virtual ~Engine() = default;
    virtual std::shared_ptr<Database> open(const std::string& path) = 0;
};

/// The engine in force on this thread. The process's own is made on first use and serves all classes.
Engine& engine();

/// Puts an engine in force on this thread until the end of a scope.
class WithEngine {
public:
    explicit WithEngine(Engine& engine) noexcept;
    ~WithEngine();
    WithEngine(const WithEngine&) = delete;
    WithEngine& operator=(const WithEngine&) = delete;

private:
    Engine* m_before;
};

}  // namespace canvas::store
