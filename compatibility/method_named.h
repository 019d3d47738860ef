// Finds a method by the name that the hook table has for it.
#pragma once
#include <string_view>

#include "objc/runtime.h"

namespace compatibility {

/// The method of "-[Class selector]" or "+[Class selector]", inherited or not; null where there is none. The
/// class that it was looked for in, or its metaclass, is given if asked for.
inline Method method_named(std::string_view name, Class* searched = nullptr) {
    char text[256];
    const size_t size = name.copy(text, sizeof text - 1), space = name.find(' ');
    text[size - 1] = 0;  // instead of the bracket
    text[space] = 0;
    Class owner = objc_lookUpClass(text + 2);
    if (!owner) return nullptr;
    if (name[0] == '+') owner = object_getClass(reinterpret_cast<id>(owner));
    if (searched) *searched = owner;
    return class_getInstanceMethod(owner, sel_registerName(text + space + 1));
}

}  // namespace compatibility
