#include "document/check_rules.h"

#include <cstddef>
#include <iterator>

namespace canvas {
namespace {

constexpr RuleRow rows[] = {
    {Rule::unreadable, "unreadable", "The file cannot be opened or read to its end, so no program comes of it."},
    {Rule::newerVersion, "newer-version",
     "The file's version is above the one that is written here, compared as text."},
    {Rule::blockCount, "block-count", "NUM_BLOCKS does not give the number of block lines."},
    {Rule::window, "window", "The window line does not hold eight values."},
    {Rule::keyword, "keyword", "The first word of a line is not the one that the line, or the block's type, asks for."},
    {Rule::idZero, "id-zero", "A block line without an ID, or with ID 0: no block comes of it."},
    {Rule::unknownType, "unknown-type", "The type number has no block class."},
    {Rule::duplicateId, "duplicate-id", "Another line has the same block ID; the later line is dropped."},
    {Rule::tooManyBlocks, "too-many-blocks", "More blocks than a document holds; the lines behind are dropped."},
    {Rule::portFlags, "port-flags", "HasDualOutPort, NoInPort or NoOutPort differ from those of the type."},
    {Rule::inPortCount, "in-port-count", "The number of incoming connections differs from how many are listed."},
    {Rule::valueCount, "value-count", "The declared or the actual number of values differs from the block class's."},
    {Rule::valueRange, "value-range", "A value that the property panel would refuse."},
    {Rule::valueList, "value-list", "A choice that is not in the setting's list."},
    {Rule::label, "label", "A label, name or value whose quotes, line ends or NUL characters do not survive saving."},
    {Rule::danglingTarget, "dangling-target", "An output port leads to a block that is not there."},
    {Rule::sameTarget, "same-target", "Both output ports lead to the same block."},
    {Rule::missingPort, "missing-port", "A connection by a port that a block of the type does not have."},
    {Rule::inPort, "in-port", "The list of incoming connections does not agree with what leads to the block."},
    {Rule::connection, "connection", "The connection check calls the block wrongly connected."},
    {Rule::noStart, "no-start", "Block 1 is not the Start block."},
    {Rule::noEnd, "no-end", "Block 2 is not the End block."},
    {Rule::noSubroutine, "no-subroutine", "A Call Subroutine block for which no file was chosen."},
    {Rule::outsideFolder, "outside-folder",
     "A name that leads out of the folder or names no file: absolute, \"..\", drive, device, stream."},
    {Rule::missingSubroutine, "missing-subroutine", "A called subroutine is not in the folder."},
    {Rule::recursiveSubroutine, "recursive-subroutine", "A program calls itself, also through other subroutines."},
    {Rule::title, "title", "The title of a called subroutine is not that of its file."},
    {Rule::missingTask, "missing-task", "A task that is not defined, or whose program is not in the folder."},
    {Rule::launchBlock, "launch-block", "A task is launched at a block that its program does not have."},
    {Rule::message, "message", "Reading the line drew a message box that no other rule accounts for."},
};

constexpr bool inOrder() {
    for (std::size_t i = 0; i < std::size(rows); ++i)
        if (static_cast<std::size_t>(rows[i].rule) != i) return false;
    return true;
}
static_assert(inOrder() && std::size(rows) == static_cast<std::size_t>(Rule::message) + 1);

}  // namespace

std::span<const RuleRow> rules() noexcept { return rows; }

std::string_view nameOf(Rule rule) noexcept { return rows[static_cast<std::size_t>(rule)].name; }

}  // namespace canvas
