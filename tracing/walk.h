#pragma once
// A walk over a host's collection as statements of a procedure.

#include "host/collection.h"
#include "tracing/branch.h"

namespace canvas::tracing {

/// Inside a step of `run`: takes the items one by one, each a statement of its own, so that a retry repeats the failing
/// item alone and a failing item can be passed over.
template <class Run, class Use>
Flow eachItem(Run& run, const Ref<Object>& collection, Use&& use) {
    std::unique_ptr<Enumerator> walk;
    if (run([&] { walk = walkOf(required(collection)); }) == Flow::leave) return Flow::leave;
    for (bool more = static_cast<bool>(walk); more;) {
        Value item;
        bool reached = false;
        const Flow flow = run([&] { reached = more = walk->next(item); },
                              [&] {
                                  if (reached) use(std::as_const(item));
                              });
        if (flow == Flow::leave) return Flow::leave;
    }
    return Flow::next;
}

}  // namespace canvas::tracing
