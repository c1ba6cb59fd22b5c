#pragma once
// The default engine: a store is one SQLite 3 file, its named queries are views.

#include <memory>

#include "hardware/record_store.h"

namespace canvas::store {

struct SqliteOptions {
    /// How long a statement waits for another user of the store, in milliseconds, before it is error 70.
    int busyTimeout = 10'000;
};

/// A thread's handles on one file share one connection of this engine, which is closed with the last of them. Threads
/// do not share any: like processes, they wait for each other's transactions.
std::unique_ptr<Engine> makeSqliteEngine(SqliteOptions options = {});

}  // namespace canvas::store
