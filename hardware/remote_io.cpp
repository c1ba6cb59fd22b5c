#include "hardware/remote_io.h"

#include "hardware/records.h"
#include "host/convert.h"
#include "host/numbers.h"

namespace canvas {

using store::Access;
using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace {

constexpr std::string_view none = "N/A", polled = "Polled", strobed = "Strobed";

bool fitsNetwork(std::string_view messageType, std::int16_t iNetworkType) {
    return iNetworkType == axiolane ? messageType == none : messageType == polled || messageType == strobed;
}

}  // namespace

store::Database& clsBVTRemoteIO::nodes() const {
    if (!dbRemoteIO) raise(Error::objectNotSet);
    return *dbRemoteIO;
}

Value clsBVTRemoteIO::SetDBPath(std::string_view strPath) {
    Procedure run(className(), "SetDBPath", this, [&](Locals& l) { l("strPath", strPath); });
    run([&] { strDatabasePath = strPath; }, [&] { ReadFromDB(); },
        [&] { dbRemoteIO = store::engine().open(strDatabasePath); });
    return {};
}

bool clsBVTRemoteIO::ResetDirtyBits() {
    bool result = false;
    Records rows;
    Procedure run(className(), "ResetDirtyBits", this, [](Locals&) {});
    const auto reset = [&] {
        rows->edit();
        rows->put("Dirty", std::int16_t{0});
        rows->update();
    };
    run([&] { rows.open(nodes(), remoteNodes, Access::write); }, [&] { return eachRecord(run, *rows, reset); },
        [&] {
            rows.commit();
            result = true;
        });
    return result;
}

bool clsBVTRemoteIO::ImportFromCSV(std::string& strCsvFilename, std::int16_t iNetworkType) {
    m_importedNetworkType = iNetworkType;
    return importFile(strCsvFilename);
}

bool clsBVTRemoteIO::GetMessageType(std::string_view strNodeNumber, std::int16_t iNetworkType,
                                    std::string& strMessageType) {
    bool result = false;
    Records rows;
    Procedure run(className(), "GetMessageType", this, [&](Locals& l) {
        l("strNodeNumber", strNodeNumber);
        l("iNetworkType", iNetworkType);
        l("strMessageType", strMessageType);
    });
    if (strNodeNumber.empty()) return false;
    const auto find = [&] {
        rows->findFirst("Node", strNodeNumber);
        return rows->noMatch() ? Flow::leave : Flow::next;
    };
    const auto repair = [&] {
        if (fitsNetwork(strMessageType, iNetworkType)) return;
        strMessageType = iNetworkType == axiolane ? none : polled;
        rows->edit();
        rows->put("MessageType", strMessageType);
        rows->update();
    };
    run([&] { rows.open(nodes(), remoteNodes, Access::repair); }, find,
        [&] { strMessageType = textOrEmpty(rows->field("MessageType")); }, repair,
        [&] {
            rows.commit();
            result = true;
        });
    return result;
}

bool clsBVTRemoteIO::GetData(std::string_view strNodeNumber, std::string& strNodeName, std::string& strNodeType,
                             std::string& strInputwords, std::string& strOutputwords, std::string& strTypeCode) {
    bool result = false;
    if (strNodeNumber.empty()) return false;
    raisingAgain("RemoteIO::GetData", [&] {
        Records rows;
        rows.open(nodes(), remoteNodes, Access::read);
        rows->findFirst("Node", strNodeNumber);
        if (rows->noMatch()) return;
        strNodeName = textOrEmpty(rows->field("Name"));
        strNodeType = textOrEmpty(rows->field("NodeType"));
        strInputwords = textOrEmpty(rows->field("InputWords"));
        strOutputwords = textOrEmpty(rows->field("OutputWords"));
        strTypeCode = textOrEmpty(rows->field("TypeCode"));
        result = true;
    });
    return result;
}

bool clsBVTRemoteIO::GetRemoteIOList(std::int16_t iType, Ref<Object>& colNodeNumber, Ref<Object>& colNodeName) {
    bool result = false;
    raisingAgain("RemoteIO::GetRemoteIOList", [&] {
        Records rows;
        rows.open(nodes(), remoteNodes, Access::read);
        if (iType == 0) rows->setSort("Node");
        if (iType == 1) rows->setSort("Name");
        const auto sorted = rows->openSorted();
        const store::Ordinal node = sorted->ordinal("Node"), nodeName = sorted->ordinal("Name");
        for (; !sorted->eof(); sorted->moveNext()) {
            invoke(required(colNodeNumber), "Add", sorted->field(node));
            invoke(required(colNodeName), "Add", sorted->field(nodeName));
        }
        result = true;
    });
    return result;
}

bool clsBVTRemoteIO::isThere(std::string_view field, std::string_view value) const {
    bool result = false;
    raisingAgain("RemoteIO::IsInList", [&] {
        Records rows;
        rows.open(nodes(), remoteNodes, Access::read);
        rows->findFirst(field, value);
        result = !rows->noMatch();
    });
    return result;
}

bool clsBVTRemoteIO::IsInList(std::string_view strNodeNumber) { return isThere("Node", strNodeNumber); }

bool clsBVTRemoteIO::IsNameInList(std::string_view strNodeName) { return isThere("Name", strNodeName); }

std::int16_t clsBVTRemoteIO::GetNumberOfNodes() {
    std::int16_t result = 0;
    Records rows;
    Procedure run(className(), "GetNumberOfNodes", this, [](Locals&) {});
    run([&] { rows.open(nodes(), remoteNodes, Access::read); },
        [&] {
            if (rows->recordCount() > 0) rows->moveLast();
        },
        [&] { result = numbers::roundToInteger(rows->recordCount()); });
    return result;
}

bool clsBVTRemoteIO::rename(std::string_view procedure, std::string_view field, std::string_view next,
                            std::string_view old) {
    bool result = false;
    Records rows;
    const bool byNumber = field == "Node";
    Procedure run(className(), procedure, this, [&](Locals& l) {
        l(byNumber ? "strNewNumber" : "strNewName", next);
        l(byNumber ? "strOldNumber" : "strOldName", old);
    });
    const auto change = [&] {
        rows->findFirst(field, old);
        if (rows->noMatch()) return;
        rows->edit();
        rows->put(field, next);
        rows->update();
    };
    run([&] { rows.open(nodes(), remoteNodes, Access::write); }, change,
        [&] {
            rows.commit();
            result = true;
        });
    return result;
}

bool clsBVTRemoteIO::UpdateNodeNumber(std::string_view strNewNumber, std::string_view strOldNumber) {
    return rename("UpdateNodeNumber", "Node", strNewNumber, strOldNumber);
}

bool clsBVTRemoteIO::UpdateNodeName(std::string_view strNewName, std::string_view strOldName) {
    return rename("UpdateNodeName", "Name", strNewName, strOldName);
}

std::span<const Member> clsBVTRemoteIO::table() noexcept {
    using C = clsBVTRemoteIO;
    static constexpr Member members[] = {
        method<&C::ImportFromCSV>("ImportFromCSV"),
        method<&C::ExportToCSV>("ExportToCSV"),
        method<&C::GetNumberOfElements>("GetNumberOfElements"),
        method<&C::SetBlockMatrix>("SetBlockMatrix"),
        method<&C::GetBlockMatrix>("GetBlockMatrix"),
        method<&C::ReadFromDB>("ReadFromDB"),
        method<&C::SetDBPath>("SetDBPath"),
        method<&C::RestoreDefault>("RestoreDefault"),
        method<&C::SaveToDB>("SaveToDB"),
        method<&C::RemoveFromList>("RemoveFromList"),
        method<&C::GetMessageType>("GetMessageType"),
        method<&C::GetData>("GetData"),
        method<&C::GetRemoteIOList>("GetRemoteIOList"),
        method<&C::IsInList>("IsInList"),
        method<&C::IsNameInList>("IsNameInList"),
        method<&C::SaveData>("SaveData"),
        method<&C::ResetDirtyBits>("ResetDirtyBits"),
        method<&C::AllocationMemoryMaps>("AllocationMemoryMaps"),
        property<nullptr, &C::clsInputMap>("InputMap"),
        property<nullptr, &C::clsOutputMap>("OutputMap"),
        method<&C::SetKX410Slave>("SetKX410Slave"),
        method<&C::RemoveAllRemoteIONodes>("RemoveAllRemoteIONodes"),
        method<&C::SetKX410Master>("SetKX410Master"),
        method<&C::GetNumberOfNodes>("GetNumberOfNodes"),
        method<&C::UpdateNodeNumber>("UpdateNodeNumber"),
        method<&C::UpdateNodeName>("UpdateNodeName"),
    };
    return members;
}

void clsBVTRemoteIO::reportVariables(VariableSink& sink) const {
    NodeModule::reportVariables(sink);
    sink.variable("iImportedNetworkType", m_importedNetworkType);
}

}  // namespace canvas
