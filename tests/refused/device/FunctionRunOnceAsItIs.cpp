// refused: to 'objc::Handed<void (void *)>'
#include "objc/runtime.h"

void start(void*) {}

void run(long* once) {
#ifdef CORRECTED
    dispatch_once_f(once, nullptr, objc::hand_over(&start));
#else
    dispatch_once_f(once, nullptr, &start);
#endif
}
