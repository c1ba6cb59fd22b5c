#include "document/block_col.h"

#include <charconv>

#include "host/numbers.h"
#include "host/ports.h"
#include "tracing/branch.h"

namespace canvas {
namespace {

/// The decimal text of an ID, without an allocation.
struct Key {
    explicit Key(std::int16_t id) noexcept : end(std::to_chars(digits, digits + sizeof digits, id).ptr) {}
    operator std::string_view() const noexcept { return {digits, static_cast<std::size_t>(end - digits)}; }
    char digits[8];
    char* end;
};

clsBVTBlock& blockIn(const Value& item) { return static_cast<clsBVTBlock&>(*item.toObject()); }

}  // namespace

clsBVTBlock& clsBVTBlockCol::operator[](std::size_t zeroBased) const { return blockIn((*m_blocks)[zeroBased]); }

Ref<clsBVTBlock> clsBVTBlockCol::Add(clsBVTBlock& Block) {
    Ref<clsBVTBlock> stored;
    tracing::onFailure(
        [&] {
            Ref<clsBVTBlock> copy = Block.IsTheSame();
            m_blocks->Add(copy, Key(copy->intBlockID));
            stored = std::move(copy);
        },
        [](const RuntimeError& error) { tell("clsBVTBlockCol.Add(): " + bracketed(error)); });
    return stored;
}

Ref<clsBVTBlock> clsBVTBlockCol::adopt(Ref<clsBVTBlock> block) {
    if (block->vntAttribute && m_blocks->addNew(block, Key(block->intBlockID))) return block;
    return Add(*block);  // which fails, and says so
}

void clsBVTBlockCol::Delete(const Value& vntIndex) {
    tracing::onFailure([&] { m_blocks->Remove(vntIndex); },
                       [](const RuntimeError& error) { tell("clsBVTBlockCol.Delete(): " + bracketed(error)); });
}

Ref<clsBVTBlock> clsBVTBlockCol::Item(const Value& Index) const {
    Ref<clsBVTBlock> result;
    tracing::Procedure run(name, "Item", this, [&](tracing::Locals& l) { l("Index", Index); });
    run([&] { result = Ref<clsBVTBlock>(&blockIn(m_blocks->Item(Index))); });
    return result;
}

Ref<clsBVTBlock> clsBVTBlockCol::Index(std::int16_t i) const {
    if (i >= 0 && i < Count()) return Ref<clsBVTBlock>(&(*this)[static_cast<std::size_t>(i)]);
    tell("clsBVTBlockCol.Index(): Subscript Out Of Bound");
    return nullptr;
}

bool clsBVTBlockCol::IsInCollection(const Value& Index) const {
    bool result = false;
    tracing::Procedure run(name, "IsInCollection", this, [&](tracing::Locals& l) { l("Index", Index); });
    run([&] {
        const bool isNumber = !Index.text() || numbers::isNumeric(*Index.text());
        if (!isNumber) return;  // no ID equals it
        const double id = Index.toDouble();
        for (std::size_t i = 0; i < size() && !result; ++i) result = (*this)[i].intBlockID == id;
    });
    return result;
}

Ref<clsBVTBlock> clsBVTBlockCol::GetBlockByBlockID(std::int16_t iBlockID) const {
    for (std::size_t i = 0; i < size(); ++i)
        if ((*this)[i].intBlockID == iBlockID) return Ref<clsBVTBlock>(&(*this)[i]);
    return nullptr;
}

std::int32_t clsBVTBlockCol::GetHighestBlockID() const {
    std::int32_t highest = 2;
    for (std::size_t i = 0; i < size(); ++i) highest = std::max<std::int32_t>(highest, (*this)[i].intBlockID);
    return highest;
}

clsBVTBlock* clsBVTBlockCol::find(std::int16_t id) const {
    const Value* found = m_blocks->find(Key(id));
    return found ? &blockIn(*found) : nullptr;
}

clsBVTBlock& clsBVTBlockCol::byKey(std::int16_t id) const {
    clsBVTBlock* found = find(id);
    if (!found) raise(Error::invalidCall);
    return *found;
}

void clsBVTBlockCol::reportVariables(VariableSink& sink) const { m_blocks->reportVariables(sink); }

std::span<const Member> clsBVTBlockCol::table() noexcept {
    using C = clsBVTBlockCol;
    static constexpr Member members[] = {
        method<&C::Add>("Add"),
        method<&C::Count>("Count"),
        method<&C::Delete>("Delete"),
        byDefault(method<&C::Item>("Item")),
        method<&C::Index>("Index"),
        method<&C::Clear>("Clear"),
        method<&C::NewEnum>("NewEnum"),
        method<&C::IsInCollection>("IsInCollection"),
        method<&C::GetBlockByBlockID>("GetBlockByBlockID"),
        method<&C::GetHighestBlockID>("GetHighestBlockID"),
    };
    return members;
}

}  // namespace canvas
