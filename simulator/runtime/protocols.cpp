// What a protocol says of its methods, the optional ones included, which libobjc knows nothing of.
#include <algorithm>
#include <span>

#include "objc/protocol_registered.h"
#include "runtime/exported.h"

namespace sim {
namespace {

/// Those that the protocol itself lists.
std::span<const objc_method_description> methods_of(id protocol, bool required, bool instance) {
    if (!protocol) return {};
    auto* part = reinterpret_cast<objc::GnuProtocol*>(protocol);
    if (!required) {
        id optional = objc_getProtocol(objc::name_of_optional_part(part->name).c_str());
        if (!optional) return {};
        part = reinterpret_cast<objc::GnuProtocol*>(optional);
    }
    const objc::GnuMethodList* list = instance ? part->instance_methods : part->class_methods;
    if (!list) return {};
    return {list->methods, static_cast<size_t>(list->count)};
}

}  // namespace
}  // namespace sim

// Both stand before libobjc's functions of the names.
SIM_EXPORTED objc_method_description protocol_getMethodDescription(id protocol, SEL selector, BOOL required,
                                                                   BOOL instance) {
    for (const auto& method : sim::methods_of(protocol, required, instance))
        if (sel_isEqual(method.name, selector)) return method;
    return {nullptr, nullptr};
}

SIM_EXPORTED objc_method_description* protocol_copyMethodDescriptionList(id protocol, BOOL required,
                                                                         BOOL instance, unsigned* count) {
    const auto methods = sim::methods_of(protocol, required, instance);
    if (count) *count = static_cast<unsigned>(methods.size());
    if (methods.empty()) return nullptr;
    auto* copy = static_cast<objc_method_description*>(
        std::calloc(methods.size() + 1, sizeof(objc_method_description)));
    std::ranges::copy(methods, copy);
    return copy;
}
