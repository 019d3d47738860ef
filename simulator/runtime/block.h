// Calling blocks, and keeping them.
#pragma once
#include "objc/abi.h"
#include "platform/foundation.h"

extern "C" void* _Block_copy(const void*);

namespace sim {

/// A block that outlives the frame that made it; nil for nil.
inline objc::strong<NSObject> kept_block(id block) {
    return objc::adopt(static_cast<NSObject*>(_Block_copy(block)));
}

/// Calls a block without a result; nil does nothing.
template <class... Arguments>
void call_block(id block, Arguments... arguments) {
    struct Layout {
        Class isa;
        uint32_t flags;
        int32_t reserved;
        void (*invoke)();
    };
    if (!block) return;
    auto* invoke = reinterpret_cast<Layout*>(block)->invoke;
    reinterpret_cast<void (*)(id, objc::Crossing<Arguments>...)>(invoke)(
        block, objc::departing<Arguments>(arguments)...);
}

}  // namespace sim
