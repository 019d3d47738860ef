// What leaves the simulator's shared object: the C interface and the system functions that the library
// imports.
#pragma once

/// Marks a function that other modules find by its symbol; everything else is hidden:
///
///     SIM_EXPORTED void UIGraphicsPushContext(CGContextRef);
///
/// A macro, because an attribute cannot be given a name in any other way.
#define SIM_EXPORTED extern "C" [[gnu::visibility("default"), gnu::used]]
