// A library that stops the process that loads it.
#include <cstdlib>

[[gnu::constructor]] static void stop() { std::abort(); }
