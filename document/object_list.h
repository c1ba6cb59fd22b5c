#pragma once
// A growable array of object references whose first entry needs no allocation: most edit records hold one object.

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "host/object.h"

namespace canvas {

/// Places count from 0; one outside is error 9.
class ObjectList {
public:
    std::size_t size() const noexcept { return m_size; }
    bool empty() const noexcept { return m_size == 0; }

    const Ref<Object>& at(std::int32_t place) const {
        if (place < 0 || static_cast<std::size_t>(place) >= m_size) raise(Error::subscript);
        return place == 0 ? m_first : m_rest[static_cast<std::size_t>(place) - 1];
    }
    Ref<Object>& at(std::int32_t place) { return const_cast<Ref<Object>&>(std::as_const(*this).at(place)); }

    /// Makes `last` the last place, growing or cutting, and gives its entry. A place before the first is error 9.
    Ref<Object>& endAt(std::int32_t last) {
        if (last < 0) raise(Error::subscript);
        const auto behindFirst = static_cast<std::size_t>(last);
        if (m_rest.size() == behindFirst) {  // it is there, or the first one comes
            m_size = behindFirst + 1;
            return at(last);
        }
        std::vector<Ref<Object>> cut;  // the end of what is cut off may be a host's, and come back here
        while (m_rest.size() > behindFirst) {
            cut.push_back(std::move(m_rest.back()));
            m_rest.pop_back();
        }
        m_rest.resize(behindFirst);
        m_size = behindFirst + 1;
        return at(last);
    }

private:
    Ref<Object> m_first;
    std::vector<Ref<Object>> m_rest;
    std::size_t m_size = 0;
};

}  // namespace canvas
