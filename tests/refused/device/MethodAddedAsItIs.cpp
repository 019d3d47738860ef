// refused: no known conversion from 'IMP' (aka 'void (*)()') to 'objc::Handed<void ()>'
#include "objc/runtime.h"

void add(Class owner, SEL selector, IMP implementation) {
#ifdef CORRECTED
    class_addMethod(owner, selector, objc::hand_over(implementation), "v16@0:8");
#else
    class_addMethod(owner, selector, implementation, "v16@0:8");
#endif
}
