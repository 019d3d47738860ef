// Associated objects: values that are attached to an object under a key and go with it.
#pragma once
#include "objc/runtime.h"

namespace sim {

/// Lets go of all that is attached to an object, which is being deallocated.
void drop_associated_objects(id owner);

}  // namespace sim
