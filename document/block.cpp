#include "document/block.h"

#include "document/attribute_calls.h"
#include "document/catalogue.h"
#include "host/ports.h"
#include "tracing/branch.h"

namespace canvas {

using tracing::Flow;
using tracing::Locals;
using tracing::Procedure;

namespace {

constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

}  // namespace

void clsBVTBlock::setBlockType(std::int16_t BlockType) {
    intBlockType = BlockType;
    Initialize(BlockType);
    AssignAttributeType(BlockType);
}

void clsBVTBlock::Initialize(std::int16_t BlockType) {
    intToFirstBlockID = unconnected;
    intToSecondBlockID = unconnected;
    const BlockClass* type = blockClass(BlockType);
    blnHasDualOutPort = type && type->ports == Ports::dual;
    blnNoInPort = type && (type->ports == Ports::noIn || type->ports == Ports::none);
    blnNoOutPort = type && (type->ports == Ports::noOut || type->ports == Ports::none);
}

void clsBVTBlock::AssignAttributeType(std::int16_t BlockType) { vntAttribute = newAttribute(BlockType); }

Ref<Object> clsBVTBlock::BVTAttribute() const {
    Ref<Object> result;
    tracing::onFailure(
        [&] {
            required(vntAttribute);
            result = vntAttribute;
        },
        [](const RuntimeError& error) { tell("clsBVTBlock.BVTAttribute: " + bracketed(error)); });
    return result;
}

bool clsBVTBlock::AllOutPortTaken() const noexcept {
    if (blnNoOutPort) return true;
    return blnTopPortUsed && (!blnHasDualOutPort || blnBottomPortUsed);
}

std::size_t clsBVTBlock::placeOfInPort(std::int16_t BlockID) const {
    const auto asked = static_cast<float>(BlockID);
    for (std::size_t i = 0; i < inPortCount(); ++i)
        if (inPort(i).sngBlockID == asked) return i;
    return nowhere;
}

bool clsBVTBlock::AlreadyExist(std::int16_t BlockID) const {
    bool result = false;
    Procedure run(name, "AlreadyExist", this, [&](Locals& l) { l("BlockID", BlockID); });
    run([&] { result = placeOfInPort(BlockID) != nowhere; });
    return result;
}

bool clsBVTBlock::AddFromBlockID(std::int16_t BlockID, bool FromTopPort) {
    bool result = false;
    Procedure run(name, "AddFromBlockID", this, [&](Locals& l) {
        l("BlockID", BlockID);
        l("FromTopPort", FromTopPort);
    });
    run([&] {
        if (AlreadyExist(BlockID)) return;
        intColFromBlockID.add({static_cast<float>(BlockID), FromTopPort});
        result = true;
    });
    return result;
}

void clsBVTBlock::RemoveFromBlockID(std::int16_t BlockID) {
    tracing::onFailure(
        [&] {
            const std::size_t place = placeOfInPort(BlockID);
            if (place != nowhere) intColFromBlockID.remove(inPort(place).sngBlockID);
        },
        [](const RuntimeError& error) { tell("clsBVTBlock.RemoveFromBlockID(): " + bracketed(error)); });
}

void clsBVTBlock::ClearFromBlockID() { intColFromBlockID.clear(); }

std::string clsBVTBlock::OutputToFile(std::string_view strDescription) const {
    std::string line(strDescription);
    return appendTo(line, 0) ? line : std::string();
}

bool clsBVTBlock::appendTo(std::string& buffer, std::size_t lineStart) const {
    bool done = false;
    Procedure run(name, "OutputToFile", this,
                  [&](Locals& l) { l("strDescription", std::string_view(buffer).substr(lineStart)); });
    run([&] {
        attribute_calls::output(vntAttribute, buffer, lineStart);
        done = true;
    });
    return done;
}

Ref<clsBVTBlock> clsBVTBlock::IsTheSame() const {
    Ref<clsBVTBlock> copy = make<clsBVTBlock>();
    Procedure run(name, "IsTheSame", this, [&](Locals& l) { l("Block", copy); });
    run(
        [&] {
            // a known type would only make an attribute object that is replaced below; an unknown one has its box
            const BlockClass* type = blockClass(intBlockType);
            if (!type || !type->make) copy->setBlockType(intBlockType);
            copy->intBlockID = intBlockID;
            copy->intBlockType = intBlockType;
            copy->blnHasDualOutPort = blnHasDualOutPort;
            copy->blnTopPortUsed = blnTopPortUsed;
            copy->intToFirstBlockID = intToFirstBlockID;
            copy->blnBottomPortUsed = blnBottomPortUsed;
            copy->intToSecondBlockID = intToSecondBlockID;
            copy->blnNoInPort = blnNoInPort;
            copy->blnNoOutPort = blnNoOutPort;
            copy->lngBlockUserID = lngBlockUserID;
            copy->strBlockUserName = strBlockUserName;
            copy->strBlockLabel = strBlockLabel;
        },
        [&] {
            for (std::size_t i = 0; i < inPortCount(); ++i)
                if (run([&] { copy->intColFromBlockID.add(inPort(i)); }) == Flow::leave) return Flow::leave;
            return Flow::next;
        },
        [&] { copy->vntAttribute = attribute_calls::copy(vntAttribute); });
    return copy;
}

bool clsBVTBlock::IsSelfedgeBlock() const { return AlreadyExist(intBlockID) && blnHasDualOutPort; }

std::int16_t clsBVTBlock::GetFromBlockCount() const {
    std::int16_t result = 0;
    Procedure run(name, "GetFromBlockCount", this, [](Locals&) {});
    run([&] { result = Value(static_cast<std::int32_t>(inPortCount())).toInteger(); });
    return result;
}

void clsBVTBlock::reportVariables(VariableSink& sink) const {
    Locals l(sink);
    l("intBlockID", intBlockID);
    l("intBlockType", intBlockType);
    l("vntAttribute", vntAttribute);
    l("blnHasDualOutPort", blnHasDualOutPort);
    l("intColFromBlockID", ColFromBlockID());
    l("intToFirstBlockID", intToFirstBlockID);
    l("intToSecondBlockID", intToSecondBlockID);
    l("blnTopPortUsed", blnTopPortUsed);
    l("blnBottomPortUsed", blnBottomPortUsed);
    l("blnNoInPort", blnNoInPort);
    l("blnNoOutPort", blnNoOutPort);
    l("lngBlockUserID", lngBlockUserID);
    l("strBlockUserName", strBlockUserName);
    l("strBlockLabel", strBlockLabel);
}

std::span<const Member> clsBVTBlock::table() noexcept {
    using C = clsBVTBlock;
    static constexpr Member members[] = {
        property<&C::strBlockUserName>("UserName"),
        property<&C::lngBlockUserID>("UserID"),
        property<&C::BVTAttribute, &C::setBVTAttribute>("BVTAttribute"),
        property<&C::strBlockLabel>("BlockLabel"),
        property<&C::ColFromBlockID, &C::setColFromBlockID>("ColFromBlockID"),
        property<&C::intBlockID>("BlockID"),
        property<&C::BlockType, &C::setBlockType>("BlockType"),
        property<&C::intToFirstBlockID>("ToFirstBlockID"),
        property<&C::intToSecondBlockID>("ToSecondBlockID"),
        property<&C::blnHasDualOutPort>("HasDualOutPort"),
        property<&C::blnTopPortUsed>("TopPortUsed"),
        property<&C::blnBottomPortUsed>("BottomPortUsed"),
        property<&C::blnNoInPort>("NoInPort"),
        property<&C::blnNoOutPort>("NoOutPort"),
        method<&C::AllOutPortTaken>("AllOutPortTaken"),
        method<&C::AddFromBlockID>("AddFromBlockID"),
        method<&C::AlreadyExist>("AlreadyExist"),
        method<&C::RemoveFromBlockID>("RemoveFromBlockID"),
        method<&C::ClearFromBlockID>("ClearFromBlockID"),
        method<&C::OutputToFile>("OutputToFile"),
        method<&C::IsTheSame>("IsTheSame"),
        method<&C::IsSelfedgeBlock>("IsSelfedgeBlock"),
        method<&C::GetFromBlockCount>("GetFromBlockCount"),
    };
    return members;
}

}  // namespace canvas
