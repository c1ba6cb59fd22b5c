#pragma once
// Values: the arguments of one call, without an allocation.

#include <memory>
#include <utility>

#include "host/errors.h"
#include "host/value.h"

namespace canvas::component {

class Values {
public:
    /// No member of the library or of a host's objects takes as many.
    static constexpr std::size_t most = 16;

    Values() noexcept {}
    ~Values() { std::destroy_n(m_values, m_count); }
    Values(const Values&) = delete;
    Values& operator=(const Values&) = delete;

    void add(Value value) {
        if (m_count == most) raise(Error::argumentCount);
        std::construct_at(m_values + m_count, std::move(value));
        ++m_count;
    }
    Value& operator[](std::size_t i) noexcept { return m_values[i]; }
    Args args() noexcept { return {m_values, m_count}; }

private:
    union {
        Value m_values[most];
    };
    std::size_t m_count = 0;
};

}  // namespace canvas::component
