#pragma once
// The default engine: a store is one SQLite 3 file, its named queries are views.

#include <memory>

#include "hardware/record_store.h"

namespace canvas::store {

struct SqliteOptions {
    /// How long a statement waits for another user of the store, in milliseconds, before it is error 70.
    int busyTimeout = 10'000;
};

/// Handles on one file share one connection of this engine and process; it is closed with the last of them. Threads
/// may share it: a transaction of one makes the others wait.
std::unique_ptr<Engine> makeSqliteEngine(SqliteOptions options = {});

}  // namespace canvas::store
