// Who typing goes to.
#pragma once
#include "platform/uikit.h"

namespace sim {

/// nil when there is none, or when it is a view that has left its window.
UIResponder* first_responder();
void set_first_responder(UIResponder*);

}  // namespace sim
