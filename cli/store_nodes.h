#pragma once
// The remote nodes of a record store.

#include <optional>
#include <string>
#include <vector>

#include "cli/store_rules.h"

namespace canvas::cli {

struct RemoteNode {
    std::string node, name, type;
    std::string inputWords = "0", outputWords = "0";
    std::optional<std::string> inputAddress = {}, outputAddress = {};
    std::string typeCode = {};
    std::string message = {};
    bool dirty = false;
};

/// Every row of the table, by number and then by other text.
std::vector<RemoteNode> nodesOf(const std::string& store);

/// 1 DeviceNet, 0 Axiolane, -1 unknown: what the network's module says.
std::int16_t networkTypeOf(const std::string& store);
/// The message type that a node has when nobody chose one.
std::string presetMessage(std::int16_t networkType);
bool messageFits(std::string_view message, std::int16_t networkType);

/// Adds a node, or changes it where `mayChange` is set. Gives what keeps it from being done.
std::optional<Fault> saveNode(const std::string& store, const RemoteNode& node, bool mayChange);

/// Removes the first node of that number.
void removeNode(const std::string& store, const std::string& node);

/// What is wrong with the nodes: numbers and names that stand twice, words without addresses, addresses that collide.
std::vector<StoreFinding> nodeFindings(const std::vector<RemoteNode>& nodes, std::int16_t networkType);

}  // namespace canvas::cli
