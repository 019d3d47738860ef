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

void* malloc(size_t size) {
    ++count;
    return __libc_malloc(size);
}
void* calloc(size_t items, size_t size) {
    ++count;
    return __libc_calloc(items, size);
}
void* realloc(void* memory, size_t size) {
    ++count;
    return __libc_realloc(memory, size);
}
}
