// What all fuzz targets share: a pool for each execution, and bytes taken as choices.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "objc/runtime.h"

namespace fuzz {

/// For the objects of one execution.
class Pool {
  public:
    Pool() : pool_(objc_autoreleasePoolPush()) {}
    Pool(const Pool&) = delete;
    ~Pool() { objc_autoreleasePoolPop(pool_); }

  private:
    void* pool_;
};

/// Bytes of an input, taken from its front. Beyond the end there are zeros.
class Bytes {
  public:
    Bytes(const uint8_t* data, size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

    bool empty() const { return rest_.empty(); }
    uint8_t byte() {
        if (empty()) return 0;
        const auto first = static_cast<uint8_t>(rest_[0]);
        rest_.remove_prefix(1);
        return first;
    }
    size_t below(size_t end) { return byte() % end; }
    /// From 0 to 1.
    double part() { return byte() / 255.0; }
    uint64_t number(size_t bytes) {
        uint64_t value = 0;
        while (bytes--) value = value << 8 | byte();
        return value;
    }
    /// As many bytes as the first says, or as there are.
    std::string_view counted() {
        const size_t count = byte();
        return next(count);
    }
    std::string_view next(size_t count) {
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }
    std::string_view rest() const { return rest_; }

  private:
    std::string_view rest_;
};

}  // namespace fuzz
