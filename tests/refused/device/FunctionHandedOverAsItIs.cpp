// refused: no known conversion from 'IMP' (aka 'void (*)()') to 'objc::Handed<void ()>'
#include "platform/substrate.h"

void hook(Class owner, SEL selector, IMP replacement, objc::Handed<void()>* previous) {
#ifdef CORRECTED
    MSHookMessageEx(owner, selector, objc::hand_over(replacement), previous);
#else
    MSHookMessageEx(owner, selector, replacement, previous);
#endif
}
