// The preference store as the hooks see it.
#pragma once
#include "model/HCPreferences.h"

namespace hooks {

/// The store that the hook bodies ask on every call. Filled by the set-up initialiser and kept for good.
extern constinit objc::lasting<HCPreferences> sharedPreferences;

}  // namespace hooks
