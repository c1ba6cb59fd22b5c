#pragma once
// NodeModule: what the two modules share that deal with the remote nodes, their list and its addresses.

#include <optional>
#include <string>

#include "hardware/module.h"

namespace canvas {

/// The letter in the addresses of a network type: "W" for 0, "O" for 1, none for any other.
std::string addressLetter(std::int16_t iNetworkType);

/// A word count, if it is numeric.
std::optional<double> wordsIn(const Value& words);
/// Whether it asks for addresses.
inline bool takesWords(const Value& words) { return wordsIn(words).value_or(0) > 0; }

class NodeModule : public Module {
public:
    /// The host's maps of input and output words. An operation that reaches a map that is not set is error 91.
    Ref<Object> clsInputMap, clsOutputMap;
    void reportVariables(VariableSink& sink) const override;

protected:
    using Module::Module;
    enum Side : std::int16_t { input = 0, output = 1 };

    Object& map(Side side) const { return required(side == input ? clsInputMap : clsOutputMap); }
    /// Reserves words; whatever the map answers is the address.
    Value takeAddress(Side side, std::string letter, const Value& words) const;
    /// Deletes the records from the current one on.
    static void removeAllNodes(store::Recordset& nodes);
    void importNodes(CsvReader& file) override;
    /// The network type that the addresses of an import are taken for.
    virtual std::int16_t importedNetworkType() = 0;
};

}  // namespace canvas
