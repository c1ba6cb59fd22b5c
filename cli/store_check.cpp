#include "cli/store_check.h"

#include "cli/store_boxes.h"
#include "cli/store_nodes.h"
#include "hardware/record_store.h"

namespace canvas::cli {
namespace {

using Findings = std::vector<StoreFinding>;

void append(Findings& all, Findings more) { std::move(more.begin(), more.end(), std::back_inserter(all)); }

void checkModule(mtModuleType module, const std::string& store, Findings& findings) {
    try {
        HeardBoxes boxes;
        const Ref<Module> object = openModule(module, store);
        for (const std::string& text : boxes.texts())
            findings.push_back({.module = module, .rule = rule::unreadable, .reason = text});
        if (boxes.texts().empty()) append(findings, propertyFindings(module, propertiesOf(*object)));
    } catch (const RuntimeError& error) {
        findings.push_back({.module = module, .rule = rule::unreadable, .reason = error.description});
    }
}

void checkNodes(const std::string& store, Findings& findings) {
    try {
        std::int16_t networkType = unknownNetwork;
        try {
            networkType = networkTypeOf(store);
        } catch (const RuntimeError&) {  // told where the network itself is checked
        }
        append(findings, nodeFindings(nodesOf(store), networkType));
    } catch (const RuntimeError& error) {
        findings.push_back({.module = mtRemoteIO, .rule = rule::unreadable, .reason = error.description});
    }
}

}  // namespace

std::vector<StoreFinding> propertyFindings(mtModuleType module, const std::vector<StoredProperty>& properties) {
    Findings findings;
    for (const StoredProperty& property : properties) {
        const auto add = [&](std::string_view rule, std::string reason) {
            findings.push_back({.module = module,
                                .number = property.number,
                                .name = property.name,
                                .rule = rule,
                                .reason = std::move(reason)});
        };
        if (property.name.empty()) {
            add(rule::missing, "the module's query does not give it");
            continue;
        }
        const auto stored = storedText(property, property.value.value_or(""));
        if (!stored) add(rule::type, '"' + *property.value + "\" is no hexadecimal number");
        else if (const auto fault = faultOf(property, *stored)) add(fault->rule, fault->reason);
        if (const auto fault = faultOf(property, property.preset.value_or("")))
            add(fault->rule, "default: " + fault->reason);
    }
    return findings;
}

std::vector<StoreFinding> checkStore(const std::string& store) {
    Findings findings;
    for (std::string& damage : store::engine().open(store)->damage())
        findings.push_back({.rule = rule::damage, .reason = std::move(damage)});
    for (const mtModuleType module : modules()) checkModule(module, store, findings);
    checkNodes(store, findings);
    return findings;
}

}  // namespace canvas::cli
