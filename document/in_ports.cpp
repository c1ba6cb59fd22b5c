#include "document/in_ports.h"

#include <algorithm>

#include "host/numbers.h"

namespace canvas {
namespace {

std::string keyOf(float id) { return numbers::textOf(id); }

clsBVTInPort& portIn(const Value& item) {
    auto* port = faceOf<clsBVTInPort>(required(item.toObject()));
    if (!port) raise(Error::typeMismatch);
    return *port;
}

void addTo(Collection& collection, Source source) {
    collection.Add(make<clsBVTInPort>(source.sngBlockID, source.blnFromTopPort), keyOf(source.sngBlockID));
}

}  // namespace

Source InPorts::operator[](std::size_t zeroBased) const {
    if (isRecords()) return m_sources[zeroBased];
    const clsBVTInPort& port = portIn((*m_collection)[zeroBased]);
    return {port.sngBlockID, port.blnFromTopPort};
}

std::vector<Source>::iterator InPorts::record(float id) const {
    return std::find_if(m_sources.begin(), m_sources.end(), [&](const Source& s) { return s.sngBlockID == id; });
}

bool InPorts::hasKey(std::int16_t id) const {
    const auto single = static_cast<float>(id);
    return isRecords() ? record(single) != m_sources.end() : m_collection->find(keyOf(single)) != nullptr;
}

void InPorts::reserve(std::int16_t count) {
    if (isRecords() && count > 0) m_sources.reserve(std::min(static_cast<std::size_t>(count), mostRecords));
}

bool InPorts::addNew(Source source) {
    if (isRecords() && m_sources.size() < mostRecords) {
        if (record(source.sngBlockID) != m_sources.end()) return false;
        m_sources.push_back(source);
        return true;
    }
    Collection& ports = *collection();
    if (ports.find(keyOf(source.sngBlockID))) return false;
    addTo(ports, source);
    return true;
}

void InPorts::add(Source source) {
    if (!addNew(source)) raise(Error::keyExists);
}

void InPorts::remove(float id) {
    if (!isRecords()) return m_collection->Remove(Value(keyOf(id)));
    const auto found = record(id);
    if (found == m_sources.end()) raise(Error::invalidCall);
    m_sources.erase(found);
}

void InPorts::setFromTopPort(std::int16_t id, bool fromTopPort) {
    const auto single = static_cast<float>(id);
    if (isRecords()) {
        const auto found = record(single);
        if (found != m_sources.end()) found->blnFromTopPort = fromTopPort;
    } else if (const Value* item = m_collection->find(keyOf(single))) {
        portIn(*item).blnFromTopPort = fromTopPort;
    }
}

void InPorts::clear() {
    m_sources = {};
    m_collection = nullptr;
}

Ref<Collection> InPorts::collection() const {
    if (isRecords()) {
        auto made = make<Collection>();
        for (const Source& source : m_sources) addTo(*made, source);
        m_sources = {};
        m_collection = std::move(made);
    }
    return m_collection;
}

void InPorts::replace(Ref<Collection> collection) {
    m_collection = Ref<Collection>(&required(collection));
    m_sources = {};
}

std::span<const Member> clsBVTInPort::table() noexcept {
    using C = clsBVTInPort;
    static constexpr Member members[] = {
        property<&C::sngBlockID>("BlockID"),
        property<&C::blnFromTopPort>("FromTopPort"),
    };
    return members;
}

void clsBVTInPort::reportVariables(VariableSink& sink) const {
    sink.variable("sngBlockID", sngBlockID);
    sink.variable("blnFromTopPort", blnFromTopPort);
}

}  // namespace canvas
