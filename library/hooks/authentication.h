// What is decided first in a process that authenticates the addresses of functions, which no device of ours
// has shown us.
#pragma once

namespace hooks {

/// Whether signatures are what the library takes them to be. Where they are not, it touches nothing.
bool signatures_agree();

}  // namespace hooks
