// The operations of clsBVTRemoteIO that deal with addresses.

#include "hardware/records.h"
#include "hardware/remote_io.h"
#include "host/convert.h"
#include "host/numbers.h"
#include "host/text.h"

namespace canvas {

using store::Access;
using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace {

/// Columns of the two sides, input and output.
struct SideColumns {
    std::string_view words;
    std::string_view address;
};
constexpr SideColumns columnsOf[]{{"InputWords", "InputBaseAddress"}, {"OutputWords", "OutputBaseAddress"}};

/// The address that the stored words of a side take; empty when they take none.
std::string takenAddress(store::Recordset& node, const SideColumns& columns) {
    const bool any = wordsIn(node.field(columns.words)).value_or(0) >= 1;
    return any ? textOrEmpty(node.field(columns.address)) : std::string();
}

/// The address with the letter of the network as it is now.
std::string withLetter(const std::string& address, std::string_view letter) {
    return address.substr(0, 1).append(letter).append(address.size() > 2 ? address.substr(2) : std::string());
}

std::string slaveOutputAddress(std::int16_t iNetworkType, std::string_view strInputwords) {
    if (iNetworkType == axiolane) return "OW0512";
    if (iNetworkType != deviceNet) return {};
    const std::int64_t first = 256 + (std::int64_t{numbers::toLong(strInputwords)} + 1) / 2;
    const std::string digits = "0000" + std::to_string(first);
    return "OW" + digits.substr(digits.size() - 4);
}

}  // namespace

/// A changed count frees the block and takes another: it is never resized in place.
template <class Run>
Flow clsBVTRemoteIO::changeWords(Run& run, store::Recordset& node, Side side, const std::string& words,
                                 const std::string& letter) {
    const SideColumns& columns = columnsOf[side];
    if (words == textOrEmpty(node.field(columns.words))) return Flow::next;
    const auto release = [&] {
        const std::string address = takenAddress(node, columns);
        if (address.empty()) return;
        invoke(map(side), "FreeAddresses", address, node.field(columns.words).toLong());
        node.put(columns.address, Null{});
    };
    return run(release, [&] {
        if (takesWords(words)) node.put(columns.address, takeAddress(side, letter, words));
    });
}

void clsBVTRemoteIO::SaveData(std::string_view strID, std::string_view strNodeName, std::string_view strNodeType,
                              std::string_view strInputwords, std::string_view strOutputwords,
                              std::string_view strTypeCode, std::int16_t iNetworkType,
                              std::string_view strMessageType) {
    const std::string letter = addressLetter(iNetworkType);
    if (text::trimmed(strID).empty()) return;
    const std::string words[]{std::string(strInputwords), std::string(strOutputwords)};
    Records rows;
    Procedure run(className(), "SaveData", this, [&](Locals& l) {
        l("strID", strID);
        l("strNodeName", strNodeName);
        l("strNodeType", strNodeType);
        l("strInputwords", strInputwords);
        l("strOutputwords", strOutputwords);
        l("strTypeCode", strTypeCode);
        l("iNetworkType", iNetworkType);
        l("strMessageType", strMessageType);
    });
    const auto begin = [&] {
        rows->findFirst("Node", strID);
        if (!rows->noMatch()) return rows->edit();
        if (!rows->eof()) rows->moveLast();
        rows->addNew();
        rows->put("Node", strID);
    };
    const auto side = [&](Side s) {
        if (!rows->noMatch()) return changeWords(run, *rows, s, words[s], letter);
        if (takesWords(words[s])) rows->put(columnsOf[s].address, takeAddress(s, letter, words[s]));
        return Flow::next;
    };
    const auto fields = [&] {
        rows->put("Name", strNodeName);
        rows->put("NodeType", strNodeType);
        rows->put("InputWords", words[input]);
        rows->put("OutputWords", words[output]);
        rows->put("TypeCode", strTypeCode);
        rows->put("Dirty", std::int16_t{1});
        rows->put("MessageType", strMessageType);
    };
    run([&] { rows.open(nodes(), remoteNodes, Access::write); }, begin, [&] { return side(input); },
        [&] { return side(output); }, fields, [&] { rows->update(); }, [&] { rows.commit(); });
}

bool clsBVTRemoteIO::RemoveFromList(std::int32_t lngID, std::int16_t iNetworkType) {
    bool result = false;
    raisingAgain("RemoteIO::RemoveFromList", [&] {
        const std::string letter = addressLetter(iNetworkType);
        Records rows;
        rows.open(nodes(), remoteNodes, Access::write);
        rows->findFirst("Node", numbers::textOf(lngID));
        if (!rows->noMatch()) {
            for (const Side side : {input, output}) {
                const std::string address = takenAddress(*rows, columnsOf[side]);
                if (address.empty()) continue;
                invoke(map(side), "FreeAddresses", withLetter(address, letter),
                       rows->field(columnsOf[side].words).toLong());
            }
            rows->remove();
        }
        rows.commit();
        result = true;
    });
    return result;
}

bool clsBVTRemoteIO::AllocationMemoryMaps(std::int16_t iNetworkType) {
    bool result = false;
    std::string letter, modified;
    Records rows;
    Procedure run(className(), "AllocationMemoryMaps", this, [&](Locals& l) {
        l("iNetworkType", iNetworkType);
        l("letter", letter);
        l("modified", modified);
    });
    letter = addressLetter(iNetworkType);
    if (iNetworkType == unknownNetwork) return false;
    const auto allocate = [&](Side side) {
        const Value& words = rows->field(columnsOf[side].words);
        const std::string address = textOrEmpty(rows->field(columnsOf[side].address));
        if (!wordsIn(words) || address.empty()) return;
        modified = withLetter(address, letter);  // for the report alone: maps know their blocks by the stored address
        invoke(map(side), "AllocateAddresses", address, letter, words.toLong());
    };
    const auto both = [&] { return run([&] { allocate(input); }, [&] { allocate(output); }); };
    run([&] { rows.open(nodes(), remoteNodes, Access::read); }, [&] { return eachRecord(run, *rows, both); },
        [&] {
            rows.commit();
            result = true;
        });
    return result;
}

bool clsBVTRemoteIO::SetKX410Slave(std::string_view strNode, bool bChangedFromMaster, std::int16_t iNetworkType,
                                   std::string_view strInputwords, std::string_view strOutputwords) {
    bool result = false;
    raisingAgain("RemoteIO::SetKX410Slave", [&] {
        Records rows;
        rows.open(nodes(), remoteNodes, Access::write);
        removeAllNodes(*rows);
        rows->addNew();
        rows->put("Node", bChangedFromMaster ? std::string_view("1") : strNode);
        rows->put("TypeCode", "100410");
        rows->put("InputBaseAddress", "IW0256");
        rows->put("InputWords", strInputwords);
        rows->put("OutputBaseAddress", slaveOutputAddress(iNetworkType, strInputwords));
        rows->put("OutputWords", strOutputwords);
        rows->put("Name", "KX410Slave");
        rows->put("NodeType", "KX410 Slave");
        rows->put("Dirty", std::int16_t{1});
        rows->update();
        rows.commit();
        result = true;
    });
    return result;
}

bool clsBVTRemoteIO::SetKX410Master(std::int16_t iNetworkType) {
    bool result = false;
    raisingAgain("RemoteIO::SetKX410Master", [&] {
        Records rows;
        rows.open(nodes(), remoteNodes, Access::write);
        for (; !rows->eof(); rows->moveNext()) RemoveFromList(rows->field("Node").toLong(), iNetworkType);
        for (const Side side : {input, output}) map(side).call("EmptyMap");
        rows.commit();
        result = true;
    });
    return result;
}

bool clsBVTRemoteIO::RemoveAllRemoteIONodes() {
    raisingAgain("RemoteIO::RemoveAllRemoteIONodes", [&] {
        Records rows;
        rows.open(nodes(), remoteNodes, Access::write);
        removeAllNodes(*rows);
        rows.commit();
    });
    return false;
}

}  // namespace canvas
