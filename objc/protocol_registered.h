// Protocols on Linux: made where the runtime has none of the name.
#pragma once
#include <cstring>

#include "objc/runtime.h"

// Known to libobjc alone: its runtime has no function that makes a protocol.
extern "C" void __objc_protocols_add_protocol(const char* name, id protocol);

namespace objc {

/// libobjc's protocol object. Without methods it answers what is asked of ours: whether a class conforms.
struct GnuProtocol {
    Class isa;
    char* name;
    void* protocols;
    void* instance_methods;
    void* class_methods;
};

inline id protocol_named(const char* name) {
    if (id known = objc_getProtocol(name)) return known;
    // It lives as long as the runtime, which keeps both pointers.
    auto* made = new GnuProtocol{objc_getClass("Protocol"), strdup(name), nullptr, nullptr, nullptr};
    __objc_protocols_add_protocol(made->name, reinterpret_cast<id>(made));
    return reinterpret_cast<id>(made);
}

}  // namespace objc
