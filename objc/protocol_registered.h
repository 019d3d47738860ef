// Protocols on Linux: made where the runtime has none of the name.
#pragma once
#include <cstdlib>
#include <cstring>
#include <span>
#include <string>

#include "objc/runtime.h"

/// A method that a protocol lists, as both runtimes hand it out.
struct objc_method_description {
    SEL name;
    const char* types;
};

extern "C" {
// Known to libobjc alone: its runtime has no function that makes a protocol.
void __objc_protocols_add_protocol(const char* name, id protocol);

// libobjc's own know required methods alone; the simulator's, which stand before them, know the optional
// ones, too.
objc_method_description protocol_getMethodDescription(id protocol, SEL, BOOL required, BOOL instance);
objc_method_description* protocol_copyMethodDescriptionList(id protocol, BOOL required, BOOL instance,
                                                            unsigned* count);
}

namespace objc {

/// libobjc's list of a protocol's methods.
struct GnuMethodList {
    int count;
    objc_method_description methods[];
};

/// libobjc's protocol object.
struct GnuProtocol {
    Class isa;
    char* name;
    void* protocols;
    GnuMethodList* instance_methods;
    GnuMethodList* class_methods;
};

struct ListedMethod {
    const char* selector;
    const char* types;
};
struct ProtocolMethods {
    std::span<const ListedMethod> on_instances, on_class;
};

namespace detail {
inline GnuMethodList* gnu_list(std::span<const ListedMethod> methods) {
    if (methods.empty()) return nullptr;
    auto* list = static_cast<GnuMethodList*>(
        std::malloc(sizeof(GnuMethodList) + methods.size() * sizeof(objc_method_description)));
    list->count = static_cast<int>(methods.size());
    for (size_t i = 0; i < methods.size(); ++i)
        list->methods[i] = {sel_registerName(methods[i].selector), strdup(methods[i].types)};
    return list;
}

// It lives as long as the runtime, which keeps both pointers.
inline id add_protocol(const char* name, const ProtocolMethods& methods) {
    auto* made = new GnuProtocol{objc_getClass("Protocol"), strdup(name), nullptr,
                                 gnu_list(methods.on_instances), gnu_list(methods.on_class)};
    __objc_protocols_add_protocol(made->name, reinterpret_cast<id>(made));
    return reinterpret_cast<id>(made);
}
}  // namespace detail

/// libobjc's protocols have no optional methods. Ours stand in one beside the protocol, under this name.
inline std::string name_of_optional_part(const char* protocol) { return std::string(protocol) + "?"; }

inline id protocol_named(const char* name, const ProtocolMethods& required = {},
                         const ProtocolMethods& optional = {}) {
    if (id known = objc_getProtocol(name)) return known;
    if (!optional.on_instances.empty() || !optional.on_class.empty())
        detail::add_protocol(name_of_optional_part(name).c_str(), optional);
    return detail::add_protocol(name, required);
}

}  // namespace objc
