// What this process holds.
#pragma once
#include <cstddef>

namespace bench {

/// Bytes that were allocated and have not been freed.
size_t live_bytes();
/// Bytes in pages that this process alone has written to.
size_t dirty_bytes();

}  // namespace bench
