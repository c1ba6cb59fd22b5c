#pragma once
// Collection: an ordered list of values, each with a key if its adder gave one.

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/members.h"

namespace canvas {

/// Places count from 1. Keys are text and match without regard to case. Failures: key taken 457, key absent 5,
/// place outside 1 to Count 9. Insertion, and look-up by key or place, take constant time; the first use of a key
/// after a removal takes linear time, as the removal did.
class Collection final : public Tabled<Collection> {
public:
    static constexpr std::string_view name = "Collection";
    static std::span<const Member> table() noexcept;

    void Add(Value item);
    void Add(Value item, std::string_view key);
    /// False, and nothing changes, when the key is taken.
    bool addNew(Value item, std::string_view key);
    std::int32_t Count() const noexcept { return static_cast<std::int32_t>(m_entries.size()); }
    /// By key for a text, by place (rounded half to even) for a number of any kind; anything else is error 13.
    const Value& Item(const Value& index) const { return m_entries[placeOf(index)].item; }
    void Remove(const Value& index);
    void Clear() noexcept;

    const Value& at(std::int32_t place) const;
    /// Null when absent.
    const Value* find(std::string_view key) const;
    const Value& operator[](std::size_t zeroBased) const { return m_entries[zeroBased].item; }
    std::size_t size() const noexcept { return m_entries.size(); }
    void reserve(std::size_t count) { m_entries.reserve(count); }
    void removeAt(std::size_t zeroBased);

    /// Walks the entries in order as they stand when each is reached: one added during the walk is seen, one removed
    /// before its turn is not, and none is passed over or seen twice for the removal of another.
    std::unique_ptr<Enumerator> enumerate() override;
    /// "Count", then each entry as "Item(place)".
    void reportVariables(VariableSink& sink) const override;

private:
    class Walker;
    struct Entry {
        Value item;
        std::string key;  ///< lower case
        bool keyed = false;
        std::uint64_t serial = 0;  ///< rises from entry to entry
    };

    void addLateBound(const Value& item, const Value& key);
    std::size_t placeOf(const Value& index) const;
    std::size_t placeOfKey(std::string_view foldedKey) const;
    void buildIndex() const;
    std::uint32_t& slotOf(std::string_view foldedKey) const;

    std::vector<Entry> m_entries;
    std::uint64_t m_lastSerial = 0;
    /// Open-addressed by hash of key: zero-based place + 1, or 0 for a free slot. Empty while a linear search is as
    /// quick, and after a removal.
    mutable std::vector<std::uint32_t> m_index;
};

/// An object that offers nothing but the walk over a collection: what NewEnum gives.
Ref<Object> enumeratorOf(Ref<Object> collection);

/// What a host's collection may hold; more is error 7. One without an end would never let go.
inline constexpr std::int32_t mostItems = 1'000'000;

/// A walk over a collection of the library's or a host's, in order. An object without enumeration is walked by Count and
/// Item from 1; one that offers neither is error 451.
std::unique_ptr<Enumerator> walkOf(Object& collection);

/// Calls `visit` for each item of a collection of the library's or a host's, in order, until it returns false.
/// An object without enumeration is walked by Item from 1 to the Count it had at the start; one that lacks these too
/// is error 451.
void forEach(Object& collection, const std::function<bool(const Value&)>& visit);

}  // namespace canvas
