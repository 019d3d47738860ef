// Bytes on their way into an NSData, which takes the memory over: those of large pictures are not cleared
// before, nor copied.
#pragma once
#include <cstdlib>
#include <memory>
#include <new>

#include "platform/foundation.h"

namespace sim {

class RawBytes {
  public:
    RawBytes() = default;
    /// Of so many bytes, which are whatever they are.
    explicit RawBytes(size_t size) { resize(size); }

    void resize(size_t size) {
        char* const before = memory_.release();
        void* const after = std::realloc(before, size ? size : 1);
        memory_.reset(after ? static_cast<char*>(after) : before);
        if (!after) throw std::bad_alloc();
        size_ = size;
    }
    char* data() { return memory_.get(); }
    size_t size() const { return size_; }

    /// What the object of NSData, which was allocated, becomes with the bytes. They are gone from here.
    NSData* initialise(NSData* data) {
        const NSUInteger size = size_;
        if (!size)
            return data->send<"initWithBytes:length:", NSData*>(static_cast<const void*>(nullptr), size);
        return data->send<"initWithBytesNoCopy:length:freeWhenDone:", NSData*>(
            static_cast<void*>(memory_.release()), size, true);
    }

  private:
    struct Free {
        void operator()(char* memory) const { std::free(memory); }
    };
    std::unique_ptr<char, Free> memory_;
    size_t size_ = 0;
};

}  // namespace sim
