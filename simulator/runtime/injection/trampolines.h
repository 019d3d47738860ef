// Implementations that decide at each call what is called: what an injection framework leaves in its slots.
#pragma once
#include "objc/runtime.h"

namespace sim {

/// Calls what the owner's superclass does for the selector at that moment.
IMP trampoline_to_superclass(Class owner, SEL selector);

/// Waits until the slot holds something else, and calls that. Meant to stand in the slot itself.
IMP trampoline_to_slot(IMP* slot);

}  // namespace sim
