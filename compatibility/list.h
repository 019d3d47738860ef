// Lists whose memory is the C library's: no C++ library stands behind the command on the device.
#pragma once
#include <cstdlib>
#include <vector>

namespace compatibility {

template <class T>
struct PlainMemory {
    using value_type = T;

    PlainMemory() = default;
    template <class Other>
    PlainMemory(const PlainMemory<Other>&) {}

    T* allocate(size_t count) {
        void* memory = std::malloc(count * sizeof(T));
        if (!memory) __builtin_trap();
        return static_cast<T*>(memory);
    }
    void deallocate(T* memory, size_t) { std::free(memory); }
    friend bool operator==(PlainMemory, PlainMemory) { return true; }
};

template <class T>
using List = std::vector<T, PlainMemory<T>>;

}  // namespace compatibility
