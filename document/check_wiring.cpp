#include "document/check_wiring.h"

#include <utility>

#include "document/catalogue.h"
#include "document/connection_check.h"
#include "host/numbers.h"

namespace canvas {
namespace {

constexpr std::int16_t startId = 1;
constexpr std::int16_t endId = 2;

std::string decimal(std::int32_t number) { return numbers::textOf(number); }

std::string typeName(const clsBVTBlock& block) {
    const BlockClass* type = blockClass(block.intBlockType);
    return std::string(type ? type->displayName : "Unknown");
}

std::string named(const clsBVTBlock& block) {
    return "block " + decimal(block.intBlockID) + " (" + typeName(block) + ")";
}

Ports portsOf(const clsBVTBlock& block) {
    const BlockClass* type = blockClass(block.intBlockType);
    return type ? type->ports : Ports::single;
}

bool takesConnections(const clsBVTBlock& block) {
    return portsOf(block) != Ports::noIn && portsOf(block) != Ports::none;
}

bool leadsTo(const clsBVTBlock& source, std::int16_t id) {
    return source.intToFirstBlockID == id || source.intToSecondBlockID == id;
}

class WiringCheck {
public:
    WiringCheck(const clsBVTBlockCol& blocks, const BlockPlaces& places, Findings& findings)
        : m_blocks(blocks), m_places(places), m_findings(findings) {}

    void run() {
        for (std::size_t i = 0; i < m_blocks.size(); ++i) {
            if (placeOf(m_blocks[i].intBlockID).linked) checkTargets(m_blocks[i]);
            checkSources(m_blocks[i]);
        }
        checkMarks();
        checkEnd(startId, PROGRAMSTART, Rule::noStart);
        checkEnd(endId, PROGRAMEND, Rule::noEnd);
    }

private:
    BlockPlace placeOf(std::int32_t id) const {
        const auto found = m_places.find(id);
        return found == m_places.end() ? BlockPlace{} : found->second;
    }
    void tell(const clsBVTBlock& block, Rule rule, std::string reason) {
        m_findings.add(placeOf(block.intBlockID).line, block.intBlockID, rule, std::move(reason));
    }
    /// The block's line was dropped, and told so.
    bool wasDropped(std::int32_t id) const { return placeOf(id).line != 0; }

    void checkTargets(const clsBVTBlock& block);
    void checkTarget(const clsBVTBlock& block, std::int16_t target, std::string_view port);
    void checkSources(const clsBVTBlock& block);
    void checkMarks();
    std::string whyMarked(const clsBVTBlock& block) const;
    bool isLedTo(std::int16_t id) const;
    void checkEnd(std::int16_t id, enuBlockType type, Rule rule);

    const clsBVTBlockCol& m_blocks;
    const BlockPlaces& m_places;
    Findings& m_findings;
};

void WiringCheck::checkTargets(const clsBVTBlock& block) {
    const Ports ports = portsOf(block);
    const std::int16_t top = block.intToFirstBlockID, bottom = block.intToSecondBlockID;
    const bool dual = ports == Ports::dual;
    if (ports == Ports::noOut || ports == Ports::none) {
        for (const std::int16_t target : {top, bottom})
            if (target != unconnected)
                tell(block, Rule::missingPort,
                     typeName(block) + " has no output port, and leads to block " + decimal(target));
        return;
    }
    if (top != unconnected) checkTarget(block, top, dual ? "top port" : "output port");
    if (bottom == unconnected) return;
    if (!dual)
        tell(block, Rule::missingPort,
             typeName(block) + " has one output port, and a bottom one leads to block " + decimal(bottom));
    else if (bottom == top) tell(block, Rule::sameTarget, "both output ports lead to block " + decimal(top));
    else checkTarget(block, bottom, "bottom port");
}

void WiringCheck::checkTarget(const clsBVTBlock& block, std::int16_t target, std::string_view port) {
    const std::string leads = "the " + std::string(port) + " leads to ";
    const clsBVTBlock* reached = m_blocks.find(target);
    if (!reached) {
        if (!wasDropped(target))
            tell(block, Rule::danglingTarget, leads + "block " + decimal(target) + ", which is not there");
    } else if (!takesConnections(*reached)) {
        tell(block, Rule::missingPort, leads + named(*reached) + ", which has no in-port");
    } else if (!reached->intColFromBlockID.hasKey(block.intBlockID) && placeOf(target).sourced) {
        tell(*reached, Rule::inPort,
             named(block) + " leads here by its " + std::string(port) + ", and is not among the incoming connections");
    }
}

void WiringCheck::checkSources(const clsBVTBlock& block) {
    if (!placeOf(block.intBlockID).sourced) return;
    for (std::size_t i = 0; i < block.inPortCount(); ++i) {
        const auto id = static_cast<std::int16_t>(block.inPort(i).sngBlockID);
        const clsBVTBlock* source = m_blocks.find(id);
        const std::string listed = "block " + decimal(id) + " is among the incoming connections";
        if (!takesConnections(block))
            tell(block, Rule::missingPort, typeName(block) + " has no in-port, and " + listed);
        else if (source && placeOf(id).linked && !leadsTo(*source, block.intBlockID))
            tell(block, Rule::inPort, named(*source) + " is among the incoming connections, and does not lead here");
        else if (!source && !wasDropped(id)) tell(block, Rule::inPort, listed + ", and is not there");
    }
}

/// The connection check says only that a block is wrong; the reasons follow its conditions.
void WiringCheck::checkMarks() {
    for (std::size_t i = 0; i < m_blocks.size(); ++i) {
        if (wellConnected(m_blocks[i])) continue;
        if (std::string why = whyMarked(m_blocks[i]); !why.empty()) tell(m_blocks[i], Rule::connection, std::move(why));
    }
}

/// Empty when the mark follows from what was told of ports or lists.
std::string WiringCheck::whyMarked(const clsBVTBlock& block) const {
    if (!placeOf(block.intBlockID).linked) return {};
    const bool reached = block.inPortCount() > 0 || isLedTo(block.intBlockID);
    const bool leads = block.blnTopPortUsed || block.blnBottomPortUsed;
    const bool end = block.intBlockType == PROGRAMEND;
    if (block.intBlockType == PROGRAMSTART) return "it leads nowhere";
    if (!reached && !leads && !end) return "it is not connected";
    if (!reached) return "nothing leads to it";
    if (end) return {};
    if (!leads) return "it leads nowhere";
    if (leadsTo(block, block.intBlockID) && portsOf(block) != Ports::dual) return "it leads to itself";
    if (portsOf(block) != Ports::dual) return {};
    return std::string("of its two output ports only the ") + (block.blnTopPortUsed ? "top" : "bottom") +
           " one is connected";
}

bool WiringCheck::isLedTo(std::int16_t id) const {
    for (std::size_t i = 0; i < m_blocks.size(); ++i)
        if (leadsTo(m_blocks[i], id)) return true;
    return false;
}

void WiringCheck::checkEnd(std::int16_t id, enuBlockType type, Rule rule) {
    const clsBVTBlock* found = m_blocks.find(id);
    if (found ? found->intBlockType == type : wasDropped(id)) return;
    const std::string name(blockName(type));
    const clsBVTBlock* elsewhere = nullptr;
    for (std::size_t i = 0; i < m_blocks.size() && !elsewhere; ++i)
        if (m_blocks[i].intBlockType == type) elsewhere = &m_blocks[i];
    std::string reason = "the " + name + " block must have ID " + decimal(id) + ", ";
    if (elsewhere) reason += "and has ID " + decimal(elsewhere->intBlockID);
    else if (found) reason += "which a block of type " + typeName(*found) + " has";
    else reason += "and there is none";
    const clsBVTBlock* told = elsewhere ? elsewhere : found;
    m_findings.add(told ? placeOf(told->intBlockID).line : 0, told ? told->intBlockID : std::int16_t{0}, rule,
                   std::move(reason));
}

}  // namespace

void checkWiring(const clsBVTBlockCol& blocks, const BlockPlaces& places, Findings& findings) {
    WiringCheck(blocks, places, findings).run();
}

}  // namespace canvas
