// A method of the system's that only answers, to compare hooks with that only answer.
#pragma once
#include "objc/runtime.h"

/// A class whose -defaultKeyBackgroundColorName does nothing but answer a constant string. The model's own
/// method, which has the hook now, looks at the keyboard's configuration first, and would be a slower thing
/// to compare with. In a library of its own, as the system's methods are: a processor takes longer to jump
/// from a program into a library than within the program.
extern "C" [[gnu::visibility("default")]] id bench_answering_class();
