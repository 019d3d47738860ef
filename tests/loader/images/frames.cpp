// Calls back into the host from frames with clean-ups, a handler, or neither.
namespace {

struct Cleanup {
    int* count;
    ~Cleanup() { ++*count; }
};

}  // namespace

extern "C" {

void frames_with_cleanups(void (*callback)(), int* count) {
    Cleanup outer{count};
    {
        Cleanup inner{count};
        callback();
    }
    callback();
}

int frames_with_handler(void (*callback)()) {
    try {
        callback();
        return 0;
    } catch (...) {
        return 1;
    }
}

// So many variables that their size does not fit the encoding.
void frames_large(void (*callback)(), int* count) {
    Cleanup cleanup{count};
    char large[5000];
    asm volatile("" : : "r"(large) : "memory");
    callback();
}

// Has a directive without an encoding (it says that no arguments are pushed), so that only DWARF describes
// the frame.
void frames_dwarf(void (*callback)(), int* count) {
    Cleanup cleanup{count};
    asm volatile(".cfi_escape 0x2e, 0x00");
    callback();
}

void frames_without_cleanups(void (*callback)()) {
    callback();
    asm volatile("");  // no tail call
}

}  // extern "C"
