// canvas describe

#include <algorithm>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/describe_page.h"
#include "host/numbers.h"
#include "host/ports.h"

namespace canvas::cli {
namespace {

struct Options {
    std::string block;
    std::string folder;
    bool all = false;
};

const BlockClass* find(const std::string& name) {
    const auto blocks = catalogue();
    const auto found = std::find_if(blocks.begin(), blocks.end(), [&](const BlockClass& block) {
        return sameName(block.displayName, name) || sameName(block.member, name) ||
               sameName(block.make()->attributeClass().name, name) || numbers::textOf(std::int32_t{block.type}) == name;
    });
    return found == blocks.end() ? nullptr : &*found;
}

void writeAll(const std::string& folder) {
    Files& files = *environment().files;
    if (!files.exists(folder)) files.makeFolder(folder);
    for (const BlockClass& block : catalogue())
        files.replace(folder + "/" + describeFileName(block))->commit(describePage(block));
    files.replace(folder + "/README.md")->commit(describeIndex());
}

int describe(const Options& options, Console& console) {
    if (options.all != options.block.empty() || (!options.folder.empty() && !options.all)) {
        console.complain("give the name of a block, or --all; --into goes with --all");
        return wrongUsage;
    }
    if (!options.folder.empty()) {
        try {
            writeAll(options.folder);
        } catch (const RuntimeError& error) {
            console.complain("'" + options.folder + "': " + error.description);
            return unreadableInput;
        }
    } else if (options.all) {
        for (const BlockClass& block : catalogue()) console.print(describePage(block) + "\n");
    } else if (const BlockClass* block = find(options.block)) {
        console.print(describePage(*block));
    } else {
        console.complain("no block is called '" + options.block + "'; `canvas describe --all` lists them");
        return wrongUsage;
    }
    return good;
}

}  // namespace

Run declareDescribe(CLI::App& line) {
    const auto options = std::make_shared<Options>();
    line.add_flag("--all", options->all, "All blocks");
    line.add_option("--into", options->folder, "With --all: write one page a block into this folder");
    line.add_option("BLOCK", options->block, "A block's display name (\"Move Axis\"), class, member or number");
    return [options](Console& console) { return describe(*options, console); };
}

}  // namespace canvas::cli
