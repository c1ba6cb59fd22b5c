#pragma once
// How values show in a failed expectation.

#include <ostream>

#include "host/value.h"

namespace canvas {

inline void PrintTo(const Value& value, std::ostream* out) {
    *out << value.typeName();
    switch (value.kind()) {
        case Kind::boolean:
        case Kind::integer:
        case Kind::longInteger:
        case Kind::singleFloat:
        case Kind::doubleFloat:
        case Kind::text: *out << ' ' << value.toText(); break;
        default: break;
    }
}

}  // namespace canvas
