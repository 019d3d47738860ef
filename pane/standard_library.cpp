// What the standard library's headers leave to a library of its own, for the device: memory, and the
// functions of strings.
#ifdef __APPLE__
#include <stdlib.h>

#include <new>
#include <string>

void* operator new(size_t size) {
    void* memory = malloc(size);
    if (!memory) __builtin_trap();
    return memory;
}
void operator delete(void* memory) noexcept { free(memory); }
void operator delete(void* memory, size_t) noexcept { free(memory); }

template class std::basic_string<char>;
#endif
