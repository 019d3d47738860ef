// What this process holds.
#pragma once
#include <cstddef>

namespace bench {

/// As a process that has just begun: what this one freed is given back, and large blocks come from the kernel
/// each time again. What is measured would use memory otherwise that is counted already.
void begin_without_memory_at_hand();

/// Bytes that were allocated and have not been freed.
size_t live_bytes();
/// Bytes in pages that this process alone has written to.
size_t dirty_bytes();

}  // namespace bench
