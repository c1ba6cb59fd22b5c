#include "hardware/node_module.h"

#include "hardware/csv.h"
#include "hardware/records.h"
#include "host/convert.h"
#include "host/numbers.h"

namespace canvas {

std::string addressLetter(std::int16_t iNetworkType) {
    switch (iNetworkType) {
        case axiolane: return "W";
        case deviceNet: return "O";
        default: return {};
    }
}

std::optional<double> wordsIn(const Value& words) { return numbers::parse(textOrEmpty(words)); }

Value NodeModule::takeAddress(Side side, std::string letter, const Value& words) const {
    return invoke(map(side), "GetAddresses", std::ref(letter), words.toLong(), static_cast<std::int16_t>(side));
}

void NodeModule::removeAllNodes(store::Recordset& nodes) {
    for (; !nodes.eof(); nodes.moveNext()) nodes.remove();
}

/// The message type stays unset: GetMessageType repairs it when next asked.
void NodeModule::importNodes(CsvReader& file) {
    const auto nodes = database().openDynaset(remoteNodes);
    removeAllNodes(*nodes);
    while (!file.atEnd()) {
        const Value node = file.next(), name = file.next(), type = file.next(), inputWords = file.next(),
                    outputWords = file.next(), code = file.next(), dirty = file.next();
        if (textOrEmpty(node).empty()) continue;
        nodes->findFirst("Node", node);
        if (nodes->noMatch()) nodes->addNew();
        else nodes->edit();
        nodes->put("Node", node);
        nodes->put("Name", name);
        nodes->put("NodeType", type);
        nodes->put("InputWords", inputWords);
        nodes->put("OutputWords", outputWords);
        const std::string letter = addressLetter(importedNetworkType());
        if (takesWords(inputWords)) nodes->put("InputBaseAddress", takeAddress(input, letter, inputWords));
        if (takesWords(outputWords)) nodes->put("OutputBaseAddress", takeAddress(output, letter, outputWords));
        nodes->put("TypeCode", code);
        nodes->put("Dirty", dirty);
        nodes->update();
    }
}

void NodeModule::reportVariables(VariableSink& sink) const {
    Module::reportVariables(sink);
    sink.variable("clsInputMap", clsInputMap);
    sink.variable("clsOutputMap", clsOutputMap);
}

}  // namespace canvas
