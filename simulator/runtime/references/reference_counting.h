// Retain counts: what GNUstep's root class has to do beyond its own when the last reference goes.
#pragma once

namespace sim {

/// Gives NSObject a -release that clears weak references with the last reference, and a -dealloc that lets go
/// of associated objects. Called once, before any object that matters exists.
void install_reference_counting();

}  // namespace sim
