// A library that asks for what nobody has.
extern "C" void sample_function_that_nobody_has();
extern "C" [[gnu::visibility("default")]] void sample_need() { sample_function_that_nobody_has(); }
