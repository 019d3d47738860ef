// What this process holds, as the C library and the kernel say.
#include "memory.h"

#include <malloc.h>

#include <fstream>
#include <string>

#include "check.h"

namespace bench {

void begin_without_memory_at_hand() {
    constexpr int of_a_new_process = 128 * 1024;
    mallopt(M_MMAP_THRESHOLD, of_a_new_process);
    malloc_trim(0);
}

size_t live_bytes() {
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

size_t dirty_bytes() {
    std::ifstream pages("/proc/self/smaps_rollup");
    std::string word;
    size_t kilobytes = 0;
    while (pages >> word)
        if (word == "Private_Dirty:" && pages >> kilobytes) return kilobytes * 1024;
    check(false, "the kernel says how many pages a process has written to");
    return 0;
}

}  // namespace bench
