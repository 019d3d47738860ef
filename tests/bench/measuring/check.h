// What must hold for a measurement to mean what it says.
#pragma once
#include <cstdio>
#include <cstdlib>

namespace bench {

/// Ends the program, naming what does not hold.
inline void check(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "bench: does not hold: %s\n", what);
    std::exit(2);
}

}  // namespace bench
