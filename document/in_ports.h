#pragma once
// The incoming connections of a block: plain records until a host asks for the collection, which then holds them.

#include <vector>

#include "document/in_port.h"
#include "host/collection.h"

namespace canvas {

/// One incoming connection by value; fields as in clsBVTInPort.
struct Source {
    float sngBlockID = 0;
    bool blnFromTopPort = false;
};

/// Ordered, keyed by the text of the source's ID. Most blocks have one or two entries that only this library looks at:
/// as records they cost eight bytes each instead of three allocations.
class InPorts {
public:
    InPorts() = default;
    InPorts(const InPorts&) = delete;
    InPorts& operator=(const InPorts&) = delete;

    std::size_t size() const noexcept { return m_collection ? m_collection->size() : m_sources.size(); }
    Source operator[](std::size_t zeroBased) const;

    /// Whether the key of an ID is taken.
    bool hasKey(std::int16_t id) const;
    /// Makes room for so many entries that are about to be added.
    void reserve(std::int16_t count);
    /// Adds an entry; false, and nothing changes, when the key of its ID is taken.
    bool addNew(Source source);
    /// Adds an entry under the key of its ID; error 457 when the key is taken.
    void add(Source source);
    /// Removes the entry under the key of an ID; error 5 when there is none.
    void remove(float id);
    /// Does nothing when the key is absent.
    void setFromTopPort(std::int16_t id, bool fromTopPort);
    void clear();

    /// The collection of clsBVTInPort that hosts see; the same object at every call until it is replaced.
    Ref<Collection> collection() const;
    void replace(Ref<Collection> collection);

private:
    static constexpr std::size_t mostRecords = 32;  ///< above it a search by key pays

    bool isRecords() const noexcept { return !m_collection; }
    std::vector<Source>::iterator record(float id) const;

    mutable std::vector<Source> m_sources;
    mutable Ref<Collection> m_collection;
};

}  // namespace canvas
