// Counts the memory that a piece of work allocates.
#pragma once
#include <cstddef>

#include "objc/strong.h"

namespace bench {

/// Allocations of this process so far.
size_t allocations();
/// Those that have not been freed.
size_t live_allocations();

/// Allocations that one call of the work makes, after a first one has filled every cache. Pools are not
/// counted.
template <class Work>
size_t allocations_of(Work work) {
    size_t counted = 0;
    for (int i = 0; i < 2; ++i) {
        objc::AutoreleasePool pool;
        const size_t before = allocations();
        work();
        counted = allocations() - before;
    }
    return counted;
}

}  // namespace bench
