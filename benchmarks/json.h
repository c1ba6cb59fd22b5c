#pragma once
// The same content as JSON, for a general parser to read.

#include <memory>
#include <string>
#include <string_view>

#include "benchmarks/plain.h"

namespace canvas::bench {

std::string jsonOf(const PlainProgram& program);

/// Reads a JSON text with simdjson's on-demand parser, as often as one likes: parser and padded text are kept.
class JsonReader {
public:
    explicit JsonReader(std::string_view json);
    ~JsonReader();

    /// Raises simdjson::simdjson_error for anything but what `jsonOf` gives.
    PlainProgram read();

private:
    struct Parser;
    std::unique_ptr<Parser> m_parser;
};

}  // namespace canvas::bench
