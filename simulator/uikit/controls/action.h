// Sending an action: a selector that takes nothing, the sender, or the sender and the event.
#pragma once
#include "platform/application.h"

namespace sim {

/// With as many arguments as the selector has colons; stops the process for more than two. A target that
/// does not respond raises.
void perform_action(id target, SEL action, id sender, UIEvent* event);

}  // namespace sim
