// canvas store

#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/store_run.h"

namespace canvas::cli {
namespace {

constexpr const char* moduleHelp = "RVQD, KX410, COM1, COM2, Network, ExternalEncoder or RemoteIO";
constexpr const char* moduleOrAllHelp = "A module's name, or all";

/// The command line under way: its words, and the part that was chosen.
struct Line {
    StoreOptions options;
    int (*run)(const StoreOptions&, Console&) = nullptr;
};

class Parts {
public:
    explicit Parts(CLI::App& parent, std::shared_ptr<Line> line) : m_parent(parent), m_line(std::move(line)) {
        parent.require_subcommand(1);
    }

    CLI::App& add(const char* name, const char* summary, int (*run)(const StoreOptions&, Console&)) {
        CLI::App& part = *m_parent.add_subcommand(name, summary);
        part.callback([line = m_line, run] { line->run = run; });
        part.add_flag("--json", options().json, "Print one JSON document (docs/store.schema.json)");
        word(part, "STORE", options().store, "The record store's file");
        return part;
    }
    static void word(CLI::App& part, const char* name, std::string& to, const char* help) {
        part.add_option(name, to, help)->required();
    }
    StoreOptions& options() { return m_line->options; }

private:
    CLI::App& m_parent;
    std::shared_ptr<Line> m_line;
};

void declareModuleParts(Parts parts) {
    StoreOptions& o = parts.options();
    parts.add("new", "Make a store with every table, query and property", newStore);

    CLI::App& show = parts.add("show", "Print the properties of all modules", showStore);
    o.module = "all";
    show.add_option("--module", o.module, moduleHelp);

    CLI::App& set = parts.add("set", "Give a property another value", setProperty);
    Parts::word(set, "MODULE", o.module, moduleHelp);
    Parts::word(set, "PROPERTY", o.property, "Its name or number");
    Parts::word(set, "VALUE", o.value, "Checked against type, bounds and list");

    CLI::App& reset = parts.add("reset", "Give a module's properties their defaults", resetModule);
    reset.add_flag("--marks", o.marks, "Take off the marks of changed rows instead");
    Parts::word(reset, "MODULE", o.module, moduleOrAllHelp);

    parts.add("check", "Name what is wrong with the file, the values and the nodes", checkWholeStore);
}

void declareFileParts(Parts parts) {
    StoreOptions& o = parts.options();
    CLI::App& out = parts.add("export", "Write a module's rows to a text file", exportModule);
    Parts::word(out, "MODULE", o.module, moduleHelp);
    Parts::word(out, "FILE", o.file, "The file to write");
    out.add_flag("--force", o.force, "Replace a file that is there");

    CLI::App& in = parts.add("import", "Take a module's rows from a text file", importModule);
    Parts::word(in, "MODULE", o.module, moduleHelp);
    Parts::word(in, "FILE", o.file, "The file to read");
    in.add_flag("--dry-run", o.dryRun, "Print what would change, and write nothing");
    in.add_flag("--force", o.force, "Take the file in spite of findings");
}

void declareNodeParts(Parts parts) {
    StoreOptions& o = parts.options();
    parts.add("list", "Print the nodes with their addresses", listNodes);

    CLI::App& add = parts.add("add", "Add a node, and take addresses for its words", addNode);
    Parts::word(add, "NODE", o.node.node, "Its number");
    Parts::word(add, "NAME", o.node.name, "Its name");
    add.add_option("--type", o.node.type, "What it is, in words");
    add.add_option("--inputs", o.node.inputWords, "Input words")->check(CLI::Range(0, 256));
    add.add_option("--outputs", o.node.outputWords, "Output words")->check(CLI::Range(0, 256));
    add.add_option("--code", o.node.typeCode, "Type code of the device");
    add.add_option("--message", o.node.message, "Polled or Strobed on DeviceNet, N/A on Axiolane");
    add.add_flag("--change", o.change, "Change the node of that number, if there is one");

    CLI::App& remove = parts.add("remove", "Remove a node", dropNode);
    Parts::word(remove, "NODE", o.node.node, "Its number");
    remove.add_flag("--by-name", o.byName, "NODE is its name");
}

}  // namespace

Run declareStore(CLI::App& line) {
    const auto chosen = std::make_shared<Line>();
    declareModuleParts(Parts(line, chosen));
    declareFileParts(Parts(line, chosen));
    declareNodeParts(Parts(*line.add_subcommand("nodes", "List, add and remove remote nodes"), chosen));
    return [chosen](Console& console) { return chosen->run(chosen->options, console); };
}

}  // namespace canvas::cli
