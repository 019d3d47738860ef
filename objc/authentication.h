// Whether the runtime signs the addresses of methods as this library takes it to.
#pragma once
#include "objc/runtime.h"

namespace objc {

/// Whether the runtime's answer for a method of ours is what hand_over() makes of the address in it. A wrong
/// signature shows here, before anything is called. Where no address is authenticated, it always is.
inline bool answers_as_handed_over([[maybe_unused]] Class owner, [[maybe_unused]] SEL selector) {
#if defined(__APPLE__) && defined(__aarch64__)
    if (!authenticates_addresses()) return true;
    const Handed<void()> answer = class_getMethodImplementation(owner, selector);
    return answer.address == hand_over(take_back(answer)).address;
#else
    return true;
#endif
}

}  // namespace objc
