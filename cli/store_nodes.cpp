#include "cli/store_nodes.h"

#include <algorithm>

#include "hardware/memory_map.h"
#include "hardware/modules.h"
#include "host/numbers.h"
#include "host/text.h"

namespace canvas::cli {
namespace {

std::optional<std::string> textAt(store::Recordset& row, std::string_view field) {
    const Value& value = row.field(field);
    if (value.is(Kind::null)) return std::nullopt;
    return value.toText();
}

RemoteNode nodeAt(store::Recordset& row) {
    const auto text = [&](std::string_view field) { return textAt(row, field).value_or(""); };
    return {.node = text("Node"),
            .name = text("Name"),
            .type = text("NodeType"),
            .inputWords = text("InputWords"),
            .outputWords = text("OutputWords"),
            .inputAddress = textAt(row, "InputBaseAddress"),
            .outputAddress = textAt(row, "OutputBaseAddress"),
            .typeCode = text("TypeCode"),
            .message = text("MessageType"),
            .dirty = numbers::parse(text("Dirty")).value_or(0) != 0};
}

/// Numbers first, by size.
bool precedes(const RemoteNode& a, const RemoteNode& b) {
    const auto x = numbers::parse(a.node), y = numbers::parse(b.node);
    if (x.has_value() != y.has_value()) return x.has_value();
    return x && *x != *y ? *x < *y : a.node < b.node;
}

Ref<clsBVTRemoteIO> openNodes(const std::string& store) {
    auto nodes = make<clsBVTRemoteIO>();
    nodes->SetDBPath(store);
    nodes->clsInputMap = make<MemoryMap>(inputArea);
    nodes->clsOutputMap = make<MemoryMap>(outputArea);
    return nodes;
}

std::string freeNumber(clsBVTRemoteIO& nodes) {
    std::int32_t number = 0;
    while (nodes.IsInList(numbers::textOf(number))) ++number;
    return numbers::textOf(number);
}

/// Words of a side as the module counts them: 0 for what is no number.
std::int64_t wordsOf(const std::string& text) {
    const double words = numbers::parse(text).value_or(0);
    return words >= 1 && words <= 0x7FFFFFFF ? static_cast<std::int64_t>(words) : 0;
}

struct Side {
    char kind;
    const char* name;
    std::string RemoteNode::*words;
    std::optional<std::string> RemoteNode::*address;
};
constexpr Side sides[] = {{'I', "input", &RemoteNode::inputWords, &RemoteNode::inputAddress},
                          {'O', "output", &RemoteNode::outputWords, &RemoteNode::outputAddress}};

class NodeCheck {
public:
    explicit NodeCheck(const std::vector<RemoteNode>& nodes) : m_nodes(nodes) {}

    std::vector<StoreFinding> run(std::int16_t networkType) {
        twice("the number", &RemoteNode::node);
        twice("the name", &RemoteNode::name);
        for (const RemoteNode& node : m_nodes) {
            if (text::trimmed(node.node).empty()) add(node, rule::node, "the number is empty");
            if (!node.message.empty() && networkType != unknownNetwork && !messageFits(node.message, networkType))
                add(node, rule::message, "\"" + node.message + "\" is no message type of this network");
        }
        for (const Side& side : sides) {
            for (const RemoteNode& node : m_nodes) checkSide(node, side);
            collisions(side);
        }
        return std::move(m_findings);
    }

private:
    struct Block {
        std::int64_t first, last;
        const RemoteNode* node;
    };

    void add(const RemoteNode& node, std::string_view rule, std::string reason) {
        m_findings.push_back({.module = mtRemoteIO, .node = node.node, .rule = rule, .reason = std::move(reason)});
    }

    void twice(const std::string& what, std::string RemoteNode::*member) {
        std::vector<const RemoteNode*> sorted;
        for (const RemoteNode& node : m_nodes)
            if (!text::trimmed(node.*member).empty()) sorted.push_back(&node);
        std::stable_sort(sorted.begin(), sorted.end(),
                         [&](const RemoteNode* a, const RemoteNode* b) { return a->*member < b->*member; });
        for (std::size_t i = 1; i < sorted.size(); ++i)
            if (sorted[i]->*member == sorted[i - 1]->*member)
                add(*sorted[i], rule::node, what + " \"" + sorted[i]->*member + "\" stands twice");
    }

    void checkSide(const RemoteNode& node, const Side& side) {
        const std::string& words = node.*side.words;
        const auto& text = node.*side.address;
        const auto count = words.empty() ? 0 : numbers::parse(words).value_or(-1);
        if (count < 0) add(node, rule::node, "the " + std::string(side.name) + " words \"" + words + "\" are no count");
        if (wordsOf(words) == 0) return;
        Address address;
        if (!text || text->empty()) add(node, rule::unaddressed, words + ' ' + side.name + " words have no address");
        else if (!readAddress(*text, address) || address.kind != side.kind)
            add(node, rule::address, "\"" + *text + "\" is no " + side.name + " address");
        else m_blocks.push_back({address.first, address.first + wordsOf(words) - 1, &node});
    }

    void collisions(const Side& side) {
        std::stable_sort(m_blocks.begin(), m_blocks.end(),
                         [](const Block& a, const Block& b) { return a.first < b.first; });
        const Block* widest = nullptr;  // of those before, the one that reaches farthest
        for (const Block& block : m_blocks) {
            if (widest && block.first <= widest->last)
                add(*block.node, rule::address,
                    std::string(side.name) + " address " + *(block.node->*side.address) +
                        " lies in the words of node " + widest->node->node + " (" + *(widest->node->*side.address) +
                        ", " + widest->node->*side.words + " words)");
            if (!widest || block.last > widest->last) widest = &block;
        }
        m_blocks.clear();
    }

    const std::vector<RemoteNode>& m_nodes;
    std::vector<Block> m_blocks;  ///< of the side under way
    std::vector<StoreFinding> m_findings;
};

}  // namespace

std::vector<RemoteNode> nodesOf(const std::string& store) {
    const auto database = store::engine().open(store);
    const auto rows = database->openDynaset(remoteNodes);
    std::vector<RemoteNode> nodes;
    for (; !rows->eof(); rows->moveNext()) nodes.push_back(nodeAt(*rows));
    std::stable_sort(nodes.begin(), nodes.end(), precedes);
    return nodes;
}

std::int16_t networkTypeOf(const std::string& store) {
    auto network = make<clsBVTNetwork>();
    network->SetDBPath(store);
    return network->NetworkType();
}

std::string presetMessage(std::int16_t networkType) { return networkType == axiolane ? "N/A" : "Polled"; }

bool messageFits(std::string_view message, std::int16_t networkType) {
    if (networkType == axiolane) return message == "N/A";
    return message == "Polled" || message == "Strobed";
}

std::optional<Fault> saveNode(const std::string& store, const RemoteNode& node, bool mayChange) {
    const std::int16_t networkType = networkTypeOf(store);
    if (networkType == unknownNetwork) return Fault{rule::list, "the network's Type is neither DeviceNet nor Axiolane"};
    const std::string message = node.message.empty() ? presetMessage(networkType) : node.message;
    if (!messageFits(message, networkType))
        return Fault{rule::message, "\"" + message + "\" is no message type of this network"};
    const auto nodes = openNodes(store);
    std::string name, type, inputs, outputs, code;
    const bool there = nodes->GetData(node.node, name, type, inputs, outputs, code);
    if (there && !mayChange) return Fault{rule::node, "the number is in the list already"};
    if (!node.name.empty() && nodes->IsNameInList(node.name) && (!there || name != node.name))
        return Fault{rule::node, "the name \"" + node.name + "\" is in the list already"};
    nodes->AllocationMemoryMaps(networkType);
    try {
        nodes->SaveData(node.node, node.name, node.type, node.inputWords, node.outputWords, node.typeCode, networkType,
                        message);
    } catch (const RuntimeError& error) {
        if (error.number != static_cast<int>(Error::invalidCall)) throw;
        return Fault{rule::address, error.description};  // what a full map says
    }
    return std::nullopt;
}

void removeNode(const std::string& store, const std::string& node) {
    const auto nodes = openNodes(store);
    const std::int16_t networkType = networkTypeOf(store);
    const auto number = numbers::parse(node);
    const bool plain = number && *number >= -0x7FFFFFFF && *number <= 0x7FFFFFFF && numbers::textOf(*number) == node;
    // The module removes by whole number alone.
    const std::string handle = plain ? node : freeNumber(*nodes);
    if (!plain) nodes->UpdateNodeNumber(handle, node);
    nodes->RemoveFromList(numbers::toLong(handle), networkType);
}

std::vector<StoreFinding> nodeFindings(const std::vector<RemoteNode>& nodes, std::int16_t networkType) {
    return NodeCheck(nodes).run(networkType);
}

}  // namespace canvas::cli
