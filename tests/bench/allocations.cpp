// Counts allocations: the process's own malloc in front of libc's.
#include "allocations.h"

#include <atomic>
#include <cstdlib>

namespace {
std::atomic<size_t> count;
}

size_t bench::allocations() { return count; }

extern "C" {
void* __libc_malloc(size_t);
void* __libc_calloc(size_t, size_t);
void* __libc_realloc(void*, size_t);

// Visible, so that the libraries' calls come here as well.
[[gnu::visibility("default")]] void* malloc(size_t size) {
    ++count;
    return __libc_malloc(size);
}
[[gnu::visibility("default")]] void* calloc(size_t items, size_t size) {
    ++count;
    return __libc_calloc(items, size);
}
[[gnu::visibility("default")]] void* realloc(void* memory, size_t size) {
    ++count;
    return __libc_realloc(memory, size);
}
}
