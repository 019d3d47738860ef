// The traits of the phone that was booted.
#pragma once
#include "platform/application.h"

namespace sim {

/// The same for every view: no part of the screen differs from the rest.
UITraitCollection* current_traits();

}  // namespace sim
