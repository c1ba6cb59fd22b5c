#include "host/collection.h"

#include <bit>

#include "host/numbers.h"
#include "host/text.h"

namespace canvas {
namespace {

constexpr std::size_t linearLimit = 8;
constexpr std::size_t absent = static_cast<std::size_t>(-1);

/// A key in lower case, kept where it is when it needs no change.
class Folded {
public:
    explicit Folded(std::string_view key) : m_view(key) {
        for (const char c : key) {
            const bool asItIs = (c < 'A' || c > 'Z') && static_cast<unsigned char>(c) < 0x80;
            if (asItIs) continue;
            m_view = m_own = text::lower(key);
            return;
        }
    }
    Folded(const Folded&) = delete;
    Folded& operator=(const Folded&) = delete;
    std::string_view view() const noexcept { return m_view; }

private:
    std::string m_own;
    std::string_view m_view;
};

/// Short keys, which most are, without a call.
std::size_t hashOf(std::string_view key) noexcept {
    if (key.size() > sizeof(std::uint64_t)) return std::hash<std::string_view>()(key);
    std::uint64_t bytes = 0;
    for (const char c : key) bytes = bytes << 8U | static_cast<unsigned char>(c);
    bytes *= 0x9E3779B97F4A7C15U;
    return static_cast<std::size_t>(bytes >> 32U);
}

}  // namespace

std::span<const Member> Collection::table() noexcept {
    static constexpr Member members[] = {
        property<&Collection::Count, nullptr>("Count"),
        byDefault(method<&Collection::Item>("Item")),
        method<&Collection::addLateBound>("Add", 1),
        method<&Collection::Remove>("Remove"),
    };
    return members;
}

void Collection::Add(Value item) { m_entries.push_back({std::move(item), {}, false, ++m_lastSerial}); }

void Collection::Add(Value item, std::string_view key) {
    if (!addNew(std::move(item), key)) raise(Error::keyExists);
}

bool Collection::addNew(Value item, std::string_view key) {
    const Folded folded(key);
    const bool indexed = !m_index.empty() || m_entries.size() >= linearLimit;
    if (indexed && m_index.size() < 2 * (m_entries.size() + 1)) buildIndex();
    std::uint32_t* const slot = indexed ? &slotOf(folded.view()) : nullptr;
    if (slot ? *slot != 0 : placeOfKey(folded.view()) != absent) return false;
    std::string kept(folded.view());
    Entry& entry = m_entries.emplace_back();  // filled in place, and from here on nothing fails
    entry.key = std::move(kept);
    entry.item = std::move(item);
    entry.keyed = true;
    entry.serial = ++m_lastSerial;
    if (slot) *slot = static_cast<std::uint32_t>(m_entries.size());
    return true;
}

void Collection::addLateBound(const Value& item, const Value& key) {
    if (key.is(Kind::empty)) return Add(item);
    if (!key.text()) raise(Error::typeMismatch);
    Add(item, *key.text());
}

void Collection::Remove(const Value& index) { removeAt(placeOf(index)); }

void Collection::removeAt(std::size_t zeroBased) {
    if (zeroBased >= m_entries.size()) raise(Error::subscript);
    // The item goes last: its destructor may be a host's, and come back here.
    const Entry removed = std::move(m_entries[zeroBased]);
    m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(zeroBased));
    const bool indexHolds = zeroBased == m_entries.size() && !removed.keyed;
    if (!indexHolds) m_index.clear();
}

void Collection::Clear() noexcept {
    m_index.clear();
    const std::vector<Entry> removed = std::exchange(m_entries, {});
}

const Value& Collection::at(std::int32_t place) const {
    if (place < 1 || place > Count()) raise(Error::subscript);
    return m_entries[static_cast<std::size_t>(place) - 1].item;
}

const Value* Collection::find(std::string_view key) const {
    const std::size_t place = placeOfKey(Folded(key).view());
    return place == absent ? nullptr : &m_entries[place].item;
}

std::size_t Collection::placeOf(const Value& index) const {
    switch (index.kind()) {
        case Kind::text: {
            const std::size_t place = placeOfKey(Folded(*index.text()).view());
            if (place == absent) raise(Error::invalidCall);
            return place;
        }
        case Kind::integer:
        case Kind::longInteger:
        case Kind::singleFloat:
        case Kind::doubleFloat: {
            const double place = index.toDouble();
            // 0.5 rounds to 0. A place that is no 32-bit number is as absent as any other: error 9, not 6.
            if (!(place > 0.5 && place <= static_cast<double>(m_entries.size()) + 0.5)) raise(Error::subscript);
            const std::int32_t rounded = numbers::roundToLong(place);
            if (rounded > Count()) raise(Error::subscript);
            return static_cast<std::size_t>(rounded) - 1;
        }
        default: raise(Error::typeMismatch);
    }
}

std::size_t Collection::placeOfKey(std::string_view foldedKey) const {
    if (m_index.empty() && m_entries.size() > linearLimit) buildIndex();
    if (!m_index.empty()) return std::size_t{slotOf(foldedKey)} - 1;  // a free slot, 0, gives `absent`
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        if (m_entries[i].keyed && m_entries[i].key == foldedKey) return i;
    return absent;
}

void Collection::buildIndex() const {
    m_index.assign(std::bit_ceil(4 * (m_entries.size() + 1)), 0);
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        if (m_entries[i].keyed) slotOf(m_entries[i].key) = static_cast<std::uint32_t>(i + 1);
}

std::uint32_t& Collection::slotOf(std::string_view foldedKey) const {
    const std::size_t mask = m_index.size() - 1;
    std::size_t slot = hashOf(foldedKey) & mask;
    while (m_index[slot] != 0 && m_entries[m_index[slot] - 1].key != foldedKey) slot = (slot + 1) & mask;
    return m_index[slot];
}

class Collection::Walker final : public Enumerator {
public:
    explicit Walker(Collection& collection) : m_collection(&collection) {}

    bool next(Value& item) override {
        const std::vector<Entry>& entries = m_collection->m_entries;
        // Removals move the entries that are still to come towards the front, never back.
        std::size_t place = std::min(m_place, entries.size());
        while (place > 0 && entries[place - 1].serial > m_serial) --place;
        if (place == entries.size()) return false;
        m_serial = entries[place].serial;
        m_place = place + 1;
        Value found = entries[place].item;  // what `item` held may end here, and change the collection
        std::swap(item, found);
        return true;
    }

private:
    Ref<Collection> m_collection;
    std::size_t m_place = 0;
    std::uint64_t m_serial = 0;
};

std::unique_ptr<Enumerator> Collection::enumerate() { return std::make_unique<Walker>(*this); }

void Collection::reportVariables(VariableSink& sink) const {
    sink.variable("Count", Count());
    for (std::int32_t place = 1; place <= Count(); ++place)
        sink.variable("Item(" + numbers::textOf(place) + ")", at(place));
}

namespace {

/// A member that a collection must have.
Value collectionMember(Object& object, std::string_view name, Args args = {}) {
    try {
        return object.get(name, args);
    } catch (const RuntimeError& error) {
        if (error.number != static_cast<int>(Error::noSuchMember)) throw;
        raise(Error::notACollection);
    }
}

}  // namespace

namespace {

/// Walks by Count, taken once, and Item.
class ByPlace final : public Enumerator {
public:
    explicit ByPlace(Object& collection)
        : m_collection(&collection), m_count(collectionMember(collection, "Count").toLong()) {
        if (m_count > mostItems) raise(Error::outOfMemory);
    }

    bool next(Value& item) override {
        if (m_place >= m_count) return false;
        Value index = ++m_place;
        item = collectionMember(*m_collection, "Item", Args(&index, 1));
        return true;
    }

private:
    Ref<Object> m_collection;
    std::int32_t m_count;
    std::int32_t m_place = 0;
};

}  // namespace

namespace {

class WalkOnly final : public Object {
public:
    explicit WalkOnly(Ref<Object> collection) : m_collection(std::move(collection)) {}
    std::string_view className() const noexcept override { return "Enumerator"; }
    std::unique_ptr<Enumerator> enumerate() override { return m_collection->enumerate(); }

private:
    Ref<Object> m_collection;
};

}  // namespace

Ref<Object> enumeratorOf(Ref<Object> collection) { return make<WalkOnly>(std::move(collection)); }

std::unique_ptr<Enumerator> walkOf(Object& collection) {
    if (auto enumerator = collection.enumerate()) return enumerator;
    return std::make_unique<ByPlace>(collection);
}

void forEach(Object& collection, const std::function<bool(const Value&)>& visit) {
    const auto walk = walkOf(collection);
    Value item;
    while (walk->next(item))
        if (!visit(item)) return;
}

}  // namespace canvas
