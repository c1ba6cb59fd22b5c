#pragma once
// New record stores, and whether the file of a store is sound.

#include <string>
#include <string_view>
#include <vector>

namespace canvas {

/// Makes a record store with tables, queries and the rows of schema_rows.h. The file appears whole or not at all.
/// Error 58 when something of that name is there, else those of `Files::replace`.
void createStore(const std::string& path);

/// What the engine finds wrong inside the file, a sentence each; empty when it is sound. A file that is no store, or too
/// broken to be read, gives a sentence too. Error 3024 for a file that cannot be opened.
std::vector<std::string> storeFaults(const std::string& path);

}  // namespace canvas
