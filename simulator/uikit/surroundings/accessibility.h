// What VoiceOver says of objects.
#pragma once
#include "platform/uikit.h"

namespace sim {

/// Gives Foundation's NSObject the methods that UIKit adds to every object. Called once, at boot, before the
/// system's classes are registered.
void add_accessibility_to_objects();

}  // namespace sim
