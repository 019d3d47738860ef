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

/// What calling it calls.
IMP function_of_block(id block);

/// Calls a block without a result; nil does nothing.
template <class... Arguments>
void call_block(id block, Arguments... arguments) {
    if (!block) return;
    reinterpret_cast<void (*)(id, objc::Crossing<Arguments>...)>(function_of_block(block))(
        block, objc::departing<Arguments>(arguments)...);
}

}  // namespace sim
