// Objects that write down what they are sent.
#pragma once
#include <string>
#include <vector>

#include "platform/controls.h"
#include "support/runtime.h"

namespace test {

/// What the recorders were sent, in order.
std::vector<std::string>& heard();
/// The same, and forgets it.
std::vector<std::string> just_heard();
using Heard = std::vector<std::string>;

/// A new target: pressed, pressedBy: and pressedBy:event: are written down, the sender by its tag.
objc::strong<NSObject> recording_target();

/// A new view that writes down touches and where they are in it, with its tag.
objc::strong<UIView> touch_recording_view(CGRect frame, NSInteger tag);

SEL sel(const char* name);

}  // namespace test
