#include "cli/store_run.h"

#include <algorithm>
#include <memory>
#include <optional>

#include "cli/store_boxes.h"
#include "cli/store_check.h"
#include "cli/store_import.h"
#include "cli/store_report.h"
#include "hardware/memory_map.h"
#include "hardware/modules.h"
#include "hardware/schema.h"
#include "host/numbers.h"
#include "host/text.h"

namespace canvas::cli {
namespace {

constexpr std::uint64_t largestFile = 1 << 30;

/// What a run answers with: a wrong word of the command line.
struct WrongWord {
    std::string reason;
};

std::string quoted(const std::string& text) { return '\'' + printable(text) + '\''; }

int answer(const StoreOptions& options, Console& console, const StoreReport& report) {
    console.print(options.json ? jsonOf(report) : textOf(report));
    return report.findings && !report.findings->empty() ? findings : good;
}

/// Runs a command, which is told in `about` which file its failures are about: the store, until it says otherwise.
template <class Body>
int guarded(const StoreOptions& options, Console& console, Body body) {
    HeardBoxes boxes;
    std::string about = options.store;
    int code = internalError;
    try {
        code = body(about);
    } catch (const WrongWord& wrong) {
        console.complain(wrong.reason);
        code = wrongUsage;
    } catch (const RuntimeError& error) {
        console.complain(quoted(about) + ": " + printable(error.description));
        code = error.number == static_cast<int>(Error::fileExists) ? refused : unreadableInput;
    }
    for (const std::string& text : boxes.texts()) console.complain(quoted(about) + ": " + printable(text));
    return boxes.texts().empty() ? code : std::max<int>(code, unreadableInput);
}

/// Holds the store from the first look to the last change: a module saves all of its rows, and addresses that are free
/// must stay so until they are taken.
class Held {
public:
    explicit Held(const std::string& store)
        : m_database(store::engine().open(store)), m_transaction(m_database->begin(store::Access::write)) {}
    void commit() { m_transaction->commit(); }

private:
    std::shared_ptr<store::Database> m_database;
    std::unique_ptr<store::Transaction> m_transaction;
};

mtModuleType chosenModule(const std::string& name) {
    const mtModuleType module = moduleNamed(name);
    if (module != mtNone) return module;
    std::string names;
    for (const mtModuleType known : modules()) names += (names.empty() ? "" : ", ") + std::string(moduleName(known));
    throw WrongWord{"no module is called " + quoted(name) + "; there are " + names};
}

/// All modules when the name is "all".
std::vector<mtModuleType> chosenModules(const std::string& name) {
    if (sameName(name, "all")) return {modules().begin(), modules().end()};
    return {chosenModule(name)};
}

std::size_t propertyCount() {
    std::size_t count = 0;
    for (const mtModuleType module : modules()) count += static_cast<std::size_t>(moduleClass(module).rows);
    return count;
}

StoreFinding findingOf(mtModuleType module, const StoredProperty& property, Fault fault) {
    return {.module = module,
            .number = property.number,
            .name = property.name,
            .rule = fault.rule,
            .reason = std::move(fault.reason)};
}

/// A module whose rows cannot be read keeps those in front of the failure: its defaults are the way back.
Ref<Module> openedForReset(mtModuleType group, const std::string& store) {
    Ref<Module> module = newModule(group);
    try {
        module->SetDBPath(store);
    } catch (const RuntimeError&) {
        if (!module->dbSysPropDatabase) throw;
    }
    return module;
}

/// What keeps a value from being set.
std::optional<Fault> refusal(const StoredProperty& property, const std::string& value) {
    if (property.readOnly) return Fault{rule::readOnly, "the property may not be set"};
    const auto stored = storedText(property, value);
    if (!stored) return Fault{rule::type, '"' + value + "\" is no hexadecimal number"};
    return faultOf(property, *stored);
}

/// Saves the value and reads the module anew.
StoreReport saved(const StoreOptions& options, Module& module, const StoredProperty& property) {
    const mtModuleType group = module.moduleClass().group;
    const auto before = propertiesOf(module);
    module.SetBlockMatrix(PropertyValue, static_cast<std::int16_t>(property.number - 1), Value(options.value));
    module.SaveToDB();
    module.ReadFromDB();
    const auto after = propertiesOf(module);
    StoreReport report{.store = options.store, .changes = changesBetween(group, before, after), .findings = {{}}};
    const StoredProperty& now = after.at(static_cast<std::size_t>(property.number) - 1);
    if (storedText(now, now.value.value_or("")) != storedText(property, options.value))
        report.findings->push_back(findingOf(group, property, {rule::notTaken, "the module did not save the value"}));
    else if (report.changes->empty()) report.note = "no changes";
    return report;
}

/// An import that has been looked at. What the module says of the file in a box is told in any case.
void takeImport(mtModuleType module, const StoreOptions& options) {
    const auto inputs = make<MemoryMap>(inputArea), outputs = make<MemoryMap>(outputArea);
    const Ref<Module> object = openModule(module, options.store);
    std::string file = options.file;
    if (auto* nodes = dynamic_cast<NodeModule*>(object.get())) {
        nodes->clsInputMap = inputs;
        nodes->clsOutputMap = outputs;
    }
    if (auto* nodes = faceOf<clsBVTRemoteIO>(*object)) nodes->ImportFromCSV(file, networkTypeOf(options.store));
    else invoke(*object, "ImportFromCSV", file);
}

std::string counted(std::size_t number, const std::string& noun) {
    return std::to_string(number) + ' ' + noun + (number == 1 ? "" : "s");
}

/// The module finds a node by number only.
bool standsAlone(const RemoteNode& wanted, const std::vector<RemoteNode>& nodes) {
    return std::count_if(nodes.begin(), nodes.end(),
                         [&](const RemoteNode& node) { return node.node == wanted.node; }) == 1;
}

const RemoteNode& chosenNode(const std::vector<RemoteNode>& nodes, const StoreOptions& options) {
    const auto wanted = options.byName ? &RemoteNode::name : &RemoteNode::node;
    const auto found = std::find_if(nodes.begin(), nodes.end(),
                                    [&](const RemoteNode& node) { return node.*wanted == options.node.node; });
    if (found != nodes.end()) return *found;
    throw WrongWord{std::string("no node has the ") + (options.byName ? "name " : "number ") +
                    quoted(options.node.node)};
}

}  // namespace

int newStore(const StoreOptions& options, Console& console) {
    return guarded(options, console, [&](std::string&) {
        createStore(options.store);
        return answer(options, console,
                      {.store = options.store,
                       .note = options.store + ": " + std::to_string(propertyCount()) + " properties of " +
                               counted(modules().size(), "module")});
    });
}

int showStore(const StoreOptions& options, Console& console) {
    return guarded(options, console, [&](std::string&) {
        StoreReport report{.store = options.store, .modules = {{}}};
        for (const mtModuleType module : chosenModules(options.module))
            report.modules->push_back({module, propertiesOf(*openModule(module, options.store))});
        return answer(options, console, report);
    });
}

int setProperty(const StoreOptions& options, Console& console) {
    return guarded(options, console, [&](std::string&) {
        const mtModuleType group = chosenModule(options.module);
        Held held(options.store);
        const Ref<Module> module = openModule(group, options.store);
        const auto properties = propertiesOf(*module);
        const StoredProperty* property = propertyNamed(properties, options.property);
        if (!property) throw WrongWord{std::string(moduleName(group)) + " has no property " + quoted(options.property)};
        if (auto fault = refusal(*property, options.value))
            return answer(options, console,
                          {.store = options.store,
                           .changes = {{}},
                           .findings = {{findingOf(group, *property, std::move(*fault))}}});
        const StoreReport report = saved(options, *module, *property);
        held.commit();
        return answer(options, console, report);
    });
}

int resetModule(const StoreOptions& options, Console& console) {
    return guarded(options, console, [&](std::string&) {
        StoreReport report{.store = options.store, .changes = {{}}};
        const auto groups = chosenModules(options.module);
        Held held(options.store);
        for (const mtModuleType group : groups) {
            const Ref<Module> module = openedForReset(group, options.store);
            const auto before = propertiesOf(*module);
            if (options.marks) module->ResetDirtyBits();
            else module->RestoreDefault();
            for (PropertyChange& change : changesBetween(group, before, propertiesOf(*module)))
                report.changes->push_back(std::move(change));
        }
        held.commit();
        if (options.marks) report.note = "marks taken off";
        else if (report.changes->empty()) report.note = "no changes";
        return answer(options, console, report);
    });
}

int exportModule(const StoreOptions& options, Console& console) {
    return guarded(options, console, [&](std::string& about) {
        const Ref<Module> module = openModule(chosenModule(options.module), options.store);
        std::string file = options.file;
        if (!options.force && environment().files->exists(file)) {
            console.complain(quoted(file) + " is there already; --force replaces it");
            return int{refused};
        }
        if (isStore(file, options.store)) {
            console.complain(quoted(file) + " is the store itself");
            return int{refused};
        }
        about = file;
        module->ExportToCSV(file);
        return answer(options, console, {.store = options.store, .file = file, .note = file + ": written"});
    });
}

int importModule(const StoreOptions& options, Console& console) {
    return guarded(options, console, [&](std::string& about) {
        const mtModuleType module = chosenModule(options.module);
        about = options.file;
        std::string bytes = environment().files->read(options.file, largestFile);
        about = options.store;
        std::optional<Held> held;
        if (!options.dryRun) held.emplace(options.store);
        ImportPlan plan = planImport(module, options.store, std::move(bytes));
        const bool writes = plan.readable && !options.dryRun && (plan.findings.empty() || options.force);
        if (writes) takeImport(module, options);
        if (held) held->commit();
        StoreReport report{.store = options.store, .file = options.file, .dryRun = !writes};
        report.note = (writes ? "" : "nothing was written; ") + counted(plan.changes.size(), "change");
        if (plan.nodes) report.note += ", " + counted(plan.nodes->size(), "node");
        if (!plan.findings.empty()) report.note += ", " + counted(plan.findings.size(), "finding");
        report.changes = std::move(plan.changes);
        report.nodes = std::move(plan.nodes);
        report.findings = std::move(plan.findings);
        const int code = answer(options, console, report);
        return plan.readable ? code : int{unreadableInput};
    });
}

int listNodes(const StoreOptions& options, Console& console) {
    return guarded(options, console, [&](std::string&) {
        return answer(options, console, {.store = options.store, .nodes = nodesOf(options.store)});
    });
}

int addNode(const StoreOptions& options, Console& console) {
    return guarded(options, console, [&](std::string&) {
        if (text::trimmed(options.node.node).empty()) throw WrongWord{"a node needs a number"};
        StoreReport report{.store = options.store};
        Held held(options.store);
        if (auto fault = saveNode(options.store, options.node, options.change)) {
            report.findings = {{{.module = mtRemoteIO,
                                 .node = options.node.node,
                                 .rule = fault->rule,
                                 .reason = std::move(fault->reason)}}};
        } else {
            StoreOptions wanted = options;
            wanted.byName = false;
            report.nodes = {{chosenNode(nodesOf(options.store), wanted)}};
        }
        held.commit();
        return answer(options, console, report);
    });
}

int dropNode(const StoreOptions& options, Console& console) {
    return guarded(options, console, [&](std::string&) {
        Held held(options.store);
        const auto nodes = nodesOf(options.store);
        const RemoteNode& node = chosenNode(nodes, options);
        if (options.byName && !standsAlone(node, nodes))
            throw WrongWord{"the number " + quoted(node.node) + " stands twice: remove by number"};
        removeNode(options.store, node.node);
        held.commit();
        if (nodesOf(options.store).size() == nodes.size())
            return answer(options, console,
                          {.store = options.store,
                           .findings = {{{.module = mtRemoteIO,
                                          .node = node.node,
                                          .rule = rule::notTaken,
                                          .reason = "the module did not remove the node"}}}});
        return answer(options, console, {.store = options.store, .nodes = {{node}}, .note = "removed"});
    });
}

int checkWholeStore(const StoreOptions& options, Console& console) {
    return guarded(options, console, [&](std::string&) {
        StoreReport report{.store = options.store, .findings = checkStore(options.store)};
        report.note = options.store + ": " +
                      (report.findings->empty() ? "no findings" : counted(report.findings->size(), "finding"));
        return answer(options, console, report);
    });
}

}  // namespace canvas::cli
