#pragma once
// The page of a block class, in Markdown, made from its table.

#include <string>

#include "document/catalogue.h"

namespace canvas::cli {

std::string describePage(const BlockClass& block);
/// "move_axis.md"
std::string describeFileName(const BlockClass& block);
/// A list of all pages, with links.
std::string describeIndex();

}  // namespace canvas::cli
