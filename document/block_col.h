#pragma once
// clsBVTBlockCol: the blocks of a document, in order and by key.

#include "document/block.h"

namespace canvas {

/// The key of a block is the decimal text of the ID it had when it was added. Places count from 1 in `Item` and
/// `Delete`, from 0 in `Index`.
class clsBVTBlockCol final : public Tabled<clsBVTBlockCol> {
public:
    static constexpr std::string_view name = "clsBVTBlockCol";
    static std::span<const Member> table() noexcept;
    void reportVariables(VariableSink& sink) const override;
    std::unique_ptr<Enumerator> enumerate() override { return m_blocks->enumerate(); }

    /// Stores a copy, never the argument, and gives the copy. An ID that is taken is told in a box and gives Nothing.
    Ref<clsBVTBlock> Add(clsBVTBlock& Block);
    std::int32_t Count() const noexcept { return m_blocks->Count(); }
    /// By key for a text, by place for a number; an absent one is told in a box.
    void Delete(const Value& vntIndex);
    Ref<clsBVTBlock> Item(const Value& Index) const;
    /// The block at a place from 0; past the end a box says so.
    Ref<clsBVTBlock> Index(std::int16_t i) const;
    /// A walk that is under way goes on over the blocks that were there.
    void Clear() { m_blocks = make<Collection>(); }
    Ref<Object> NewEnum() const { return enumeratorOf(m_blocks); }
    /// True when some block's BlockID equals the value: an ID, not a key or a place.
    bool IsInCollection(const Value& Index) const;
    Ref<clsBVTBlock> GetBlockByBlockID(std::int16_t iBlockID) const;
    /// Never less than 2, the End block's ID.
    std::int32_t GetHighestBlockID() const;

    /// Stores the block itself, with the failures of `Add`: for a reader whose block nobody else holds.
    Ref<clsBVTBlock> adopt(Ref<clsBVTBlock> block);
    /// The block under an ID's key; error 5 when absent.
    clsBVTBlock& byKey(std::int16_t id) const;
    /// Null when absent.
    clsBVTBlock* find(std::int16_t id) const;

    std::size_t size() const noexcept { return m_blocks->size(); }
    clsBVTBlock& operator[](std::size_t zeroBased) const;
    void reserve(std::size_t count) { m_blocks->reserve(count); }

private:
    Ref<Collection> m_blocks = make<Collection>();
};

}  // namespace canvas
