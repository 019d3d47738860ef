// Finding what is on the screen by what it is called.
#pragma once
#include <string>

#include "platform/application.h"

namespace sim {

/// Taps the frontmost view that VoiceOver calls so. False, and why, when there is none that can be touched.
bool tap_label(NSString* label, std::string& error);

}  // namespace sim
