// The command without processes of its own: what it does on phones, it does on the one of this process.
#pragma once
#include "cli/workshop.h"

namespace fuzz {

/// With the phone on and the library loaded, from the first call to the end.
const command::Workshop& workshop();

}  // namespace fuzz
