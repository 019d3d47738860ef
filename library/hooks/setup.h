// The set-up: the first of the two initialisers.
#pragma once

namespace hooks {

/// Decides whether this process is one to act in, and installs the hook table. Without an argument vector, in
/// any other process, and with theming off, the keyboard is left as it is.
void set_up();

}  // namespace hooks
