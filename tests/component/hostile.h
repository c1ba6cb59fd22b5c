#pragma once
// What the tests of hostile hosts share: tables of a behaviour and of what comes of it.

#include <gtest/gtest.h>

#include "host/array.h"
#include "tests/component/fake_host.h"
#include "tests/host/raised.h"

namespace canvas::component::testing {

using Be = std::function<void(FakeHost&)>;
using Use = std::function<Value(Object&)>;

struct Hostile {
    const char* behaviour;
    Be be;
    Use use;
    Value gives;    ///< when no error is raised
    int error = 0;  ///< else
};

inline void run(const Hostile& row) {
    SCOPED_TRACE(row.behaviour);
    const auto host = makeHost();
    row.be(*host.get());
    const Ref<Object> object = asObject(host);
    Value given;
    EXPECT_EQ(raisedBy([&] { given = row.use(*object); }), row.error);
    if (row.error == 0) {
        EXPECT_EQ(given, row.gives);
    }
}

inline Value numbers(int count) {
    Array array = Array::of("Variant", {{0, count - 1}});
    for (int i = 0; i < count; ++i) array.at(i) = Value(std::int32_t{i});
    return Value(std::move(array));
}

inline FakeHost::Member failing(HRESULT result) {
    return [result](const HostCall&) { return result; };
}
inline FakeHost::Member raising(int number, std::string description) {
    return [=](const HostCall& call) { return fail(call, number, description); };
}

}  // namespace canvas::component::testing
