// Instance variables of the system's classes, by name.
#pragma once
#include "objc/runtime.h"

namespace objc {

/// The instance variable of that name, of the type of its values: `instance_variable<UIView*>(cell,
/// "_label")`. The receiver's class must have it: without it there is nothing to refer to.
template <class T>
T& instance_variable(id object, const char* name) {
    Ivar variable = class_getInstanceVariable(object_getClass(object), name);
    return *reinterpret_cast<T*>(reinterpret_cast<char*>(object) + ivar_getOffset(variable));
}

}  // namespace objc
