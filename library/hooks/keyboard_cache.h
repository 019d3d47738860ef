// The system's cache of keyboard images, which would show keys in the colours of an earlier theme.
#pragma once
#include "platform/foundation.h"

namespace hooks {

/// After SpringBoard's launch: removes the cache folder, if it is one. A failure is not reported.
void remove_keyboard_cache(NSObject* springboard, id application);

}  // namespace hooks
