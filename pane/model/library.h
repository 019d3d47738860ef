// Whether the library that is loaded is one that the pane can use.
#pragma once
#include "pane/texts.h"

namespace pane {

/// nil when all that the pane relies on is there; else what is wrong, in words: no library, or one that lacks
/// a class or a method. Without a theme no other class than HuecraftConfig and HCPreview is asked, and
/// neither is where something is wrong.
NSString* library_fault();

}  // namespace pane
