// Zeroing weak references: variables that are cleared in the same step in which their object's last reference
// goes.
#pragma once
#include "objc/runtime.h"

namespace sim {

/// Gives up one reference. True with the last one; no weak reference to the object is left by then, and none
/// can be turned into a strong one in between.
bool drop_reference(id object);

/// Clears the weak references to an object that is being deallocated.
void clear_weak_references(id object);

/// The object's memory is about to be given back. From its last reference to this, no weak reference to it
/// can be formed.
void end_deallocation(id object);

}  // namespace sim
