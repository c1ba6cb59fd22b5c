#pragma once
// How a program is printed.

#include <string>

#include "document/canvas.h"

namespace canvas::cli {

/// A page for people: header, blocks in flow order, blocks that Start does not reach, notes.
std::string programPage(const clsBVTCanvas& document, const std::string& file);

/// One JSON document in the form of docs/show.schema.json, a line feed at its end.
std::string programJson(const clsBVTCanvas& document, const std::string& file);

}  // namespace canvas::cli
