// Counts allocations: the process's own malloc in front of libc's.
#include "allocations.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>

namespace {
std::atomic<size_t> count, freed;
}

size_t bench::allocations() { return count; }
size_t bench::live_allocations() { return count - freed; }

extern "C" {
void* __libc_malloc(size_t);
void* __libc_calloc(size_t, size_t);
void* __libc_realloc(void*, size_t);
void* __libc_memalign(size_t, size_t);
void __libc_free(void*);

// Visible, so that the libraries' calls come here as well.
[[gnu::visibility("default")]] void* malloc(size_t size) {
    ++count;
    return __libc_malloc(size);
}
[[gnu::visibility("default")]] void* calloc(size_t nmemb, size_t size) {
    ++count;
    return __libc_calloc(nmemb, size);
}
[[gnu::visibility("default")]] void* realloc(void* ptr, size_t size) {
    ++count;
    if (ptr) freed += size ? 1 : 2;  // to nothing: only freed
    return __libc_realloc(ptr, size);
}
[[gnu::visibility("default")]] void* aligned_alloc(size_t alignment, size_t size) {
    ++count;
    return __libc_memalign(alignment, size);
}
[[gnu::visibility("default")]] int posix_memalign(void** memptr, size_t alignment, size_t size) {
    *memptr = aligned_alloc(alignment, size);
    return *memptr ? 0 : ENOMEM;
}
[[gnu::visibility("default")]] void free(void* ptr) {
    if (ptr) ++freed;
    __libc_free(ptr);
}
}
