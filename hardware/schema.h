#pragma once
// New record stores.

#include <string>

namespace canvas {

/// Makes a record store with tables, queries and the rows of schema_rows.h. The file appears whole or not at all.
/// Error 58 when something of that name is there, else those of `Files::replace`.
void createStore(const std::string& path);

}  // namespace canvas
