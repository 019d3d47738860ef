// Leak checking, where the address sanitizer is at work.
#pragma once

extern "C" {
[[gnu::weak]] void __lsan_disable();
[[gnu::weak]] void __lsan_enable();
}

namespace sim {

/// What is allocated in its scope counts as no leak: the runtime's and Foundation's tables, made at boot and
/// kept in places that the checker does not see.
class LeakCheckingOff {
  public:
    LeakCheckingOff() {
        if (__lsan_disable) __lsan_disable();
    }
    LeakCheckingOff(const LeakCheckingOff&) = delete;
    LeakCheckingOff& operator=(const LeakCheckingOff&) = delete;
    ~LeakCheckingOff() {
        if (__lsan_enable) __lsan_enable();
    }
};

}  // namespace sim
