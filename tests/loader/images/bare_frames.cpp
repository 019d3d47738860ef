// Built without exceptions: only passes them on.
struct BareCleanup {
    int* count;
    ~BareCleanup() { ++*count; }
};

extern "C" void bare_frames(void (*callback)(), int* count) {
    BareCleanup cleanup{count};
    callback();
}
