// Counts the memory that a piece of work allocates.
#pragma once
#include <cstddef>

namespace bench {

/// Allocations of this process so far.
size_t allocations();

/// Allocations that one call of the work makes, after a first one has filled every cache.
template <class Work>
size_t allocations_of(Work work) {
    work();
    const size_t before = allocations();
    work();
    return allocations() - before;
}

}  // namespace bench
