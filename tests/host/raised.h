#pragma once
// What a call raises, for expectations such as EXPECT_EQ(raisedBy([&] { column.Remove("x"); }), 5).

#include "host/errors.h"

namespace canvas {

/// The number of the run-time error that `call` raises; 0 when it raises none.
template <class Call>
int raisedBy(Call&& call) {
    try {
        call();
        return 0;
    } catch (const RuntimeError& error) {
        return error.number;
    }
}

}  // namespace canvas
